#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace tvk {

/// One image file that the model uses.
struct TextureRecord {
    std::string path;     // resolved; UTF-8; written as it stands
    std::string file;     // where the image was found: another place than `path` in scenes from other machines
    std::string name;     // file name without folder and last extension
    std::string fileNode; // name of the file texture that brought it; "" when nobody said
    int32_t index = 0;    // position in the list; once sorted, position in the file
    int32_t width = 8;    // of the texture: 8, 16, 32 ... 1024
    int32_t height = 8;
    int32_t originalWidth = 8; // of the picture
    int32_t originalHeight = 8;
    // Known once the image is converted.
    int32_t format = 6;        // number of a texture format; 6 is direct
    int32_t color0Mode = 0;    // 0 color, 1 transparency
    int32_t paletteIndex = -1; // in SceneData::palettes; -1 for none
};

/// How a texture goes on beyond its edges. The numbers index the words that the files use.
enum TextureTiling : int32_t { kTilingClamp, kTilingRepeat, kTilingFlip };

/// One distinct combination of image and tiling.
struct MaterialTextureRef {
    int32_t position = 0;      // in the list
    int32_t index = 0;         // once sorted by image, position in that order
    int32_t imageIndex = -1;   // in SceneData::textures
    int32_t paletteIndex = -1; // in SceneData::palettes, once the image is converted
    int32_t format = 6;        // of the image, once it is converted
    int32_t tilingS = kTilingClamp;
    int32_t tilingT = kTilingClamp;
};

/// One palette; images that name the same palette share it.
struct PaletteRecord {
    int32_t index = 0; // position in the list; once sorted, position in the file
    std::string name;
    std::vector<uint16_t> colors; // red in bits 0-4, green in 5-9, blue in 10-14
    std::string user;             // name of the image that brought it
};

/// Where records stand in their lists, so that nothing is searched for in order. Always the first place that an ordered
/// search would find.
struct TextureLookup {
    std::unordered_map<std::string, int32_t> imageOfPath; // normalised paths
    std::unordered_map<std::string, int32_t> imageOfName;
    std::unordered_map<int64_t, int32_t> refOfImageAndTiling;
    std::unordered_map<std::string, int32_t> paletteOfName;
    std::unordered_multimap<int32_t, int32_t> sourcesOfMaterial;
};

} // namespace tvk
