#include "host/nodes/curveShapeCompute.h"

#include "MeshFixture.h"

#include "host/geometry/NurbsCurve.h"
#include "host/nodes/transformMatrix.h"

#include <gmock/gmock.h>

namespace host {
namespace {

using Imath::V3d;
using testing::ElementsAre;
using testing::IsEmpty;

/// A path: 2 along x, then 4 along y.
class Path : public MeshFixture {
protected:
    Path() {
        auto corner = std::make_shared<NurbsCurve>();
        corner->degree = 1;
        corner->knots = {0, 1, 2};
        corner->points = {V3d(0, 0, 0), V3d(2, 0, 0), V3d(2, 4, 0)};
        corner->weights = {1, 1, 1};
        EXPECT_EQ(graph.setData(plug(shape, "cached"), corner).error, "");
        connect(shape, "worldSpace[0]", path, "geometryPath");
    }
    V3d place() { return {number(path, "xc"), number(path, "yc"), number(path, "zc")}; }
    Imath::M33d turn() {
        return rotationMatrix({number(path, "rx"), number(path, "ry"), number(path, "rz")}, RotateOrder::kXYZ);
    }
    void expectTurn(const V3d& x, const V3d& y, const V3d& z) {
        const Imath::M33d expected(x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z);
        EXPECT_TRUE(turn().equalWithAbsError(expected, 1e-9)) << turn();
    }

    Node& transform = make("transform", "curve1");
    Node& shape = make("nurbsCurve", "curveShape1", &transform);
    Node& path = make("motionPath", "motionPath1");
};

TEST_F(Path, PutsThingsWhereItsParameterIs) {
    set(path, "uValue", 1.5);
    EXPECT_EQ(place(), V3d(2, 2, 0));
    set3(transform, "translate", 0, 0, 7);
    EXPECT_EQ(place(), V3d(2, 2, 7)) << "in the world";
}

TEST_F(Path, MeasuresThePartOfItsLength) {
    set(path, "fractionMode", 1);
    set(path, "uValue", 0.5);
    EXPECT_TRUE(place().equalWithAbsError({2, 1, 0}, 1e-9));
    set3(transform, "scale", 10, 1, 1); // 20 along x, then 4 along y
    EXPECT_TRUE(place().equalWithAbsError({12, 0, 0}, 1e-9));
}

TEST_F(Path, TurnsNothingUnlessItIsFollowed) {
    set(path, "uValue", 1.5);
    expectTurn({1, 0, 0}, {0, 1, 0}, {0, 0, 1});
}

TEST_F(Path, TurnsTheFrontAlongItself) {
    set(path, "uValue", 0.5);
    set(path, "follow", 1);
    set(path, "frontAxis", 0);
    set(path, "upAxis", 1);
    expectTurn({1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    set(path, "worldUpType", 3);
    set3(path, "worldUpVector", 0, 0, 1);
    set(path, "uValue", 1.5);
    expectTurn({0, 1, 0}, {0, 0, 1}, {1, 0, 0});
    set(path, "inverseFront", 1);
    expectTurn({0, -1, 0}, {0, 0, 1}, {-1, 0, 0});
    set(path, "inverseFront", 0);
    set(path, "frontAxis", 2);
    expectTurn({-1, 0, 0}, {0, 0, 1}, {0, 1, 0});
}

TEST_F(Path, TurnsUpTowardsAnObject) {
    set(path, "uValue", 0.5);
    set(path, "follow", 1);
    set(path, "frontAxis", 0);
    set(path, "upAxis", 1);
    set(path, "worldUpType", 1);
    setMatrix(path, "worldUpMatrix", moved(9, 0, -5));
    expectTurn({1, 0, 0}, {0, 0, -1}, {0, 1, 0});
    set(path, "worldUpType", 2);
    setMatrix(path, "worldUpMatrix", rows({1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {0, 0, 0}));
    expectTurn({1, 0, 0}, {0, 0, 1}, {0, -1, 0});
}

TEST_F(Path, SaysWhatItDoesNotTurnBy) {
    set(path, "bank", 1);
    EXPECT_EQ(number(path, "rx"), 0.0);
    EXPECT_THAT(warnings, IsEmpty()) << "nothing follows";
    set(path, "follow", 1);
    set(path, "worldUpType", 4);
    EXPECT_EQ(place(), V3d(0, 0, 0));
    EXPECT_THAT(warnings,
                ElementsAre("motionPath1: banking and twists are not evaluated; what follows the path stays upright",
                            "motionPath1: the curve's normal as up direction is not evaluated; y is up"));
}

TEST_F(Path, WithoutACurveMovesNothing) {
    Node& lonely = make("motionPath", "lonely");
    EXPECT_EQ(number(lonely, "xc"), 0.0);
    EXPECT_EQ(number(make("curveInfo", "info"), "arcLength"), 0.0);
}

TEST_F(Path, HasALength) {
    Node& info = make("curveInfo", "curveInfo1");
    connect(shape, "worldSpace[0]", info, "inputCurve");
    EXPECT_NEAR(number(info, "arcLength"), 6, 1e-9);
    setRows(shape, "controlPoints", {0, 0, 0, 0, 0, 0, 0, 4, 0});
    EXPECT_NEAR(number(info, "arcLength"), 10, 1e-9) << "control points add to what is stored";
    set3(transform, "scale", 2, 2, 2);
    EXPECT_NEAR(number(info, "arcLength"), 20, 1e-9);
}

TEST_F(Path, TakesTheCurveThatComesIn) {
    Node& other = make("nurbsCurve", "curveShape2", &transform);
    connect(shape, "local", other, "create");
    connect(other, "worldSpace[0]", make("curveInfo", "info"), "inputCurve");
    EXPECT_NE(nurbsCurveOf(graph.data(plug(other, "worldSpace[0]"))), nullptr);
}

} // namespace
} // namespace host
