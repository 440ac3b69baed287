#include "geometry/nodeReferences.h"

#include "geometry/MatrixPalette.h"

#include <gtest/gtest.h>

#include <memory>

namespace tvk {
namespace {

class NodeReferences : public testing::Test {
protected:
    NodeReferences() {
        for (int32_t i = 0; i < 4; ++i) {
            scene.nodes.push_back(std::make_unique<NodeRecord>());
            scene.nodes.back()->index = 10 + i;
        }
        MatrixPalette palette(scene.matrices, scene.envelope);
        palette.findOrAddMatrix(node(2));
        palette.findOrAdd({{40, &node(1), -1}, {60, &node(3), -1}});
    }
    NodeRecord& node(std::size_t i) { return *scene.nodes[i]; }

    SceneData scene;
};

TEST_F(NodeReferences, MarkExactlyTheNodesOfMatricesAndBlends) {
    node(0).drawMtx = true;
    markMatrixNodes(scene);
    EXPECT_FALSE(node(0).drawMtx);
    EXPECT_TRUE(node(1).drawMtx);
    EXPECT_TRUE(node(2).drawMtx);
    EXPECT_TRUE(node(3).drawMtx);
}

TEST_F(NodeReferences, BecomeOutputIndicesInUnchangedOrder) {
    scene.polygons.emplace_back().node = &node(0);
    resolveNodeReferences(scene);
    EXPECT_EQ(scene.matrices[0].nodeIndex, 12);
    EXPECT_EQ(scene.matrices[1].nodeIndex, -1);
    EXPECT_EQ(scene.envelope[0].nodeIndex, 11);
    EXPECT_EQ(scene.envelope[1].nodeIndex, 13);
    EXPECT_EQ(scene.polygons[0].nodeIndex, 10);
}

} // namespace
} // namespace tvk
