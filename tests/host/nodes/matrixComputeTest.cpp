#include "host/nodes/matrixCompute.h"

#include "GraphFixture.h"

#include "host/nodes/transformMatrix.h"

namespace host {
namespace {

using Imath::V3d;

class MatrixNodes : public GraphFixture {
protected:
    void setMatrix(Node& node, const std::string& path, const Matrix44& value) {
        EXPECT_EQ(graph.setMatrix(plug(node, path), value).error, "");
    }
    V3d triple(Node& node, const std::string& path) {
        const Plug parent = plug(node, path);
        V3d result;
        for (int i = 0; i < 3; ++i) {
            Plug child = parent;
            child.at.attr = node.attribute(parent.at.attr).children[static_cast<std::size_t>(i)];
            result[i] = graph.number(child);
        }
        return result;
    }
    static void expectNear(const V3d& actual, const V3d& expected) {
        EXPECT_LT((actual - expected).length(), 1e-12) << actual << " instead of " << expected;
    }
};

// x to y, y to -x, and one along x.
const Matrix44 kQuarterTurn = rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {1, 0, 0});
const Matrix44 kAlongY = rows({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {0, 5, 0});

TEST_F(MatrixNodes, MultiplyInTheOrderOfTheirElements) {
    Node& node = make("multMatrix", "mult1");
    EXPECT_TRUE(isNear(matrix(node, "matrixSum"), Matrix44()));
    setMatrix(node, "matrixIn[3]", kQuarterTurn);
    setMatrix(node, "matrixIn[1]", kAlongY);
    EXPECT_TRUE(isNear(matrix(node, "o"), rows({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {-4, 0, 0})));
}

TEST_F(MatrixNodes, AddWithAndWithoutWeights) {
    Node& sum = make("addMatrix", "add1");
    setMatrix(sum, "matrixIn[0]", kQuarterTurn);
    setMatrix(sum, "matrixIn[1]", kAlongY);
    EXPECT_EQ(matrix(sum, "o")[3][1], 5.0);
    EXPECT_EQ(matrix(sum, "o")[3][3], 2.0);
    Node& weighted = make("wtAddMatrix", "add2");
    setMatrix(weighted, "wtMatrix[0].matrixIn", kQuarterTurn);
    setMatrix(weighted, "wtMatrix[1].matrixIn", kAlongY);
    set(weighted, "wtMatrix[0].weightIn", 0.25);
    set(weighted, "wtMatrix[1].weightIn", 0.75);
    EXPECT_EQ(matrix(weighted, "o")[3][1], 3.75);
    EXPECT_EQ(matrix(weighted, "o")[0][1], 0.25);
}

TEST_F(MatrixNodes, InvertAndTranspose) {
    Node& inverse = make("inverseMatrix", "inverse1");
    setMatrix(inverse, "inputMatrix", kQuarterTurn);
    EXPECT_TRUE(isNear(matrix(inverse, "outputMatrix") * kQuarterTurn, Matrix44()));
    setMatrix(inverse, "inputMatrix", rows({0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}));
    EXPECT_TRUE(isNear(matrix(inverse, "outputMatrix"), Matrix44())) << "a matrix without an inverse";
    Node& transposed = make("transposeMatrix", "transpose1");
    setMatrix(transposed, "inputMatrix", kQuarterTurn);
    EXPECT_EQ(matrix(transposed, "outputMatrix")[0][3], 1.0);
}

TEST_F(MatrixNodes, ComposeAndDecomposeAreEachOthersInverse) {
    Node& compose = make("composeMatrix", "compose1");
    Node& decompose = make("decomposeMatrix", "decompose1");
    connect(compose, "outputMatrix", decompose, "inputMatrix");
    set3(compose, "inputTranslate", 1, 2, 3);
    set3(compose, "inputRotate", 0.1, -0.2, 0.3);
    set3(compose, "inputScale", 2, 3, 4);
    set3(compose, "inputShear", 0.5, 0, -0.25);
    for (int order = 0; order < 6; ++order) {
        set(compose, "ro", order);
        set(decompose, "ro", order);
        expectNear(triple(decompose, "outputTranslate"), {1, 2, 3});
        expectNear(triple(decompose, "outputRotate"), {0.1, -0.2, 0.3});
        expectNear(triple(decompose, "outputScale"), {2, 3, 4});
        expectNear(triple(decompose, "outputShear"), {0.5, 0, -0.25});
    }
    // A quarter turn about z.
    set(compose, "useEulerRotation", 0);
    set(compose, "inputQuatZ", 2);
    set(compose, "inputQuatW", 2);
    expectNear(triple(decompose, "outputRotate"), {0, 0, 90 * kDegree});
    EXPECT_NEAR(number(decompose, "outputQuatZ"), std::sqrt(0.5), 1e-12);
    EXPECT_NEAR(number(decompose, "outputQuatW"), std::sqrt(0.5), 1e-12);
    set(compose, "inputQuatZ", 0);
    set(compose, "inputQuatW", 0);
    expectNear(triple(decompose, "outputRotate"), {0, 0, 0});
}

TEST_F(MatrixNodes, MovePointsAndTurnVectors) {
    Node& node = make("pointMatrixMult", "pmm1");
    set3(node, "inPoint", 2, 0, 7);
    setMatrix(node, "inMatrix", kQuarterTurn);
    expectNear(triple(node, "output"), {1, 2, 7});
    set(node, "vectorMultiply", 1);
    expectNear(triple(node, "output"), {0, 2, 7});
}

TEST_F(MatrixNodes, VectorProductsOfAllKinds) {
    Node& node = make("vectorProduct", "vp1");
    set3(node, "input1", 2, 0, 0);
    set3(node, "input2", 1, 3, 0);
    setMatrix(node, "matrix", kQuarterTurn);
    const V3d expected[] = {{2, 0, 0}, {2, 2, 2}, {0, 0, 6}, {0, 2, 0}, {1, 2, 0}};
    for (int operation = 0; operation < 5; ++operation) {
        set(node, "op", operation);
        expectNear(triple(node, "output"), expected[operation]);
    }
    set(node, "normalizeOutput", 1);
    set(node, "op", 2);
    expectNear(triple(node, "output"), {0, 0, 1});
    set(node, "op", 1);
    expectNear(triple(node, "output"), V3d(1 / std::sqrt(10.0)));
    set3(node, "input1", 0, 0, 0);
    expectNear(triple(node, "output"), {0, 0, 0});
}

TEST_F(MatrixNodes, MeasureDistancesAndAngles) {
    Node& distance = make("distanceBetween", "distance1");
    set3(distance, "point1", 1, 0, 0);
    EXPECT_EQ(number(distance, "distance"), 1.0);
    setMatrix(distance, "inMatrix1", kQuarterTurn); // (1, 1, 0)
    set3(distance, "point2", 1, 1, -2);
    EXPECT_EQ(number(distance, "distance"), 2.0);
    Node& angle = make("angleBetween", "angle1");
    set3(angle, "vector2", 0, 5, 0);
    EXPECT_NEAR(number(angle, "angle"), 90 * kDegree, 1e-12);
    expectNear(triple(angle, "axis"), {0, 0, 1});
    expectNear(triple(angle, "euler"), {0, 0, 90 * kDegree});
    set3(angle, "vector2", -1, 0, 0);
    EXPECT_NEAR(number(angle, "angle"), 180 * kDegree, 1e-12);
    set3(angle, "vector2", 0, 0, 0);
    EXPECT_EQ(number(angle, "angle"), 0.0);
}

TEST_F(MatrixNodes, HoldAndScale) {
    Node& hold = make("holdMatrix", "hold");
    setMatrix(hold, "inMatrix", kAlongY);
    EXPECT_EQ(matrix(hold, "outMatrix"), kAlongY);
    Node& pass = make("passMatrix", "pass");
    connect(hold, "outMatrix", pass, "inMatrix");
    set(pass, "inScale", 2);
    EXPECT_EQ(matrix(pass, "outMatrix"), kAlongY * 2.0);
}

TEST_F(MatrixNodes, AreMadeOfSixteenNumbers) {
    Node& node = make("fourByFourMatrix", "four");
    EXPECT_EQ(matrix(node, "output"), Matrix44());
    set(node, "in30", 4);
    set(node, "in01", 2);
    EXPECT_EQ(matrix(node, "output"), rows({1, 2, 0}, {0, 1, 0}, {0, 0, 1}, {4, 0, 0}));
}

} // namespace
} // namespace host
