#include "export/exportOptions.h"

#include "common/asciiText.h"
#include "common/numberText.h"
#include "export/exportMessages.h"
#include "export/optionTable.h"
#include "scene/OutputKind.h"
#include "scene/Run.h"
#include "scene/fileNames.h"
#include "scene/hostCompatibility.h"

#include <maya/MGlobal.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace tvk {
namespace {

std::string queryText(const char* mel) {
    MString result;
    // A host that knows no namespace answers nothing, which is as good as an empty one.
    return MGlobal::executeCommand(mel, result) ? textOf(result) : std::string();
}

void queryTime(const char* mel, double& time) {
    double result = 0.0;
    if (MGlobal::executeCommand(mel, result)) {
        time = result;
    }
}

// Toward zero, which makes a range start of -0.5 frame 0.
int32_t truncatedFrame(double time) {
    if (std::isnan(time)) {
        return 0;
    }
    return static_cast<int32_t>(std::clamp(std::trunc(time), -2147483648.0, 2147483647.0));
}

void setFramesFromTimes(ExportOptions& options) {
    options.startFrame = truncatedFrame(options.startTime);
    options.endFrame = truncatedFrame(options.endTime);
}

// The number of frames from start to end as a reader of the range counts them; 0 or less for an empty one.
int64_t countedFrames(const ExportOptions& options) {
    return int64_t{options.endFrame} - options.startFrame + 1;
}

int32_t saturated(int64_t value) {
    return static_cast<int32_t>(
        std::clamp<int64_t>(value, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()));
}

// A request can narrow the animation range, never widen it.
void narrowToRequest(ExportOptions& options) {
    int32_t start = options.requestedStartFrame;
    int32_t end = options.requestedEndFrame;
    if (start > end) {
        std::swap(start, end);
    }
    if (start > options.endFrame) {
        say(kInvalidStartFrame, integerText(start).view());
    } else if (start >= options.startFrame) {
        options.startFrame = start;
        options.startTime = start;
    }
    if (end < options.startFrame) {
        say(kInvalidEndFrame, integerText(end).view());
    } else if (end <= options.endFrame) {
        options.endFrame = end;
        options.endTime = end;
    }
}

void resolveFrameRange(ExportOptions& options) {
    constexpr int32_t kAnimationRange = 0;
    constexpr int32_t kPlaybackRange = 1;
    if (options.frameRange == kAnimationRange) {
        return;
    }
    if (options.frameRange == kPlaybackRange) {
        queryTime("playbackOptions -q -min", options.startTime);
        queryTime("playbackOptions -q -max", options.endTime);
        setFramesFromTimes(options);
        return;
    }
    narrowToRequest(options);
}

void deriveNodeFlags(ExportOptions& options) {
    options.uniteCombine = options.optimizeNode == kOptimizeUniteCombine;
    options.unite = options.uniteCombine || options.optimizeNode == kOptimizeUnite;
    options.separateNodes = !options.unite;
}

bool animationIsOn(const ExportOptions& options) {
    return std::any_of(kOutputKinds.begin() + 1, kOutputKinds.end(),
                       [&](const OutputKindRow& row) { return options.*row.enabled; });
}

} // namespace

void resetOptions(const MFileObject& file, MPxFileTranslator::FileAccessMode mode) {
    ExportOptions& options = run().options;
    options.accessMode = mode;
    options.outputFolder = textOf(file.path());
    options.fullName = textOf(file.fullName());

    options.baseName = baseNameOf(textOf(file.name()));

    options.workspaceRoot = queryText("workspace -q -rd");
    const std::vector<std::string_view> folders = splitText(options.workspaceRoot, '/');
    if (folders.size() >= 2) {
        options.projectName = folders.back();
    }
    options.sceneNamespace = queryText("file -q -ns");

    setDefaults(options);
    options.rawValues = false;
    options.quietTextureWarnings = false;
    deriveNodeFlags(options);
    options.animationOutput = false;

    queryTime("playbackOptions -q -ast", options.startTime);
    queryTime("playbackOptions -q -aet", options.endTime);
    setFramesFromTimes(options);
    options.frameCount = saturated(countedFrames(options));
}

MStatus parseOptions(const MString& optionString) {
    ExportOptions& options = run().options;
    storeOption(*findOption("start_frame"), findOption("start_frame")->defaultText, options);
    storeOption(*findOption("end_frame"), findOption("end_frame")->defaultText, options);
    const std::string text = textOf(optionString);
    for (const std::string_view piece : splitText(text, ';')) {
        const std::vector<std::string_view> parts = splitText(piece, '=');
        const OptionRow* const row = parts.size() >= 2 ? findOption(parts[0]) : nullptr;
        if (row != nullptr) {
            storeOption(*row, parts[1], options);
        }
    }
    return MS::kSuccess;
}

MStatus validateOptions() {
    ExportOptions& options = run().options;
    if (!(options.magnify > 0.0) || !std::isfinite(options.magnify)) {
        options.magnify = 1.0;
    }
    options.animationOutput = animationIsOn(options);
    if (!options.animationOutput && !options.outImd) {
        say(kNoOutputFile);
        return MS::kFailure;
    }
    resolveFrameRange(options);
    options.frameCount = saturated(countedFrames(options));
    if (options.frameCount < 1) {
        say(kInvalidFrameRange,
            integerText(options.startFrame).str() + " - " + integerText(options.endFrame).str() + ")");
        return MS::kFailure;
    }
    deriveNodeFlags(options);
    if (options.unite && options.outIva) {
        say(kUniteWithVisibility);
    }
    return MS::kSuccess;
}

} // namespace tvk
