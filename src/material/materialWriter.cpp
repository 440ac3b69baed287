#include "material/materialWriter.h"

#include "common/fixedPoint.h"
#include "common/numberText.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <array>
#include <ostream>
#include <string>

namespace tvk {
namespace {

constexpr int kAttributeTabs = 2;

constexpr std::array<const char*, 4> kFaceWords{"front", "back", "both", "none"};
constexpr std::array<const char*, 4> kPolygonModeWords{"modulate", "decal", "toon_highlight", "shadow"};
constexpr std::array<const char*, 3> kTilingWords{"clamp", "repeat", "flip"};
constexpr std::array<const char*, 4> kTexGenWords{"none", "tex", "nrm", "pos"};
constexpr std::array<const char*, 2> kTexGenSourceWords{"polygon", "material"};

// Artists' attributes may hold any number: what has no word of its own is written as the first.
template <std::size_t N>
const char* wordOf(const std::array<const char*, N>& words, int32_t value) {
    return words.at(value >= 0 && static_cast<std::size_t>(value) < N ? static_cast<std::size_t>(value) : 0);
}

std::string fixedValue(int32_t value) {
    return fixedText(value, run().options.rawValues).str();
}

std::string fixedPair(const std::array<float, 2>& values) {
    return fixedValue(toFixed12(values[0])) + ' ' + fixedValue(toFixed12(values[1]));
}

void writeLine(std::ostream& out, const char* name, std::string_view value) {
    writeAttributeLine(out, kAttributeTabs, name, value);
}

void writeSwitch(std::ostream& out, const char* name, bool value) {
    writeLine(out, name, onOff(value));
}

void writeColor(std::ostream& out, const char* name, const Color5& color) {
    writeLine(out, name,
              integerText(color[0]).str() + ' ' + integerText(color[1]).str() + ' ' + integerText(color[2]).str());
}

void writeLights(std::ostream& out, const std::array<bool, 4>& lights) {
    out << "\t\tlight0=\"" << onOff(lights[0]) << '"';
    writeAttribute(out, "light1", onOff(lights[1]));
    writeAttribute(out, "light2", onOff(lights[2]));
    writeAttribute(out, "light3", onOff(lights[3]));
    out << '\n';
}

// Rows below each other; their first values stand under the first value of the matrix.
void writeEffectMatrix(std::ostream& out, const std::array<int32_t, 16>& matrix) {
    constexpr std::size_t kColumns = 4;
    out << "\t\ttex_effect_mtx=\"";
    for (std::size_t i = 0; i < matrix.size(); ++i) {
        const bool beginsRow = i % kColumns == 0;
        out << (i == 0 ? "" : beginsRow ? "\n\t\t                " : " ") << fixedValue(matrix.at(i));
    }
    out << "\"\n";
}

const MaterialTextureRef* referenceOf(const MaterialRecord& material) {
    return material.textureRef < 0 ? nullptr : &run().scene.textureRefs[static_cast<std::size_t>(material.textureRef)];
}

template <typename Record>
int32_t writtenIndex(const std::vector<Record>& records, int32_t place) {
    return place < 0 ? -1 : records[static_cast<std::size_t>(place)].index;
}

void writeTextureIndices(std::ostream& out, const MaterialTextureRef* ref) {
    const int32_t image = ref == nullptr ? -1 : writtenIndex(run().scene.textures, ref->imageIndex);
    const int32_t palette = ref == nullptr ? -1 : writtenIndex(run().scene.palettes, ref->paletteIndex);
    out << "\t\ttex_image_idx=\"" << integerText(image) << '"';
    writeAttribute(out, "tex_palette_idx", palette);
    out << '\n';
}

void writeTextureUse(std::ostream& out, const MaterialRecord& material, const MaterialTextureRef& ref) {
    const std::string tilingS = wordOf(kTilingWords, ref.tilingS);
    writeLine(out, "tex_tiling", tilingS + ' ' + wordOf(kTilingWords, ref.tilingT));
    writeLine(out, "tex_scale", fixedPair(material.placement.scale));
    writeLine(out, "tex_rotate", fixedValue(toFixed12(material.placement.rotate)));
    writeLine(out, "tex_translate", fixedPair(material.placement.translate));
    writeLine(out, "tex_gen_mode", wordOf(kTexGenWords, material.texGenMode));
    if (material.texGenMode == kTexGenNrm || material.texGenMode == kTexGenPos) {
        writeLine(out, "tex_gen_st_src", wordOf(kTexGenSourceWords, material.texGenStSrc));
        writeEffectMatrix(out, material.texEffectMatrixFx);
    }
}

void writeDrawing(std::ostream& out, const MaterialRecord& material) {
    writeLights(out, material.lights);
    writeLine(out, "face", wordOf(kFaceWords, material.face));
    writeAttributeLine(out, kAttributeTabs, "alpha", material.alpha);
    writeSwitch(out, "wire_mode", material.wireMode);
    writeLine(out, "polygon_mode", wordOf(kPolygonModeWords, material.polygonMode));
    writeAttributeLine(out, kAttributeTabs, "polygon_id", material.polygonId);
    writeSwitch(out, "fog_flag", material.fog);
    writeSwitch(out, "depth_test_decal", material.depthTestDecal);
    writeSwitch(out, "translucent_update_depth", material.translucentUpdateDepth);
    writeSwitch(out, "render_1_pixel", material.render1Pixel);
    writeSwitch(out, "far_clipping", material.farClip);
    writeColor(out, "diffuse", material.diffuse);
    writeColor(out, "ambient", material.ambient);
    writeColor(out, "specular", material.specular);
    writeColor(out, "emission", material.emission);
    writeSwitch(out, "shininess_table_flag", material.shininessTable);
}

void writeMaterial(std::ostream& out, const MaterialRecord& material) {
    out << "\t<material";
    writeAttribute(out, "index", material.outputIndex);
    writeAttribute(out, "name", material.name);
    out << '\n';
    writeDrawing(out, material);
    const MaterialTextureRef* ref = referenceOf(material);
    writeTextureIndices(out, ref);
    if (ref != nullptr) {
        writeTextureUse(out, material, *ref);
    }
    out << "\t/>\n";
}

} // namespace

MStatus writeMaterialArray(std::ostream& out) {
    const SceneData& scene = run().scene;
    if (scene.materials.empty()) {
        return MS::kSuccess;
    }
    out << "<material_array";
    writeAttribute(out, "size", static_cast<int64_t>(scene.materials.size()));
    out << ">\n";
    for (const int32_t place : scene.materialOrder) {
        writeMaterial(out, scene.materials[static_cast<std::size_t>(place)]);
    }
    out << "</material_array>\n\n";
    return MS::kSuccess;
}

} // namespace tvk
