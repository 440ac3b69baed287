#include "decode/IntermediateFile.h"

#include "decode/FileError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace decode {
namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr int kDeepest = 32;
constexpr std::size_t kMostAttributes = 128;

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isNameByte(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') || byte == '_';
}

class Reader {
public:
    explicit Reader(std::string_view whole) : text(whole) {}

    FileElement readFile() {
        expect(kDeclaration);
        skipBlanks();
        FileElement root = readElement(0);
        skipBlanks();
        check(at == text.size(), "nothing after the root element");
        return root;
    }

private:
    FileElement readElement(int depth) {
        check(depth < kDeepest, "no deeper element");
        FileElement element;
        element.line = lineHere();
        expect("<");
        element.name = readName();
        skipBlanks();
        while (at < text.size() && text[at] != '>' && text[at] != '/') {
            readAttribute(element);
            skipBlanks();
        }
        if (startsWith("/>")) {
            expect("/>");
            return element;
        }
        expect(">");
        readContent(element, depth);
        return element;
    }

    void readContent(FileElement& element, int depth) {
        std::string inside;
        while (!startsWith("</")) {
            const std::size_t next = std::min(text.find('<', at), text.size());
            inside += text.substr(at, next - at);
            at = next;
            check(at < text.size(), "the end tag of " + element.name);
            if (!startsWith("</")) {
                element.children.push_back(readElement(depth + 1));
            }
        }
        element.text = trimmed(inside);
        expect("</");
        expect(element.name);
        expect(">");
    }

    void readAttribute(FileElement& element) {
        std::string name = readName();
        check(element.attributes.size() < kMostAttributes, "no more attributes");
        check(element.attribute(name) == nullptr, "no second " + name);
        expect("=\"");
        const auto end = std::min(text.find('"', at), text.size());
        element.attributes.emplace_back(std::move(name), std::string(text.substr(at, end - at)));
        at = end;
        expect("\"");
    }

    std::string readName() {
        const auto start = at;
        while (at < text.size() && isNameByte(text[at])) {
            ++at;
        }
        check(at > start, "a name");
        return std::string(text.substr(start, at - start));
    }

    void skipBlanks() { at = std::min(text.find_first_not_of(kBlanks, at), text.size()); }
    bool startsWith(std::string_view what) const { return text.substr(at, what.size()) == what; }

    void expect(std::string_view what) {
        if (!startsWith(what)) {
            check(false, std::string(what));
        }
        at += what.size();
    }

    std::size_t lineHere() {
        line += static_cast<std::size_t>(std::count(text.begin() + static_cast<std::ptrdiff_t>(counted),
                                                    text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
        counted = at;
        return line;
    }

    void check(bool holds, const char* wanted) {
        if (!holds) {
            check(false, std::string(wanted));
        }
    }

    void check(bool holds, const std::string& wanted) {
        if (!holds) {
            const std::string found =
                at == text.size() ? " at the end" : " instead of \"" + excerpt(text.substr(at)) + '"';
            throw FileError("line " + std::to_string(lineHere()) + ": expected " + excerpt(wanted) + found);
        }
    }

    std::string_view text;
    std::size_t at = 0;
    std::size_t counted = 0, line = 1; // line ends before `counted` are in `line`
};

bool isInt(double number) {
    return number == std::floor(number) && number >= std::numeric_limits<int>::min() &&
           number <= std::numeric_limits<int>::max();
}

} // namespace

const FileElement* FileElement::find(std::string_view childName) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const FileElement& child) { return child.name == childName; });
    return found == children.end() ? nullptr : &*found;
}

const FileElement& FileElement::child(std::string_view childName) const {
    const FileElement* const found = find(childName);
    require(found != nullptr, *this, "has no ", childName);
    return *found;
}

const std::string* FileElement::attribute(std::string_view attributeName) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const auto& attribute) { return attribute.first == attributeName; });
    return found == attributes.end() ? nullptr : &found->second;
}

const std::string& FileElement::value(std::string_view attributeName) const {
    const std::string* const found = attribute(attributeName);
    require(found != nullptr, *this, "has no ", attributeName);
    return *found;
}

int FileElement::integer(std::string_view attributeName) const {
    const std::string& digits = value(attributeName);
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    require(error == std::errc() && end == digits.data() + digits.size(), *this, attributeName,
            " is no integer: ", excerpt(digits));
    return number;
}

std::vector<double> FileElement::reals(std::string_view attributeName) const {
    try {
        return readNumbers(value(attributeName));
    } catch (const FileError& error) {
        throw FileError(*this, std::string(attributeName) + ": " + error.what());
    }
}

std::vector<double> FileElement::reals(std::string_view attributeName, std::size_t count) const {
    std::vector<double> parts = reals(attributeName);
    require(parts.size() == count, *this, attributeName, " is not ", count,
            " numbers: ", excerpt(value(attributeName)));
    return parts;
}

bool FileElement::isOn(std::string_view attributeName) const {
    const std::string& word = value(attributeName);
    require(word == "on" || word == "off", *this, attributeName, " is neither on nor off: ", excerpt(word));
    return word == "on";
}

std::vector<double> FileElement::numbers() const {
    try {
        return readNumbers(text);
    } catch (const FileError& error) {
        throw FileError(*this, error.what());
    }
}

std::vector<int> FileElement::integers() const {
    std::vector<int> result;
    for (const double number : numbers()) {
        require(isInt(number), *this, "one of its numbers is no integer");
        result.push_back(static_cast<int>(number));
    }
    return result;
}

std::vector<double> FileElement::countedNumbers(std::string_view sizeName, std::size_t perEntry) const {
    std::vector<double> result = numbers();
    const int size = integer(sizeName);
    require(size >= 0 && static_cast<std::size_t>(size) * perEntry == result.size(), *this, sizeName, " is ", size,
            ", but there are ", result.size(), " numbers");
    return result;
}

std::vector<int> FileElement::countedIntegers(std::string_view sizeName) const {
    std::vector<int> result = integers();
    const int size = integer(sizeName);
    require(size >= 0 && static_cast<std::size_t>(size) == result.size(), *this, sizeName, " is ", size,
            ", but there are ", result.size(), " numbers");
    return result;
}

const std::vector<FileElement>& FileElement::countedChildren(bool areIndexed) const {
    const int size = integer("size");
    require(size >= 0 && static_cast<std::size_t>(size) == children.size(), *this, "size is ", size, ", but there are ",
            children.size(), " elements");
    for (std::size_t i = 0; areIndexed && i < children.size(); ++i) {
        const int index = children[i].integer("index");
        require(index >= 0 && static_cast<std::size_t>(index) == i, children[i], "index is ", index, " at place ", i);
    }
    return children;
}

std::vector<std::string> FileElement::attributeNames() const {
    std::vector<std::string> names;
    std::transform(attributes.begin(), attributes.end(), std::back_inserter(names),
                   [](const auto& attribute) { return attribute.first; });
    return names;
}

FileElement readIntermediateFile(std::string_view text) {
    return Reader(text).readFile();
}

std::vector<double> readNumbers(std::string_view text) {
    std::vector<double> numbers;
    std::size_t at = text.find_first_not_of(kBlanks);
    while (at < text.size()) {
        const auto end = std::min(text.find_first_of(kBlanks, at), text.size());
        double number = 0.0;
        const auto [stop, error] = std::from_chars(text.data() + at, text.data() + end, number);
        if (error != std::errc() || stop != text.data() + end || !std::isfinite(number)) {
            throw FileError("no number: " + excerpt(text.substr(at, end - at)));
        }
        numbers.push_back(number);
        at = text.find_first_not_of(kBlanks, end);
    }
    return numbers;
}

} // namespace decode
