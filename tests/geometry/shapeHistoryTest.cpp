#include "geometry/shapeHistory.h"

#include "HostSession.h"
#include "meshScene.h"
#include "scene/plugReading.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class ShapeHistoryWalk : public testing::Test {
protected:
    ShapeHistory history(const std::string& statements, const std::string& shape = "bodyShape") {
        session.open(statements);
        return findShapeHistory(session.path(shape));
    }

    static std::vector<std::string> names(const ShapeHistory& history) {
        std::vector<std::string> result;
        for (const Deformer& deformer : history.deformers) {
            result.push_back(nameOf(deformer.node));
        }
        return result;
    }
    static std::string nameOf(MObject node) { return textOf(MFnDependencyNode(node).name()); }

    static std::string body() { return deformedNode("body", square()); }
    static std::string skin(const std::string& from = "bodyShapeOrig.w", const std::string& to = "bodyShape.i") {
        return deformerText("skinCluster", "skin", from, to);
    }

    HostSession session;
};

using Names = std::vector<std::string>;

TEST_F(ShapeHistoryWalk, FindsNothingBehindAShapeWithoutHistory) {
    const ShapeHistory found = history(meshNode("body", square()));
    EXPECT_TRUE(found.deformers.empty());
    EXPECT_TRUE(found.origin.isNull());
    EXPECT_TRUE(findOriginalMesh(found, MDagPath()).isNull());
}

TEST_F(ShapeHistoryWalk, FindsTheMeshBehindASkin) {
    const ShapeHistory found = history(body() + skin());
    EXPECT_EQ(names(found), (Names{"skin"}));
    EXPECT_EQ(nameOf(findOriginalMesh(found, MDagPath())), "bodyShapeOrig");
}

TEST_F(ShapeHistoryWalk, GoesThroughGroupsTweaksAndPolygonNodesButCollectsOnlyWhatASkeletonDrives) {
    const ShapeHistory found = history(
        body() + nodeText("groupParts", "parts") + connectText("bodyShapeOrig.w", "parts.ig") +
        nodeText("tweak", "tweak") + connectText("parts.og", "tweak.ip[0].ig") + nodeText("skinCluster", "skin") +
        connectText("tweak.og[0]", "skin.ip[0].ig") + nodeText("polySoftEdge", "soft") +
        connectText("skin.og[0]", "soft.ip") + nodeText("jointCluster", "rigid") +
        connectText("soft.out", "rigid.ip[0].ig") + connectText("rigid.og[0]", "bodyShape.i"));
    EXPECT_EQ(names(found), (Names{"rigid", "skin"}));
    EXPECT_EQ(nameOf(found.origin), "bodyShapeOrig");
}

TEST_F(ShapeHistoryWalk, FollowsADeformersInputOfTheSameGeometry) {
    const ShapeHistory found =
        history(body() + deformedNode("coat", square()) + nodeText("skinCluster", "skin") +
                    connectText("bodyShapeOrig.w", "skin.ip[0].ig") + connectText("coatShapeOrig.w", "skin.ip[3].ig") +
                    connectText("skin.og[0]", "bodyShape.i") + connectText("skin.og[3]", "coatShape.i"),
                "coatShape");
    EXPECT_EQ(nameOf(found.origin), "coatShapeOrig");
    ASSERT_EQ(found.deformers.size(), 1U);
    EXPECT_EQ(found.deformers[0].geometry, 3U);
}

TEST_F(ShapeHistoryWalk, FallsBackToTheRecordedOriginalBehindAPrimitive) {
    const std::string scene = body() + nodeText("polyCube", "cube") + nodeText("skinCluster", "skin") +
                              connectText("cube.out", "skin.ip[0].ig") + connectText("skin.og[0]", "bodyShape.i");
    const ShapeHistory found = history(scene);
    EXPECT_EQ(nameOf(found.origin), "cube");
    EXPECT_TRUE(findOriginalMesh(found, MDagPath()).isNull());
    EXPECT_EQ(nameOf(findOriginalMesh(found, session.path("bodyShapeOrig"))), "bodyShapeOrig");
}

TEST_F(ShapeHistoryWalk, KnowsNoOriginalOfAShapeThatNoSkeletonDrives) {
    const ShapeHistory found = history(body() + deformerText("tweak", "tweak", "bodyShapeOrig.w", "bodyShape.i"));
    EXPECT_EQ(nameOf(found.origin), "bodyShapeOrig");
    EXPECT_TRUE(findOriginalMesh(found, session.path("bodyShapeOrig")).isNull());
}

TEST_F(ShapeHistoryWalk, EndsOnACycle) {
    const ShapeHistory found =
        history(body() + nodeText("skinCluster", "skin") + nodeText("cluster", "soft") +
                connectText("soft.og[0]", "skin.ip[0].ig") + connectText("skin.og[0]", "soft.ip[0].ig") +
                connectText("skin.og[0]", "bodyShape.i"));
    EXPECT_EQ(names(found), (Names{"skin", "soft"}));
}

TEST_F(ShapeHistoryWalk, TellsWhatASkeletonDrivesFromModellingDeformers) {
    for (const char* const type : {"skinCluster", "jointCluster", "cluster"}) {
        const ShapeHistory found = history(body() + deformerText(type, "driven", "bodyShapeOrig.w", "bodyShape.i"));
        EXPECT_EQ(names(found), (Names{"driven"})) << type;
    }
    for (const char* const type : {"blendShape", "tweak", "ffd", "nonLinear"}) {
        const ShapeHistory found = history(body() + deformerText(type, "driven", "bodyShapeOrig.w", "bodyShape.i"));
        EXPECT_EQ(names(found), Names{}) << type;
    }
}

struct EffectCase {
    const char* attributes;
    bool isEffective;
};

TEST_F(ShapeHistoryWalk, KnowsWhenADeformerHasNoEffect) {
    constexpr EffectCase kCases[] = {
        {"", true},
        {"setAttr \".nds\" 1;", false},
        {"setAttr \".nds\" 2;", false},
        {"setAttr \".en\" 0;", false},
        {"setAttr \".en\" 0.0000001;", false},
        {"setAttr \".en\" 0.01;", true},
    };
    for (const EffectCase& each : kCases) {
        session.open(nodeText("skinCluster", "skin", "", each.attributes));
        EXPECT_EQ(isDeformerEffective(session.node("skin")), each.isEffective) << each.attributes;
    }
}

} // namespace
} // namespace tvk
