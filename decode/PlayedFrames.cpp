#include "decode/PlayedFrames.h"

#include "decode/FileError.h"

namespace decode {
namespace {

constexpr std::size_t kAlways = std::size_t{1} << 24U;
constexpr std::size_t kPerByte = 64;

} // namespace

PlayedFrames::PlayedFrames(const FileElement& info, std::string_view text)
    : count(info.integer("frame_size")), left(kAlways + kPerByte * text.size()) {
    require(count >= 1, info, "frame_size is ", count);
}

void PlayedFrames::add(const FileElement& channel, std::size_t cost) {
    const auto frames = static_cast<std::size_t>(count);
    require(frames <= left / cost, channel, "more frames to play than this file is worth");
    left -= frames * cost;
}

} // namespace decode
