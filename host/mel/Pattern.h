#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host::mel {

// The regular expressions of `match` and `substitute`: . [set] [^set] * + ? ( ) ^ $ and \ before a literal byte.
//
// All ways to match run side by side, so the time is bounded by text times pattern, whatever the pattern.
class Pattern {
public:
    // Nothing for an unbalanced parenthesis or set, a repetition of nothing, or more than 4,096 bytes.
    static std::optional<Pattern> compile(std::string_view source);

    struct Range {
        std::size_t offset;
        std::size_t length;
    };

    // The leftmost match, and the longest of those. onStart is told the work of every start that is tried and may
    // throw.
    std::optional<Range> find(std::string_view text, const std::function<void(std::size_t)>& onStart) const;

private:
    using ByteSet = std::bitset<256>;
    enum class Kind : std::uint8_t { kBytes, kSplit, kTextStart, kTextEnd, kAccept };
    struct Instruction {
        Kind kind = Kind::kAccept;
        ByteSet bytes;
        std::size_t next = 0;
        std::size_t other = 0; // second way of a split
    };
    class Compiler;
    class Matcher;

    std::vector<Instruction> program_;
};

// Whether a whole text fits a wildcard pattern (* ? [set] [^set], \ before a literal byte), as `gmatch` tests it.
bool matchesWildcard(std::string_view text, std::string_view pattern);

} // namespace host::mel
