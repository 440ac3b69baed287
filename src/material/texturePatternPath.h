#pragma once

#include <cstdint>
#include <string>

namespace tvk {

/// The path of a pattern's image, "folder/name.NUMBER.tga", cut around its number.
struct PatternPath {
    std::string prefix; // up to and with the '.' before the number
    std::string number; // as the path has it; nothing asks that it be one
    std::string suffix; // from the '.' behind it on
};

/// Fails, with `parts` untouched, when the file name has no two '.', or one of them at its very beginning. Folders may
/// have as many as they like.
[[nodiscard]] bool splitPatternPath(const std::string& path, PatternPath& parts);

/// The path of a frame's image, its number in plain decimals.
std::string patternPathOf(const PatternPath& parts, int64_t frame);

/// The same with zeros in front up to the width of the path's own number when that begins with a zero; else the same.
std::string paddedPatternPathOf(const PatternPath& parts, int64_t frame);

} // namespace tvk
