#include "decode/ModelTextures.h"

#include "decode/FileError.h"
#include "decode/textureReader.h"

#include <algorithm>
#include <ostream>
#include <unordered_map>

namespace decode {
namespace {

using Palettes = std::unordered_map<std::string, const ModelPalette*>;

// The elements of an array of the body; none when there is no such array.
const std::vector<FileElement>& elementsOf(const FileElement& root, const char* arrayName) {
    static const std::vector<FileElement> kNone;
    const FileElement* const array = root.child("body").find(arrayName);
    if (array == nullptr) {
        return kNone;
    }
    require(!array->children.empty(), *array, "is empty");
    return array->countedChildren();
}

template <typename Record>
void checkOrder(const std::vector<FileElement>& elements, const std::vector<Record>& records) {
    for (std::size_t i = 1; i < records.size(); ++i) {
        require(records[i - 1].name <= records[i].name, elements[i], "stands behind ", excerpt(records[i - 1].name));
    }
}

ModelPalette readPalette(const FileElement& element) {
    ModelPalette palette;
    palette.index = element.integer("index");
    palette.name = element.value("name");
    for (const std::uint32_t word : readWords(element, "color_size", 4)) {
        palette.colors.push_back(static_cast<std::uint16_t>(word));
    }
    return palette;
}

const ModelPalette* paletteOf(const Palettes& palettes, const std::string* name) {
    const auto found = name == nullptr ? palettes.end() : palettes.find(*name);
    return found == palettes.end() ? nullptr : found->second;
}

void checkMaterial(const FileElement& material, const ModelTextures& textures, const Palettes& palettes) {
    const int image = material.integer("tex_image_idx");
    const int palette = material.integer("tex_palette_idx");
    require(image >= -1 && image < static_cast<int>(textures.images.size()), material, "there is no texture ", image);
    require((image >= 0) == (material.attribute("tex_tiling") != nullptr), material,
            "has the lines of a texture and none, or the reverse");
    const std::optional<std::string> name =
        image < 0 ? std::nullopt : textures.images[static_cast<std::size_t>(image)].paletteName;
    const ModelPalette* const expected = paletteOf(palettes, name ? &*name : nullptr);
    require(palette == (expected == nullptr ? -1 : expected->index), material, "palette ", palette,
            " is not that of its texture");
}

template <typename Record>
const Record& recordOf(const std::vector<Record>& records, std::string_view name) {
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const Record& record) { return record.name == name; });
    if (found == records.end()) {
        throw FileError("there is no " + excerpt(name));
    }
    return *found;
}

} // namespace

bool operator==(const ShownTexel& x, const ShownTexel& y) {
    return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
}

std::ostream& operator<<(std::ostream& out, const ShownTexel& texel) {
    return out << texel.r << ' ' << texel.g << ' ' << texel.b << ' ' << texel.a;
}

const ModelTexture& ModelTextures::image(std::string_view name) const {
    return recordOf(images, name);
}

const ModelPalette& ModelTextures::palette(std::string_view name) const {
    return recordOf(palettes, name);
}

ModelTextures readModelTextures(const FileElement& root) {
    ModelTextures textures;
    const std::vector<FileElement>& paletteElements = elementsOf(root, "tex_palette_array");
    const std::vector<FileElement>& imageElements = elementsOf(root, "tex_image_array");
    std::transform(paletteElements.begin(), paletteElements.end(), std::back_inserter(textures.palettes), readPalette);
    Palettes palettes;
    for (const ModelPalette& palette : textures.palettes) {
        palettes.emplace(palette.name, &palette);
    }
    for (const FileElement& element : imageElements) {
        const ModelPalette* const palette = paletteOf(palettes, element.attribute("palette_name"));
        textures.images.push_back(readTexture(element, palette == nullptr ? nullptr : &palette->colors));
    }
    checkOrder(paletteElements, textures.palettes);
    checkOrder(imageElements, textures.images);
    for (const FileElement& material : elementsOf(root, "material_array")) {
        checkMaterial(material, textures, palettes);
    }
    return textures;
}

} // namespace decode
