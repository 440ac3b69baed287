#include "host/scene/layerNotes.h"

#include "SceneFiles.h"

#include <gmock/gmock.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- display layers: what a node is told by the layer that it is in

struct Layer {
    const char* name;
    std::string settings; // of the layer
    double enabled, visible, shading, displayType;
};

void PrintTo(const Layer& row, std::ostream* out) {
    *out << row.name;
}

class DisplayLayer : public testing::TestWithParam<Layer> {};

TEST_P(DisplayLayer, DrivesTheOverridesOfItsMembers) {
    OpenedScene opened("createNode transform -n \"a\";\ncreateNode transform -n \"b\" -p \"a\";\n"
                       "createNode mesh -n \"m\" -p \"a\";\n"
                       "createNode displayLayerManager -n \"layerManager\";\n"
                       "\tsetAttr -s 2 \".dli[1]\"  1;\n"
                       "createNode displayLayer -n \"layer1\";\n" +
                       GetParam().settings +
                       "connectAttr \"layerManager.dli[1]\" \"layer1.id\";\n"
                       "connectAttr \"layer1.di\" \"a.do\";\nconnectAttr \"layer1.di\" \"m.do\";\n");
    EXPECT_THAT(opened.warnings, IsEmpty());
    for (const std::string node : {"a", "m"}) {
        EXPECT_EQ(opened.number(node + ".overrideEnabled"), GetParam().enabled);
        EXPECT_EQ(opened.number(node + ".overrideVisibility"), GetParam().visible);
        EXPECT_EQ(opened.number(node + ".overrideShading"), GetParam().shading);
        EXPECT_EQ(opened.number(node + ".overrideDisplayType"), GetParam().displayType);
        EXPECT_EQ(opened.number(node + ".visibility"), 1.0);
        EXPECT_EQ(opened.number(node + ".template"), 0.0);
    }
    EXPECT_EQ(opened.number("b.overrideEnabled"), 0.0);
    EXPECT_EQ(opened.number("layer1.identification"), 1.0);
}

INSTANTIATE_TEST_SUITE_P(
    All, DisplayLayer,
    testing::Values(Layer{"AsNew", "", 1, 1, 1, 0}, Layer{"Hidden", "\tsetAttr \".v\" no;\n", 1, 0, 1, 0},
                    Layer{"Template", "\tsetAttr \".dt\" 1;\n", 1, 1, 1, 1},
                    Layer{"Reference", "\tsetAttr \".dt\" 2;\n", 1, 1, 1, 2},
                    Layer{"WithoutShading", "\tsetAttr \".s\" no;\n", 1, 1, 0, 0},
                    Layer{"SwitchedOff", "\tsetAttr \".e\" no;\n\tsetAttr \".v\" no;\n", 0, 0, 1, 0}),
    [](const auto& row) { return row.param.name; });

TEST(DisplayLayers, OneChildOfTheOverrideMayBeDrivenAlone) {
    OpenedScene opened("createNode transform -n \"a\";\n\tsetAttr \".ove\" yes;\n"
                       "createNode displayLayer -n \"layer1\";\n\tsetAttr \".v\" no;\n"
                       "connectAttr \"layer1.v\" \"a.ovv\";\n");
    EXPECT_EQ(opened.number("a.overrideVisibility"), 0.0);
    EXPECT_EQ(opened.number("a.overrideEnabled"), 1.0);
}

// --- render layers

std::string layeredScene(const std::string& current, const std::string& overrides) {
    return "createNode transform -n \"a\";\n\tsetAttr \".tx\" 4;\ncreateNode mesh -n \"m\" -p \"a\";\n"
           "createNode renderLayerManager -n \"renderLayerManager\";\n\tsetAttr -s 2 \".rlmi[1]\"  1;\n" +
           current +
           "createNode renderLayer -n \"defaultRenderLayer\";\n\tsetAttr \".g\" yes;\n"
           "createNode renderLayer -n \"dirt\";\n\tsetAttr \".do\" 1;\n" +
           overrides +
           "connectAttr \"renderLayerManager.rlmi[0]\" \"defaultRenderLayer.rlid\";\n"
           "connectAttr \"renderLayerManager.rlmi[1]\" \"dirt.rlid\";\n"
           "connectAttr \"dirt.ri\" \"a.rlio[0]\";\n";
}

const std::string kOverrides = "\tsetAttr -s 2 \".adjs\";\n\tsetAttr \".adjs[0].val\" 4;\n"
                               "\tsetAttr \".adjs[3].val\" -type \"float3\" 1 0 0 ;\n"
                               "connectAttr \"a.tx\" \"dirt.adjs[0].plg\";\n"
                               "connectAttr \"m.iog\" \"dirt.oajs[0].opl\";\n";
const std::string kCurrent = "\tsetAttr \".crl\" 1;\n";

TEST(RenderLayers, TheCurrentOneIsToldWhenItOverridesSomething) {
    OpenedScene opened(layeredScene(kCurrent, kOverrides));
    EXPECT_THAT(opened.warnings, ElementsAre("render layer 'dirt' is the current one: what it overrides (2) is as this "
                                             "layer has it, not as the master layer does"));
    EXPECT_EQ(opened.number("a.tx"), 4.0);
    EXPECT_EQ(opened.number("dirt.identification"), 1.0);
    EXPECT_EQ(opened.number("renderLayerManager.currentRenderLayer"), 1.0);
}

TEST(RenderLayers, AreNotToldWhenNothingFollows) {
    for (const std::string& text :
         {layeredScene("", kOverrides), layeredScene(kCurrent, ""), layeredScene("\tsetAttr \".crl\" 5;\n", kOverrides),
          layeredScene("\tsetAttr \".crl\" 0;\n", kOverrides)}) {
        EXPECT_THAT(OpenedScene(text).warnings, IsEmpty()) << text;
    }
}

TEST(RenderLayers, OfAReferenceAreCurrentNowhere) {
    SceneFiles files;
    files.write("rig.ma", layeredScene(kCurrent, kOverrides));
    files.write("main.ma", referenceText("x", "rig.ma"));
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
}

} // namespace

} // namespace host
