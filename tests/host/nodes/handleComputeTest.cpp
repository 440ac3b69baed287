#include "host/nodes/handleCompute.h"

#include "MeshFixture.h"

#include "host/nodes/deformerSpaces.h"

#include <gmock/gmock.h>

namespace host {
namespace {

using Imath::V3f;
using testing::ElementsAre;
using testing::IsEmpty;

/// The triangle 0, x, y behind a nonLinear with a handle of its own.
class NonLinear : public MeshFixture {
protected:
    NonLinear() {
        connect(source, "worldMesh[0]", node, "input[0].inputGeometry");
        connect(node, "outputGeometry[0]", shown, "inMesh");
    }
    Node& addHandle(const char* type) {
        Node& handle = make("transform", "handle");
        Node& shape = make(type, "handleShape", &handle);
        connect(shape, "dd", node, "dd");
        connect(handle, "wm[0]", node, "ma");
        return shape;
    }
    void expectPoints(const std::vector<V3f>& expected) {
        const Points actual = points(shown);
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_TRUE(actual[i].equalWithAbsError(expected[i], 1e-6F))
                << i << ": " << actual[i].x << " " << actual[i].y << " " << actual[i].z;
        }
    }

    Node& source = makeTriangle("source");
    Node& shown = makeMesh("shown");
    Node& node = make("nonLinear", "bend1");
};

TEST_F(NonLinear, WithoutAHandleMovesNothing) {
    expectPoints({V3f(0, 0, 0), V3f(1, 0, 0), V3f(0, 1, 0)});
}

TEST_F(NonLinear, Bends) {
    Node& handle = addHandle("deformBend");
    set(handle, "curvature", 90 * kDegree);
    const auto radius = static_cast<float>(2 / 3.14159265358979);
    expectPoints({V3f(0, 0, 0), V3f(1, 0, 0), V3f(radius, radius, 0)});
    set(handle, "curvature", 0);
    expectPoints({V3f(0, 0, 0), V3f(1, 0, 0), V3f(0, 1, 0)});
}

TEST_F(NonLinear, TwistsAndSaysWhichWay) {
    Node& handle = addHandle("deformTwist");
    EXPECT_EQ(points(shown).size(), 3U);
    EXPECT_THAT(warnings, IsEmpty());
    set(handle, "startAngle", 90 * kDegree);
    set(handle, "endAngle", 90 * kDegree);
    expectPoints({V3f(0, 0, 0), V3f(0, 0, -1), V3f(0, 1, 0)});
    EXPECT_THAT(warnings, ElementsAre("handleShape: a twist is taken to turn as rotateY does; compare it with Maya"));
}

TEST_F(NonLinear, Flares) {
    Node& handle = addHandle("deformFlare");
    set(handle, "startFlareX", 1);
    set(handle, "endFlareX", 5);
    expectPoints({V3f(0, 0, 0), V3f(3, 0, 0), V3f(0, 1, 0)});
}

TEST_F(NonLinear, WorksInTheSpaceOfItsHandle) {
    Node& handle = addHandle("deformFlare");
    set(handle, "endFlareX", 3);
    set(handle, "startFlareX", 3);
    set3(*handle.parents().front(), "translate", 1, 0, 0);
    expectPoints({V3f(-2, 0, 0), V3f(1, 0, 0), V3f(-2, 1, 0)});
}

TEST_F(NonLinear, KnowsWhereTheMeshStands) {
    Node& handle = addHandle("deformFlare");
    set(handle, "endFlareX", 3);
    set(handle, "startFlareX", 3);
    Node& body = *shown.parents().front();
    set3(body, "translate", 10, 0, 0);
    tieDeformerSpaces(graph);
    expectPoints({V3f(20, 0, 0), V3f(23, 0, 0), V3f(20, 1, 0)});
    set3(body, "translate", 1, 0, 0);
    expectPoints({V3f(2, 0, 0), V3f(5, 0, 0), V3f(2, 1, 0)});
}

TEST_F(NonLinear, FindsTheMeshBehindOtherDeformers) {
    Node& tweak = make("tweak", "tweak1");
    const Plug end = plug(shown, "inMesh");
    ASSERT_EQ(graph.disconnect(graph.sourceOf(end), end).error, "");
    connect(node, "outputGeometry[0]", tweak, "input[0].inputGeometry");
    connect(tweak, "outputGeometry[0]", shown, "inMesh");
    set3(*shown.parents().front(), "translate", 1, 0, 0);
    tieDeformerSpaces(graph);
    EXPECT_EQ(graph.matrix(plug(node, "shapeSpace[0]")), moved(1, 0, 0));
}

TEST_F(NonLinear, WeighsItsPoints) {
    Node& handle = addHandle("deformFlare");
    set(handle, "startFlareX", 5);
    set(handle, "endFlareX", 5);
    setRows(node, "weightList[0].weights", {1, 0.5, 1});
    expectPoints({V3f(0, 0, 0), V3f(3, 0, 0), V3f(0, 1, 0)});
}

TEST_F(NonLinear, TellsWhatItCannotDo) {
    EXPECT_EQ(limitOfNonLinear(graph, node), "");
    Node& flare = addHandle("deformFlare");
    EXPECT_EQ(limitOfNonLinear(graph, node), "");
    set(flare, "curve", 0.5);
    EXPECT_EQ(limitOfNonLinear(graph, node), " with a curved flare");
    for (const char* type : {"deformSine", "deformSquash", "deformWave"}) {
        Node& other = make("nonLinear", "other");
        Node& shape = make(type, "shape", &make("transform", "t"));
        connect(shape, "dd", other, "dd");
        EXPECT_EQ(limitOfNonLinear(graph, other), " with a handle of type '" + std::string(type) + "'");
    }
}

} // namespace
} // namespace host
