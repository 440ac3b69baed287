#include "animation/materialColorBody.h"

#include "animation/keyEncoding.h"
#include "animation/poolText.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace tvk {
namespace {

constexpr std::array<const char*, kColorChannelCount> kChannelWords{
    "diffuse_r",  "diffuse_g",  "diffuse_b",  "ambient_r",  "ambient_g",  "ambient_b",    "specular_r",
    "specular_g", "specular_b", "emission_r", "emission_g", "emission_b", "polygon_alpha"};

void writeMaterial(std::ostream& out, int64_t index, const MaterialRecord& material) {
    out << "\t<mat_color_anm";
    writeAttribute(out, "index", index);
    writeAttribute(out, "material_name", material.name);
    out << ">\n";
    for (std::size_t channel = 0; channel < kColorChannelCount; ++channel) {
        out << "\t\t<" << kChannelWords[channel] << ' ';
        writeTrackAttributes(out, material.channels[channel].track);
        out << "/>\n";
    }
    out << "\t</mat_color_anm>\n";
}

} // namespace

MStatus writeMaterialColorBody(std::ostream& out) {
    const SceneData& scene = run().scene;
    const auto count = std::count_if(scene.materials.begin(), scene.materials.end(),
                                     [](const MaterialRecord& material) { return material.colorAnimated; });
    if (count == 0) {
        return MS::kSuccess;
    }
    if (!scene.matColorData.empty()) {
        writePool(out, "mat_color_data", scene.matColorData, run().options.animeInterp == kKeyInterpolation);
    }
    out << "<mat_color_anm_array";
    writeAttribute(out, "size", static_cast<int64_t>(count));
    out << ">\n";
    int64_t index = 0;
    for (const MaterialRecord& material : scene.materials) {
        if (material.colorAnimated) {
            writeMaterial(out, index++, material);
        }
    }
    out << "</mat_color_anm_array>\n\n";
    return MS::kSuccess;
}

} // namespace tvk
