#pragma once

#include <sstream>
#include <stdexcept>
#include <string>

namespace decode {

struct FileElement;

/// Why a file cannot be read: one line that names the place, "line 12: node: index is no integer: x", without the name
/// of the file, which only the caller knows. Bytes of the file in it are cut short and made printable.
class FileError : public std::runtime_error {
public:
    explicit FileError(const std::string& what);
    /// The same behind the line and the name of the element.
    FileError(const FileElement& where, const std::string& what);
};

/// A piece of a file for a message: its first 40 bytes, control bytes shown as '?'.
std::string excerpt(std::string_view text);

/// Throws a FileError at the element unless the condition holds. The parts make up the message.
template <typename... Parts>
void require(bool holds, const FileElement& where, const Parts&... parts) {
    if (!holds) {
        std::ostringstream text;
        text.imbue(std::locale::classic());
        (text << ... << parts);
        throw FileError(where, text.str());
    }
}

} // namespace decode
