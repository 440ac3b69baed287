#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host::app::preview {

/// Writes JSON that can stand in a script element of a page, whatever the texts in it are: pure ASCII, and no '<'.
/// The caller closes what it opens, and names every member of an object.
class JsonText {
public:
    JsonText& beginObject();
    JsonText& endObject();
    JsonText& beginArray();
    JsonText& endArray();
    JsonText& name(std::string_view memberName);

    /// A word of ours, in ASCII.
    JsonText& word(std::string_view letters);
    /// Text of an exported file: { "text": … } with one character for each byte, as the page reads it.
    JsonText& text(std::string_view bytes);
    /// A name from the file system, in UTF-8: { "path": … }.
    JsonText& path(std::string_view bytes);
    JsonText& number(double value); // finite
    JsonText& number(std::size_t value);
    JsonText& number(int value);
    JsonText& boolean(bool value);
    JsonText& null();
    JsonText& numbers(const std::vector<double>& values);

    // { "TYPE": base64 of the values' bytes, the lowest first }.
    JsonText& packed(const std::vector<float>& values);        // f32
    JsonText& packed(const std::vector<std::int32_t>& values); // i32
    JsonText& packed(const std::vector<std::uint8_t>& values); // u8

    const std::string& written() const { return json_; }

private:
    void separate();
    void quoted(std::string_view bytes);
    void begin(char bracket);
    JsonText& end(char bracket);
    JsonText& packedBytes(const char* type, const std::vector<std::uint8_t>& bytes);

    std::string json_;
    bool isFirst_ = true; // nothing before it in its object or array, or a name
};

} // namespace host::app::preview
