#include <maya/MItDependencyNodes.h>

#include "HostTest.h"

#include <maya/MFnDependencyNode.h>

namespace host {
namespace {

using testing::ElementsAre;

class MItDependencyNodesTest : public HostTest {
protected:
    static std::vector<std::string> walk(MItDependencyNodes& iterator) {
        std::vector<std::string> names;
        for (; !iterator.isDone(); iterator.next()) {
            names.emplace_back(MFnDependencyNode(iterator.thisNode()).name().asChar());
        }
        return names;
    }
};

TEST_F(MItDependencyNodesTest, nodesOfOneTypeInTheOrderOfMaking) {
    run("createNode file -n z; createNode transform -n t; createNode file -n a");
    MItDependencyNodes files(MFn::kFileTexture);
    EXPECT_THAT(walk(files), ElementsAre("z", "a"));
    EXPECT_EQ(files.reset(MFn::kCharacter), MStatus::kSuccess);
    EXPECT_TRUE(files.isDone());
    MIteratorType types;
    MIntArray list;
    list.append(MFn::kFileTexture);
    list.append(MFn::kTransform);
    types.setFilterList(list);
    MItDependencyNodes several(types);
    const std::vector<std::string> names = walk(several);
    EXPECT_EQ(names.back(), "a");
    EXPECT_EQ(names.front(), "persp");
}

TEST_F(MItDependencyNodesTest, everythingWithoutAFilter) {
    MItDependencyNodes all;
    unsigned int count = 0;
    for (; !all.isDone(); all.next()) {
        ++count;
        EXPECT_FALSE(all.item().isNull());
    }
    EXPECT_EQ(count, host.graph().nodes().size());
}

TEST_F(MItDependencyNodesTest, deletedNodesAreSkipped) {
    run("createNode file -n a; createNode file -n b; createNode file -n c");
    MItDependencyNodes files(MFn::kFileTexture);
    run("delete b");
    EXPECT_THAT(walk(files), ElementsAre("a", "c"));
    EXPECT_EQ(files.next(), MStatus::kFailure);
    MStatus status;
    EXPECT_TRUE(files.thisNode(&status).isNull());
    EXPECT_EQ(status, MStatus::kFailure);
}

} // namespace
} // namespace host
