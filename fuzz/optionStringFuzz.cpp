#include "export/exportOptions.h"
#include "export/optionTable.h"
#include "scene/Run.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <string>

namespace {

void demand(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool isTolerance(float value) {
    return value >= 0.0F && std::isfinite(value);
}

// What every later step of a run takes for granted.
void checkOptions(const tvk::ExportOptions& options, bool valid) {
    demand(isTolerance(options.animeTolT) && isTolerance(options.animeTolR) && isTolerance(options.animeTolS));
    demand(isTolerance(options.animeTolUvT) && isTolerance(options.animeTolUvR) && isTolerance(options.animeTolUvS));
    demand(options.animeTolC >= 0 && options.animeTolC <= 31);
    demand(options.mergeImdPath.find_first_of(";=") == std::string::npos);
    demand(options.batchLogPath.find_first_of(";=") == std::string::npos);
    if (valid) {
        demand(std::isfinite(options.magnify) && options.magnify > 0.0);
        demand(options.frameCount >= 1 && options.startFrame <= options.endFrame);
        demand(options.startFrame >= 1 && options.endFrame <= 100); // a request only narrows
        demand(options.unite != options.separateNodes && (options.unite || !options.uniteCombine));
        demand(options.outImd || options.animationOutput);
    }
}

} // namespace

// Any bytes as an option string, over an animation range of 1 to 100. The range that is played is asked of the host,
// which is no part of reading, so that choice is turned into the animation range.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ostream nowhere(nullptr);
    tvk::Run& run = tvk::run();
    run.options = tvk::ExportOptions{};
    run.messages = &nowhere;
    run.options.startFrame = 1;
    run.options.endFrame = 100;
    tvk::setDefaults(run.options);
    const std::string text(reinterpret_cast<const char*>(data), size);
    demand(static_cast<bool>(tvk::parseOptions(text.c_str())));
    if (run.options.frameRange == 1) {
        run.options.frameRange = 0;
    }
    checkOptions(run.options, static_cast<bool>(tvk::validateOptions()));
    return 0;
}
