#include "material/frameList.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

// Any bytes as an artist's list of frames.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::int64_t kLargest = 99'999'999'999'999; // of 14 digits
    std::vector<std::int64_t> frames;
    const bool isGood = tvk::parseFrameList({reinterpret_cast<const char*>(data), size}, frames);
    if (frames.size() > tvk::kMostPatternFrames || (!isGood && !frames.empty())) {
        std::abort();
    }
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const bool isInOrder = i == 0 || frames[i - 1] < frames[i];
        if (!isInOrder || frames[i] < 0 || frames[i] > kLargest) {
            std::abort();
        }
    }
    return 0;
}
