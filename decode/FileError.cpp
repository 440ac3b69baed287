#include "decode/FileError.h"

#include "decode/IntermediateFile.h"

#include <algorithm>

namespace decode {
namespace {

constexpr std::size_t kExcerptBytes = 40;
// A message may hold several excerpts and names.
constexpr std::size_t kMessageBytes = 400;

std::string printable(std::string text, std::size_t limit) {
    text.resize(std::min(text.size(), limit));
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F; },
        '?');
    return text;
}

} // namespace

FileError::FileError(const std::string& what) : std::runtime_error(printable(what, kMessageBytes)) {}

FileError::FileError(const FileElement& where, const std::string& what)
    : FileError("line " + std::to_string(where.line) + ": " + excerpt(where.name) + ": " + what) {}

std::string excerpt(std::string_view text) {
    return printable(std::string(text.substr(0, kExcerptBytes)), kExcerptBytes);
}

} // namespace decode
