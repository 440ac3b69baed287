#include "export/nodeTransforms.h"

#include "export/nodeTree.h"

#include "ExportSession.h"
#include "sceneText.h"
#include "shadingText.h"
#include "transformText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace tvk {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr double kStep = 1.0 / 4096;

void expectNear(const Imath::V3d& actual, const Imath::V3d& expected, double tolerance = kStep) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

class Transforms : public testing::Test {
protected:
    decode::ModelFile exportScene(const std::string& statements, const std::string& options = "") {
        session.open(statements);
        EXPECT_TRUE(session.exportAll(options));
        return session.model();
    }

    // Every node of the file stands where the host has it.
    void expectHostsWorld(const std::string& statements, double tolerance = 1e-3, double magnify = 1.0) {
        const decode::ModelFile model = exportScene(statements, "magnify=" + std::to_string(magnify));
        for (const decode::ModelNode& node : model.nodes) {
            if (node.name != "world_root") {
                EXPECT_LT(distance(node.world, session.expectedWorld(node.name, magnify)), tolerance) << node.name;
            }
        }
    }

    ExportSession session;
};

// --- refusals and warnings

TEST_F(Transforms, ANodeThatIsNoTransformFails) {
    session.open(nodeText("transform", "a") + meshText("aShape", "a"));
    session.prepareRun();
    run().scene.nodes.push_back(std::make_unique<NodeRecord>());
    run().scene.nodes.back()->name = "a";
    run().scene.nodes.back()->path = session.path("aShape");
    EXPECT_FALSE(readNodeTransforms([](const NodeRecord&) { return std::nullopt; }));
    EXPECT_EQ(session.takeMessages(), "Error: Invalid node: a\n");
}

TEST_F(Transforms, OnlyShearThatCanBeSeenIsReported) {
    const std::pair<const char*, bool> cases[] = {{"0", false},      {"0.00001", false}, {"-0.00001", false},
                                                  {"0.00002", true}, {"-0.00002", true}, {"1", true}};
    for (const auto& [shear, reported] : cases) {
        for (const std::string& values :
             {std::string(shear) + " 0 0", "0 " + std::string(shear) + " 0", "0 0 " + std::string(shear)}) {
            exportScene(nodeText("transform", "a", "", "setAttr \".sh\" -type \"double3\" " + values + " ;"));
            EXPECT_EQ(session.takeMessages(), reported ? "Warning: Shear is not zero (ignored): a\n\n" : "") << values;
        }
    }
}

TEST_F(Transforms, ShearIsLeftOut) {
    const decode::ModelFile model =
        exportScene(nodeText("transform", "a", "", set3("sh", 0.5, 0.25, 0) + " " + scales(2, 3, 4) + moves(1, 2, 3)));
    EXPECT_EQ(model.node("a").scale, Imath::V3d(2, 3, 4));
    EXPECT_EQ(model.node("a").translate, Imath::V3d(1, 2, 3));
    EXPECT_EQ(model.node("a").rotate, Imath::V3d(0, 0, 0));
}

// --- channels

TEST_F(Transforms, PlainChannelsAreWrittenAsTheyAre) {
    const decode::ModelFile model =
        exportScene(nodeText("transform", "a", "", moves(1, -2, 3.5) + rotates(10, 120, -30) + scales(1, 0.5, -2)) +
                    nodeText("joint", "b", "a", moves(4, 5, 6) + rotates(0, 91, 0)));
    EXPECT_EQ(model.node("a").translate, Imath::V3d(1, -2, 3.5));
    EXPECT_EQ(model.node("a").rotate, Imath::V3d(10, 120, -30)); // not another triple of the same rotation
    EXPECT_EQ(model.node("a").scale, Imath::V3d(1, 0.5, -2));
    EXPECT_EQ(model.node("b").translate, Imath::V3d(4, 5, 6));
    EXPECT_EQ(model.node("b").rotate, Imath::V3d(0, 91, 0));
}

TEST_F(Transforms, ValuesAreRoundedToSteps) {
    session.open(nodeText("transform", "a", "", moves(0.1, 0, 0)));
    ASSERT_TRUE(session.exportAll());
    EXPECT_THAT(session.fileText("model.imd"), HasSubstr("\t\ttranslate=\"0.100098 0.000000 0.000000\"\n"));
}

TEST_F(Transforms, AnglesAreBroughtWithinAHalfTurn) {
    const std::pair<double, double> cases[] = {{0, 0},   {180, 180},  {-180, -180}, {190, -170}, {-190, 170},
                                               {360, 0}, {540, -180}, {720, 0},     {-1000, 80}, {359, -1}};
    for (const auto& [typed, written] : cases) {
        const decode::ModelFile model = exportScene(nodeText("transform", "a", "", rotates(typed, 0, 0)));
        EXPECT_NEAR(model.node("a").rotate.x, written, kStep) << typed;
    }
}

TEST_F(Transforms, LengthsAreCentimetres) {
    const decode::ModelFile model =
        exportScene("currentUnit -l meter;\n" + nodeText("transform", "a", "", moves(1, 2, 3)));
    EXPECT_EQ(model.node("a").translate, Imath::V3d(100, 200, 300));
}

TEST_F(Transforms, MagnifyActsOnTranslationsAlone) {
    const decode::ModelFile model = exportScene(
        nodeText("transform", "a", "", moves(1, 2, 3) + rotates(10, 20, 30) + scales(2, 2, 2)), "magnify=2.5");
    EXPECT_EQ(model.node("a").translate, Imath::V3d(2.5, 5, 7.5));
    EXPECT_EQ(model.node("a").rotate, Imath::V3d(10, 20, 30));
    EXPECT_EQ(model.node("a").scale, Imath::V3d(2, 2, 2));
}

// --- pivots

// The cube's corner at (2,0,0) lies one unit from the exported origin, which lands at (3,0,0): it ends at (3,1,0).
TEST_F(Transforms, Hinge) {
    const std::string scene = nodeText("transform", "a", "", moves(2, 0, 0) + rotates(0, 0, 90) + pivots(1, 0, 0)) +
                              meshText("aShape", "a") + inDefaultGroup("aShape");
    const decode::ModelFile model = exportScene(scene);
    EXPECT_EQ(model.node("a").translate, Imath::V3d(3, 0, 0));
    expectNear((Imath::V3d(2, 0, 0) - Imath::V3d(1, 0, 0)) * model.node("a").world, {3, 1, 0});
    expectHostsWorld(scene);
}

TEST_F(Transforms, SplitPivots) {
    const auto scene = [](const std::string& turn) {
        return nodeText("transform", "a", "", scales(2, 2, 2) + set3("sp", 0, 2, 0) + " " + turn) +
               nodeText("transform", "b", "a", moves(0, 3, 0));
    };
    const decode::ModelFile model = exportScene(scene(""));
    EXPECT_EQ(model.node("a").translate, Imath::V3d(0, 2, 0));
    EXPECT_EQ(model.node("b").translate, Imath::V3d(0, 1, 0));
    expectNear(Imath::V3d(0, 0, 0) * model.node("b").world, {0, 4, 0});
    expectHostsWorld(scene(""));
    expectHostsWorld(scene(rotates(90, 0, 0)));
}

TEST_F(Transforms, PivotsThatWereMovedKeepTheirCompensation) {
    expectHostsWorld(nodeText("transform", "a", "",
                              moves(1, 2, 3) + rotates(30, 40, 50) + scales(2, 3, 0.5) + set3("rp", 1, -1, 2) + " " +
                                  set3("sp", -2, 0.5, 1) + " " + set3("rpt", 0.25, 0.5, -1) + " " +
                                  set3("spt", -0.5, 1, 0.75)) +
                     nodeText("transform", "b", "a", moves(1, 1, 1) + rotates(0, 90, 0) + pivots(3, 2, 1)) +
                     nodeText("joint", "c", "b", moves(0, 0, 5)));
}

// --- rotations

TEST_F(Transforms, JointSoup) {
    const std::string scene =
        nodeText("transform", "a", "", rotates(0, 0, 30) + moves(5, 0, 0)) +
        nodeText("joint", "b", "a",
                 order(2) + set3("ra", 10, 20, 30) + " " + set3("jo", 40, 50, 60) + " " + rotates(70, 80, -90)) +
        nodeText("transform", "c", "b", moves(1, 2, 3));
    expectHostsWorld(scene);
    EXPECT_FALSE(session.model().node("b").scaleCompensate.value_or(false));
    EXPECT_EQ(session.model().info->value("scaling_rule"), "standard");
}

TEST_F(Transforms, EveryRotateOrder) {
    for (int code = 0; code < 6; ++code) {
        expectHostsWorld(nodeText("transform", "a", "", order(code) + rotates(20, 40, 60)) +
                         nodeText("joint", "b", "a", order(code) + rotates(-100, 35, 170) + moves(1, 2, 3)) +
                         nodeText("transform", "c", "b", moves(1, 0, 0)));
    }
}

// zyx by (0, 0, 150) is the same about one axis; the triple near the one that was typed is taken.
TEST_F(Transforms, AnotherOrderKeepsTheTypedAnglesWhereTheyMeanTheSame) {
    const decode::ModelFile model = exportScene(nodeText("transform", "a", "", order(5) + rotates(0, 0, 150)) +
                                                nodeText("transform", "b", "a", order(3) + rotates(0, 120, 0)));
    expectNear(model.node("a").rotate, {0, 0, 150});
    expectNear(model.node("b").rotate, {0, 120, 0});
}

TEST_F(Transforms, RotateAxesCountForTransformsToo) {
    expectHostsWorld(nodeText("transform", "a", "", set3("ra", 15, -25, 35) + " " + rotates(10, 20, 30)) +
                     nodeText("transform", "b", "a", moves(1, 2, 3)));
}

// --- scale compensation

TEST_F(Transforms, AJointUndoesTheScaleOfItsParentJoint) {
    const std::string scene = nodeText("joint", "a", "", scales(2, 3, 4) + rotates(10, 20, 30)) +
                              nodeText("joint", "b", "a", moves(1, 2, 3) + rotates(40, 50, 60) + scales(1, 2, 1)) +
                              nodeText("joint", "c", "b", moves(1, 0, 0) + rotates(0, 45, 0)) + compensated("a", "b") +
                              compensated("b", "c");
    expectHostsWorld(scene);
    const decode::ModelFile model = session.model();
    EXPECT_EQ(model.info->value("scaling_rule"), "maya");
    EXPECT_EQ(model.node("a").scaleCompensate, false);
    EXPECT_EQ(model.node("b").scaleCompensate, true);
    EXPECT_EQ(model.node("c").scaleCompensate, true);
}

TEST_F(Transforms, AJointThatIsToldNotToDoesNot) {
    const std::string scene = nodeText("joint", "a", "", scales(2, 3, 4)) +
                              nodeText("joint", "b", "a", moves(1, 2, 3) + "setAttr \".ssc\" no;") +
                              compensated("a", "b");
    expectHostsWorld(scene);
    EXPECT_EQ(session.model().node("b").scaleCompensate, std::nullopt);
    EXPECT_EQ(session.model().info->value("scaling_rule"), "standard");
}

TEST_F(Transforms, AJointBelowATransformNeverDoes) {
    const decode::ModelFile model = exportScene(nodeText("transform", "a", "", scales(2, 3, 4)) +
                                                nodeText("joint", "b", "a", "setAttr \".ssc\" yes;") +
                                                nodeText("transform", "c", "b") + nodeText("joint", "d", "c"));
    EXPECT_EQ(model.info->value("scaling_rule"), "standard");
    EXPECT_EQ(model.node("b").scaleCompensate, std::nullopt);
}

TEST_F(Transforms, ATransformBelowAJointNeverDoes) {
    const decode::ModelFile model = exportScene(nodeText("joint", "a", "", scales(2, 3, 4)) +
                                                nodeText("transform", "b", "a") + nodeText("joint", "c", "a"));
    EXPECT_EQ(model.node("b").scaleCompensate, false);
    EXPECT_EQ(model.node("c").scaleCompensate, true);
}

TEST_F(Transforms, AJointThatCarriesAMeshIsAJointToItsChildren) {
    const decode::ModelFile model =
        exportScene(nodeText("joint", "a", "", scales(2, 2, 2)) + meshText("m", "a") + inDefaultGroup("m") +
                    nodeText("joint", "b", "a") + compensated("a", "b"));
    EXPECT_EQ(model.node("a").kind, "mesh");
    EXPECT_EQ(model.node("b").scaleCompensate, true);
}

TEST_F(Transforms, AParentScaleOfZeroCountsAsOneWhenItIsUndone) {
    const decode::ModelFile model =
        exportScene(nodeText("joint", "a", "", scales(0, 2, 1)) + nodeText("joint", "b", "a", moves(1, 1, 1)) +
                    nodeText("joint", "c", "b", moves(1, 1, 1)) + compensated("a", "b") + compensated("b", "c"));
    for (const decode::ModelNode& node : model.nodes) {
        for (int r = 0; r < 4; ++r) {
            for (int c = 0; c < 4; ++c) {
                EXPECT_TRUE(std::isfinite(node.world[r][c]));
            }
        }
    }
    EXPECT_EQ(model.node("b").scale, Imath::V3d(1, 1, 1));
    session.prepareRun();
    ASSERT_TRUE(buildNodeTree());
    ASSERT_TRUE(readNodeTransforms([](const NodeRecord&) { return std::nullopt; }));
    const MMatrix& local = run().scene.nodes.at(1)->local;
    EXPECT_EQ(local(0, 0), 1.0);
    EXPECT_EQ(local(1, 1), 0.5);
    EXPECT_EQ(local(2, 2), 1.0);
}

// --- places that are not simply channels below a parent

TEST_F(Transforms, ANodeThatInheritsNothingStandsWhereTheHostHasIt) {
    expectHostsWorld(
        nodeText("transform", "a", "", moves(5, 6, 7) + rotates(20, 30, 40) + scales(2, 2, 2) + pivots(1, 2, 3)) +
        nodeText("transform", "b", "a",
                 "setAttr \".it\" no; " + moves(1, 2, 3) + rotates(0, 0, 50) + scales(3, 1, 2) + pivots(0, 1, 0)) +
        nodeText("transform", "c", "b", moves(1, 1, 1) + rotates(10, 0, 0)) +
        nodeText("joint", "d", "a", "setAttr \".it\" no; " + moves(1, 0, 0)));
}

TEST_F(Transforms, AnOffsetMatrixMovesANode) {
    const std::string quarterTurn = "setAttr \".opm\" -type \"matrix\" 0 1 0 0 -1 0 0 0 0 0 1 0 4 5 6 1; ";
    expectHostsWorld(
        nodeText("transform", "a", "", moves(5, 6, 7) + rotates(20, 30, 40) + pivots(1, 2, 3)) +
        nodeText("transform", "b", "a", quarterTurn + moves(1, 2, 3) + rotates(0, 30, 0) + pivots(2, 0, 1)) +
        nodeText("joint", "c", "b", quarterTurn + moves(1, 1, 1) + scales(2, 1, 1)) +
        nodeText("transform", "d", "b", "setAttr \".it\" no; " + quarterTurn));
}

TEST_F(Transforms, SuchNodesAreMagnifiedToo) {
    expectHostsWorld(nodeText("transform", "a", "", moves(5, 6, 7) + rotates(20, 30, 40) + pivots(1, 2, 3)) +
                         nodeText("transform", "b", "a", "setAttr \".it\" no; " + moves(1, 2, 3) + pivots(0, 1, 0)) +
                         nodeText("transform", "c", "b", moves(1, 1, 1)),
                     1e-3, 3.0);
}

TEST_F(Transforms, APlaceThatNoChannelsCanHoldIsReported) {
    exportScene(nodeText("transform", "a", "", rotates(0, 0, 45)) + nodeText("transform", "b", "a", scales(3, 1, 1)) +
                nodeText("transform", "c", "b", "setAttr \".it\" no; " + rotates(0, 0, 20)));
    EXPECT_EQ(session.takeMessages(), "Warning: Shear is not zero (ignored): c\n\n");
}

TEST_F(Transforms, ACompensatedJointMayStandApart) {
    expectHostsWorld(nodeText("joint", "a", "", scales(2, 4, 8)) +
                     nodeText("joint", "b", "a",
                              "setAttr \".opm\" -type \"matrix\" 1 0 0 0 0 1 0 0 0 0 1 0 1 2 3 1; " + moves(1, 1, 1)) +
                     compensated("a", "b"));
}

// --- numbers that no scene should have

TEST_F(Transforms, ScalesOfZeroStayZero) {
    const decode::ModelFile model =
        exportScene(nodeText("transform", "a", "", scales(0, 0, 0) + rotates(10, 20, 30)) +
                    nodeText("transform", "b", "a", "setAttr \".it\" no; " + scales(0, 1, 1) + moves(1, 2, 3)) +
                    nodeText("joint", "c", "a", order(4) + scales(0, 0, 1) + rotates(10, 20, 30)));
    EXPECT_EQ(model.node("a").scale, Imath::V3d(0, 0, 0));
    EXPECT_EQ(model.node("a").rotate, Imath::V3d(10, 20, 30));
    EXPECT_EQ(model.node("c").scale, Imath::V3d(0, 0, 1));
}

// What is too large for the file is the largest that it holds, what is no number is 0: the file reads well in any case.
TEST_F(Transforms, NumbersThatNoFileCanHoldBecomeOnesThatItCan) {
    session.open(nodeText("transform", "a") + nodeText("transform", "b", "a", order(3)) + nodeText("joint", "c", "b") +
                 nodeText("transform", "d", "c", "setAttr \".it\" no;"));
    for (const std::string node : {"a", "b", "c", "d"}) {
        for (const char* attribute : {"translateX", "rotateY", "scaleZ", "rotatePivotX", "scalePivotY", "shearXY"}) {
            for (const char* value : {"1e300", "-1e300", "1e30"}) {
                session.mel("setAttr " + node + "." + attribute + " " + value);
                EXPECT_TRUE(session.exportAll()) << node << "." << attribute;
                EXPECT_THAT(session.fileText("model.imd"), Not(HasSubstr("nan")));
                EXPECT_THAT(session.fileText("model.imd"), Not(HasSubstr("inf\"")));
                session.model(); // reads all of it
                session.mel("setAttr " + node + "." + attribute + " 0");
            }
        }
    }
    session.takeMessages();
}

TEST_F(Transforms, NotANumberBecomesZero) {
    session.open(nodeText("transform", "a", "", "setAttr \".t\" -type \"double3\" nan 1 inf ;") +
                 nodeText("transform", "b", "a", "setAttr \".r\" -type \"double3\" nan 20 0 ;") +
                 nodeText("joint", "c", "b", order(1) + "setAttr \".s\" -type \"double3\" 1 nan 1 ;"));
    EXPECT_TRUE(session.exportAll());
    const decode::ModelFile model = session.model();
    EXPECT_EQ(model.node("a").translate.x, 0.0);
    EXPECT_EQ(model.node("a").translate.y, 1.0);
    EXPECT_EQ(model.node("b").rotate, Imath::V3d(0, 20, 0));
    EXPECT_EQ(model.node("c").scale, Imath::V3d(1, 0, 1));
}

// --- everything at once

TEST_F(Transforms, RandomScenesStandWhereTheHostHasThem) {
    std::mt19937 random(11);
    const auto number = [&](double limit) { return std::uniform_real_distribution<double>(-limit, limit)(random); };
    const auto triple = [&](const char* attribute, double limit) {
        return set3(attribute, number(limit), number(limit), number(limit)) + " ";
    };
    const auto scale = [&] {
        const auto part = [&] {
            return (random() % 4 == 0 ? -1.0 : 1.0) * std::uniform_real_distribution<double>(0.5, 1.5)(random);
        };
        return scales(part(), part(), part());
    };
    for (int round = 0; round < 40; ++round) {
        std::string text;
        std::vector<bool> joints;
        for (int i = 0; i < 8; ++i) {
            const int parent = i == 0 ? -1 : static_cast<int>(random() % static_cast<unsigned int>(i));
            const bool isJoint = random() % 2 == 0;
            const std::string name = "n" + std::to_string(i);
            std::string lines = triple("t", 10) + triple("r", 400) + scale() + order(static_cast<int>(random() % 6)) +
                                triple("ra", 180);
            lines +=
                isJoint ? triple("jo", 180) : triple("rp", 5) + triple("sp", 5) + triple("rpt", 2) + triple("spt", 2);
            text +=
                nodeText(isJoint ? "joint" : "transform", name, parent < 0 ? "" : "n" + std::to_string(parent), lines);
            if (isJoint && parent >= 0 && joints[static_cast<std::size_t>(parent)]) {
                text += compensated("n" + std::to_string(parent), name);
            }
            joints.push_back(isJoint);
        }
        expectHostsWorld(text, 0.05, round % 2 == 0 ? 1.0 : 2.0);
    }
}

} // namespace
} // namespace tvk
