#include "host/app/batchJobs.h"

#include "host/app/exitStatus.h"
#include "host/app/exporterPlugin.h"
#include "host/app/prepareHost.h"
#include "host/app/process.h"
#include "host/mel/environment.h"

#include <atomic>
#include <exception>
#include <filesystem>
#include <fstream>
#include <future>
#include <iostream>
#include <map>
#include <optional>
#include <system_error>
#include <vector>

namespace host::app {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

/// What exports a scene of the list.
Words wordsOf(const BatchJob& job, const CommandLine& commandLine) {
    // With an ending the base cannot be taken for a folder.
    Words words = {programFolder() + "tvkexport",
                   "--project",
                   job.project,
                   "--settings",
                   job.settings,
                   "-o",
                   job.output + "." + kOutputKinds[0].ending};
    if (!job.roots.empty()) {
        words.push_back("--select=" + job.roots); // one word, so that a name may begin with '-'
    }
    if (!commandLine.plugin.empty() || !environmentValue("TVK_PLUGIN").value_or("").empty()) {
        std::error_code error;
        words.push_back("--plugin");
        words.push_back(fs::absolute(fs::u8path(findExporter(commandLine.plugin)), error).generic_u8string());
    }
    if (commandLine.strict) {
        words.emplace_back("--strict");
    }
    if (commandLine.quiet) {
        words.emplace_back("-q");
    }
    words.push_back(job.scene);
    return words;
}

/// Jobs by their place in the list, those that write the same files together.
std::vector<std::vector<std::size_t>> groupsOf(const std::vector<BatchJob>& jobs) {
    std::map<std::string, std::size_t> groupOfOutput;
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        const auto [found, isNew] = groupOfOutput.emplace(jobs[i].output, groups.size());
        if (isNew) {
            groups.emplace_back();
        }
        groups[found->second].push_back(i);
    }
    return groups;
}

/// The log of one scene, until it becomes part of the list's log.
std::string partOf(const std::string& log, std::size_t job) {
    return log + ".part" + std::to_string(job + 1);
}

void dropPart(const std::string& log, std::size_t job) {
    std::error_code ignored;
    fs::remove(fs::u8path(partOf(log, job)), ignored);
}

EndedProcess runJob(const BatchPlan& plan, std::size_t i, const CommandLine& commandLine) {
    Words words = wordsOf(plan.jobs[i], commandLine);
    if (!commandLine.quiet) {
        words.emplace_back("-q"); // a batch tells less than an export
    }
    if (!plan.log.empty()) {
        dropPart(plan.log, i); // of an earlier run that was killed
        words.insert(words.end(), {"--set", "batch_flag=1", "--set", "batch_log_path=" + partOf(plan.log, i)});
    }
    return runProgram(words);
}

bool appendToLog(const BatchPlan& plan, std::size_t i) {
    // Text mode: the line ends of the log are the system's, like those of the parts.
    std::ofstream log(fs::u8path(plan.log), std::ios::app);
    log << plan.jobs[i].head;
    std::ifstream part(fs::u8path(partOf(plan.log, i)));
    if (part.peek() != std::ifstream::traits_type::eof()) { // a scene that cannot be opened has none
        log << part.rdbuf();
    }
    part.close();
    log.close();
    dropPart(plan.log, i);
    return !log.fail();
}

/// Tells how a scene went, and moves its log into that of the list. Returns its ExitStatus.
int finishJob(Console& console, const BatchPlan& plan, std::size_t i, const EndedProcess& ended) {
    std::cerr << plan.jobs[i].title << ended.error << std::flush;
    if (ended.status < 0) {
        console.error("the export was killed, or could not be started: " + plan.jobs[i].scene);
    }
    if (!plan.log.empty() && !appendToLog(plan, i)) {
        console.error("the log cannot be written: " + plan.log);
        return kFailed;
    }
    return ended.status == kDone || ended.status == kDoneWithWarnings ? ended.status : kFailed;
}

/// Nobody may wait for the end of a process that could not even be thought of.
template <typename Work>
void settle(std::promise<EndedProcess>& end, const Work& work) {
    try {
        end.set_value(work());
    } catch (...) {
        end.set_exception(std::current_exception());
    }
}

std::optional<BatchPlan> readList(Host& host, Console& console, const CommandLine& commandLine, bool beginsLog) {
    return loadExporter(host, console, commandLine) ? planBatch(host, console, commandLine.batch, beginsLog)
                                                    : std::nullopt;
}

} // namespace

std::string shellQuoted(const std::string& word) {
    constexpr const char* kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-,=+:@%";
    if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) {
        return word;
    }
    std::string text = "'";
    for (const char c : word) {
        text += c == '\'' ? "'\\''" : std::string(1, c);
    }
    return text + "'";
}

int printJobs(Host& host, Console& console, const CommandLine& commandLine) {
    const std::optional<BatchPlan> plan = readList(host, console, commandLine, false);
    if (!plan) {
        return kFailed;
    }
    for (const std::vector<std::size_t>& group : groupsOf(plan->jobs)) {
        if (group.size() > 1) {
            console.warning("several scenes write the same files: " + plan->jobs[group[0]].output);
        }
    }
    for (const BatchJob& job : plan->jobs) {
        std::string line;
        for (const std::string& word : wordsOf(job, commandLine)) {
            line += (line.empty() ? "" : " ") + shellQuoted(word);
        }
        std::cout << line << '\n';
    }
    return commandLine.strict && console.warnings() != 0 ? kDoneWithWarnings : kDone;
}

int runJobs(Host& host, Console& console, const CommandLine& commandLine) {
    const std::optional<BatchPlan> plan = readList(host, console, commandLine, true);
    if (!plan) {
        return kFailed;
    }
    const std::vector<std::vector<std::size_t>> groups = groupsOf(plan->jobs);
    std::vector<std::promise<EndedProcess>> ends(plan->jobs.size());
    std::atomic<std::size_t> next{0};
    const auto work = [&] {
        for (std::size_t group = next++; group < groups.size(); group = next++) {
            for (const std::size_t i : groups[group]) {
                settle(ends[i], [&] { return runJob(*plan, i, commandLine); });
            }
        }
    };
    std::vector<std::future<void>> workers; // wait for their threads when they go
    for (int i = 0; i < commandLine.jobs && static_cast<std::size_t>(i) < groups.size(); ++i) {
        workers.push_back(std::async(std::launch::async, work));
    }
    bool hasFailed = false, wasWarned = false;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const int status = finishJob(console, *plan, i, ends[i].get_future().get());
        hasFailed = hasFailed || status == kFailed;
        wasWarned = wasWarned || status == kDoneWithWarnings;
    }
    if (hasFailed) {
        return kFailed;
    }
    std::cerr << plan->end;
    return wasWarned ? kDoneWithWarnings : kDone;
}

} // namespace host::app
