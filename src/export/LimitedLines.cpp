#include "export/LimitedLines.h"

#include <algorithm>
#include <istream>
#include <string_view>

namespace tvk {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Reads up to the line feed and keeps as many bytes as asked for. The length counts all of them but a carriage return
// at the end; false when the stream had nothing more.
bool readLine(std::istream& in, std::size_t keep, std::string& kept) {
    using Traits = std::istream::traits_type;
    std::streambuf& source = *in.rdbuf();
    std::size_t length = 0;
    Traits::int_type last = Traits::eof();
    Traits::int_type byte = source.sbumpc();
    const bool isLine = !Traits::eq_int_type(byte, Traits::eof());
    kept.clear();
    for (; !Traits::eq_int_type(byte, Traits::eof()) && byte != '\n'; byte = source.sbumpc()) {
        if (length < keep) {
            kept += Traits::to_char_type(byte);
        }
        ++length;
        last = byte;
    }
    length -= last == '\r' ? 1 : 0;
    kept.resize(std::min(kept.size(), length));
    return isLine;
}

} // namespace

bool LimitedLines::next(std::string& line) {
    const std::size_t mark = atStart ? kByteOrderMark.size() : 0;
    if (!readLine(in, kLongestLine + mark, line)) {
        return false;
    }
    if (atStart && line.compare(0, mark, kByteOrderMark) == 0) {
        line.erase(0, mark);
    }
    atStart = false;
    line.resize(std::min({line.size(), kLongestLine, line.find('\0')}));
    return true;
}

} // namespace tvk
