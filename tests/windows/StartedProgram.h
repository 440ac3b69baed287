#pragma once

#include "TemporaryFolder.h"

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace tvk {

/// A program of the build folder, running. It ends with this object at the latest.
class StartedProgram {
public:
    struct Surroundings {
        std::map<std::string, std::string> environment = {}; // over the test's own, in UTF-8
        std::string workingFolder = {};                      // "" for the test's own
    };

    /// Starts it; a test failure when that is refused.
    ///   words   UTF-8, the path of the program first
    StartedProgram(const std::vector<std::string>& words, const Surroundings& surroundings);
    ~StartedProgram();
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    /// Waits for its end, but not longer than this.
    bool endsWithin(std::chrono::milliseconds patience) const;

    /// Once it has ended:
    int status() const;
    std::string out() const;   // what it printed, with '\n' for line ends
    std::string error() const; // on standard error

private:
    TemporaryFolder printed_;
    void* process_ = nullptr;
};

/// What a run was like from outside.
struct ProgramRun {
    int status = -1;
    std::string out, error;
};

/// `tvkexport` run to its end; a test failure when that takes more than two minutes.
ProgramRun runExporter(const std::vector<std::string>& arguments, const StartedProgram::Surroundings& surroundings);

/// The words of a command line that starts `tvkexport`.
std::vector<std::string> exporterWords(const std::vector<std::string>& arguments);

/// The file as it is; a test failure and "" when there is none.
std::string fileBytes(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);

/// The text without the carriage return of each line end. A line end without one, or one elsewhere, is a test failure.
std::string withoutCarriageReturns(const std::string& text);

/// Without the lines that tell who made a file, where and when.
std::string withoutMaker(const std::string& text);

} // namespace tvk
