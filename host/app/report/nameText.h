#pragma once

#include "decode/ExportedFiles.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace host::app::report {

/// A name from an exported file, whose bytes are Shift_JIS, in UTF-8; bytes that are no text become '?'.
std::string utf8Name(std::string_view bytes);

/// Why files were not read, in UTF-8 as a whole.
std::string utf8Message(const decode::ExportedFilesError& error);

/// How many columns of a terminal UTF-8 text takes: two for each East Asian wide character.
std::size_t columnsOf(std::string_view utf8);

} // namespace host::app::report
