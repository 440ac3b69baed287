#pragma once

#include "decode/FileError.h"

#include <gtest/gtest.h>

#include <string>

namespace decode {

// Small files by hand, and what a reader says of one that was changed in one place.

inline const std::string kDeclarationLine = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n";

/// A change to a file and the whole message that follows from it.
struct Damage {
    const char* what;
    const char* with;
    const char* message;
};

inline std::string damaged(const std::string& text, const Damage& damage) {
    const std::string what = damage.what;
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : std::string(text).replace(at, what.size(), damage.with);
}

/// What the reader throws for the text; "" when it reads it.
template <typename Read>
std::string complaintOf(Read read, const std::string& text) {
    try {
        read(text);
    } catch (const FileError& error) {
        return error.what();
    }
    return {};
}

} // namespace decode
