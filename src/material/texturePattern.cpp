#include "material/texturePattern.h"

#include "material/frameList.h"
#include "material/textureFiles.h"
#include "material/textureGraph.h"
#include "material/textureMessages.h"
#include "material/texturePaths.h"
#include "material/texturePatternPath.h"
#include "material/textureReferences.h"
#include "platform/fileSystem.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/plugReading.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MFnDependencyNode.h>

#include <string>
#include <utility>

namespace tvk {
namespace {

void sayUnlessQuiet(const Message& message, const std::string& subject) {
    if (!run().options.quietTextureWarnings) {
        say(message, subject);
    }
}

// The curve over time that drives the frame extension; null, after a warning, when something else or nothing does.
MObject findPatternCurve(const TextureSourceRecord& source) {
    const MPlug driver = driverThroughCharacter(findPlug(MFnDependencyNode(source.fileNode), "frameExtension"));
    const MObject curve = driver.isNull() ? MObject() : driver.node();
    if (!curve.hasFn(MFn::kAnimCurve)) {
        sayUnlessQuiet(kNoPatternCurve, source.fileNodeName);
        return {};
    }
    if (curve.apiType() != MFn::kAnimCurveTimeToUnitless) {
        sayUnlessQuiet(kDrivenPattern, source.fileNodeName);
        return {};
    }
    return curve;
}

// The frames of the artist's list, when the node has one, and of the curve's keys.
MStatus collectFrames(TexturePatternRecord& pattern) {
    MString list;
    const bool hasList = readAttribute(pattern.fileNode, "tvk_fe_list", list) && list.length() > 0;
    bool isGood = !hasList || parseFrameList(textOf(list), pattern.frames);
    const MFnAnimCurve curve(pattern.curve);
    for (unsigned int i = 0; i < curve.numKeys(); ++i) {
        pattern.frames.push_back(frameOfKey(curve.value(i)));
    }
    sortFrames(pattern.frames);
    isGood = isGood && pattern.frames.size() <= kMostPatternFrames;
    if (!isGood) {
        sayUnlessQuiet(kFrameList, pattern.fileNodeName + ": " + textOf(list));
    }
    return isGood ? MS::kSuccess : MS::kFailure;
}

// Sequences are numbered 1, 2, 3 or 001, 002, 003: the plain number counts unless there is no such file.
std::string imagePathOf(const PatternPath& parts, int64_t frame) {
    std::string plain = patternPathOf(parts, frame);
    return fileExists(findImageFile(plain)) ? plain : paddedPatternPathOf(parts, frame);
}

MStatus registerImages(const PatternPath& parts, const MaterialTextureRef& ref, TexturePatternRecord& pattern) {
    for (const int64_t frame : pattern.frames) {
        int imageIndex = -1;
        const MStatus status =
            registerTextureFile(hostText(imagePathOf(parts, frame)), imageIndex, pattern.fileNodeName);
        if (!status) {
            return status;
        }
        pattern.textureRefs.push_back(
            referTo(imageIndex, static_cast<TextureTiling>(ref.tilingS), static_cast<TextureTiling>(ref.tilingT)));
    }
    return MS::kSuccess;
}

} // namespace

MStatus gatherTexturePattern(const TextureSourceRecord& source, const MaterialTextureRef& ref) {
    SceneData& scene = run().scene;
    TexturePatternRecord pattern;
    pattern.fileNode = source.fileNode;
    pattern.fileNodeName = source.fileNodeName;
    pattern.textureSource = static_cast<int32_t>(scene.textureSources.size());
    pattern.curve = findPatternCurve(source);
    if (pattern.curve.isNull()) {
        return MS::kSuccess;
    }
    PatternPath parts;
    if (!splitPatternPath(source.path, parts)) {
        const bool isQuiet = run().options.quietTextureWarnings;
        sayUnlessQuiet(kPatternPath, source.fileNodeName + ": " + source.path);
        return isQuiet ? MS::kSuccess : MS::kFailure;
    }
    MStatus status = collectFrames(pattern);
    if (!status) {
        return status;
    }
    if (pattern.frames.empty()) {
        sayUnlessQuiet(kNoPatternCurve, source.fileNodeName);
        return MS::kSuccess;
    }
    status = registerImages(parts, ref, pattern);
    if (status) {
        scene.texturePatterns.push_back(std::move(pattern));
    }
    return status;
}

} // namespace tvk
