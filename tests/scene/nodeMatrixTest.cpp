#include "scene/nodeMatrix.h"

#include <gtest/gtest.h>

#include <limits>

namespace tvk {
namespace {

MMatrix rows(const double (&values)[4][4]) {
    return MMatrix(values);
}

void expectEqual(const MMatrix& actual, const MMatrix& expected) {
    for (unsigned int r = 0; r < 4; ++r) {
        for (unsigned int c = 0; c < 4; ++c) {
            EXPECT_NEAR(actual(r, c), expected(r, c), 1e-12) << r << ' ' << c;
        }
    }
}

TransformSet exampleSet() {
    TransformSet set;
    set.scale = {2, 3, 4};
    set.rotate = {0, 0, 90};
    set.translate = {5, 6, 7};
    return set;
}

// x goes to y, y to -x, each row times its scale.
TEST(NodeMatrix, ScalesThenTurnsThenMoves) {
    expectEqual(matrixOf(exampleSet()), rows({{0, 2, 0, 0}, {-3, 0, 0, 0}, {0, 0, 4, 0}, {5, 6, 7, 1}}));
}

// Rx(90) sends y to z, then Ry(90) sends z to x: so y ends on x.
TEST(NodeMatrix, TurnsAboutXFirst) {
    const MMatrix matrix = rotationMatrix({90, 90, 0});
    expectEqual(matrix, rows({{0, 0, -1, 0}, {1, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, 0, 1}}));
}

// The undone scale acts on columns, after the rotation, and not on the translation.
TEST(NodeMatrix, UndoesTheParentsScaleBetweenRotationAndTranslation) {
    const MMatrix matrix = localMatrix(exampleSet(), true, {2, 4, 8});
    expectEqual(matrix, rows({{0, 0.5, 0, 0}, {-1.5, 0, 0, 0}, {0, 0, 0.5, 0}, {5, 6, 7, 1}}));
    expectEqual(localMatrix(exampleSet(), false, {2, 4, 8}), matrixOf(exampleSet()));
}

TEST(NodeMatrix, AZeroComponentOfTheParentsScaleCountsAsOne) {
    const MMatrix matrix = localMatrix(exampleSet(), true, {0, 4, 0});
    expectEqual(matrix, rows({{0, 0.5, 0, 0}, {-3, 0, 0, 0}, {0, 0, 4, 0}, {5, 6, 7, 1}}));
}

// 0.1 is 409.6 steps of 1/4096, so 410 of them; what no file can hold becomes the nearest that it can, or 0.
TEST(NodeMatrix, QuantisedSetsAreWhatAReaderFinds) {
    TransformSet set;
    set.scale = {0.1, 1, -0.1};
    set.rotate = {0.5 / 4096, 0.49 / 4096, 180};
    set.translate = {1e30, -1e30, std::numeric_limits<double>::quiet_NaN()};
    const TransformSet result = quantised(set);
    EXPECT_EQ(result.scale, (Vector3{410.0 / 4096, 1, -410.0 / 4096}));
    EXPECT_EQ(result.rotate, (Vector3{1.0 / 4096, 0, 180}));
    EXPECT_EQ(result.translate, (Vector3{2147483647.0 / 4096, -2147483648.0 / 4096, 0}));
}

TEST(NodeMatrix, TranslationsAreMovedAndMagnified) {
    const MMatrix moved = translationMatrix({1, 2, 3});
    expectEqual(moved, rows({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {1, 2, 3, 1}}));
    expectEqual(withScaledTranslation(matrixOf(exampleSet()), 10),
                rows({{0, 2, 0, 0}, {-3, 0, 0, 0}, {0, 0, 4, 0}, {50, 60, 70, 1}}));
}

} // namespace
} // namespace tvk
