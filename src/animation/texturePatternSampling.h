#pragma once

#include "scene/TextureSourceRecord.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

/// Place of the wanted frame number in a list; where the list does not have it, of the nearest one, the lower of two
/// that are equally near.
///   frames   ascending, not empty
std::size_t nearestFrame(const std::vector<int64_t>& frames, int64_t wanted);

/// Which of its images a pattern shows at every frame of the run's range, as indices in SceneData::textureRefs. Warns,
/// once, of a frame number that the pattern does not have.
std::vector<int32_t> samplePattern(const TexturePatternRecord& pattern);

} // namespace tvk
