#include "material/materialAttributes.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

namespace tvk {
namespace {

using Field = std::function<int(const MaterialRecord&)>;

class MaterialAttributes : public testing::Test {
protected:
    // What the attributes of a lambert shader make of a new record.
    MaterialRecord read(const std::string& attributes) {
        session.open(nodeText("lambert", "skin", "", attributes));
        MaterialRecord record;
        readConsoleAttributes(session.node("skin"), record);
        return record;
    }

    // The same of a textured material whose placement is the identity or not.
    MaterialRecord readTexGen(const std::string& attributes, bool isIdentity = true) {
        MaterialRecord record = read(attributes);
        record.placement.isIdentity = isIdentity;
        readTexGenAttributes(session.node("skin"), record);
        return record;
    }

    ExportSession session;
};

std::string number(const std::string& name, int value) {
    return addedAttribute(name, "long", std::to_string(value));
}

const std::string kUnlit = addedAttribute("tvk_lighting", "bool", "no");

// --- every attribute with its rule

struct RuleCase {
    const char* attribute;
    int value;
    Field field;
    int expected;
};

std::ostream& operator<<(std::ostream& stream, const RuleCase& rule) {
    return stream << rule.attribute << " = " << rule.value;
}

class AttributeRule : public MaterialAttributes, public testing::WithParamInterface<RuleCase> {};

TEST_P(AttributeRule, SetsItsField) {
    const RuleCase& rule = GetParam();
    EXPECT_EQ(rule.field(read(number(rule.attribute, rule.value))), rule.expected);
}

Field light(std::size_t index) {
    return [index](const MaterialRecord& record) { return record.lights.at(index) ? 1 : 0; };
}

Field flag(bool MaterialRecord::*field) {
    return [field](const MaterialRecord& record) { return record.*field ? 1 : 0; };
}

Field value(int32_t MaterialRecord::*field) {
    return [field](const MaterialRecord& record) { return record.*field; };
}

INSTANTIATE_TEST_SUITE_P(
    Rules, AttributeRule,
    testing::Values(RuleCase{"tvk_disp_face", 0, value(&MaterialRecord::face), 0},
                    RuleCase{"tvk_disp_face", 1, value(&MaterialRecord::face), 1},
                    RuleCase{"tvk_disp_face", 2, value(&MaterialRecord::face), 2},
                    RuleCase{"tvk_disp_face", -1, value(&MaterialRecord::face), 0},
                    RuleCase{"tvk_lighting", 0, light(0), 0}, RuleCase{"tvk_lighting", 1, light(0), 1},
                    RuleCase{"tvk_lighting1", 1, light(1), 1}, RuleCase{"tvk_lighting2", 1, light(2), 1},
                    RuleCase{"tvk_lighting3", 1, light(3), 1},
                    RuleCase{"tvk_lighting", 0, flag(&MaterialRecord::lightingEnabled), 0},
                    RuleCase{"tvk_wire_mode", 1, flag(&MaterialRecord::wireMode), 1},
                    RuleCase{"tvk_wire_mode", 7, flag(&MaterialRecord::wireMode), 1},
                    RuleCase{"tvk_depth_test_decal", 1, flag(&MaterialRecord::depthTestDecal), 1},
                    RuleCase{"tvk_xlu_update_depth", 1, flag(&MaterialRecord::translucentUpdateDepth), 1},
                    RuleCase{"tvk_render_1_pixel", 1, flag(&MaterialRecord::render1Pixel), 1},
                    RuleCase{"tvk_far_clip", 1, flag(&MaterialRecord::farClip), 1},
                    RuleCase{"tvk_poly_mode", 2, value(&MaterialRecord::polygonMode), 2},
                    RuleCase{"tvk_poly_mode", 9, value(&MaterialRecord::polygonMode), 9},
                    RuleCase{"tvk_poly_id", 63, value(&MaterialRecord::polygonId), 63},
                    RuleCase{"tvk_poly_id", -100, value(&MaterialRecord::polygonId), -100},
                    RuleCase{"tvk_fog", 1, flag(&MaterialRecord::fog), 1},
                    RuleCase{"tvk_shininess_table", 1, flag(&MaterialRecord::shininessTable), 1},
                    RuleCase{"tvk_no_compress", 1, flag(&MaterialRecord::noCompress), 1}));

TEST_F(MaterialAttributes, ADispFaceOfThreeIsFrontOnPurpose) {
    EXPECT_EQ(read(number("tvk_disp_face", 3)).face, 0);
}

TEST_F(MaterialAttributes, WhatIsMissingKeepsItsDefault) {
    const MaterialRecord record = read("");
    EXPECT_EQ(record.face, 0);
    EXPECT_EQ(record.lights, (std::array<bool, 4>{true, false, false, false}));
    EXPECT_TRUE(record.lightingEnabled);
    EXPECT_FALSE(record.wireMode || record.depthTestDecal || record.translucentUpdateDepth);
    EXPECT_FALSE(record.render1Pixel || record.farClip || record.fog || record.noCompress || record.shininessTable);
    EXPECT_EQ(record.polygonMode, 0);
    EXPECT_EQ(record.polygonId, 0);
    EXPECT_EQ(record.renderPriority, 0);
}

TEST_F(MaterialAttributes, AnyLightEnablesLighting) {
    const MaterialRecord record = read(kUnlit + number("tvk_lighting2", 1));
    EXPECT_TRUE(record.lightingEnabled);
    EXPECT_FALSE(record.lights[0]);
    EXPECT_FALSE(read(kUnlit + number("tvk_lighting3", 0)).lightingEnabled);
}

TEST_F(MaterialAttributes, TheShininessTableNeedsLights) {
    EXPECT_FALSE(read(kUnlit + number("tvk_shininess_table", 1)).shininessTable);
}

// --- other types than expected

TEST_F(MaterialAttributes, AnyNumericTypeWillDo) {
    for (const std::string type : {"bool", "short", "long", "byte", "enum", "float", "double"}) {
        const MaterialRecord record =
            read(addedAttribute("tvk_disp_face", type, "1") + addedAttribute("tvk_fog", type, "1") +
                 addedAttribute("tvk_poly_id", type, "1"));
        EXPECT_EQ(record.face, 1) << type;
        EXPECT_TRUE(record.fog) << type;
        EXPECT_EQ(record.polygonId, 1) << type;
    }
}

TEST_F(MaterialAttributes, WhatCannotBeReadKeepsItsDefault) {
    const auto text = [](const std::string& name) {
        return "addAttr -ci true -sn \"" + name + "\" -ln \"" + name + "\" -dt \"string\";\n\tsetAttr \"." + name +
               "\" -type \"string\" \"1\";\n\t";
    };
    const MaterialRecord record =
        readTexGen(text("tvk_lighting") + text("tvk_lighting1") + text("tvk_poly_id") + text("tvk_disp_face") +
                   text("tvk_use_render_priority") + text("tvk_tex_gen_mode") + text("tvk_tex_effect_mtx"));
    EXPECT_EQ(record.lights, (std::array<bool, 4>{true, false, false, false}));
    EXPECT_EQ(record.polygonId, 0);
    EXPECT_EQ(record.face, 0);
    EXPECT_EQ(record.renderPriority, 0);
    EXPECT_EQ(record.texGenMode, kTexGenNone);
}

TEST_F(MaterialAttributes, AKeyedAttributeHasTheValueOfTheCurrentTime) {
    session.open(nodeText("lambert", "skin", "", number("tvk_poly_id", 0)) +
                 keysText("skin.tvk_poly_id", "ids", "1 10 11 20"));
    session.mel("currentTime 6");
    MaterialRecord record;
    readConsoleAttributes(session.node("skin"), record);
    EXPECT_EQ(record.polygonId, 15);
}

TEST_F(MaterialAttributes, ADeletedShaderHasDefaults) {
    session.open(nodeText("lambert", "skin", "", number("tvk_poly_id", 5)));
    const MObject skin = session.node("skin");
    session.mel("delete skin");
    MaterialRecord record;
    readConsoleAttributes(skin, record);
    readTexGenAttributes(skin, record);
    EXPECT_EQ(record.polygonId, 0);
}

// --- render priority

struct PriorityCase {
    int priority;
    int expected;
};

class Priority : public MaterialAttributes, public testing::WithParamInterface<PriorityCase> {};

TEST_P(Priority, IsClampedToOneTo255WhenItIsUsed) {
    const std::string priority = number("tvk_render_priority", GetParam().priority);
    EXPECT_EQ(read(number("tvk_use_render_priority", 1) + priority).renderPriority, GetParam().expected);
    EXPECT_EQ(read(number("tvk_use_render_priority", 0) + priority).renderPriority, 0);
    EXPECT_EQ(read(priority).renderPriority, 0);
}

INSTANTIATE_TEST_SUITE_P(Values, Priority,
                         testing::Values(PriorityCase{0, 1}, PriorityCase{1, 1}, PriorityCase{12, 12},
                                         PriorityCase{255, 255}, PriorityCase{300, 255}, PriorityCase{-5, 1}));

TEST_F(MaterialAttributes, APriorityThatIsUsedAndMissingIsTheLowest) {
    EXPECT_EQ(read(number("tvk_use_render_priority", 1)).renderPriority, 1);
}

// --- texture coordinates

struct TexGenCase {
    const char* why;
    std::string attributes;
    bool isIdentity;
    int expected;
};

std::ostream& operator<<(std::ostream& stream, const TexGenCase& texGen) {
    return stream << texGen.why;
}

class TexGen : public MaterialAttributes, public testing::WithParamInterface<TexGenCase> {};

TEST_P(TexGen, FollowsLightsAndPlacement) {
    EXPECT_EQ(readTexGen(GetParam().attributes, GetParam().isIdentity).texGenMode, GetParam().expected)
        << GetParam().why;
}

INSTANTIATE_TEST_SUITE_P(
    Modes, TexGen,
    testing::Values(TexGenCase{"no attribute", "", true, 0}, TexGenCase{"no attribute, placed", "", false, 1},
                    TexGenCase{"none, placed", number("tvk_tex_gen_mode", 0), false, 1},
                    TexGenCase{"tex", number("tvk_tex_gen_mode", 1), true, 1},
                    TexGenCase{"normals, lit", number("tvk_tex_gen_mode", 2), true, 2},
                    TexGenCase{"normals, lit, placed", number("tvk_tex_gen_mode", 2), false, 2},
                    TexGenCase{"normals, unlit", number("tvk_tex_gen_mode", 2) + kUnlit, true, 0},
                    TexGenCase{"normals, unlit, placed", number("tvk_tex_gen_mode", 2) + kUnlit, false, 1},
                    TexGenCase{"positions, unlit", number("tvk_tex_gen_mode", 3) + kUnlit, false, 3}));

struct SourceCase {
    int mode;
    int source;
    int expected;
};

class TexGenSource : public MaterialAttributes, public testing::WithParamInterface<SourceCase> {};

TEST_P(TexGenSource, CountsForGeneratedCoordinatesOnly) {
    const MaterialRecord record =
        readTexGen(number("tvk_tex_gen_mode", GetParam().mode) + number("tvk_tex_gen_st_src", GetParam().source));
    EXPECT_EQ(record.texGenStSrc, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Values, TexGenSource,
                         testing::Values(SourceCase{0, 0, 1}, SourceCase{1, 0, 1}, SourceCase{2, 0, 0},
                                         SourceCase{2, 1, 1}, SourceCase{2, 2, 0}, SourceCase{3, -1, 0},
                                         SourceCase{3, 1, 1}));

TEST_F(MaterialAttributes, AMissingSourceIsTheMaterial) {
    EXPECT_EQ(readTexGen(number("tvk_tex_gen_mode", 3)).texGenStSrc, 1);
}

const std::string kMatrix =
    addedMatrix("tvk_tex_effect_mtx", "1 0.5 -0.25 0 0.0001 0.0002 -0.0002 0 2 3 4 5 1000000 -1000000 7 1");

TEST_F(MaterialAttributes, TheEffectMatrixIsReadRowByRow) {
    const MaterialRecord record = readTexGen(number("tvk_tex_gen_mode", 3) + kMatrix);
    // 0.0001 * 4096 is 0.4096, 0.0002 * 4096 is 0.8192; a million times 4096 is beyond 32 bits.
    const int32_t highest = std::numeric_limits<int32_t>::max();
    const int32_t lowest = std::numeric_limits<int32_t>::min();
    EXPECT_EQ(record.texEffectMatrixFx, (std::array<int32_t, 16>{4096, 2048, -1024, 0, 0, 1, -1, 0, 8192, 12288, 16384,
                                                                 20480, highest, lowest, 28672, 4096}));
    EXPECT_EQ(record.texEffectMatrix[1], 0.5F);
    EXPECT_EQ(record.texEffectMatrix[12], 1e6F);
}

TEST_F(MaterialAttributes, TheEffectMatrixIsTheIdentityUnlessCoordinatesAreGenerated) {
    const MaterialRecord fresh;
    for (const int mode : {0, 1}) {
        const MaterialRecord record = readTexGen(number("tvk_tex_gen_mode", mode) + kMatrix);
        EXPECT_EQ(record.texEffectMatrixFx, fresh.texEffectMatrixFx) << mode;
        EXPECT_EQ(record.texEffectMatrix, fresh.texEffectMatrix) << mode;
    }
    EXPECT_EQ(readTexGen(number("tvk_tex_gen_mode", 2)).texEffectMatrixFx, fresh.texEffectMatrixFx);
    const std::string noMatrix = addedAttribute("tvk_tex_effect_mtx", "double", "3");
    EXPECT_EQ(readTexGen(number("tvk_tex_gen_mode", 2) + noMatrix).texEffectMatrixFx, fresh.texEffectMatrixFx);
}

} // namespace
} // namespace tvk
