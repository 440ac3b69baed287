#include <maya/MString.h>

#include "host/api/values/numberText.h"

#include <maya/MStringArray.h>

#include <algorithm>
#include <charconv>
#include <ostream>
#include <string_view>
#include <system_error>

namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Characters in the bytes before `end`.
int countCharacters(const std::string& text, std::size_t end) {
    const auto stop = text.begin() + static_cast<std::ptrdiff_t>(end);
    return static_cast<int>(std::count_if(text.begin(), stop, [](char byte) { return !continuesCharacter(byte); }));
}

// Where the character with that number starts; the text's size when there are fewer.
std::size_t characterStart(const std::string& text, int number) {
    int seen = -1;
    for (std::size_t at = 0; at < text.size(); ++at) {
        seen += continuesCharacter(text[at]) ? 0 : 1;
        if (seen == number) {
            return at;
        }
    }
    return text.size();
}

int asPosition(std::size_t found) {
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

template <class Number>
struct ParsedNumber {
    Number value = 0;
    bool isWhole = false; // nothing but blanks stands around the number
};

// The number at the start, after blanks and perhaps a plus sign. Words such as "nan" are not numbers.
template <class Number>
ParsedNumber<Number> parseNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(kBlanks);
    text.remove_prefix(start == std::string_view::npos ? text.size() : start);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    const std::size_t sign = !text.empty() && text[0] == '-' ? 1 : 0;
    const char first = text.size() > sign ? text[sign] : ' ';
    if ((first < '0' || first > '9') && first != '.') {
        return {};
    }
    ParsedNumber<Number> parsed;
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), parsed.value);
    if (result.ec != std::errc()) {
        return {};
    }
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    parsed.isWhole = text.find_first_not_of(kBlanks) == std::string_view::npos;
    return parsed;
}

} // namespace

MString::MString(const char* text) : text_(text == nullptr ? "" : text) {}

MString::MString(const char* text, int length)
    : text_(text == nullptr ? "" : text, text == nullptr ? 0 : static_cast<std::size_t>(std::max(length, 0))) {}

MString& MString::operator=(const char* text) {
    set(text);
    return *this;
}

MString& MString::operator=(double number) {
    set(number);
    return *this;
}

MString& MString::operator+=(const MString& other) {
    text_ += other.text_;
    return *this;
}

MString& MString::operator+=(const char* text) {
    text_ += text == nullptr ? "" : text;
    return *this;
}

MString& MString::operator+=(double number) {
    text_ += host::api::numberText(number);
    return *this;
}

MString MString::operator+(const MString& other) const {
    MString sum = *this;
    return sum += other;
}

MString MString::operator+(const char* text) const {
    MString sum = *this;
    return sum += text;
}

MString MString::operator+(double number) const {
    MString sum = *this;
    return sum += number;
}

MString operator+(const char* text, const MString& other) {
    return MString(text) + other;
}

bool MString::operator==(const char* text) const {
    return text_ == (text == nullptr ? "" : text);
}

const char* MString::asChar(int& length) const {
    length = static_cast<int>(text_.size());
    return text_.c_str();
}

const char* MString::asUTF8(int& length) const {
    return asChar(length);
}

int MString::numChars() const {
    return countCharacters(text_, text_.size());
}

MStatus MString::set(const char* text) {
    text_ = std::string(text == nullptr ? "" : text); // a copy first: it may be a part of this text
    return MStatus::kSuccess;
}

MStatus MString::set(double number) {
    text_ = host::api::numberText(number);
    return MStatus::kSuccess;
}

int MString::index(char wanted) const {
    return asPosition(text_.find(wanted));
}

int MString::rindex(char wanted) const {
    return asPosition(text_.rfind(wanted));
}

int MString::indexW(char wanted) const {
    const std::size_t found = text_.find(wanted);
    return found == std::string::npos ? -1 : countCharacters(text_, found);
}

int MString::rindexW(char wanted) const {
    const std::size_t found = text_.rfind(wanted);
    return found == std::string::npos ? -1 : countCharacters(text_, found);
}

MString MString::substring(int start, int end) const {
    const int first = std::max(start, 0);
    const int last = std::min(end, static_cast<int>(text_.size()) - 1);
    return first > last ? MString() : MString(text_.data() + first, last - first + 1);
}

MString MString::substringW(int start, int end) const {
    const int first = std::max(start, 0);
    if (first > end) {
        return MString();
    }
    const std::size_t from = characterStart(text_, first);
    const std::size_t to = end < numChars() ? characterStart(text_, end + 1) : text_.size();
    return MString(text_.data() + from, static_cast<int>(to - from));
}

MStatus MString::split(char separator, MStringArray& pieces) const {
    MStringArray found;
    std::size_t at = 0;
    while ((at = text_.find_first_not_of(separator, at)) != std::string::npos) {
        const std::size_t end = std::min(text_.find(separator, at), text_.size());
        found.append(MString(text_.data() + at, static_cast<int>(end - at)));
        at = end;
    }
    const MStatus status = text_.empty() ? MStatus::kFailure : MStatus::kSuccess;
    pieces = found; // last, since this text may be an element of the array
    return status;
}

MString& MString::toLowerCase() {
    std::transform(text_.begin(), text_.end(), text_.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return *this;
}

MString& MString::toUpperCase() {
    std::transform(text_.begin(), text_.end(), text_.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return *this;
}

bool MString::isShort() const {
    return parseNumber<short>(text_).isWhole;
}

bool MString::isInt() const {
    return parseNumber<int>(text_).isWhole;
}

bool MString::isUnsigned() const {
    return parseNumber<unsigned int>(text_).isWhole;
}

bool MString::isFloat() const {
    return parseNumber<float>(text_).isWhole;
}

bool MString::isDouble() const {
    return parseNumber<double>(text_).isWhole;
}

short MString::asShort() const {
    return parseNumber<short>(text_).value;
}

int MString::asInt() const {
    return parseNumber<int>(text_).value;
}

unsigned int MString::asUnsigned() const {
    return parseNumber<unsigned int>(text_).value;
}

float MString::asFloat() const {
    return parseNumber<float>(text_).value;
}

double MString::asDouble() const {
    return parseNumber<double>(text_).value;
}

std::ostream& operator<<(std::ostream& stream, const MString& text) {
    return stream << text.asChar();
}
