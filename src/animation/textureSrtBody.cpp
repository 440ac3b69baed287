#include "animation/textureSrtBody.h"

#include "animation/poolText.h"
#include "scene/Run.h"
#include "scene/xmlText.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace tvk {
namespace {

constexpr std::array<const char*, kPlacementChannelCount> kChannelWords{"tex_scale_s", "tex_scale_t", "tex_rotate",
                                                                        "tex_translate_s", "tex_translate_t"};

void writeEntry(std::ostream& out, int64_t index, const TextureSourceRecord& source) {
    out << "\t<tex_srt_anm";
    writeAttribute(out, "index", index);
    writeAttribute(out, "material_name", run().scene.materials.at(static_cast<std::size_t>(source.materialIndex)).name);
    out << ">\n";
    for (std::size_t channel = 0; channel < kPlacementChannelCount; ++channel) {
        out << "\t\t<" << kChannelWords[channel] << ' ';
        writeTrackAttributes(out, source.placementTracks[channel]);
        out << "/>\n";
    }
    out << "\t</tex_srt_anm>\n";
}

} // namespace

MStatus writeTextureSrtBody(std::ostream& out) {
    const SceneData& scene = run().scene;
    const auto count = std::count_if(scene.textureSources.begin(), scene.textureSources.end(),
                                     [](const TextureSourceRecord& source) { return source.texSrtAnimated; });
    if (count == 0) {
        return MS::kSuccess;
    }
    writePool(out, "tex_scale_data", scene.texScaleData, true);
    writePool(out, "tex_rotate_data", scene.texRotateData, true);
    writePool(out, "tex_translate_data", scene.texTranslateData, true);
    out << "<tex_srt_anm_array";
    writeAttribute(out, "size", static_cast<int64_t>(count));
    out << ">\n";
    int64_t index = 0;
    for (const TextureSourceRecord& source : scene.textureSources) {
        if (source.texSrtAnimated) {
            writeEntry(out, index++, source);
        }
    }
    out << "</tex_srt_anm_array>\n\n";
    return MS::kSuccess;
}

} // namespace tvk
