#pragma once

#include "animation/RunPool.h"
#include "scene/AnimTrack.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tvk {

/// ExportOptions::animeInterp of channels that are stored as curves.
inline constexpr int32_t kKeyInterpolation = 2;

/// One key as it is stored: frame, value, in-slope and out-slope (value per frame), all times 4096.
using StoredKey = std::array<int32_t, 4>;

struct StoredKeyHash {
    uint64_t operator()(const StoredKey& key) const;
};

/// The pools of channels that are stored as curves. Places count keys.
using KeyPool = RunPool<StoredKey, StoredKeyHash, 4>;

struct CurveKey {
    double frame = 0.0; // of the range, from 0
    double value = 0.0;
    double slope = 0.0; // value per frame, on both sides
};

struct KeyRule {
    double tolerance = 0.0; // in the samples' own units
    bool isAngle = false;   // degrees
    bool loops = false;     // the curve goes on from the last frame to the first: one more key, after the last frame
};

/// Makes a curve of one sample per frame: a key per frame whose slope is that of its neighbours, less the keys that the
/// rest of the curve gives back within the tolerance.
///   samples   angles are continuous; when empty there are no keys
std::vector<CurveKey> reducedKeys(const std::vector<float>& samples, const KeyRule& rule);

/// Value of the curve at a frame: cubic between two keys, level before the first and behind the last.
///   keys   at least one, frames ascending
double curveValue(const std::vector<CurveKey>& keys, double frame);

/// Stores the reduced keys. constant, frameStep, dataSize (keys) and dataHead (first key) of the track are filled in.
void encodeKeys(const std::vector<float>& samples, const KeyRule& rule, KeyPool& pool, AnimTrack& track);

/// The integers of a key pool, in the order in which they are written.
std::vector<int32_t> keyNumbers(const KeyPool& pool);

} // namespace tvk
