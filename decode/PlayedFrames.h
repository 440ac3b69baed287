#pragma once

#include "decode/IntermediateFile.h"

#include <cstddef>
#include <string_view>

namespace decode {

/// How much playing a file may cost: a few bytes can name two billion frames, so that what is played must stand in some
/// relation to the text: at most 16 million values and 64 for each of its bytes.
class PlayedFrames {
public:
    /// Throws a FileError unless the element's "frame_size" is at least 1.
    PlayedFrames(const FileElement& info, std::string_view text);

    int frameCount() const { return count; }
    /// Counts one more channel of so many frames; throws a FileError at the element when that is too much.
    ///   cost   of a value, in numbers
    void add(const FileElement& channel, std::size_t cost = 1);

private:
    int count;
    std::size_t left;
};

} // namespace decode
