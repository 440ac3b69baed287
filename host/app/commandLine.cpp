#include "host/app/commandLine.h"

#include "host/app/exitStatus.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>

namespace host::app {

namespace {

constexpr int kMostJobs = 256; // more than one machine has any use for

constexpr const char* kFooter =
    "\nExit status: 0 done (warnings included), 1 failed, 2 done with warnings or, with --check, with names that are\n"
    "too long (--strict), 64 wrong usage.\n"
    "The exporter is tvk_export beside the program; --plugin or TVK_PLUGIN name another.";

bool isKind(const std::string& word) {
    return std::any_of(std::begin(kOutputKinds), std::end(kOutputKinds),
                       [&](const OutputKind& kind) { return word == kind.ending; });
}

/// The exporter splits its options at ';' and '=', so neither can stand in a key or value.
bool isSetting(const std::string& word) {
    const std::size_t equals = word.find('=');
    return equals != 0 && equals != std::string::npos && word.find('=', equals + 1) == std::string::npos &&
           word.find(';') == std::string::npos;
}

void addModes(CLI::App& app, CommandLine& line, std::string& target, std::string& jobs) {
    app.add_option("--batch", line.batch, "export the scenes of a list file")->type_name("LIST.z3be");
    app.add_option("--jobs", jobs, "share the scenes of the list among so many processes")->type_name("N");
    app.add_flag("--print-jobs", line.printsJobs, "print a shell command for each scene of the list, and run none");
    app.add_option("--preview", line.preview, "write a page that shows exported files: BASE.imd and what is beside it")
        ->type_name("BASE");
    app.add_option("--report-of", line.reportOf,
                   "print what exported files cost the console: BASE.imd and those beside it")
        ->type_name("BASE");
    app.add_flag("--check", line.checksNames, "print the names of the scene that are too long for the console");
    app.add_option("--target", target, "what to check: all (default), or selection: the --select'ed nodes")
        ->type_name("all|selection");
    app.add_option("--script", line.script, "run a MEL file after opening the scene, and export nothing by itself")
        ->type_name("FILE.mel");
    app.add_option("--command", line.command, "run MEL after opening the scene (after the script)")->type_name("MEL");
}

void addOptions(CLI::App& app, CommandLine& line) {
    app.add_option("scene", line.scene, "Maya ASCII scene")->type_name("SCENE.ma");
    app.add_option("-o,--output", line.output,
                   "write BASE.imd and so on; a folder that does not exist is made (default: the scene's name here)")
        ->type_name("BASE");
    app.add_option("--kinds", line.kinds,
                   "files to write: imd,ica,ima,itp,iva,ita (default: imd, or those of the settings file)")
        ->type_name("KIND,...")
        ->delimiter(',')
        ->allow_extra_args(false);
    app.add_option("--settings", line.settingsFile, "take the exporter's options from a settings file")
        ->type_name("FILE.z3es");
    app.add_option("--set", line.settings, "an option of the exporter, over those of the file; may be given again")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    app.add_option("--select", line.nodes, "export these nodes and what is below them")
        ->type_name("NODE,...")
        ->delimiter(',')
        ->allow_extra_args(false);
    app.add_option("--project", line.project, "the project of the scene (default: the one around it)")
        ->type_name("FOLDER");
    app.add_option("--plugin", line.plugin, "the exporter's library")->type_name("PATH");
    app.add_flag("--verify", line.verifies, "after the export, hold its files against the scene; fail on a difference");
    app.add_flag("--report", line.reports, "after the export, print what its files cost the console");
    app.add_option("--report-json", line.reportJson, "after the export, write that to a file as JSON")
        ->type_name("FILE");
    app.add_flag("--strict", line.strict, "exit status 2 when there were warnings");
    app.add_flag("-q,--quiet", line.quiet, "print warnings and errors only");
    app.add_flag("--no-progress", line.noProgress, "no status line on a terminal");
}

ParsedCommandLine wrongUsage(const std::string& error) {
    ParsedCommandLine result;
    result.exitStatus = kWrongUsage;
    result.error = error;
    return result;
}

/// What was given of the options that only some uses of the program take.
struct GivenOptions {
    bool output = false; // -o, --kinds, --settings, --set: what an export takes
    bool select = false;
    bool target = false;
    bool project = false;
};

/// What is wrong with the values of options; "" when nothing is.
std::string checkValues(const CommandLine& line) {
    const auto badKind = std::find_if_not(line.kinds.begin(), line.kinds.end(), isKind);
    const auto badSetting = std::find_if_not(line.settings.begin(), line.settings.end(), isSetting);
    if (badKind != line.kinds.end()) {
        return "--kinds: unknown kind '" + *badKind + "'";
    }
    if (badSetting != line.settings.end()) {
        return "--set: '" + *badSetting + "' is not KEY=VALUE without further '=' or ';'";
    }
    return std::find(line.nodes.begin(), line.nodes.end(), "") != line.nodes.end() ? "--select: a name is empty" : "";
}

/// What is wrong with options that are given with a preview, which knows no scene; "" when nothing is.
std::string checkPreview(const CommandLine& line, const GivenOptions& given) {
    const bool exports =
        !line.kinds.empty() || !line.settings.empty() || !line.settingsFile.empty() || !line.scene.empty();
    const bool batches = line.jobs != 0 || line.printsJobs;
    return exports || batches || given.select || given.target || given.project
               ? "--preview shows what was exported: of the other options only -o goes with it"
               : "";
}

/// What is wrong with options that are given together; "" when nothing is.
std::string checkUse(const CommandLine& line, const GivenOptions& given) {
    const bool batches = !line.batch.empty();
    const bool previews = !line.preview.empty();
    if (batches + previews + line.checksNames + line.runsScripts() > 1) {
        return "only one of --batch, --preview, --check, and --script with --command, can be asked for";
    }
    if (previews) {
        return checkPreview(line, given);
    }
    if (batches && (given.output || given.select || !line.scene.empty())) {
        return "--batch takes all from its list: SCENE.ma, -o, --kinds, --settings, --set and --select do not go with "
               "it";
    }
    if (batches && given.project) {
        return "--batch takes the project from its list: --project does not go with it";
    }
    if (!batches && (line.jobs != 0 || line.printsJobs)) {
        return "--jobs and --print-jobs go with --batch only";
    }
    if (line.jobs != 0 && line.printsJobs) {
        return "--print-jobs runs nothing: --jobs does not go with it";
    }
    if (line.runsScripts() && (given.output || given.select)) {
        return "--script and --command export nothing: -o, --kinds, --settings, --set and --select do not go with them";
    }
    if (line.checksNames && given.output) {
        return "--check exports nothing: -o, --kinds, --settings and --set do not go with it";
    }
    if (given.target && !line.checksNames) {
        return "--target goes with --check only";
    }
    const bool needsScene = !line.runsScripts() && !batches && line.reportOf.empty();
    return line.scene.empty() && needsScene ? "no scene was named" : "";
}

/// What is wrong with options that ask for a proof; "" when nothing is.
std::string checkProof(const CommandLine& line) {
    const bool isOther = !line.batch.empty() || !line.preview.empty() || !line.reportOf.empty() || line.checksNames ||
                         line.runsScripts();
    return line.verifies && isOther ? "--verify goes with the export of a scene only" : "";
}

/// What is wrong with options that ask for a report; "" when nothing is.
std::string checkReport(const CommandLine& line, const GivenOptions& given) {
    const bool isOther = !line.batch.empty() || !line.preview.empty() || line.checksNames || line.runsScripts();
    if (line.reportOf.empty()) {
        return isOther && (line.reports || !line.reportJson.empty())
                   ? "--report and --report-json go with the export of a scene, or --report-json with --report-of"
                   : "";
    }
    const bool exports = !line.scene.empty() || given.output || given.select || given.project || line.reports;
    return isOther || exports
               ? "--report-of reads what was exported: of the other options only --report-json goes with it"
               : "";
}

/// Settles what a check looks at: a selection is given to be looked at. "" on success.
std::string settleTarget(const std::string& target, const GivenOptions& given, CommandLine& line) {
    if (!target.empty() && target != "all" && target != "selection") {
        return "--target: '" + target + "' is neither all nor selection";
    }
    if (target == "all" && given.select) {
        return "--select goes with --target selection";
    }
    line.checksSelection = line.checksNames && (target == "selection" || given.select);
    return "";
}

/// Takes the number of processes. "" on success.
std::string settleJobs(const std::string& jobs, CommandLine& line) {
    const bool isNumber =
        !jobs.empty() && jobs.size() <= 4 && jobs.find_first_not_of("0123456789") == std::string::npos;
    line.jobs = isNumber ? std::stoi(jobs) : 0;
    return line.jobs >= 1 && line.jobs <= kMostJobs
               ? ""
               : "--jobs: '" + jobs + "' is not a number from 1 to " + std::to_string(kMostJobs);
}

/// All that can be wrong with words that were each understood; "" when nothing is.
std::string checkCommandLine(const CLI::App& app, const std::string& target, const std::string& jobs,
                             CommandLine& line) {
    const auto isGiven = [&](const char* option) { return app.count(option) != 0; };
    const GivenOptions given = {isGiven("--output") || isGiven("--kinds") || isGiven("--settings") || isGiven("--set"),
                                isGiven("--select"), isGiven("--target"), isGiven("--project")};
    for (const char* option :
         {"--batch", "--preview", "--settings", "--target", "--project", "--report-of", "--report-json"}) {
        if (isGiven(option) && app.get_option(option)->as<std::string>().empty()) {
            return std::string(option) + ": the value is empty";
        }
    }
    std::string error = isGiven("--jobs") ? settleJobs(jobs, line) : "";
    if (error.empty()) {
        error = checkValues(line);
    }
    if (error.empty()) {
        error = checkUse(line, given);
    }
    if (error.empty()) {
        error = checkReport(line, given);
    }
    if (error.empty()) {
        error = checkProof(line);
    }
    return error.empty() ? settleTarget(target, given, line) : error;
}

} // namespace

ParsedCommandLine parseCommandLine(int argumentCount, const char* const* arguments) {
    CommandLine line;
    CLI::App app("Exports a Maya ASCII scene to intermediate files, with no Maya installed.", "tvkexport");
    app.footer(kFooter);
    app.allow_windows_style_options(false); // a path may begin with '/' on every system
    app.set_version_flag("--version", "tvkexport " TVK_VERSION);
    std::string target, jobs;
    addOptions(app, line);
    addModes(app, line, target, jobs);
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::CallForHelp&) {
        return {std::nullopt, kDone, app.help(), ""};
    } catch (const CLI::CallForVersion&) {
        return {std::nullopt, kDone, std::string(app.version()) + "\n", ""};
    } catch (const CLI::ParseError& error) {
        return wrongUsage(error.what());
    }
    const std::string error = checkCommandLine(app, target, jobs, line);
    if (!error.empty()) {
        return wrongUsage(error);
    }
    ParsedCommandLine result;
    result.commandLine = std::move(line);
    return result;
}

std::string optionString(const CommandLine& commandLine) {
    std::string options;
    const std::vector<std::string>& kinds = commandLine.kinds;
    for (const OutputKind& kind : kOutputKinds) {
        if (!kinds.empty()) {
            const bool isOn = std::find(kinds.begin(), kinds.end(), kind.ending) != kinds.end();
            options += std::string(kind.key) + (isOn ? "=1;" : "=0;");
        }
    }
    for (const std::string& setting : commandLine.settings) {
        options += setting + ";";
    }
    return options;
}

} // namespace host::app
