#pragma once

#include <maya/MPxFileTranslator.h>

#include <cstdint>
#include <string>

namespace tvk {

/// Node compression; any other number that an option string gives behaves as kNone and is kept as it is.
enum OptimizeNode : int32_t { kOptimizeNone, kOptimizeCull, kOptimizeMerge, kOptimizeUnite, kOptimizeUniteCombine };

/// Every setting of one export. Texts are UTF-8. Fields with an option key get their defaults from the option table
/// (export/optionTable.h); those below stand for a record that was never reset.
struct ExportOptions {
    // The file that the user chose.
    MPxFileTranslator::FileAccessMode accessMode = MPxFileTranslator::kUnknownAccessMode;
    std::string outputFolder; // as the host gives it, separator at the end included
    std::string fullName;
    std::string baseName; // without folder and extension; names every output file

    // What the host says of the project. projectName and sceneNamespace are kept for whoever looks at a run.
    std::string workspaceRoot;
    std::string projectName; // keeps its old value when the root has fewer than two components
    std::string sceneNamespace;

    bool rawValues = false; // print fixed-point values as their integers; no option key sets it
    double magnify = 1.0;   // factor on every position and translation; above 0 and finite after validation
    int32_t optimizeNode = kOptimizeNone;
    bool compressMaterial = false;

    bool outImd = true;
    bool outIca = false;
    bool outIma = false;
    bool outItp = false;
    bool outIva = false;
    bool outIta = false;

    bool vertexTableFlag = false;
    bool outAllTex = false;
    bool forceFullWeight = false;
    bool usePrimitiveStrip = true;

    bool animationOutput = false; // any output but the imd is on

    int32_t frameRange = 0; // 0 animation range, 1 playback range, else the requested frames
    int32_t requestedStartFrame = 1;
    int32_t requestedEndFrame = 9999;
    int32_t startFrame = 0; // resolved range, both ends included
    int32_t endFrame = 0;
    int32_t frameCount = 1;
    double startTime = 0.0; // the same range in the host's user-interface time unit, untruncated
    double endTime = 0.0;

    int32_t animeInterp = 0;   // 0 frame, 1 linear, 2 key
    bool loopInterp = false;   // interpolate from the last frame back to the first
    int32_t frameStepMode = 1; // 0 automatic, 1 every frame, 2 every second, 3 every fourth
    float animeTolT = 0.1F;    // scene units
    float animeTolR = 0.1F;    // degrees
    float animeTolS = 0.1F;    // factor
    int32_t animeTolC = 3;     // colour steps, 0 to 31
    float animeTolUvT = 0.1F;
    float animeTolUvR = 0.1F; // degrees
    float animeTolUvS = 0.1F;

    bool useMtworkbench = false;
    bool mergeImdFlag = false;
    std::string mergeImdPath;
    bool batchFlag = false;   // messages go to the batch log, nothing to the host's information output
    std::string batchLogPath; // empty: a log of the run's own in the folder for temporary files

    // From optimizeNode, at validation.
    bool unite = false;
    bool uniteCombine = false;
    bool separateNodes = true;

    bool quietTextureWarnings = false; // the name check: names and textures are not complained about

    /// Whether influences are exported at their bind pose: with united nodes the current pose is baked in instead.
    bool atBindPose() const { return separateNodes; }
    bool ignoreSkinning() const { return unite; }
};

} // namespace tvk
