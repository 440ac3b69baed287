#pragma once

#include <cstdint>
#include <fstream>
#include <map>
#include <memory>
#include <string>

namespace host {

/// The files that MEL scripts have opened, by the number that they know them by. All are closed at the end.
class TextFiles {
public:
    /// Opens a file as the C library does it: mode "r", "w", "a", with "+" for both ways. 0 when the mode is none or
    /// the system refuses; else the file's number.
    std::int64_t open(const std::string& path, const std::string& mode);

    /// Null when no open file has the number.
    std::fstream* find(std::int64_t number) const;

    /// False when no open file has the number, or what was written did not all arrive.
    bool close(std::int64_t number);

private:
    std::map<std::int64_t, std::unique_ptr<std::fstream>> files_;
    std::int64_t last_ = 0;
};

/// The next line with its line feed; "" at the end of the file.
std::string readLine(std::fstream& file);

/// The next run of bytes that are none of `separators`; "" when there is none before the end of the file.
std::string readWord(std::fstream& file, const std::string& separators);

/// All that is left of the file.
std::string readRest(std::fstream& file);

} // namespace host
