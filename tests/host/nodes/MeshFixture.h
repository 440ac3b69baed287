#pragma once

#include "GraphFixture.h"

#include "host/geometry/PolyFacesBuilder.h"
#include "host/nodes/meshQueries.h"

#include <string>
#include <vector>

namespace host {

/// A graph with short ways to build shapes in it, and what it said.
class MeshFixture : public GraphFixture {
protected:
    MeshFixture() {
        graph.onWarning = [this](const std::string& line) { warnings.push_back(line); };
    }

    Node& makeMesh(const char* name) { return make("mesh", name, &make("transform", "t")); }
    void setRows(Node& node, const std::string& path, const std::vector<double>& values) {
        NumberRows& rows = graph.rowsForWriting(plug(node, path));
        const auto width = static_cast<std::size_t>(rows.width());
        for (std::size_t i = 0; i * width < values.size(); ++i) {
            rows.makeRow(static_cast<std::int32_t>(i), values.data() + i * width);
        }
        graph.changed(plug(node, path));
    }
    void setFaces(Node& node, const std::vector<std::vector<std::int32_t>>& faces) {
        PolyFacesBuilder builder;
        for (const auto& face : faces) {
            ASSERT_TRUE(builder.token("f") && builder.number(static_cast<std::int32_t>(face.size())));
            for (const std::int32_t edge : face) {
                ASSERT_TRUE(builder.number(edge));
            }
        }
        EXPECT_EQ(graph.setData(plug(node, "face[0]"), builder.finish()).error, "");
    }
    /// One triangle at 0, x and y.
    Node& makeTriangle(const char* name = "triangle") {
        Node& node = makeMesh(name);
        setRows(node, "vrts", {0, 0, 0, 1, 0, 0, 0, 1, 0});
        setRows(node, "edge", {0, 1, 1, 1, 2, 1, 2, 0, 1});
        setFaces(node, {{0, 1, 2}});
        return node;
    }
    Points points(Node& node) { return *evaluatedMesh(graph, node)->points; }
    void setMatrix(Node& node, const std::string& path, const Matrix44& value) {
        EXPECT_EQ(graph.setMatrix(plug(node, path), value).error, "");
    }
    void setComponents(Node& node, const std::string& path, const std::vector<std::string>& words) {
        std::vector<ComponentRange> ranges(words.size());
        for (std::size_t i = 0; i < words.size(); ++i) {
            EXPECT_TRUE(parseComponent(words[i], ranges[i])) << words[i];
        }
        EXPECT_EQ(graph.setData(plug(node, path), std::make_shared<ComponentList>(std::move(ranges))).error, "");
    }
    static Matrix44 moved(double x, double y, double z) { return Matrix44().setTranslation(Imath::V3d(x, y, z)); }

    std::vector<std::string> warnings;
};

} // namespace host
