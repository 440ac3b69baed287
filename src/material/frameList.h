#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tvk {

/// The most frames that a pattern can have: its values hold the image in 12 bits.
inline constexpr std::size_t kMostPatternFrames = 4095;

/// Reads an artist's list of frames: numbers of at most 14 digits, separated by blanks and commas, and inclusive ranges
/// with '-' between their ends ("1-3, 7", "1 - 3").
///   frames   gets them in ascending order, each once; empty on failure
/// Fails for every other character, numbers that are too long, a '-' without a number on both of its sides, a range
/// that runs downwards, and more than kMostPatternFrames frames. The text may be of any length.
[[nodiscard]] bool parseFrameList(std::string_view text, std::vector<int64_t>& frames);

/// The frame that a key's value asks for: rounded, halves away from zero, and held within 14 digits; 0 for
/// not-a-number.
int64_t frameOfKey(double value);

/// Puts frames in ascending order, each once.
void sortFrames(std::vector<int64_t>& frames);

} // namespace tvk
