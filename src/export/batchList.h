#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tvk {

/// What a line of a batch list is about.
enum class BatchKeyword { kNone, kLog, kInputFolder, kOutputFolder, kSettingsFolder, kSettings, kScene };

/// One line of a batch list. A keyword without a value has an empty one.
struct BatchLine {
    BatchKeyword keyword = BatchKeyword::kNone; // also of empty lines, comments and unknown keywords
    std::string value;
    // Of a scene; empty when not given.
    std::string name;  // base name of the output files
    std::string roots; // nodes to export, between commas
};

/// The word that a list has for a keyword; "" for kNone.
std::string_view wordOf(BatchKeyword keyword);

/// Whether a file that begins with this line is a batch list.
bool isBatchHeader(std::string_view line);

/// Reads a line behind the header. The later of two equal options of a scene wins, unless it is an empty name.
BatchLine parseBatchLine(std::string_view line);

/// The names between commas, without blanks and tabs at their ends; empty ones are left out.
std::vector<std::string> splitRoots(std::string_view roots);

/// The folder without '/' at its end; "/" alone stays.
std::string withoutFinalSlashes(std::string_view folder);

/// Whether one of the characters, all of ASCII, stands in the text. Bytes of Shift_JIS characters are none of them.
bool holdsAnyOf(const std::string& text, std::string_view characters);

} // namespace tvk
