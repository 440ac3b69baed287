#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host::app::report {

// What the console can hold, and what a face costs of its polygon memory.
inline constexpr std::int64_t kMostVertices = 6144;
inline constexpr std::int64_t kMostPolygonCost = 40960;
inline constexpr std::int64_t kMostMatrices = 31;
inline constexpr std::int64_t kTriangleCost = 20;
inline constexpr std::int64_t kQuadCost = 24;

// All names are UTF-8. Counts are of the exported files, not of the scene.

struct Limit {
    std::string key;   // in JSON
    std::string label; // "polygon cost"
    std::int64_t used = 0, limit = 0;

    std::int64_t over() const { return used > limit ? used - limit : 0; }
};

/// The primitives of one type.
struct PrimitiveCosts {
    std::string type; // word in the file
    bool isStrip = false;
    std::int64_t count = 0, faces = 0, vertices = 0;
};

/// What is sent to draw something: a node, or the whole model.
struct DrawCosts {
    std::int64_t vertices = 0, triangles = 0, quads = 0;
    std::int64_t matrixLoads = 0;    // matrices brought into slots
    std::int64_t matrixSwitches = 0; // commands that choose a slot

    std::int64_t polygonCost() const { return triangles * kTriangleCost + quads * kQuadCost; }
};

struct NodeCosts {
    std::string name;
    DrawCosts draws;
};

struct MaterialCosts {
    std::string name;
    std::int64_t vertices = 0;
    std::int64_t textureBytes = 0; // of all images that it shows, with their palettes
};

struct ModelCosts {
    std::int64_t nodes = 0, polygons = 0, matrixGroups = 0, matrices = 0, materials = 0;
    DrawCosts draws;
    std::array<PrimitiveCosts, 4> primitives; // strips first
    std::vector<NodeCosts> meshNodes;         // all that draw, the most expensive first
    std::vector<MaterialCosts> drawn;         // all materials, the most expensive first

    std::int64_t strips() const { return primitives[0].count + primitives[1].count; }
    std::int64_t facesInStrips() const { return primitives[0].faces + primitives[1].faces; }
};

struct TextureCosts {
    std::string name, format, palette; // palette "" for none
    int width = 0, height = 0;
    std::int64_t texelBytes = 0;
    std::int64_t indexBytes = 0;   // of tex4x4: where each block's colours stand
    std::int64_t paletteBytes = 0; // of the whole palette, also when other images use it

    std::int64_t bytes() const { return texelBytes + indexBytes + paletteBytes; }
};

struct PaletteCosts {
    std::string name;
    std::int64_t colors = 0, bytes = 0;
    std::int64_t images = 0; // that use it
};

struct TextureMemory {
    std::vector<TextureCosts> images; // the most expensive first
    std::vector<PaletteCosts> palettes;
    std::int64_t texelBytes = 0, indexBytes = 0, paletteBytes = 0; // each palette once

    std::int64_t bytes() const { return texelBytes + indexBytes + paletteBytes; }
};

/// One pool of an animation file.
struct PoolCosts {
    std::string name;                // in the file: "node_scale_data"
    std::string unit;                // what is counted: "values" or "keys"
    std::int64_t channels = 0;       // that take their data from it
    std::int64_t moving = 0;         // of them, those that are not the same at all frames
    std::int64_t stored = 0;         // in the file
    std::int64_t withoutSharing = 0; // what would be stored if each channel had its data for itself

    std::int64_t saved() const { return withoutSharing - stored; }
};

struct AnimationCosts {
    std::string kind; // ending
    std::int64_t frames = 0;
    std::vector<PoolCosts> pools; // all of one unit

    PoolCosts inAll() const;
};

struct FileCosts {
    std::string name, kind;
    bool isThere = false;
    std::int64_t bytes = 0;
};

/// What the files of one base path cost the console.
struct Report {
    std::string base;
    std::vector<FileCosts> files; // one of each kind
    bool hasModel = false;
    ModelCosts model;
    bool hasTextures = false; // also a model without any has: they are known to be none
    TextureMemory textures;
    std::vector<AnimationCosts> animations; // of the files that are there, all of the same frames
    std::vector<Limit> limits;              // none without a model

    const FileCosts& file(std::string_view kind) const;
    bool isOverLimit() const;
};

} // namespace host::app::report
