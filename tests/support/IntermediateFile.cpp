#include "IntermediateFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>

namespace tvk {
namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n";
constexpr std::string_view kBlanks = " \t\n";

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

class Reader {
public:
    explicit Reader(std::string_view whole) : text(whole) {}

    FileElement readFile() {
        expect(kDeclaration);
        skipBlanks();
        FileElement root = readElement();
        skipBlanks();
        check(at == text.size(), "nothing after the root element");
        return root;
    }

private:
    FileElement readElement() {
        FileElement element;
        expect("<");
        element.name = readName();
        skipBlanks();
        while (good && at < text.size() && text[at] != '>' && text[at] != '/') {
            element.attributes.push_back(readAttribute());
            skipBlanks();
        }
        if (startsWith("/>")) {
            expect("/>");
            return element;
        }
        expect(">");
        readContent(element);
        return element;
    }

    void readContent(FileElement& element) {
        std::string inside;
        while (good && !startsWith("</")) {
            if (at == text.size()) {
                check(false, "the end tag of " + element.name);
            } else if (text[at] == '<') {
                element.children.push_back(readElement());
            } else {
                inside += text[at++];
            }
        }
        element.text = trimmed(inside);
        expect("</" + element.name + ">");
    }

    std::pair<std::string, std::string> readAttribute() {
        std::string name = readName();
        expect("=\"");
        const auto end = std::min(text.find('"', at), text.size());
        std::string value(text.substr(at, end - at));
        at = end;
        expect("\"");
        return {std::move(name), std::move(value)};
    }

    std::string readName() {
        const auto start = at;
        while (at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_')) {
            ++at;
        }
        check(at > start, "a name");
        return std::string(text.substr(start, at - start));
    }

    void skipBlanks() { at = std::min(text.find_first_not_of(kBlanks, at), text.size()); }
    bool startsWith(std::string_view what) const { return text.substr(at, what.size()) == what; }

    void expect(std::string_view what) {
        check(startsWith(what), std::string(what));
        if (good) {
            at += what.size();
        }
    }

    void check(bool condition, const std::string& wanted) {
        if (!condition && good) {
            good = false;
            ADD_FAILURE() << "expected " << wanted << " at byte " << at << ": \"" << text.substr(at, 60) << '"';
        }
    }

    std::string_view text;
    std::size_t at = 0;
    bool good = true; // after the first failure nothing is consumed any more
};

} // namespace

const FileElement* FileElement::find(std::string_view childName) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const FileElement& child) { return child.name == childName; });
    return found == children.end() ? nullptr : &*found;
}

const std::string* FileElement::attribute(std::string_view attributeName) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const auto& attribute) { return attribute.first == attributeName; });
    return found == attributes.end() ? nullptr : &found->second;
}

std::string FileElement::value(std::string_view attributeName) const {
    const std::string* const found = attribute(attributeName);
    EXPECT_NE(found, nullptr) << name << " has no " << attributeName;
    return found == nullptr ? std::string() : *found;
}

int FileElement::integer(std::string_view attributeName) const {
    const std::string digits = value(attributeName);
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    EXPECT_TRUE(error == std::errc() && end == digits.data() + digits.size())
        << name << "." << attributeName << " is no integer: " << digits;
    return number;
}

std::vector<double> FileElement::reals(std::string_view attributeName) const {
    return readNumbers(value(attributeName));
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
        EXPECT_TRUE(error == std::errc() && stop == text.data() + end) << "no number: " << text.substr(at, end - at);
        numbers.push_back(number);
        at = text.find_first_not_of(kBlanks, end);
    }
    return numbers;
}

} // namespace tvk
