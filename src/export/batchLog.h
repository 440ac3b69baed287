#pragma once

#include <fstream>
#include <string>

namespace tvk {

/// The file that takes a batch run's messages: the one that the options name, to which it appends, or one of the run's
/// own in the folder for temporary files, which lives for that run only.
class BatchLog {
public:
    BatchLog() = default;
    /// Finishes a log that is still open, as one of a run that failed.
    ~BatchLog();
    BatchLog(const BatchLog&) = delete;
    BatchLog& operator=(const BatchLog&) = delete;

    /// Opens the log and makes it the run's message stream. False, with a message on standard error, when it cannot be
    /// opened; the message stream is then standard error still.
    [[nodiscard]] bool open();

    /// Ends the run's entry: "Success" when `clean`, an empty line. Messages go to standard error again; one is written
    /// there when the log could not be written in full, which is no failure of the run.
    void finish(bool clean);

private:
    std::ofstream stream;
    std::string path;
    bool ownedByRun = false;
};

/// Where a run without a log of its own writes: <temporary folder>, separator, "maya50_batch_log.txt".
std::string defaultBatchLogPath();

} // namespace tvk
