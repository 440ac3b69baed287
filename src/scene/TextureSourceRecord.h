#pragma once

#include "scene/MaterialRecord.h"

#include <maya/MObject.h>
#include <maya/MPlug.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

/// The channels of a texture's placement that can be keyed.
enum class PlacementChannel : uint8_t { kScaleS, kScaleT, kRotate, kTranslateS, kTranslateT };
inline constexpr std::size_t kPlacementChannelCount = 5;

/// A file texture as one material uses it.
struct TextureSourceRecord {
    MObject fileNode;
    std::string fileNodeName;
    MObject placementNode; // null when the file has none
    MObject uvChooser;     // null when the placement has none
    std::string path;      // of the image
    int32_t materialIndex = -1;
    int32_t textureRef = -1; // index in SceneData::textureRefs
    TexturePlacement placement;
    bool texPatternAnimated = false; // the file uses its frame extension
    bool texSrtAnimated = false;
    std::array<MPlug, kPlacementChannelCount> placementPlugs;
    std::array<PlugDriver, kPlacementChannelCount> placementDrivers;
    std::array<AnimTrack, kPlacementChannelCount> placementTracks; // rotation in degrees
};

/// The frames through which a file texture flips.
struct TexturePatternRecord {
    MObject fileNode;
    std::string fileNodeName;
    int32_t textureSource = -1;       // index in SceneData::textureSources
    MObject curve;                    // of the frame extension
    std::vector<int64_t> frames;      // ascending, each once
    std::vector<int32_t> textureRefs; // of each frame's image, as indices in SceneData::textureRefs
};

} // namespace tvk
