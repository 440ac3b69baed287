#include "material/paletteRegistration.h"

#include "material/textureMessages.h"
#include "scene/Run.h"

#include <utility>

namespace tvk {

MStatus registerPalette(const std::string& paletteName, const std::vector<uint16_t>& colors, TextureRecord& user,
                        int& paletteIndex) {
    SceneData& scene = run().scene;
    const auto next = static_cast<int32_t>(scene.palettes.size());
    const auto [place, isNew] = scene.textureLookup.paletteOfName.emplace(paletteName, next);
    if (isNew) {
        PaletteRecord palette;
        palette.index = next;
        palette.name = paletteName;
        palette.colors = colors;
        palette.user = user.name;
        scene.palettes.push_back(std::move(palette));
    }
    const PaletteRecord& known = scene.palettes[static_cast<std::size_t>(place->second)];
    if (known.colors != colors) {
        say(kPaletteClash, paletteName + "\n       (used by " + known.user + " and " + user.name + ")");
        return MS::kFailure;
    }
    paletteIndex = place->second;
    return MS::kSuccess;
}

} // namespace tvk
