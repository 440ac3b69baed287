#pragma once

#include <iosfwd>
#include <string>

namespace tvk {

/// The lines of a settings file or a batch list. However long a line is, no more of it is held than counts.
///   A line ends at a line feed or at the end of the stream; a carriage return before that is no part of it, nor is
///   what follows a NUL. A UTF-8 byte-order mark before the first line is passed over.
class LimitedLines {
public:
    /// Bytes of a line that count; the rest of it is passed over.
    static constexpr std::size_t kLongestLine = 2047;

    /// The stream must outlive this.
    explicit LimitedLines(std::istream& stream) : in(stream) {}

    /// False at the end; a last line without line feed is one, nothing behind the last line feed is none.
    [[nodiscard]] bool next(std::string& line);

private:
    std::istream& in;
    bool atStart = true;
};

} // namespace tvk
