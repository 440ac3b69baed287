#pragma once

#include <string_view>

namespace tvk {

// The order of names in every list that is written in name order: byte by byte as unsigned characters, a name before
// all longer ones that begin with it. (char_traits compares as unsigned whatever the sign of char.)
constexpr bool bytesBefore(std::string_view a, std::string_view b) {
    return a.compare(b) < 0;
}

} // namespace tvk
