#include "export/exportRun.h"

#include "animation/channelEncoding.h"
#include "animation/sampling.h"
#include "common/numberText.h"
#include "export/RunGuard.h"
#include "export/batchLog.h"
#include "export/envelope.h"
#include "export/exportMessages.h"
#include "export/exportOptions.h"
#include "export/materialPass.h"
#include "export/modelGathering.h"
#include "export/nodeTransforms.h"
#include "export/runReport.h"
#include "export/workbenchLaunch.h"
#include "platform/outputWindow.h"
#include "platform/userEnvironment.h"
#include "scene/OutputKind.h"
#include "scene/Run.h"
#include "scene/guarded.h"
#include "scene/hostCompatibility.h"

#include <maya/MAnimControl.h>
#include <maya/MFeedbackLine.h>
#include <maya/MTime.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>

namespace tvk {
namespace {

void showProgress(const std::string& text) {
    MFeedbackLine::setFormat(hostText(text));
}

struct AnimationCheck {
    bool ExportOptions::*output;
    bool SceneData::*animated;
    const Message& warning;
};

const std::array<AnimationCheck, 4> kAnimationChecks{{
    {&ExportOptions::outIma, &SceneData::materialColorAnimated, kNoMaterialColorAnimation},
    {&ExportOptions::outItp, &SceneData::texturePatternAnimated, kNoTexturePatternAnimation},
    {&ExportOptions::outIva, &SceneData::visibilityAnimated, kNoVisibilityAnimation},
    {&ExportOptions::outIta, &SceneData::textureSrtAnimated, kNoTextureSrtAnimation},
}};

void warnOfMissingAnimation() {
    for (const AnimationCheck& check : kAnimationChecks) {
        if (run().options.*check.output && !(run().scene.*check.animated)) {
            say(check.warning);
        }
    }
}

void showEnd(const MStatus& status, int64_t seconds) {
    if (run().options.batchFlag) {
        return;
    }
    const std::string text = status ? finishedText(seconds) : "Stopped";
    showProgress(text);
    if (status) {
        showInformation(text);
    }
}

void reportFailure(const char* what) {
    say(kUnexpectedFailure, what);
}

MStatus gatherAndWrite(int& written) {
    MStatus status = gatherScene();
    if (status) {
        status = writeAllFiles(written);
    }
    if (status) {
        warnOfLongNames();
        if (run().options.useMtworkbench) {
            startMaterialWorkbench();
        }
    }
    if (status && written > 0) {
        printSummary();
    }
    return status;
}

// Options, messages and the driver. The log, when there is one, closes at the end.
MStatus validateAndRun(BatchLog& log) {
    setupStream(*run().messages);
    MStatus status = validateOptions();
    if (status) {
        status = runExport();
    }
    const bool clean = status && !warningRaised();
    if (run().options.batchFlag) {
        log.finish(clean);
    } else if (!clean) {
        *run().messages << std::endl;
        showOutputWindow();
    }
    return status;
}

MStatus exportUnguarded(const MFileObject& file, const MString& optionString, MPxFileTranslator::FileAccessMode mode) {
    run().resetMessages();
    resetOptions(file, mode);
    parseOptions(optionString);
    BatchLog log;
    if (run().options.batchFlag && !log.open()) {
        return MS::kFailure;
    }
    return validateAndRun(log);
}

} // namespace

MStatus gatherScene() {
    run().scene.framesPerSecond = static_cast<float>(MTime(1.0, MTime::kSeconds).as(MTime::uiUnit()));
    const MTime userTime = MAnimControl::currentTime();
    MAnimControl::setCurrentTime(MTime(run().options.startTime, MTime::uiUnit()));
    MStatus status = readModel();
    if (!status) {
        return status;
    }
    prepareMaterialAnimation();
    settleModel();
    if (run().options.animationOutput) {
        status = sampleAnimation(readSampledSet);
    }
    if (status) {
        encodeChannels(run().scene);
        MAnimControl::setCurrentTime(userTime);
    }
    return status;
}

MStatus writeAllFiles(int& written) {
    warnOfMissingAnimation();
    for (const OutputKindRow& row : kOutputKinds) {
        if (!(run().options.*row.enabled)) {
            continue;
        }
        const MStatus status = writeOutputFile(row.kind);
        if (!status) {
            return status;
        }
        ++written;
    }
    return MS::kSuccess;
}

MStatus runExport() {
    const int64_t start = wallClockSeconds();
    run().clearScene();
    MFeedbackLine::setShowFeedback(true);
    printRunHeader();
    showProgress("Getting Data ...");
    int written = 0;
    const MStatus status = guarded([&] { return gatherAndWrite(written); }, reportFailure);
    if (written == 0) {
        showInformation("---- No Output File ----");
    }
    run().clearScene();
    showEnd(status, wallClockSeconds() - start);
    return status;
}

MStatus exportFile(const MFileObject& file, const MString& optionString, MPxFileTranslator::FileAccessMode mode) {
    if (run().underWay) {
        return MS::kFailure;
    }
    const RunGuard guard;
    return guarded([&] { return exportUnguarded(file, optionString, mode); }, reportFailure);
}

} // namespace tvk
