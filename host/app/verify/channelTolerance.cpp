#include "host/app/verify/channelTolerance.h"

#include <algorithm>
#include <cmath>

namespace host::app::verify {
namespace {

constexpr double kStep = 1.0 / 4096;

} // namespace

ChannelTolerance::ChannelTolerance(const decode::AnimationFile& file) : file_(file) {
    hasCurves_ = file.info->value("interpolation") == "key";
    const std::string& mode = file.info->value("frame_step_mode");
    forcedStep_ = hasCurves_ || mode == "auto" ? 0 : mode == "4" ? 4 : mode == "2" ? 2 : 1;
}

double ChannelTolerance::at(const decode::AnimatedChannel& channel, const std::string& pool, int frame,
                            double tolerance) const {
    if (hasCurves_) {
        return ofCurve(channel, pool, frame, tolerance);
    }
    const bool isConstant = channel.dataSize == 1;
    const int step = isConstant ? std::max(forcedStep_, 1) : channel.frameStep;
    const bool isStored = frame % step == 0 || frame >= (file_.frameCount - 1) / step * step;
    if (!isStored) {
        return forcedStep_ > 1 ? -1.0 : tolerance;
    }
    return isConstant && frame != 0 ? tolerance : 0.0;
}

// Between two keys also the rounding of their slopes counts, by as many frames as they are apart.
double ChannelTolerance::ofCurve(const decode::AnimatedChannel& channel, const std::string& pool, int frame,
                                 double tolerance) const {
    const auto found = file_.pools.find(pool);
    if (found == file_.pools.end()) {
        return tolerance;
    }
    double before = 0.0;
    double after = file_.frameCount;
    for (int i = 0; i < channel.dataSize; ++i) {
        const double key = found->second.at(static_cast<std::size_t>(channel.dataHead + i) * 4);
        if (key == frame) {
            return channel.dataSize == 1 && frame != 0 ? tolerance : 0.0;
        }
        before = key < frame ? std::max(before, key) : before;
        after = key > frame ? std::min(after, key) : after;
    }
    return tolerance + kStep * (1.0 + 0.15 * (after - before));
}

} // namespace host::app::verify
