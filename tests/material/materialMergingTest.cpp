#include "material/materialMerging.h"

#include <gtest/gtest.h>

#include <functional>

namespace tvk {
namespace {

// A material unlike a fresh one in every field that could be compared by mistake as zero.
MaterialRecord someMaterial() {
    MaterialRecord record;
    record.textureSource = 3;
    record.textureRef = 2;
    record.placement = {{2.0F, 1.0F}, 45.0F, {0.5F, 0.0F}, false};
    return record;
}

struct Difference {
    const char* what;
    std::function<void(MaterialRecord&)> change;
};

std::ostream& operator<<(std::ostream& stream, const Difference& difference) {
    return stream << difference.what;
}

class KeepsApart : public testing::TestWithParam<Difference> {};

TEST_P(KeepsApart, MaterialsThatDifferInIt) {
    MaterialRecord changed = someMaterial();
    GetParam().change(changed);
    EXPECT_NE(mergeKeyOf(changed), mergeKeyOf(someMaterial()));
    EXPECT_EQ(mergeKeyOf(changed), mergeKeyOf(changed));
}

#define CHANGE(text, statement)                                                                                        \
    Difference {                                                                                                       \
        text, [](MaterialRecord& m) { statement; }                                                                     \
    }

INSTANTIATE_TEST_SUITE_P(
    Flags, KeepsApart,
    testing::Values(CHANGE("light 0", m.lights[0] = false), CHANGE("light 1", m.lights[1] = true),
                    CHANGE("light 2", m.lights[2] = true), CHANGE("light 3", m.lights[3] = true),
                    CHANGE("face", m.face = 1), CHANGE("wire", m.wireMode = true),
                    CHANGE("decal depth test", m.depthTestDecal = true),
                    CHANGE("translucent depth", m.translucentUpdateDepth = true),
                    CHANGE("one pixel", m.render1Pixel = true), CHANGE("far clip", m.farClip = true),
                    CHANGE("polygon mode", m.polygonMode = 1), CHANGE("polygon id", m.polygonId = 1),
                    CHANGE("fog", m.fog = true), CHANGE("lighting", m.lightingEnabled = false),
                    CHANGE("dummy", m.isDummy = true), CHANGE("no compress", m.noCompress = true),
                    CHANGE("highlight", m.hasSpecular = true), CHANGE("shininess", m.shininessTable = true)));

INSTANTIATE_TEST_SUITE_P(Colours, KeepsApart,
                         testing::Values(CHANGE("alpha", m.alpha = 30), CHANGE("diffuse", m.diffuse[0] = 30),
                                         CHANGE("diffuse alpha", m.diffuse[3] = 30),
                                         CHANGE("ambient", m.ambient[1] = 1), CHANGE("specular", m.specular[2] = 1),
                                         CHANGE("emission", m.emission[2] = 1)));

INSTANTIATE_TEST_SUITE_P(
    Textures, KeepsApart,
    testing::Values(CHANGE("image and tiling", m.textureRef = 1), CHANGE("scale s", m.placement.scale[0] = 3),
                    CHANGE("scale t", m.placement.scale[1] = 3), CHANGE("rotation", m.placement.rotate = 45.00001F),
                    CHANGE("translation s", m.placement.translate[0] = 0),
                    CHANGE("translation t", m.placement.translate[1] = 1), CHANGE("generation", m.texGenMode = 1),
                    CHANGE("source of coordinates", m.texGenStSrc = 0),
                    CHANGE("effect matrix", m.texEffectMatrixFx[11] = 1)));

#undef CHANGE

TEST(MaterialMerging, WhatIsNotSeenIsNotCompared) {
    MaterialRecord other = someMaterial();
    other.type = MFn::kLambert;
    other.name = "b";
    other.sourceName = "b";
    other.renderPriority = 7;
    other.diffuseCoeff = 0.25F;
    other.alphaFromTransparency = false;
    other.textureSource = 4;
    other.texEffectMatrix[0] = 1.00001F;
    other.outputIndex = 9;
    EXPECT_EQ(mergeKeyOf(other), mergeKeyOf(someMaterial()));
}

TEST(MaterialMerging, TheTwoZerosAreOneNumber) {
    MaterialRecord other = someMaterial();
    other.placement.translate[1] = -0.0F;
    EXPECT_EQ(mergeKeyOf(other), mergeKeyOf(someMaterial()));
}

TEST(MaterialMerging, AnimatedTexturesNeedOneSource) {
    for (bool MaterialRecord::*flag : {&MaterialRecord::texPatternAnimated, &MaterialRecord::texSrtAnimated}) {
        MaterialRecord a = someMaterial();
        a.*flag = true;
        MaterialRecord b = a;
        EXPECT_EQ(mergeKeyOf(a), mergeKeyOf(b));
        b.textureSource = 4;
        EXPECT_NE(mergeKeyOf(a), mergeKeyOf(b));
        MaterialRecord still = someMaterial();
        still.textureSource = 4;
        EXPECT_NE(mergeKeyOf(a), mergeKeyOf(still));
    }
}

TEST(MaterialMerging, ProtectedAnimatedAndDummyMaterialsDoNotTakePart) {
    EXPECT_TRUE(mayMerge(someMaterial()));
    for (bool MaterialRecord::*flag :
         {&MaterialRecord::noCompress, &MaterialRecord::colorAnimated, &MaterialRecord::isDummy}) {
        MaterialRecord record = someMaterial();
        record.*flag = true;
        EXPECT_FALSE(mayMerge(record));
    }
}

} // namespace
} // namespace tvk
