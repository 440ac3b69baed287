#include "host/scene/transformFit.h"

#include "OpenedScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

struct FitRow {
    const char* name;
    const char* statements; // node "a" below "p"
};

class TransformFit : public testing::TestWithParam<FitRow> {};

// Whatever pivots, orders and orients there are: after the move the world matrix is the one that was asked for.
TEST_P(TransformFit, ReachesTheWorldMatrix) {
    OpenedScene opened(
        std::string("createNode transform -n \"p\";\n\tsetAttr \".t\" -type \"double3\" 1 2 3;\n"
                    "\tsetAttr \".r\" -type \"double3\" 10 20 30;\n\tsetAttr \".s\" -type \"double3\" 2 2 2;\n") +
        GetParam().statements +
        "createNode transform -n \"goal\";\n\tsetAttr \".t\" -type \"double3\" -4 5 6;\n"
        "\tsetAttr \".r\" -type \"double3\" 40 -30 75;\n\tsetAttr \".s\" -type \"double3\" 1 3 0.5;\n");
    ASSERT_EQ(opened.result.error, "");
    Graph& graph = opened.scene.graph();
    const Matrix44 goal = worldMatrixOf(graph, *opened.node("goal"));
    moveToWorldMatrix(graph, *opened.node("a"), goal);
    const Matrix44 reached = worldMatrixOf(graph, *opened.node("a"));
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            EXPECT_NEAR(reached[row][column], goal[row][column], 1e-9) << row << "," << column;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, TransformFit,
    testing::Values(
        FitRow{"Plain", "createNode transform -n \"a\" -p \"p\";\n"},
        FitRow{"Pivots", "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".rp\" -type \"double3\" 1 0 2;\n"
                         "\tsetAttr \".sp\" -type \"double3\" 0 3 0;\n\tsetAttr \".rpt\" -type \"double3\" 1 1 1;\n"},
        FitRow{"RotateOrderYZX", "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".ro\" 1;\n"},
        FitRow{"RotateOrderZXY", "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".ro\" 2;\n"},
        FitRow{"RotateOrderXZY", "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".ro\" 3;\n"},
        FitRow{"RotateOrderYXZ", "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".ro\" 4;\n"},
        FitRow{"RotateOrderZYX", "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".ro\" 5;\n"},
        FitRow{"RotateAxis",
               "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".ra\" -type \"double3\" 15 25 35;\n"},
        FitRow{"JointOrient", "createNode joint -n \"a\" -p \"p\";\n\tsetAttr \".jo\" -type \"double3\" 15 25 35;\n"},
        FitRow{"JointThatCompensates",
               "createNode joint -n \"a\" -p \"p\";\n\tsetAttr \".is\" -type \"double3\" 2 2 2;\n"
               "\tsetAttr \".ssc\" yes;\n"},
        FitRow{"WithoutInheriting", "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".it\" no;\n"}),
    [](const auto& row) { return row.param.name; });

TEST(TransformFitLimits, NothingMovesBelowAParentScaledToNothing) {
    OpenedScene opened("createNode transform -n \"p\";\n\tsetAttr \".s\" -type \"double3\" 0 1 1;\n"
                       "createNode transform -n \"a\" -p \"p\";\n\tsetAttr \".tx\" 3;\n");
    moveToWorldMatrix(opened.scene.graph(), *opened.node("a"), Matrix44());
    EXPECT_EQ(opened.number("a.tx"), 3.0);
}

} // namespace

} // namespace host
