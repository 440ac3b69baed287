#pragma once

#include "animation/RunPool.h"
#include "scene/AnimTrack.h"

#include <cstdint>
#include <vector>

namespace tvk {

/// ExportOptions::frameStepMode; any other number behaves as kStepOne.
enum FrameStepMode : int32_t { kStepAuto, kStepOne, kStepTwo, kStepFour };

/// Half a turn and a whole one in 1/4096 degree.
inline constexpr int32_t kHalfTurn = 737280;
inline constexpr int32_t kWholeTurn = 1474560;

/// How a channel may be thinned.
struct StepRule {
    int32_t mode = kStepOne;
    int64_t tolerance = 0; // in the channel's units: differences below it do not count
    bool isAngle = false;  // 1/4096 degree, the reader goes the short way round
};

/// Stores one value per frame in every frameStep-th frame, and all frames from the last of these on, at the place where
/// the pool has the same values already or at its end.
///   values   one per frame of the range; when empty the track stays as it is
///   track    constant, frameStep, dataSize and dataHead are filled in; samples are not looked at
/// A channel whose values differ from the first by less than the tolerance, or whose stored values are all the same, is
/// stored as that one value. The automatic mode takes the widest step of 1, 2 and 4 at which every frame is found again
/// within the tolerance.
void encodeStepped(const std::vector<int32_t>& values, const StepRule& rule, NumberPool& pool, AnimTrack& track);

/// The values that are stored for a step of 1, 2 or 4.
std::vector<int32_t> thinned(const std::vector<int32_t>& values, int32_t step);

/// What a reader makes of a frame.
///   stored       as thinned() gave it
///   frameCount   of the range
///   frame        0 to frameCount - 1
int32_t reconstructed(const std::vector<int32_t>& stored, int32_t step, int32_t frameCount, int32_t frame,
                      bool isAngle);

} // namespace tvk
