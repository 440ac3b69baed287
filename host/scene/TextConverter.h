#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace host {

/// The system's converter from one codeset to UTF-8; one source file per system. For codeset.cpp only.
class TextConverter {
public:
    /// `codeset`: the number of a Windows code page, or a name that the system knows. It may be anything at all.
    explicit TextConverter(std::string_view codeset);
    ~TextConverter();
    TextConverter(const TextConverter&) = delete;
    TextConverter& operator=(const TextConverter&) = delete;

    /// Whether the system has that codeset; nothing else may be called when it does not.
    bool isKnown() const;

    /// Appends the text with '?' for each byte that is none; true when there was no such byte. The text begins and
    /// ends between characters.
    bool convert(std::string_view bytes, std::string& result);

private:
    std::uintptr_t handle_ = 0; // an open converter, or the number of a code page; 0 for none
};

} // namespace host
