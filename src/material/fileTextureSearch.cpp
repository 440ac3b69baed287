#include "material/fileTextureSearch.h"

#include "material/materialMessages.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/plugSource.h"

#include <maya/MFn.h>
#include <maya/MFnDependencyNode.h>

#include <algorithm>
#include <array>
#include <string>

namespace tvk {
namespace {

// A stencil stands between them in the host's numbering and is none.
constexpr std::array<MFn::Type, 11> kProceduralTypes{
    MFn::kBulge, MFn::kChecker, MFn::kCloth, MFn::kFractal, MFn::kGrid,           MFn::kMountain,
    MFn::kRamp,  MFn::kWater,   MFn::kOcean, MFn::kNoise,   MFn::kFluidTexture2D,
};

// Procedural textures that came after the oldest kits, whose enumeration lacks them; all versions have the names.
constexpr std::array<const char*, 2> kLaterProceduralTypes{"mandelbrot", "mandelbrot3D"};

bool isProcedural(MObject node) {
    const MFn::Type type = node.apiType();
    if (std::find(kProceduralTypes.begin(), kProceduralTypes.end(), type) != kProceduralTypes.end()) {
        return true;
    }
    const std::string typeName = textOf(MFnDependencyNode(node).typeName());
    return std::any_of(kLaterProceduralTypes.begin(), kLaterProceduralTypes.end(),
                       [&](const char* later) { return typeName == later; });
}

void warnOfTexture(const Message& warning, MObject node) {
    if (!run().options.quietTextureWarnings) {
        say(warning, textOf(MFnDependencyNode(node).name()));
    }
}

MObject firstFileLayer(MObject layeredTexture) {
    MPlug layers = findPlug(MFnDependencyNode(layeredTexture), "inputs");
    const unsigned int count = layers.isNull() ? 0 : layers.evaluateNumElements();
    for (unsigned int i = 0; i < count; ++i) {
        const MObject node = firstSourceNode(layers.elementByPhysicalIndex(i).child(0));
        if (node.apiType() == MFn::kFileTexture) {
            return node;
        }
    }
    return MObject();
}

} // namespace

MObject findFileTexture(const MPlug& colorPlug) {
    const MObject node = firstSourceNode(colorPlug);
    if (node.apiType() == MFn::kFileTexture) {
        return node;
    }
    if (node.apiType() == MFn::kLayeredTexture) {
        warnOfTexture(kLayeredTexture, node);
        return firstFileLayer(node);
    }
    if (!node.isNull() && isProcedural(node)) {
        warnOfTexture(kProceduralTexture, node);
    }
    return MObject();
}

} // namespace tvk
