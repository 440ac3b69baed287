#include "material/materialAttributes.h"

#include "common/fixedPoint.h"
#include "scene/plugReading.h"

#include <maya/MFnMatrixData.h>
#include <maya/MMatrix.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace tvk {
namespace {

struct Switch {
    const char* attribute;
    bool MaterialRecord::*field;
};

constexpr std::array<Switch, 7> kSwitches{{
    {"tvk_wire_mode", &MaterialRecord::wireMode},
    {"tvk_depth_test_decal", &MaterialRecord::depthTestDecal},
    {"tvk_xlu_update_depth", &MaterialRecord::translucentUpdateDepth},
    {"tvk_render_1_pixel", &MaterialRecord::render1Pixel},
    {"tvk_far_clip", &MaterialRecord::farClip},
    {"tvk_fog", &MaterialRecord::fog},
    {"tvk_no_compress", &MaterialRecord::noCompress},
}};

struct Number {
    const char* attribute;
    int32_t MaterialRecord::*field;
};

constexpr std::array<Number, 2> kNumbers{{
    {"tvk_poly_mode", &MaterialRecord::polygonMode},
    {"tvk_poly_id", &MaterialRecord::polygonId},
}};

constexpr std::array<const char*, 4> kLights{"tvk_lighting", "tvk_lighting1", "tvk_lighting2", "tvk_lighting3"};

bool switchOr(const MObject& shader, const char* attribute, bool fallback) {
    return attributeOr(shader, attribute, fallback ? 1 : 0) != 0;
}

void readLights(const MObject& shader, MaterialRecord& record) {
    for (std::size_t i = 0; i < kLights.size(); ++i) {
        record.lights[i] = switchOr(shader, kLights[i], record.lights[i]);
    }
    record.lightingEnabled = std::any_of(record.lights.begin(), record.lights.end(), [](bool isLit) { return isLit; });
}

// Back and both. Any other number is front, on purpose also 3, which the list of faces ends with.
void readFace(const MObject& shader, MaterialRecord& record) {
    const int face = attributeOr(shader, "tvk_disp_face", 0);
    record.face = face == 1 || face == 2 ? face : 0;
}

void readPriority(const MObject& shader, MaterialRecord& record) {
    constexpr int kLowest = 1; // 0 says that none is asked for
    constexpr int kHighest = 255;
    if (switchOr(shader, "tvk_use_render_priority", false)) {
        record.renderPriority = std::clamp(attributeOr(shader, "tvk_render_priority", 0), kLowest, kHighest);
    }
}

void readEffectMatrix(const MObject& shader, MaterialRecord& record) {
    MObject value;
    if (!readAttribute(shader, "tvk_tex_effect_mtx", value)) {
        return;
    }
    MStatus status;
    const MFnMatrixData data(value, &status);
    if (!status) {
        return;
    }
    float elements[4][4];
    if (!data.matrix().get(elements)) {
        return;
    }
    for (std::size_t i = 0; i < record.texEffectMatrix.size(); ++i) {
        const float element = elements[i / 4][i % 4];
        record.texEffectMatrix[i] = element;
        record.texEffectMatrixFx[i] = toFixed12(static_cast<double>(element));
    }
}

} // namespace

void readConsoleAttributes(const MObject& shader, MaterialRecord& record) {
    for (const Switch& row : kSwitches) {
        record.*row.field = switchOr(shader, row.attribute, record.*row.field);
    }
    for (const Number& row : kNumbers) {
        record.*row.field = attributeOr(shader, row.attribute, record.*row.field);
    }
    readFace(shader, record);
    readLights(shader, record);
    record.shininessTable = record.lightingEnabled && switchOr(shader, "tvk_shininess_table", false);
    readPriority(shader, record);
}

void readTexGenAttributes(const MObject& shader, MaterialRecord& record) {
    record.texGenMode = attributeOr(shader, "tvk_tex_gen_mode", record.texGenMode);
    if (record.texGenMode == kTexGenNrm && !record.lightingEnabled) {
        record.texGenMode = kTexGenNone; // normals are sent for lights only
    }
    if (record.texGenMode == kTexGenNone && !record.placement.isIdentity) {
        record.texGenMode = kTexGenTex; // else the placement's matrix would not be applied
    }
    if (record.texGenMode == kTexGenNrm || record.texGenMode == kTexGenPos) {
        int source = record.texGenStSrc;
        if (readAttribute(shader, "tvk_tex_gen_st_src", source)) {
            record.texGenStSrc = source == 1 ? 1 : 0;
        }
        readEffectMatrix(shader, record);
    }
}

} // namespace tvk
