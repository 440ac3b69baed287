#include "decode/AnimationFile.h"
#include "decode/FileError.h"
#include "decode/PatternFile.h"
#include "decode/VisibilityFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

template <typename Read, typename Check>
void readAs(Read read, Check check, std::string_view text) {
    try {
        check(read(text));
    } catch (const decode::FileError&) {
    }
}

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

// Any bytes as each of the five kinds of animation: what is read has a value for every frame.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    readAs(
        decode::readAnimationFile,
        [](const decode::AnimationFile& file) {
            for (const decode::AnimatedThing& thing : file.things) {
                for (const auto& [word, channel] : thing.channels) {
                    demand(channel.frames.size() == static_cast<std::size_t>(file.frameCount));
                }
            }
        },
        text);
    readAs(
        decode::readVisibilityFile,
        [](const decode::VisibilityFile& file) {
            for (const decode::VisibilityFile::Node& node : file.nodes) {
                demand(static_cast<int>(node.frames.size()) == file.info->integer("frame_size"));
            }
        },
        text);
    readAs(
        decode::readPatternFile,
        [](const decode::PatternFile& file) {
            for (const decode::PatternFile::Entry& entry : file.entries) {
                demand(static_cast<int>(entry.images.size()) == file.info->integer("frame_size"));
            }
        },
        text);
    return 0;
}
