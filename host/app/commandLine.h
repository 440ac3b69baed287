#pragma once

#include <optional>
#include <string>
#include <vector>

namespace host::app {

/// What the user asked for. Nothing but the words is checked: no file has been looked at.
struct CommandLine {
    std::string scene;                 // "" only for a batch, a preview, and scripts without one
    std::string output;                // base path of the files; "" for the scene's name in the current folder
    std::vector<std::string> kinds;    // of files, in the order given; empty for the exporter's default
    std::vector<std::string> settings; // "key=value", for the exporter
    std::vector<std::string> nodes;    // to be exported; empty for the whole scene
    std::string settingsFile;          // of the exporter's settings, below `kinds` and `settings`; "" for none
    std::string script, command;       // MEL to run instead of an export
    std::string batch;                 // list file of a batch to run instead; "" for none
    std::string preview;               // base path of exported files to show instead of an export; "" for none
    int jobs = 0;                      // processes that share the batch; 0 to run it in this one
    bool printsJobs = false;           // the batch's scenes as commands, instead of running it
    std::string project;               // folder to open as the project; "" for the one around the scene
    bool checksNames = false;          // instead of an export: of the scene, or of the selection alone
    bool checksSelection = false;
    bool verifies = false;  // the exported files against the scene, after the export
    bool reports = false;   // what the exported files cost the console, after the export
    std::string reportOf;   // base path of files to report on instead of an export; "" for none
    std::string reportJson; // file to write the report to as JSON; "" for none
    std::string plugin;     // path of the exporter; "" to look for it
    bool strict = false, quiet = false, noProgress = false;

    bool runsScripts() const { return !script.empty() || !command.empty(); }
};

/// A command line, or what the program prints and ends with instead.
struct ParsedCommandLine {
    std::optional<CommandLine> commandLine;
    int exitStatus = 0;
    std::string output; // for standard output
    std::string error;  // one line without "Error:"
};

/// Understands the arguments of `main`. Wrong ones give kWrongUsage and an error; --help and --version give output.
ParsedCommandLine parseCommandLine(int argumentCount, const char* const* arguments);

/// The endings of the exporter's files, and the option key that switches each on.
struct OutputKind {
    const char* ending;
    const char* key;
};
inline constexpr OutputKind kOutputKinds[] = {
    {"imd", "imd_file_out"}, {"ica", "ica_file_out"}, {"ima", "ima_file_out"},
    {"itp", "itp_file_out"}, {"iva", "iva_file_out"}, {"ita", "ita_file_out"},
};

/// The option string for the exporter, as far as the command line gives it: "key=value;" for each kind, when kinds were
/// chosen, and for each setting.
std::string optionString(const CommandLine& commandLine);

} // namespace host::app
