#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tvk {

/// One element of an intermediate file as a reader of the format sees it.
struct FileElement {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes; // in written order; values as bytes
    std::vector<FileElement> children;
    std::string text; // what stands directly inside, outside of children; blanks at both ends cut off

    /// Null when there is none.
    const FileElement* find(std::string_view childName) const;
    const std::string* attribute(std::string_view attributeName) const;
    /// The value, or a test failure and "" when there is no such attribute.
    std::string value(std::string_view attributeName) const;
    /// The value as a number; a test failure and 0 when it is none. Knows no locale.
    int integer(std::string_view attributeName) const;
    std::vector<double> reals(std::string_view attributeName) const;
    std::vector<std::string> attributeNames() const;
};

/// Reads a file's text: declaration, one root element, nothing escaped. What is not well formed gives a test failure
/// that tells where, and the element read so far.
FileElement readIntermediateFile(std::string_view text);

/// Numbers between white space; a test failure for anything else among them.
std::vector<double> readNumbers(std::string_view text);

} // namespace tvk
