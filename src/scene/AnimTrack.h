#pragma once

#include <cstdint>
#include <vector>

namespace tvk {

/// One channel over the frame range and, once encoded, where its data stands in its pool.
struct AnimTrack {
    std::vector<float> samples;    // one per frame of the range
    std::vector<float> continuous; // of a rotation: the same without jumps by whole turns

    bool constant = true;
    int32_t frameStep = 1; // 1, 2 or 4
    int32_t dataSize = 0;  // stored values
    int32_t dataHead = 0;  // index of the first of them in the pool
};

} // namespace tvk
