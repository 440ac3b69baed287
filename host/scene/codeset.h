#pragma once

#include <string>
#include <string_view>

namespace host {

/// The codeset that a scene file names in its heading comments ("//Codeset: 932"); "" when it names none.
std::string_view findCodeset(std::string_view fileText);

/// What became of a file's text.
struct DecodedText {
    std::string storage; // the text in UTF-8, when bytes had to change
    bool isChanged = false;
    bool isUnknownCodeset = false; // bytes are as they were
    bool hasBrokenText = false;    // what is no text in that codeset became '?'
};

/// Brings a whole file to UTF-8 before it is lexed, since the second byte of a character of code pages 932, 936 or 950
/// may look like a backslash or a quote. Codesets are those of scene files: numbers of Windows code pages, "UTF-8", or
/// any name that the system's converter knows; files without one are taken as UTF-8 if they are that, else as 1252.
/// Pure ASCII and valid UTF-8 are never copied.
DecodedText decodeToUtf8(std::string_view fileText);

/// Text of a codeset, named as scene files name theirs, in UTF-8: '?' stands for each byte that is no text in it, and for
/// each that is not ASCII when the system does not know the codeset.
std::string toUtf8(std::string_view text, std::string_view codeset);

} // namespace host
