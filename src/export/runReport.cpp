#include "export/runReport.h"

#include "common/numberText.h"
#include "export/exportMessages.h"
#include "platform/codePage.h"
#include "scene/OutputKind.h"
#include "scene/Run.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace tvk {
namespace {

constexpr std::size_t kLongestName = 16;
constexpr std::size_t kCountWidth = 6;

std::string count(std::size_t value) {
    return integerText(static_cast<int64_t>(value)).str();
}

std::string count(int32_t value) {
    return integerText(value).str();
}

std::string alignedCount(const std::string& value) {
    return rightAligned(value, kCountWidth);
}

std::string nodeLine() {
    constexpr std::array<const char*, 5> kModes{"None", "Cull Useless Node", "Merge Useless Node", "Unite",
                                                "Unite and Combine Polygon"};
    const int32_t mode = run().options.optimizeNode;
    const bool compresses = mode > kOptimizeNone && mode <= kOptimizeUniteCombine;
    std::string line = "Compress Node\t: ";
    line += kModes.at(compresses ? static_cast<std::size_t>(mode) : 0);
    line += " ( " + count(run().scene.nodes.size());
    if (compresses) {
        line += " -> " + count(run().scene.outputNodes.size());
    }
    return line + " )";
}

std::string materialLine() {
    const bool compresses = run().options.compressMaterial;
    std::string line = "Compress Material\t: ";
    line += compresses ? "Compress Same Material" : "None";
    line += " ( " + count(run().scene.materialCount);
    if (compresses) {
        line += " -> " + count(run().scene.outputMaterialCount);
    }
    return line + " )";
}

void printModelTotals() {
    const SceneData& scene = run().scene;
    showInformation("imd : Total Vertex Size\t: " + alignedCount(count(scene.vertexTotal)));
    showInformation("imd : Total Polygon Size\t: " + alignedCount(count(scene.polygonTotal)) + " ( " +
                    count(scene.triangleTotal) + " triangles, " + count(scene.quadTotal) + " quads)");
}

void printNodeAnimationTotals() {
    const SceneData& scene = run().scene;
    const std::vector<int32_t>& rotations = scene.nodeRotateData;
    int32_t lowest = 0;
    int32_t highest = 0;
    if (!rotations.empty()) {
        lowest = *std::min_element(rotations.begin(), rotations.end());
        highest = *std::max_element(rotations.begin(), rotations.end());
    }
    showInformation("ica : Scale Size\t\t: " + alignedCount(count(scene.nodeScaleData.size())));
    showInformation("ica : Rotate Size\t\t: " + alignedCount(count(rotations.size())) +
                    "  (min = " + fixedText(lowest, false).str() + ", max = " + fixedText(highest, false).str() + ")");
    showInformation("ica : Translate Size\t: " + alignedCount(count(scene.nodeTranslateData.size())));
}

void warnIfLong(const char* kind, const std::string& name) {
    if (isLongName(name)) {
        say(kLongName, kind + name);
    }
}

} // namespace

void printRunHeader() {
    const ExportOptions& options = run().options;
    std::string line = "========== TVK_Export : " + options.baseName + " ========== ";
    for (const OutputKindRow& row : kOutputKinds) {
        if (options.*row.enabled) {
            line.append(row.extension).append(" ");
        }
    }
    showInformation(line);
}

void printSummary() {
    showInformation("Output Folder\t: " + run().options.outputFolder);
    showInformation(nodeLine());
    showInformation(materialLine());
    if (run().options.outImd) {
        printModelTotals();
    }
    if (run().options.outIca) {
        printNodeAnimationTotals();
    }
}

std::string finishedText(int64_t seconds) {
    return "Finished  ( time = " + minutesText(seconds).str() + " )";
}

bool isLongName(const std::string& name) {
    bool lossy = false;
    return toShiftJis(name, lossy).size() > kLongestName;
}

void warnOfLongNames() {
    const SceneData& scene = run().scene;
    for (const NodeRecord* node : scene.outputNodes) {
        if (!node->skipOutput) {
            warnIfLong("node: ", node->name);
        }
    }
    for (const int32_t index : scene.materialOrder) {
        warnIfLong("material: ", scene.materials[static_cast<std::size_t>(index)].name);
    }
    for (const int32_t index : scene.textureOrder) {
        warnIfLong("texture: ", scene.textures[static_cast<std::size_t>(index)].name);
    }
    for (const int32_t index : scene.paletteOrder) {
        warnIfLong("palette: ", scene.palettes[static_cast<std::size_t>(index)].name);
    }
}

} // namespace tvk
