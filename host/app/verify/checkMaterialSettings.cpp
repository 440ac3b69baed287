#include "host/app/verify/checkMaterialSettings.h"

#include "host/app/report/nameText.h"
#include "host/app/verify/checkMaterials.h"
#include "host/app/verify/sceneValues.h"

#include <maya/MString.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace host::app::verify {
namespace {

struct Switch {
    const char* written;
    const char* attribute;
    bool otherwise;
};
constexpr Switch kSwitches[] = {{"light0", "tvk_lighting", true},
                                {"light1", "tvk_lighting1", false},
                                {"light2", "tvk_lighting2", false},
                                {"light3", "tvk_lighting3", false},
                                {"wire_mode", "tvk_wire_mode", false},
                                {"fog_flag", "tvk_fog", false},
                                {"depth_test_decal", "tvk_depth_test_decal", false},
                                {"translucent_update_depth", "tvk_xlu_update_depth", false},
                                {"render_1_pixel", "tvk_render_1_pixel", false},
                                {"far_clipping", "tvk_far_clip", false}};

int numberOf(const MObject& shader, const char* attribute) {
    return shader.isNull() ? 0 : attributeOf<int>(shader, attribute).value_or(0);
}

template <std::size_t N>
const char* wordOf(const std::array<const char*, N>& words, int number) {
    return words.at(number >= 0 && number < static_cast<int>(N) ? static_cast<std::size_t>(number) : 0);
}

const char* tilingOf(const MObject& texture, const char* wrap, const char* mirror) {
    return isOn(texture, mirror) ? "flip" : isOn(texture, wrap, true) ? "repeat" : "clamp";
}

// File name without folder and ending, whatever the folders are divided by.
std::string imageName(std::string path) {
    path.erase(0, path.find_last_of("/\\") + 1);
    return path.substr(0, path.rfind('.'));
}

class SettingsCheck {
public:
    SettingsCheck(const decode::FileElement& material, const MObject& shader, const std::string& place,
                  Verification& result)
        : material_(material), shader_(shader), place_(place), result_(result) {}

    void checkDrawing() {
        bool isLit = false;
        for (const Switch& row : kSwitches) {
            const bool expected = shader_.isNull() ? row.otherwise : isOn(shader_, row.attribute, row.otherwise);
            isLit = isLit || (std::string(row.written).compare(0, 5, "light") == 0 && expected);
            expect(row.written, expected ? "on" : "off");
        }
        expect("shininess_table_flag",
               isLit && !shader_.isNull() && isOn(shader_, "tvk_shininess_table") ? "on" : "off");
        const int face = numberOf(shader_, "tvk_disp_face");
        expect("face", face == 1 ? "back" : face == 2 ? "both" : "front");
        expect("polygon_mode",
               wordOf<4>({"modulate", "decal", "toon_highlight", "shadow"}, numberOf(shader_, "tvk_poly_mode")));
        expect("polygon_id", std::to_string(numberOf(shader_, "tvk_poly_id")));
        isLit_ = isLit;
    }

    void checkTexture(const decode::ModelTextures& textures) {
        const int image = material_.integer("tex_image_idx");
        if (image < 0) {
            return; // as for meshes without texture coordinates, whatever the shader has
        }
        const MObject texture = shader_.isNull() ? MObject() : fileTextureOf(shader_);
        if (texture.isNull()) {
            result_.find(place_ + ": it has a texture, but its shader has none");
            return;
        }
        const MString file = attributeOf<MString>(texture, "fileTextureName").value_or(MString());
        const std::string expected = imageName(file.asUTF8());
        const std::string written = report::utf8Name(textures.images.at(static_cast<std::size_t>(image)).name);
        if (written != expected) {
            result_.find(place_ + ": tex_image_idx leads to " + written + " instead of " + expected);
        }
        expect("tex_tiling",
               std::string(tilingOf(texture, "wrapU", "mirrorU")) + " " + tilingOf(texture, "wrapV", "mirrorV"));
        const int chosen = numberOf(shader_, "tvk_tex_gen_mode");
        const int lit = chosen == 2 && !isLit_ ? 0 : chosen;
        const bool isPlaced = placementOf(texture) != std::array<double, 5>{1.0, 1.0, 0.0, 0.0, 0.0};
        expect("tex_gen_mode", wordOf<4>({"none", "tex", "nrm", "pos"}, lit == 0 && isPlaced ? 1 : lit));
        if (lit == 2 || lit == 3) {
            expect("tex_gen_st_src", numberOf(shader_, "tvk_tex_gen_st_src") == 1 ? "material" : "polygon");
            checkEffectMatrix();
        }
    }

private:
    void checkEffectMatrix() {
        const Imath::M44d expected = matrixOf(MFnDependencyNode(shader_).findPlug("tvk_tex_effect_mtx", false));
        const std::vector<double> written = material_.reals("tex_effect_mtx", 16);
        for (std::size_t i = 0; i < written.size(); ++i) {
            const double element = expected[static_cast<int>(i / 4)][static_cast<int>(i % 4)];
            const double error = std::abs(written[i] - element);
            const double allowed = 0.55 / 4096 + 4e-7 * std::abs(element);
            if (!(error <= allowed)) {
                result_.find(place_ + ": tex_effect_mtx row " + std::to_string(i / 4 + 1) + " column " +
                             std::to_string(i % 4 + 1) + " is off by " + decimals(error, 6) + ", allowed are " +
                             decimals(allowed, 6));
            }
        }
    }

    void expect(const char* name, const std::string& expected) {
        const std::string& written = material_.value(name);
        if (written != expected) {
            result_.find(place_ + ": " + name + " is " + report::utf8Name(written) + " instead of " + expected);
        }
    }

    const decode::FileElement& material_;
    const MObject& shader_;
    const std::string& place_;
    Verification& result_;
    bool isLit_ = true;
};

} // namespace

void checkMaterialSettings(const decode::FileElement& material, const MObject& shader,
                           const decode::ModelTextures& textures, const std::string& place, Verification& result) {
    SettingsCheck check(material, shader, place, result);
    check.checkDrawing();
    check.checkTexture(textures);
}

} // namespace host::app::verify
