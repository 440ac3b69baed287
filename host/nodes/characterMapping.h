#pragma once

#include "host/graph/Data.h"

#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// Which of a character's arrays an element belongs to; the numbers of files.
enum class ChannelKind : std::int32_t { kUnitless = 0, kLinear = 1, kAngular = 2, kTime = 3 };

/// One channel of a character: the attribute that it stands for, and its element.
struct CharacterChannel {
    std::string attribute; // "joint1.rotateZ"
    ChannelKind kind = ChannelKind::kUnitless;
    std::int32_t element = 0;
};

/// The channels of a character in the order in which its clips count them.
struct CharacterMapping final : Data {
    CharacterMapping() : Data(DataKind::kOther) {}

    std::vector<CharacterChannel> channels;
};

} // namespace host
