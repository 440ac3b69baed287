#include "geometry/polygonWriter.h"

#include "FreshRun.h"
#include "common/numberText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>

namespace tvk {
namespace {

using testing::HasSubstr;

std::string written() {
    std::ostringstream out;
    setupStream(out);
    EXPECT_TRUE(writePolygonArray(out));
    return out.str();
}

/// A polygon of separate triangles, one per matrix, which the given node draws.
PolygonRecord& addTriangles(const std::string& name, const std::vector<int32_t>& matrices, NodeRecord* node = nullptr) {
    SceneData& scene = run().scene;
    PolygonRecord& polygon = scene.polygons.emplace_back();
    polygon.name = name;
    polygon.node = node;
    for (const int32_t matrix : matrices) {
        for (int32_t i = 0; i < 3; ++i) {
            Corner corner;
            corner.matrix = matrix;
            corner.position = scene.tables.positions.size();
            const auto place = static_cast<int16_t>(scene.tables.positions.size());
            scene.tables.positions.findOrAdd({place, static_cast<int16_t>(place * place), 1});
            polygon.faces.corners.push_back(corner);
        }
        polygon.faces.sizes.push_back(3);
        ++polygon.triangleCount;
        ++scene.gatheredTriangles;
    }
    return polygon;
}

class PolygonArray : public testing::Test {
protected:
    PolygonArray() {
        run().scene.materials.resize(2);
        run().scene.materials[0].outputIndex = 1;
        run().scene.materials[1].outputIndex = 0;
    }
    FreshRun fresh;
};

TEST_F(PolygonArray, OfAModelWithoutPolygonsHasSizeZeroAndNoChildren) {
    EXPECT_EQ(written(), "<polygon_array size=\"0\">\n</polygon_array>\n\n");
}

TEST_F(PolygonArray, SpreadsAPolygonOverLines) {
    PolygonRecord& polygon = addTriangles("bodyShape", {0});
    polygon.volumeMin = {-1, 0, -100};
    polygon.volumeMax = {1, 2, 100};
    polygon.volumeRadius = 100;
    run().options.rawValues = true;
    EXPECT_EQ(written(), "<polygon_array size=\"1\">\n"
                         "\t<polygon index=\"0\" name=\"bodyShape\"\n"
                         "\t\tvertex_size=\"3\" polygon_size=\"1\"\n"
                         "\t\ttriangle_size=\"1\" quad_size=\"0\"\n"
                         "\t\tvolume_min=\"-4096 0 -32768\"\n"
                         "\t\tvolume_max=\"4096 8192 32767\"\n"
                         "\t\tvolume_r=\"409600\"\n"
                         "\t\tmtx_prim_size=\"1\"\n"
                         "\t\tnrm_flag=\"off\" clr_flag=\"off\" tex_flag=\"off\"\n"
                         "\t>\n"
                         "\t\t<mtx_prim index=\"0\">\n"
                         "\t\t\t<mtx_list size=\"1\">0</mtx_list>\n"
                         "\t\t\t<primitive_array size=\"1\">\n"
                         "\t\t\t\t<primitive index=\"0\" type=\"triangles\" vertex_size=\"3\">\n"
                         "\t\t\t\t\t<pos_xyz xyz=\"0 0 1\"/>\n"
                         "\t\t\t\t\t<pos_xy xy=\"1 1\"/>\n"
                         "\t\t\t\t\t<pos_xy xy=\"2 4\"/>\n"
                         "\t\t\t\t</primitive>\n"
                         "\t\t\t</primitive_array>\n"
                         "\t\t</mtx_prim>\n"
                         "\t</polygon>\n"
                         "</polygon_array>\n\n");
    EXPECT_EQ(fresh.messages(), "");
}

TEST_F(PolygonArray, DroppedPolygonsAreSkippedAndNotCounted) {
    addTriangles("first", {0});
    addTriangles("gone", {0}).dropped = true;
    addTriangles("last", {0});
    const std::string text = written();
    EXPECT_THAT(text, testing::StartsWith("<polygon_array size=\"2\">\n"));
    EXPECT_THAT(text, HasSubstr("<polygon index=\"1\" name=\"last\""));
    EXPECT_EQ(text.find("gone"), std::string::npos);
    EXPECT_EQ(run().scene.triangleTotal, 2);
}

TEST_F(PolygonArray, TellsNodesWhatTheyDraw) {
    NodeRecord node;
    addTriangles("a", {0, 0}, &node).material = 1;
    PolygonRecord& second = addTriangles("b", {0}, &node);
    second.renderPriority = 9;
    addTriangles("other", {0});
    written();
    ASSERT_EQ(node.displayList.size(), 2U);
    EXPECT_EQ(node.displayList[0].material, 0);
    EXPECT_EQ(node.displayList[1].material, 1);
    EXPECT_EQ(node.displayList[1].polygon, 1);
    EXPECT_EQ(node.displayList[1].priority, 9);
    EXPECT_EQ(node.triangleSize, 3);
    EXPECT_EQ(node.polygonSize, 3);
    EXPECT_EQ(node.vertexSize, 9);
    EXPECT_EQ(run().scene.vertexTotal, 12);
}

TEST_F(PolygonArray, MatrixCommandsComeWithMoreThanOneMatrix) {
    addTriangles("single", {4, 4});
    addTriangles("several", {4, 5});
    const std::string text = written();
    const std::size_t second = text.find("several");
    EXPECT_EQ(text.substr(0, second).find("<mtx idx"), std::string::npos);
    EXPECT_THAT(text.substr(second), HasSubstr("<mtx_list size=\"2\">4 5</mtx_list>"));
    EXPECT_THAT(text.substr(second), HasSubstr("\t\t\t\t\t<mtx idx=\"0\"/>\n"));
    EXPECT_THAT(text.substr(second), HasSubstr("\t\t\t\t\t<mtx idx=\"1\"/>\n"));
}

TEST_F(PolygonArray, ALaterGroupLeavesMatricesThatAreHeldAndSaysSo) {
    std::vector<int32_t> matrices(40);
    for (std::size_t i = 0; i < matrices.size(); ++i) {
        matrices[i] = static_cast<int32_t>(i);
    }
    addTriangles("long", matrices);
    const std::string text = written();
    EXPECT_THAT(text, HasSubstr("mtx_prim_size=\"2\""));
    const std::size_t group = text.find("<mtx_prim index=\"1\">");
    ASSERT_NE(group, std::string::npos);
    const std::string list = text.substr(group, text.find("</mtx_list>", group) - group);
    EXPECT_THAT(list, HasSubstr("<mtx_list size=\"31\">"));
    EXPECT_EQ(std::count(list.begin(), list.end(), '-'), 31 - 9); // nine are loaded, the others stay
    EXPECT_EQ(fresh.messages(), "Warning: Mtx_prim_size of <polygon> is over 1: long\n");
}

TEST_F(PolygonArray, StripsAreMadeUnlessSwitchedOff) {
    PolygonRecord& polygon = addTriangles("pair", {0});
    polygon.faces.corners.insert(polygon.faces.corners.end(), {polygon.faces.corners[2], polygon.faces.corners[1]});
    Corner last;
    last.position = run().scene.tables.positions.findOrAdd({5, 6, 7});
    polygon.faces.corners.push_back(last);
    polygon.faces.sizes.push_back(3);
    run().options.usePrimitiveStrip = true;
    EXPECT_THAT(written(), HasSubstr("type=\"triangle_strip\" vertex_size=\"4\">"));
    run().options.usePrimitiveStrip = false;
    EXPECT_THAT(written(), HasSubstr("type=\"triangles\" vertex_size=\"6\">"));
}

// A total of exactly the limit is fine; one more is not.
TEST_F(PolygonArray, AVertexTotalOf6144DoesNotWarnOneMoreDoes) {
    run().scene.vertexTotal = 6144 - 3;
    addTriangles("a", {0});
    written();
    EXPECT_EQ(fresh.messages(), "");
    run().scene.vertexTotal = 6145 - 3;
    written();
    EXPECT_EQ(fresh.messages(), "Warning: Total vertex size over: 6145 / 6144\n");
}

TEST_F(PolygonArray, AWeightedPolygonSizeOf40960DoesNotWarnMoreDoes) {
    run().scene.triangleTotal = 2047; // with the one below 2048 * 20
    run().scene.polygonTotal = 2047;
    addTriangles("a", {0});
    written();
    EXPECT_EQ(fresh.messages(), "");
    run().scene.triangleTotal = 2047;
    run().scene.polygonTotal = 2048;
    run().scene.quadTotal = 1;
    written();
    EXPECT_EQ(fresh.messages(), "Warning: Total polygon size over: 2049 ( 2048 triangles, 1 quads)\n");
}

} // namespace
} // namespace tvk
