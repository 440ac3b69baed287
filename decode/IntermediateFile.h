#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace decode {

/// One element of an intermediate file as a reader of the format sees it.
struct FileElement {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes; // in written order; values as bytes
    std::vector<FileElement> children;
    std::string text;     // what stands directly inside, outside of children; blanks at both ends cut off
    std::size_t line = 0; // where its tag begins; the first line is 1

    /// Null when there is none.
    const FileElement* find(std::string_view childName) const;
    /// Throws a FileError when there is none.
    const FileElement& child(std::string_view childName) const;
    const std::string* attribute(std::string_view attributeName) const;

    // The value of an attribute. Throw a FileError when there is no such, or when it is not what is asked for. Know no
    // locale.
    const std::string& value(std::string_view attributeName) const;
    int integer(std::string_view attributeName) const;
    std::vector<double> reals(std::string_view attributeName) const;
    /// Exactly so many numbers.
    std::vector<double> reals(std::string_view attributeName, std::size_t count) const;
    /// "on" or "off".
    bool isOn(std::string_view attributeName) const;

    /// Numbers between white space in the text, all finite.
    std::vector<double> numbers() const;
    /// Whole ones, each in the range of an int.
    std::vector<int> integers() const;
    /// The same, as many as the attribute says, times `perEntry`.
    std::vector<double> countedNumbers(std::string_view sizeName, std::size_t perEntry = 1) const;
    std::vector<int> countedIntegers(std::string_view sizeName) const;
    /// The children, as many as the attribute "size" says and, where asked for, with their position as "index".
    const std::vector<FileElement>& countedChildren(bool areIndexed = true) const;

    std::vector<std::string> attributeNames() const;
};

/// Reads a file's text: declaration, one root element, nothing escaped; lines end with LF or CR LF. Throws a FileError
/// for whatever is not well formed, elements nested deeper than any of the formats goes (32), and more than 128
/// attributes of one element or two of one name. Time and memory grow with the length of the text, whatever it says.
FileElement readIntermediateFile(std::string_view text);

/// Numbers between white space; a FileError for anything else among them.
std::vector<double> readNumbers(std::string_view text);

} // namespace decode
