#include "material/texturePlacement.h"

#include "material/textureGraph.h"
#include "scene/decomposition.h"
#include "scene/hostCompatibility.h"
#include "scene/plugReading.h"

#include <maya/MFnDependencyNode.h>

#include <algorithm>
#include <cmath>

namespace tvk {
namespace {

constexpr std::array<const char*, kPlacementChannelCount> kPlacementAttributes{"repeatU", "repeatV", "rotateFrame",
                                                                               "translateFrameU", "translateFrameV"};

const MPlug& plugOf(const TextureSourceRecord& source, PlacementChannel channel) {
    return source.placementPlugs.at(static_cast<std::size_t>(channel));
}

void readValues(TextureSourceRecord& source) {
    TexturePlacement& placement = source.placement;
    double radians = 0.0;
    // What cannot be read keeps its default, like everything else about a placement.
    static_cast<void>(readPlug(plugOf(source, PlacementChannel::kScaleS), placement.scale[0]));
    static_cast<void>(readPlug(plugOf(source, PlacementChannel::kScaleT), placement.scale[1]));
    static_cast<void>(readPlug(plugOf(source, PlacementChannel::kRotate), radians));
    static_cast<void>(readPlug(plugOf(source, PlacementChannel::kTranslateS), placement.translate[0]));
    static_cast<void>(readPlug(plugOf(source, PlacementChannel::kTranslateT), placement.translate[1]));
    placement.rotate = placementDegrees(radians);
    const std::array<float, 2> noScale{1.0F, 1.0F};
    const std::array<float, 2> noTranslation{0.0F, 0.0F};
    placement.isIdentity =
        placement.scale == noScale && placement.rotate == 0.0F && placement.translate == noTranslation;
}

} // namespace

void readPlacement(TextureSourceRecord& source) {
    source.placementNode = sourceNodeOf(source.fileNode, "wrapU", MFn::kPlace2dTexture);
    if (source.placementNode.isNull()) {
        return;
    }
    source.uvChooser = sourceNodeOf(source.placementNode, "uvCoord", MFn::kUvChooser);
    const MFnDependencyNode node(source.placementNode);
    for (std::size_t i = 0; i < kPlacementChannelCount; ++i) {
        source.placementPlugs.at(i) = findPlug(node, kPlacementAttributes.at(i));
        source.placementDrivers.at(i) = findDriver(source.placementPlugs.at(i));
    }
    readValues(source);
    source.texSrtAnimated = std::any_of(source.placementDrivers.begin(), source.placementDrivers.end(),
                                        [](const PlugDriver& driver) { return driver.isAnimated(); });
}

float placementDegrees(double radians) {
    double degrees = std::fmod(radians * kDegreesPerRadian, 360.0);
    degrees = degrees >= 0.0 ? degrees : degrees + 360.0;
    // Compared as it is kept: just below 180 single precision rounds up to it.
    const auto narrow = static_cast<float>(degrees);
    return narrow >= 180.0F ? static_cast<float>(degrees - 360.0) : narrow;
}

} // namespace tvk
