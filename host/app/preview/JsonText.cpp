#include "host/app/preview/JsonText.h"

#include <array>
#include <charconv>
#include <cstring>

namespace host::app::preview {
namespace {

constexpr char kHexDigits[] = "0123456789abcdef";
constexpr char kBase64[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string base64(const std::vector<std::uint8_t>& bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = bytes.size() - at < 3 ? bytes.size() - at : 3;
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            group = group << 8U | (i < count ? bytes[at + i] : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text += i <= count ? kBase64[group >> (18U - 6U * i) & 63U] : '=';
        }
    }
    return text;
}

void appendBytes(std::uint32_t word, std::vector<std::uint8_t>& bytes) {
    for (unsigned int i = 0; i < 4; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(word >> (8U * i) & 255U));
    }
}

} // namespace

JsonText& JsonText::beginObject() {
    begin('{');
    return *this;
}

JsonText& JsonText::endObject() {
    return end('}');
}

JsonText& JsonText::beginArray() {
    begin('[');
    return *this;
}

JsonText& JsonText::endArray() {
    return end(']');
}

JsonText& JsonText::name(std::string_view memberName) {
    separate();
    quoted(memberName);
    json_ += ':';
    isFirst_ = true;
    return *this;
}

JsonText& JsonText::word(std::string_view letters) {
    separate();
    quoted(letters);
    return *this;
}

JsonText& JsonText::text(std::string_view bytes) {
    return beginObject().name("text").word(bytes).endObject();
}

JsonText& JsonText::path(std::string_view bytes) {
    return beginObject().name("path").word(bytes).endObject();
}

JsonText& JsonText::number(double value) {
    separate();
    std::array<char, 64> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    json_.append(digits.data(), written.ptr);
    return *this;
}

JsonText& JsonText::number(std::size_t value) {
    separate();
    json_ += std::to_string(value);
    return *this;
}

JsonText& JsonText::number(int value) {
    separate();
    json_ += std::to_string(value);
    return *this;
}

JsonText& JsonText::boolean(bool value) {
    separate();
    json_ += value ? "true" : "false";
    return *this;
}

JsonText& JsonText::null() {
    separate();
    json_ += "null";
    return *this;
}

JsonText& JsonText::numbers(const std::vector<double>& values) {
    beginArray();
    for (const double value : values) {
        number(value);
    }
    return endArray();
}

JsonText& JsonText::packed(const std::vector<float>& values) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(values.size() * 4);
    for (const float value : values) {
        std::uint32_t word = 0;
        std::memcpy(&word, &value, sizeof word);
        appendBytes(word, bytes);
    }
    return packedBytes("f32", bytes);
}

JsonText& JsonText::packed(const std::vector<std::int32_t>& values) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(values.size() * 4);
    for (const std::int32_t value : values) {
        appendBytes(static_cast<std::uint32_t>(value), bytes);
    }
    return packedBytes("i32", bytes);
}

JsonText& JsonText::packed(const std::vector<std::uint8_t>& values) {
    return packedBytes("u8", values);
}

JsonText& JsonText::packedBytes(const char* type, const std::vector<std::uint8_t>& bytes) {
    return beginObject().name(type).word(base64(bytes)).endObject();
}

void JsonText::separate() {
    if (!isFirst_) {
        json_ += ',';
    }
    isFirst_ = false;
}

void JsonText::quoted(std::string_view bytes) {
    json_ += '"';
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || code > 0x7E || byte == '"' || byte == '\\' || byte == '<') {
            json_ += "\\u00";
            json_ += kHexDigits[code >> 4U];
            json_ += kHexDigits[code & 15U];
        } else {
            json_ += byte;
        }
    }
    json_ += '"';
}

void JsonText::begin(char bracket) {
    separate();
    json_ += bracket;
    isFirst_ = true;
}

JsonText& JsonText::end(char bracket) {
    json_ += bracket;
    isFirst_ = false;
    return *this;
}

} // namespace host::app::preview
