#include "host/geometry/meshComponents.h"

#include "TestMeshes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ComponentList list(const std::vector<std::string>& words) {
    std::vector<ComponentRange> ranges(words.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        EXPECT_TRUE(parseComponent(words[i], ranges[i])) << words[i];
    }
    return ComponentList(std::move(ranges));
}

/// Two triangles: edges 0-1 1-2 2-0 1-3 3-2.
class MeshComponents : public testing::Test {
protected:
    std::shared_ptr<const MeshTopology> topology = meshOfFaces(Points(4), {{0, 1, 2}, {2, 1, 3}})->topology;
};

TEST_F(MeshComponents, LeavesOutWhatIsNotThere) {
    EXPECT_THAT(namedVertices(list({"vtx[3:9]", "f[7]", "e[50]"}), *topology), ElementsAre(false, false, false, true));
    EXPECT_THAT(namedFaces(list({"f[2:5]", "vtx[*]"}), *topology), ElementsAre(false, false));
    EXPECT_THAT(namedFaces(list({"f[*]"}), *MeshTopology::empty()), IsEmpty());
}

TEST_F(MeshComponents, NamesVerticesOfEdgesAndFaces) {
    EXPECT_THAT(namedVertices(list({"e[2]"}), *topology), ElementsAre(true, false, true, false));
    EXPECT_THAT(namedVertices(list({"f[1]"}), *topology), ElementsAre(false, true, true, true));
    EXPECT_THAT(namedVertices(list({"vtx[*]"}), *topology), ElementsAre(true, true, true, true));
}

TEST_F(MeshComponents, NamesEdgesOfFaces) {
    EXPECT_THAT(namedEdges(list({"f[0]", "e[4]"}), *topology), ElementsAre(true, true, true, false, true));
}

TEST_F(MeshComponents, ListsIndicesInOrder) {
    const ComponentList given = list({"vtx[3]", "f[0]", "vtx[0:1]", "vtx[3]", "vtx[9]"});
    EXPECT_THAT(listedIndices(given, ComponentKind::kVertex, 4, 100), ElementsAre(3, 0, 1, 3));
    EXPECT_THAT(listedIndices(given, ComponentKind::kVertex, 4, 2), ElementsAre(3, 0));
}

} // namespace

} // namespace host
