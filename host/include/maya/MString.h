#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <string>

class MStringArray;

/// A text. The bytes are UTF-8 on every system, so asChar() and asUTF8() are the same, and lengths and positions count
/// bytes unless the name ends in W or says characters. Nothing here depends on the locale.
///
/// There is no form for int: `text + 7` goes through double and appends "7", and `text + 'a'` appends "97".
class MString {
public:
    MString() = default;
    MString(const char* text); // null: empty
    MString(const char* text, int length);

    MString& operator=(const char* text);
    MString& operator=(double number);
    MString& operator+=(const MString& other);
    MString& operator+=(const char* text);
    MString& operator+=(double number);
    MString operator+(const MString& other) const;
    MString operator+(const char* text) const;
    MString operator+(double number) const;
    friend MString operator+(const char* text, const MString& other);

    bool operator==(const MString& other) const { return text_ == other.text_; }
    bool operator==(const char* text) const; // null is the empty text
    bool operator!=(const MString& other) const { return !(*this == other); }
    bool operator!=(const char* text) const { return !(*this == text); }

    /// NUL-terminated; valid until the text changes or ends.
    const char* asChar() const { return text_.c_str(); }
    const char* asChar(int& length) const;
    const char* asUTF8() const { return text_.c_str(); }
    const char* asUTF8(int& length) const;
    unsigned int length() const { return static_cast<unsigned int>(text_.size()); }
    /// Characters: bytes that do not continue a UTF-8 sequence.
    int numChars() const;

    MStatus set(const char* text);
    MStatus set(double number);
    MStatus setUTF8(const char* text) { return set(text); }
    void clear() { text_.clear(); }

    /// Position of the first or last such byte, -1 when there is none; the W forms count characters.
    int index(char wanted) const;
    int rindex(char wanted) const;
    int indexW(char wanted) const;
    int rindexW(char wanted) const;

    /// From `start` to `end` inclusive, clipped to the text; empty when start > end.
    MString substring(int start, int end) const;
    MString substringW(int start, int end) const;

    /// The pieces between separators; leading, trailing and doubled separators give no empty piece. `pieces` is
    /// replaced. An empty text gives none and fails.
    MStatus split(char separator, MStringArray& pieces) const;

    /// In place, ASCII letters only.
    MString& toLowerCase();
    MString& toUpperCase();

    /// Whether the whole text, blanks around it aside, is a number that the type holds.
    bool isShort() const;
    bool isInt() const;
    bool isUnsigned() const;
    bool isFloat() const;
    bool isDouble() const;
    /// The number at the start of the text (after blanks); 0 when there is none or the type cannot hold it.
    short asShort() const;
    int asInt() const;
    unsigned int asUnsigned() const;
    float asFloat() const;
    double asDouble() const;

private:
    std::string text_;
};

/// Writes asChar().
std::ostream& operator<<(std::ostream& stream, const MString& text);
