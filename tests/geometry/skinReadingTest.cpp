#include "geometry/skinReading.h"

#include "GeometrySession.h"
#include "meshScene.h"
#include "scene/messages.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class SkinReading : public testing::Test {
protected:
    static std::string joints(int count) {
        std::string text;
        for (int i = 1; i <= count; ++i) {
            text += nodeText("joint", "joint" + std::to_string(i));
        }
        return text;
    }

    static std::vector<std::string> names(int count) {
        std::vector<std::string> result;
        for (int i = 1; i <= count; ++i) {
            result.push_back("joint" + std::to_string(i));
        }
        return result;
    }

    // A body whose vertices have these weights on joint1, joint2 and so on.
    static std::string skinned(const std::vector<WeightRow>& weights, const std::string& attributes = "") {
        SkinSpec skin;
        const auto count = static_cast<int>(weights.front().size());
        skin.influences = names(count);
        skin.weights = weights;
        skin.attributes = attributes;
        return deformedNode("body", row(static_cast<int>(weights.size()) / 2 - 1)) + joints(count) + skinText(skin);
    }

    void expectRefused(const std::string& statements, const std::string& message) {
        EXPECT_FALSE(session.readShapesOf(statements));
        EXPECT_EQ(session.takeMessages(), message);
        EXPECT_EQ(session.mel("getAttr skin.nodeState"), "0");
    }

    GeometrySession session;
};

TEST_F(SkinReading, RefusesWeightsThatDoNotAddUp) {
    expectRefused(skinned({{1, 0}, {1, 0}, {0.5, 0.49}, {1, 0}}),
                  "Error: Wrong weighted vertices exist: |body|bodyShape.vtx[2]\n");
}

TEST_F(SkinReading, RefusesWeightsAboveOne) {
    expectRefused(skinned({{1, 0}, {0.6, 0.406}, {1, 0}, {1, 0}}),
                  "Error: Wrong weighted vertices exist: |body|bodyShape.vtx[1]\n");
}

TEST_F(SkinReading, RefusesAVertexWithoutAnyWeight) {
    expectRefused(skinned({{0, 0}, {1, 0}, {1, 0}, {1, 0}}),
                  "Error: Wrong weighted vertices exist: |body|bodyShape.vtx[0]\n");
}

TEST_F(SkinReading, RefusesAnInfluenceThatIsNotExported) {
    session.open(skinned({{1, 0}, {1, 0}, {1, 0}, {1, 0}}));
    session.mel("select -r body joint1");
    session.prepareRun("", MPxFileTranslator::kExportActiveAccessMode);
    EXPECT_FALSE(session.readOpenShapes());
    EXPECT_EQ(session.takeMessages(), "Error: Influence object is not outputted: |joint2 -> bodyShape\n");
}

TEST_F(SkinReading, TurnsWeightsIntoPercentagesThatNeedNotAddUp) {
    ASSERT_TRUE(session.readShapesOf(skinned({{0.333, 0.333, 0.334}, {1, 0, 0}, {0.335, 0.335, 0.33}, {0, 1, 0}})));
    EXPECT_EQ(session.binding(0), "joint1 33, joint2 33, joint3 33");
    EXPECT_EQ(session.binding(1), "joint1 100");
    EXPECT_EQ(session.binding(2), "joint1 34, joint2 34, joint3 33");
    EXPECT_EQ(session.binding(3), "joint2 100");
    EXPECT_EQ(session.takeMessages(), "");
}

// A file may name a vertex's influences in any order.
TEST_F(SkinReading, TakesWeightsThatAreStoredOutOfOrder) {
    SkinSpec skin;
    skin.influences = names(2);
    for (int vertex = 0; vertex < 4; ++vertex) {
        const std::string place = "setAttr \".wl[" + std::to_string(vertex) + "].w[";
        skin.attributes += place + "1]\" 0.7; " + place + "0]\" 0.3; ";
    }
    ASSERT_TRUE(session.readShapesOf(deformedNode("body", square()) + joints(2) + skinText(skin)));
    EXPECT_EQ(session.binding(0), "joint1 30, joint2 70");
    EXPECT_EQ(session.binding(3), "joint1 30, joint2 70");
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(SkinReading, DropsAWeightThatRoundsToNothingAndKeepsTheOthers) {
    ASSERT_TRUE(session.readShapesOf(skinned({{0.004, 0.996, 0}, {0.004, 0.498, 0.498}, {1, 0, 0}, {1, 0, 0}})));
    EXPECT_EQ(session.binding(0), "joint2 100");
    EXPECT_EQ(session.binding(1), "joint2 50, joint3 50");
    EXPECT_EQ(session.scene().matrices[0].weightCount, 1);
}

TEST_F(SkinReading, SharesOneMatrixAndOneRunAmongVerticesWithTheSameInfluences) {
    ASSERT_TRUE(session.readShapesOf(skinned({{0.25, 0.75}, {0.251, 0.749}, {0.75, 0.25}, {0.25, 0.75}})));
    EXPECT_EQ(session.scene().vertexMatrices, (std::vector<int32_t>{0, 0, 1, 0}));
    EXPECT_EQ(session.scene().matrices.size(), 2U);
    EXPECT_EQ(session.scene().envelope.size(), 4U);
}

TEST_F(SkinReading, GivesVerticesWhollyToTheGreatestWeightWhenAsked) {
    ASSERT_TRUE(session.readShapesOf(skinned({{0.2, 0.5, 0.3}, {0.4, 0.4, 0.2}, {0.1, 0.1, 0.1}, {0, 0, 0}}),
                                     "force_full_weight=1"));
    EXPECT_EQ(session.binding(0), "joint2 100");
    EXPECT_EQ(session.binding(1), "joint1 100"); // the smaller index of two equals
    EXPECT_EQ(session.binding(2), "joint1 100"); // nobody asks for a sum
    EXPECT_EQ(session.binding(3), "body 100");
    EXPECT_EQ(session.takeMessages(), "");
}

// Influences are listed by name in the scene, which need not be their order in the skin.
TEST_F(SkinReading, PrefersTheSmallerOutputIndexAmongEqualWeights) {
    SkinSpec skin;
    skin.influences = {"joint2", "joint1"};
    skin.weights.assign(4, {0.5, 0.5});
    ASSERT_TRUE(
        session.readShapesOf(deformedNode("body", square()) + joints(2) + skinText(skin), "force_full_weight=1"));
    EXPECT_EQ(session.binding(0), "joint1 100");
}

TEST_F(SkinReading, TreatsAShapeWhoseSkinIsSwitchedOffAsUnskinned) {
    ASSERT_TRUE(session.readShapesOf(skinned({{0.5, 0.1}, {1, 0}, {1, 0}, {1, 0}}, "setAttr \".nds\" 1;")));
    EXPECT_EQ(session.takeMessages(), "Warning: Deformer is not effective: skin\n");
    EXPECT_EQ(session.binding(0), "body 100");
    EXPECT_FALSE(session.shape().isSkinned);
    EXPECT_EQ(session.mel("getAttr skin.nodeState"), "1");
}

TEST_F(SkinReading, TreatsAShapeWhoseSkinHasNoEnvelopeAsUnskinned) {
    ASSERT_TRUE(session.readShapesOf(skinned({{0.5, 0.1}, {1, 0}, {1, 0}, {1, 0}}, "setAttr \".en\" 0;")));
    EXPECT_EQ(session.takeMessages(), "Warning: Deformer is not effective: skin\n");
}

TEST_F(SkinReading, TakesAHalfEnvelopeAsWhole) {
    ASSERT_TRUE(session.readShapesOf(skinned({{0.5, 0.5}, {1, 0}, {1, 0}, {1, 0}}, "setAttr \".en\" 0.5;")));
    EXPECT_EQ(session.binding(0), "joint1 50, joint2 50");
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(SkinReading, ReadsSkinsOfMoreVerticesThanOneBlock) {
    std::vector<WeightRow> weights(10000, {1, 0});
    weights[9999] = {0.5, 0.5};
    weights[4096] = {0, 1};
    ASSERT_TRUE(session.readShapesOf(skinned(weights)));
    EXPECT_EQ(session.binding(4095), "joint1 100");
    EXPECT_EQ(session.binding(4096), "joint2 100");
    EXPECT_EQ(session.binding(9999), "joint1 50, joint2 50");
    EXPECT_EQ(session.scene().vertexMatrices.size(), 10000U);
}

TEST_F(SkinReading, WarnsOnceOfMoreThan31Matrices) {
    std::vector<WeightRow> weights;
    for (std::size_t i = 0; i < 32; ++i) {
        weights.push_back(WeightRow(32));
        weights.back()[i] = 1;
    }
    ASSERT_TRUE(session.readShapesOf(skinned(weights)));
    EXPECT_EQ(session.takeMessages(), "Warning: The number of matrix for displaying this model over 31: 32\n");
    EXPECT_TRUE(warningRaised());
}

TEST_F(SkinReading, DoesNotWarnOf31Matrices) {
    std::vector<WeightRow> weights;
    for (std::size_t i = 0; i < 32; ++i) {
        weights.push_back(WeightRow(31));
        weights.back()[i % 31] = 1;
    }
    ASSERT_TRUE(session.readShapesOf(skinned(weights)));
    EXPECT_EQ(session.takeMessages(), "");
}

TEST_F(SkinReading, TellsOfASkinThatAnotherOneHides) {
    SkinSpec inner;
    inner.name = "inner";
    inner.influences = {"joint1"};
    inner.weights.assign(4, {1});
    inner.to = "";
    SkinSpec outer = inner;
    outer.name = "outer";
    outer.influences = {"joint2"};
    outer.from = "inner.og[0]";
    outer.to = "bodyShape.i";
    ASSERT_TRUE(session.readShapesOf(deformedNode("body", square()) + joints(2) + skinText(inner) + skinText(outer)));
    EXPECT_EQ(session.takeMessages(), "Warning: Deformer is ignored: inner -> bodyShape\n");
    EXPECT_EQ(session.binding(0), "joint2 100");
}

TEST_F(SkinReading, AllowsTheMeshsOwnNodeAmongItsInfluences) {
    SkinSpec skin;
    skin.influences = {"body", "joint1"};
    skin.weights = {{1, 0}, {0.5, 0.5}, {0, 1}, {0, 1}};
    ASSERT_TRUE(session.readShapesOf(deformedNode("body", square()) + joints(1) + skinText(skin)));
    EXPECT_EQ(session.binding(0), "body 100");
    EXPECT_EQ(session.binding(1), "body 50, joint1 50");
}

} // namespace
} // namespace tvk
