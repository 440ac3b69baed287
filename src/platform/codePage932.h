#pragma once

#include <array>
#include <cstddef>

namespace tvk {

// For codePage.cpp only: the system's own table of code page 932, one character at a time. The system may offer
// look-alikes; codePage.cpp sorts them out by converting back.

struct Code932 {
    std::array<char, 2> bytes{};
    size_t length = 0; // 1 or 2; 0 when the system has no code
};

// `character` lies in the Basic Multilingual Plane and is no surrogate.
Code932 encode932(char32_t character);

// The character of a code, 0 when it is not assigned.
char32_t decode932(const Code932& code);

} // namespace tvk
