#include "host/app/Console.h"
#include "host/app/batchJobs.h"
#include "host/app/checkNames.h"
#include "host/app/commandLine.h"
#include "host/app/exitStatus.h"
#include "host/app/exportScene.h"
#include "host/app/process.h"
#include "host/app/reportFiles.h"
#include "host/app/runBatch.h"
#include "host/app/runScripts.h"
#include "host/app/showPreview.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace {

// Scenes may nest deeper than an ordinary stack is long.
constexpr std::size_t kStackBytes = sizeof(void*) >= 8 ? std::size_t{512} << 20U : std::size_t{64} << 20U;

using Use = int (*)(host::Host&, host::app::Console&, const host::app::CommandLine&);

Use useOf(const host::app::CommandLine& commandLine) {
    if (!commandLine.preview.empty()) {
        return host::app::showPreview;
    }
    if (!commandLine.reportOf.empty()) {
        return host::app::reportFiles;
    }
    if (commandLine.runsScripts()) {
        return host::app::runScripts;
    }
    if (commandLine.printsJobs || commandLine.jobs != 0) {
        return commandLine.printsJobs ? host::app::printJobs : host::app::runJobs;
    }
    if (!commandLine.batch.empty()) {
        return host::app::runBatch;
    }
    return commandLine.checksNames ? host::app::checkNames : host::app::exportScene;
}

int runHost(const host::app::CommandLine& commandLine) {
    host::Host& host = host::Host::instance();
    host::app::Console console(
        host, {commandLine.quiet, host::app::isErrorTerminal() && !commandLine.quiet && !commandLine.noProgress});
    try {
        return useOf(commandLine)(host, console, commandLine);
    } catch (const std::bad_alloc&) {
        console.error("out of memory");
    } catch (const std::exception& exception) {
        console.error(exception.what());
    }
    return host::app::kFailed;
}

host::app::ParsedCommandLine parse(const std::vector<std::string>& words) {
    std::vector<const char*> pointers(words.size());
    std::transform(words.begin(), words.end(), pointers.begin(), [](const std::string& word) { return word.c_str(); });
    return host::app::parseCommandLine(static_cast<int>(pointers.size()), pointers.data());
}

/// The status, unless what was printed on standard output did not arrive there.
int finish(int status) {
    std::cout.flush();
    if (std::cout.good()) {
        return status;
    }
    std::cerr << "Error: cannot write to standard output\n";
    return host::app::kFailed;
}

} // namespace

int main(int argumentCount, char** arguments) {
    host::app::prepareStreams();
    try {
        const host::app::ParsedCommandLine parsed = parse(host::app::programArguments(argumentCount, arguments));
        if (parsed.commandLine) {
            return finish(host::app::runWithStack(kStackBytes, [&] { return runHost(*parsed.commandLine); }));
        }
        std::cout << parsed.output;
        if (!parsed.error.empty()) {
            std::cerr << "Error: " << parsed.error << " (tvkexport --help tells more)\n";
        }
        return finish(parsed.exitStatus);
    } catch (const std::exception& exception) {
        std::cerr << "Error: " << exception.what() << '\n';
        return host::app::kFailed;
    }
}
