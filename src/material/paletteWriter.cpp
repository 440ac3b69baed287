#include "material/paletteWriter.h"

#include "common/numberText.h"
#include "image/texelText.h"
#include "material/textureNameOrder.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <ostream>

namespace tvk {
namespace {

constexpr int kColorTabs = 2;

void writePalette(std::ostream& out, const PaletteRecord& palette) {
    out << "\t<tex_palette";
    writeAttribute(out, "index", palette.index);
    writeAttribute(out, "name", palette.name);
    writeAttribute(out, "color_size", static_cast<int64_t>(palette.colors.size()));
    out << ">\n";
    writeHexWords(out, palette.colors, kColorTabs);
    out << "\t</tex_palette>\n";
}

} // namespace

void sortPalettes() {
    SceneData& scene = run().scene;
    std::vector<NameKey> keys;
    keys.reserve(scene.palettes.size());
    for (const PaletteRecord& palette : scene.palettes) {
        keys.push_back({writtenBytes(palette.name), {}});
    }
    scene.paletteOrder = orderOf(keys);
    int32_t index = 0;
    for (const int32_t place : scene.paletteOrder) {
        scene.palettes[static_cast<std::size_t>(place)].index = index++;
    }
}

MStatus writeTexPaletteArray(std::ostream& out) {
    const SceneData& scene = run().scene;
    if (scene.palettes.empty()) {
        return MS::kSuccess;
    }
    out << "<tex_palette_array";
    writeAttribute(out, "size", static_cast<int64_t>(scene.palettes.size()));
    out << ">\n";
    for (const int32_t place : scene.paletteOrder) {
        writePalette(out, scene.palettes[static_cast<std::size_t>(place)]);
    }
    out << "</tex_palette_array>\n\n";
    return MS::kSuccess;
}

} // namespace tvk
