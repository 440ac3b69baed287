#include "host/app/commandLine.h"

#include "host/app/exitStatus.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>

namespace host::app {

namespace {

constexpr const char* kFooter =
    "\nExit status: 0 exported (warnings included), 1 failed, 2 exported with warnings (--strict), 64 wrong usage.\n"
    "The exporter is tvk_export beside the program or in ../plug-ins; --plugin or TVK_PLUGIN name another.";

/// Words that are understood and belong to a later version.
constexpr const char* kLaterOptions[] = {"--batch", "--check", "--settings", "--target"};

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

void addOptions(CLI::App& app, CommandLine& line) {
    app.add_option("scene", line.scene, "Maya ASCII scene")->type_name("SCENE.ma");
    app.add_option("-o,--output", line.output,
                   "write BASE.imd and so on; a folder that does not exist is made (default: the scene's name here)")
        ->type_name("BASE");
    app.add_option("--kinds", line.kinds, "files to write: imd,ica,ima,itp,iva,ita (default: imd)")
        ->type_name("KIND,...")
        ->delimiter(',')
        ->allow_extra_args(false);
    app.add_option("--set", line.settings, "an option of the exporter; may be given again")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    app.add_option("--select", line.nodes, "export these nodes and what is below them")
        ->type_name("NODE,...")
        ->delimiter(',')
        ->allow_extra_args(false);
    app.add_option("--script", line.script, "run a MEL file after opening the scene, and export nothing by itself")
        ->type_name("FILE.mel");
    app.add_option("--command", line.command, "run MEL after opening the scene (after the script)")->type_name("MEL");
    app.add_option("--plugin", line.plugin, "the exporter's library")->type_name("PATH");
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

/// What is wrong with words that were each understood; "" when nothing is.
std::string checkCommandLine(const CommandLine& line, bool exportOptions) {
    const auto badKind = std::find_if_not(line.kinds.begin(), line.kinds.end(), isKind);
    const auto badSetting = std::find_if_not(line.settings.begin(), line.settings.end(), isSetting);
    if (badKind != line.kinds.end()) {
        return "--kinds: unknown kind '" + *badKind + "'";
    }
    if (badSetting != line.settings.end()) {
        return "--set: '" + *badSetting + "' is not KEY=VALUE without further '=' or ';'";
    }
    if (std::find(line.nodes.begin(), line.nodes.end(), "") != line.nodes.end()) {
        return "--select: a name is empty";
    }
    if (line.runsScripts() && exportOptions) {
        return "--script and --command export nothing: -o, --kinds, --set and --select do not go with them";
    }
    return line.scene.empty() && !line.runsScripts() ? "no scene was named" : "";
}

} // namespace

ParsedCommandLine parseCommandLine(int argumentCount, const char* const* arguments) {
    CommandLine line;
    CLI::App app("Exports a Maya ASCII scene to intermediate files, with no Maya installed.", "tvkexport");
    app.footer(kFooter);
    app.set_version_flag("--version", "tvkexport " TVK_VERSION);
    addOptions(app, line);
    std::string unused;
    for (const char* later : kLaterOptions) {
        app.add_option(later, unused, "not in this version")->expected(0, 1)->type_name("...");
    }
    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::CallForHelp&) {
        return {std::nullopt, kDone, app.help(), ""};
    } catch (const CLI::CallForVersion&) {
        return {std::nullopt, kDone, std::string(app.version()) + "\n", ""};
    } catch (const CLI::ParseError& error) {
        return wrongUsage(error.what());
    }
    for (const char* later : kLaterOptions) {
        if (app.count(later) != 0) {
            return wrongUsage(std::string(later) + " is not in this version");
        }
    }
    const bool exportOptions =
        app.count("--output") + app.count("--kinds") + app.count("--set") + app.count("--select") != 0;
    const std::string error = checkCommandLine(line, exportOptions);
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
