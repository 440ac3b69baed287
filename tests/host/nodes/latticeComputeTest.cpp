#include "host/nodes/latticeCompute.h"

#include "MeshFixture.h"

#include "host/geometry/LatticeData.h"

#include <gmock/gmock.h>

namespace host {
namespace {

using Imath::V3d;
using Imath::V3f;
using testing::ElementsAre;

/// The triangle 0, x, y behind an ffd, whose base lattice is the cube from -1 to 1 and whose lattice has the points of
/// that cube as long as nothing moves them.
class Ffd : public MeshFixture {
protected:
    Ffd() {
        connect(source, "worldMesh[0]", node, "input[0].inputGeometry");
        connect(node, "outputGeometry[0]", shown, "inMesh");
        connect(lattice, "lo", node, "dlp");
        connect(latticeTransform, "wm[0]", node, "dlm");
        connect(base, "wm[0]", node, "blm");
        for (Node* cube : {&latticeTransform, &base}) {
            set3(*cube, "scale", 2, 2, 2);
        }
        for (const char* side : {"sd", "td", "ud"}) {
            set(lattice, side, 2);
        }
        set(node, "local", 0);
    }
    LatticePtr evaluated() { return latticeOf(graph.data(plug(lattice, "latticeOutput"))); }

    Node& source = makeTriangle("source");
    Node& shown = makeMesh("shown");
    Node& latticeTransform = make("transform", "ffd1Lattice");
    Node& lattice = make("lattice", "ffd1LatticeShape", &latticeTransform);
    Node& base = make("transform", "ffd1Base");
    Node& node = make("ffd", "ffd1");
};

TEST_F(Ffd, LeavesWhatItsLatticeLeaves) {
    EXPECT_EQ(points(shown), points(source));
    EXPECT_EQ(evaluated()->points.size(), 8U);
}

TEST_F(Ffd, MovesWithTheWholeLattice) {
    set3(latticeTransform, "translate", 0, 0, 3);
    EXPECT_THAT(points(shown), ElementsAre(V3f(0, 0, 3), V3f(1, 0, 3), V3f(0, 1, 3)));
}

TEST_F(Ffd, LeavesPointsOutsideOfTheLattice) {
    set3(latticeTransform, "translate", 0, 0, 3);
    set3(base, "translate", 0.5, 0, 0);
    set3(base, "scale", 1, 1, 1);
    EXPECT_THAT(points(shown), ElementsAre(V3f(-1, 0, 3), V3f(1, 0, 3), V3f(0, 1, 0)));
}

// One corner of the cube moves by 8 in its own space: the middle of the cube goes an eighth of that.
TEST_F(Ffd, MixesThePointsOfTheLattice) {
    LatticeData moved = LatticeData::regular(2, 2, 2);
    moved.points[7] += V3d(8, 0, 0);
    EXPECT_EQ(graph.setData(plug(lattice, "cached"), std::make_shared<LatticeData>(moved)).error, "");
    EXPECT_THAT(points(shown), ElementsAre(V3f(2, 0, 0), V3f(5, 0, 0), V3f(4, 1, 0)));
    setRows(lattice, "controlPoints", {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -8, 0, 0});
    EXPECT_EQ(points(shown), points(source)) << "control points add to what is stored";
}

TEST_F(Ffd, FollowsDeformersOfItsLattice) {
    Node& original = make("lattice", "original", &latticeTransform);
    for (const char* side : {"sd", "td", "ud"}) {
        set(original, side, 2);
    }
    Node& cluster = make("cluster", "cluster1");
    Node& parts = make("groupParts", "parts");
    Node& group = make("groupId", "group");
    setComponents(parts, "inputComponents", {"pt[1][1][1]"});
    connect(group, "groupId", parts, "groupId");
    connect(group, "groupId", cluster, "input[0].groupId");
    connect(original, "lo", parts, "inputGeometry");
    connect(parts, "outputGeometry", cluster, "input[0].inputGeometry");
    connect(cluster, "outputGeometry[0]", lattice, "latticeInput");
    setMatrix(cluster, "matrix", moved(8, 0, 0));
    EXPECT_THAT(points(shown), ElementsAre(V3f(2, 0, 0), V3f(5, 0, 0), V3f(4, 1, 0)));
    set(cluster, "envelope", 0.5);
    EXPECT_EQ(evaluated()->points[7], V3d(4.5, 0.5, 0.5));
    EXPECT_EQ(evaluated()->points[6], V3d(-0.5, 0.5, 0.5)) << "no member";
}

TEST_F(Ffd, SaysThatLatticesAreNoTargets) {
    Node& original = make("lattice", "original", &latticeTransform);
    Node& blend = make("blendShape", "blend1");
    connect(original, "lo", blend, "input[0].inputGeometry");
    connect(blend, "outputGeometry[0]", lattice, "latticeInput");
    EXPECT_EQ(evaluated()->points.size(), 20U);
    EXPECT_THAT(warnings, ElementsAre("blend1: targets that are lattices are not supported (the lattice keeps its "
                                      "shape)"));
}

TEST_F(Ffd, TellsWhatItCannotDo) {
    EXPECT_EQ(limitOfFfd(graph, node), "");
    set(node, "local", 1);
    set(lattice, "td", 5);
    EXPECT_EQ(limitOfFfd(graph, node), "") << "no polynomial bends a regular lattice";
    LatticeData bent = LatticeData::regular(2, 5, 2);
    bent.points[5].x += 1;
    EXPECT_EQ(graph.setData(plug(lattice, "cached"), std::make_shared<LatticeData>(bent)).error, "");
    EXPECT_EQ(limitOfFfd(graph, node), " with local influence");
    set(node, "localInfluenceT", 5);
    EXPECT_EQ(limitOfFfd(graph, node), "") << "every point counts";
    set(node, "outsideLattice", 1);
    EXPECT_EQ(limitOfFfd(graph, node), " that deforms points outside the lattice");
}

TEST_F(Ffd, TellsOfALatticeThatMayBend) {
    set(node, "local", 1);
    set(lattice, "td", 5);
    connect(make("animCurveTL", "curve"), "o", lattice, "controlPoints[3].xValue");
    EXPECT_EQ(limitOfFfd(graph, node), " with local influence");
}

} // namespace
} // namespace host
