#pragma once

#include "TemporaryFolder.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace tvk {

/// What a run of the program was like from outside.
struct ProgramRun {
    int status = -1;        // exit status; -1 when a signal ended it
    int signal = 0;         // that ended it; SIGALRM when it took too long
    std::string out, error; // what it printed
    double peakMegabytes = 0.0;

    /// The lines of the error output without empty ones.
    std::vector<std::string> errorLines() const;
};

/// The built `tvkexport` with the exporter beside it, as a user runs it from a shell, and a folder of files to run it
/// on. The program works in that folder; files are named as seen from there.
class FinishedProgram {
public:
    struct Surroundings {
        std::map<std::string, std::string> environment = {}; // set on top of the test's own
        std::string out = {};                                // path instead of what is captured; "-" closes it
        std::string workingFolder = {};                      // in the folder of files; "" for that folder itself
        int limitSeconds = 120;
        bool asNobody = false;    // a superuser runs it as one who has no rights of his own
        std::string program = {}; // full path of another than the built one
    };

    /// Runs it to its end. A run that a signal ended, or that took too long, or more memory than any scene of these
    /// tests can need, is a test failure.
    ProgramRun run(const std::vector<std::string>& arguments) const { return run(arguments, Surroundings()); }
    ProgramRun run(const std::vector<std::string>& arguments, const Surroundings& surroundings) const;

    /// Writes a file.
    void write(const std::string& name, const std::string& bytes) const;
    /// The bytes of a file; a test failure when there is none.
    std::string bytes(const std::string& name) const;
    /// Names of the files and folders in a folder, sorted.
    std::vector<std::string> names(const std::string& folder = "") const;
    /// Full path of a file: what messages name.
    std::string path(const std::string& name = "") const { return folder_.path(name); }

private:
    TemporaryFolder folder_;
};

/// The text without the lines that tell when, where and by whom a file was made.
std::string withoutMaker(const std::string& text);

/// The bytes of a scene that the real host wrote: "FOLDER/FILE" of the corpus. Other tests hold it against values.
std::string realScene(const std::string& name);

} // namespace tvk
