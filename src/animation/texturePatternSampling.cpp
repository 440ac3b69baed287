#include "animation/texturePatternSampling.h"

#include "animation/animationMessages.h"
#include "common/numberText.h"
#include "scene/Run.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MTime.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace tvk {
namespace {

// Frame numbers in file names have at most 14 digits.
constexpr double kLargestNumber = 1e15;

int64_t wantedFrame(const MFnAnimCurve& curve, int32_t frame) {
    double value = 0.0;
    if (!curve.evaluate(MTime(static_cast<double>(frame), MTime::uiUnit()), value) || std::isnan(value)) {
        return 0;
    }
    return std::llround(std::clamp(value, -kLargestNumber, kLargestNumber)); // halves away from zero
}

} // namespace

std::size_t nearestFrame(const std::vector<int64_t>& frames, int64_t wanted) {
    const auto notBelow = std::lower_bound(frames.begin(), frames.end(), wanted);
    if (notBelow == frames.begin() || (notBelow != frames.end() && *notBelow == wanted)) {
        return static_cast<std::size_t>(notBelow - frames.begin());
    }
    const auto below = notBelow - 1;
    const bool isBelowNearer = notBelow == frames.end() || wanted - *below <= *notBelow - wanted;
    return static_cast<std::size_t>((isBelowNearer ? below : notBelow) - frames.begin());
}

std::vector<int32_t> samplePattern(const TexturePatternRecord& pattern) {
    const ExportOptions& options = run().options;
    const MFnAnimCurve curve(pattern.curve);
    std::vector<int32_t> refs;
    refs.reserve(static_cast<std::size_t>(std::max(options.frameCount, 0)));
    bool warned = false;
    for (int32_t i = 0; i < options.frameCount; ++i) {
        const int64_t wanted = wantedFrame(curve, options.startFrame + i);
        const std::size_t place = nearestFrame(pattern.frames, wanted);
        if (pattern.frames[place] != wanted && !warned) {
            warned = true;
            say(kNearestFrameExtension, pattern.fileNodeName + ".fe: fe = " + integerText(wanted).str() + " -> " +
                                            integerText(pattern.frames[place]).str());
        }
        refs.push_back(pattern.textureRefs[place]);
    }
    return refs;
}

} // namespace tvk
