#pragma once

#include "decode/AnimationFile.h"

#include <string>

namespace host::app::verify {

/// How far a channel may be from the scene at a frame, besides the rounding of what is stored: nothing at frames that
/// are stored, the file's own tolerance at those between.
class ChannelTolerance {
public:
    explicit ChannelTolerance(const decode::AnimationFile& file);

    /// The tolerance; negative when nothing bounds the error there, since the steps were not chosen by their errors.
    ///   pool        element that the channel's data stand in
    ///   tolerance   of the file's info, in the channel's units
    double at(const decode::AnimatedChannel& channel, const std::string& pool, int frame, double tolerance) const;

    /// True when some frames between cannot be compared.
    bool isForced() const { return forcedStep_ > 1; }

private:
    double ofCurve(const decode::AnimatedChannel& channel, const std::string& pool, int frame, double tolerance) const;

    const decode::AnimationFile& file_;
    bool hasCurves_ = false;
    int forcedStep_ = 0; // 0: the exporter chose the steps
};

} // namespace host::app::verify
