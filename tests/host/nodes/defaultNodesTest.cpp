#include "host/nodes/defaultNodes.h"

#include "GraphFixture.h"

#include <set>

namespace host {
namespace {

class DefaultNodes : public GraphFixture {
protected:
    DefaultNodes() { createDefaultNodes(graph); }

    Node& node(const std::string& name) {
        for (Node* each : graph.nodes()) {
            if (each->name() == name) {
                return *each;
            }
        }
        ADD_FAILURE() << "no node " << name;
        return graph.world();
    }
};

TEST_F(DefaultNodes, AreMarkedAndNamedOnce) {
    std::set<std::string> names;
    for (const Node* each : graph.nodes()) {
        EXPECT_TRUE(each->isDefault) << each->name();
        EXPECT_TRUE(names.insert(each->name()).second) << each->name();
    }
    for (const char* name : {"time1",
                             "sequenceManager1",
                             "hardwareRenderingGlobals",
                             "renderPartition",
                             "renderGlobalsList1",
                             "defaultLightList1",
                             "defaultShaderList1",
                             "postProcessList1",
                             "defaultRenderUtilityList1",
                             "defaultRenderingList1",
                             "lightList1",
                             "defaultTextureList1",
                             "lambert1",
                             "standardSurface1",
                             "particleCloud1",
                             "initialShadingGroup",
                             "initialParticleSE",
                             "initialMaterialInfo",
                             "shaderGlow1",
                             "dof1",
                             "defaultRenderGlobals",
                             "defaultRenderQuality",
                             "defaultResolution",
                             "defaultLightSet",
                             "defaultObjectSet",
                             "defaultViewColorManager",
                             "hardwareRenderGlobals",
                             "characterPartition",
                             "defaultHardwareRenderGlobals",
                             "ikSystem",
                             "hyperGraphInfo",
                             "hyperGraphLayout",
                             "globalCacheControl",
                             "strokeGlobals",
                             "dynController1",
                             "lightLinker1",
                             "persp",
                             "perspShape",
                             "top",
                             "topShape",
                             "front",
                             "frontShape",
                             "side",
                             "sideShape"}) {
        EXPECT_EQ(names.count(name), 1U) << name;
    }
}

TEST_F(DefaultNodes, BeginWithTheCamerasInTheWorld) {
    std::vector<std::string> names;
    for (const Node* each : graph.world().children()) {
        names.push_back(each->name());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"persp", "top", "front", "side"}));
    for (const Node* each : graph.world().children()) {
        ASSERT_EQ(each->children().size(), 1U);
        EXPECT_EQ(each->children()[0]->name(), each->name() + "Shape");
        EXPECT_EQ(each->children()[0]->type().name(), "camera");
    }
}

TEST_F(DefaultNodes, PlaceTheHiddenCamerasWhereTheHostDoes) {
    Node& persp = node("persp");
    EXPECT_EQ(number(persp, "v"), 0.0);
    EXPECT_EQ(number(persp, "tx"), 28.0);
    EXPECT_NEAR(number(persp, "ry"), 45 * kDegree, 1e-12);
    EXPECT_EQ(number(node("perspShape"), "rnd"), 1.0);
    EXPECT_EQ(number(node("perspShape"), "o"), 0.0);
    EXPECT_EQ(graph.string(plug(node("perspShape"), "imn")), "persp");
    EXPECT_EQ(number(node("topShape"), "o"), 1.0);
    EXPECT_EQ(number(node("topShape"), "rnd"), 0.0);
    // The top camera looks down: its -Z is the world's -Y.
    const Matrix44 top = matrix(node("top"), "wm[0]");
    EXPECT_NEAR(top[2][1], 1.0, 1e-12);
}

TEST_F(DefaultNodes, ShadeByTheFirstLambert) {
    const Plug shader = graph.sourceOf(plug(node("initialShadingGroup"), "ss"));
    ASSERT_NE(shader.node, nullptr);
    EXPECT_EQ(shader.node->name(), "lambert1");
    EXPECT_EQ(graph.plugName(*shader.node, shader.at, true), "outColor");
    EXPECT_EQ(number(node("initialShadingGroup"), "ro"), 1.0);
    EXPECT_EQ(number(node("defaultObjectSet"), "ro"), 0.0);
    EXPECT_EQ(graph.nextAvailableIndex(plug(node("renderPartition"), "st")), 2);
}

TEST_F(DefaultNodes, KeepTheTimeOfTheScene) {
    ASSERT_TRUE(graph.setNumber(plug(node("time1"), "o"), 1000.0).ok());
    EXPECT_EQ(graph.time(), 1000);
    EXPECT_EQ(number(node("time1"), "unw"), 1000.0);
}

} // namespace
} // namespace host
