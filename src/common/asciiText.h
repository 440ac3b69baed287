#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tvk {

// `text` with A-Z made lowercase; all other bytes stay, whatever the locale. On Shift_JIS text it may change the second
// byte of a double-byte character: use it on extensions and keywords only.
std::string lowerAscii(std::string_view text);

// The pieces of `text` between separators. Empty pieces vanish, as in the host's own split: ";a=;;b" gives "a=", "b"
// at ';'. The pieces are views into `text`.
std::vector<std::string_view> splitText(std::string_view text, char separator);

} // namespace tvk
