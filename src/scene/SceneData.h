#pragma once

#include "scene/MaterialLookup.h"
#include "scene/MaterialRecord.h"
#include "scene/MatrixRecord.h"
#include "scene/ModelTables.h"
#include "scene/NodeRecord.h"
#include "scene/PolygonRecord.h"
#include "scene/ShapeRecord.h"
#include "scene/TextureRecord.h"
#include "scene/TextureSourceRecord.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tvk {

/// Everything gathered for one run. Emptied at the start and at the end of every run.
struct SceneData {
    /// All nodes, by depth and then by name; parents before their children. The owner of the records.
    std::vector<std::unique_ptr<NodeRecord>> nodes;
    /// The nodes of the files, root first, parents before their children.
    std::vector<NodeRecord*> outputNodes;

    // Geometry. Shapes stand in node order, polygons by shape and then by shading group.
    std::vector<ShapeRecord> shapes;
    std::vector<PolygonRecord> polygons;
    /// Every way in which vertices follow nodes, in the order of the first vertex that does; no two are alike.
    std::vector<MatrixRecord> matrices;
    /// The blends' entries, blend by blend; no two blends are alike.
    std::vector<EnvelopeEntry> envelope;
    std::vector<int32_t> vertexMatrices; // in `matrices`, for the vertices of all shapes
    ModelTables tables;
    Vector3 boxMin{}; // of all output points, unscaled; 0 without any
    Vector3 boxMax{};
    int64_t gatheredCorners = 0; // of all polygons as read
    int64_t gatheredTriangles = 0;

    int32_t positionScale = 0;      // exponent: readers multiply vertices by 2^positionScale
    bool scalingRuleIsMaya = false; // some output node compensates its parent's scale

    // Records are referred to by their place in these lists, in the order in which they were met.
    std::vector<MaterialRecord> materials;
    std::vector<TextureRecord> textures;
    std::vector<TextureSourceRecord> textureSources;
    std::vector<MaterialTextureRef> textureRefs;
    std::vector<TexturePatternRecord> texturePatterns;
    std::vector<PaletteRecord> palettes;
    TextureLookup textureLookup; // into the lists of images, references, palettes and sources
    MaterialLookup materialLookup;
    // The same in written order, as places in the lists above.
    std::vector<int32_t> materialOrder;
    std::vector<int32_t> textureOrder;
    std::vector<int32_t> paletteOrder;
    int32_t materialCount = 0;       // requests that found no record
    int32_t outputMaterialCount = 0; // written

    // Totals of the model file.
    int32_t vertexTotal = 0;
    int32_t polygonTotal = 0;
    int32_t triangleTotal = 0;
    int32_t quadTotal = 0;

    // Pools of the sampled channels, in 1/4096, colours in whole steps. With key interpolation all hold keys of four
    // numbers, in 1/4096.
    std::vector<int32_t> nodeScaleData;
    std::vector<int32_t> nodeRotateData;
    std::vector<int32_t> nodeTranslateData;
    std::vector<int32_t> matColorData;
    std::vector<int32_t> texScaleData;
    std::vector<int32_t> texRotateData;
    std::vector<int32_t> texTranslateData;

    // Whether there is something to write in the animation files.
    bool materialColorAnimated = false;
    bool texturePatternAnimated = false;
    bool visibilityAnimated = false; // some output node's visibility changes within the range
    bool textureSrtAnimated = false;

    double framesPerSecond = 24.0; // of the host's user-interface time unit
};

} // namespace tvk
