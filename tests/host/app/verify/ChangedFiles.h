#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tvk {

/// One value of a written file, and what it becomes.
struct Change {
    std::size_t begin = 0, length = 0;
    std::string value;

    std::string in(const std::string& text) const { return std::string(text).replace(begin, length, value); }
};

/// How a value is changed by the least that its format can tell apart.
enum class By { kStep, kSixteenth, kNormalStep, kOne, kBit, kSwitch };

/// Values in the attribute of all elements of that name, or in their text when no attribute is named: so many of them,
/// spread over the file, each changed in a copy of its own.
std::vector<Change> changesOf(const std::string& text, const std::string& element, const std::string& attribute, By by,
                              std::size_t most);

} // namespace tvk
