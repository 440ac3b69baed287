#pragma once

#include <cstdint>
#include <vector>

namespace decode {

// How a reader of animation files plays one channel. Written from the format alone.

/// What stands at frames that are not stored.
enum class Filling : uint8_t {
    kHeld,  // the stored frame before
    kMixed, // the stored frames before and after, by their distances
    kCurve  // the data are keys
};

struct PlaybackRule {
    Filling filling = Filling::kHeld;
    int frameStep = 1;
    int frameCount = 0;
    bool isAngle = false; // 1/4096 degree; mixed frames take the short way round
    bool loops = false;   // curves go on to one key behind the range
};

/// Values of all frames, in the steps that the data are in.
///   data   the channel's own part of its pool, not empty: stored frames, or keys of frame, value, slope in, slope out
/// Throws a FileError for data that do not fit the rule.
std::vector<double> played(const std::vector<int32_t>& data, const PlaybackRule& rule);

} // namespace decode
