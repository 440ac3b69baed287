#include "geometry/DeformerGuard.h"

#include "HostSession.h"
#include "sceneText.h"
#include "shadingText.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class DeformerGuards : public testing::Test {
protected:
    std::string state(const std::string& node) { return session.mel("getAttr " + node + ".nodeState"); }

    HostSession session;
};

TEST_F(DeformerGuards, SwitchOffAndPutBack) {
    session.open(nodeText("skinCluster", "a") + nodeText("skinCluster", "b", "", "setAttr \".nds\" 2;") +
                 nodeText("cluster", "c", "", "setAttr \".nds\" 1;"));
    {
        const DeformerGuard guard({session.node("a"), session.node("b"), session.node("c")});
        EXPECT_TRUE(guard.areAllOff());
        EXPECT_EQ(state("a"), "1");
        EXPECT_EQ(state("b"), "1");
        EXPECT_EQ(state("c"), "1");
    }
    EXPECT_EQ(state("a"), "0");
    EXPECT_EQ(state("b"), "2");
    EXPECT_EQ(state("c"), "1");
}

TEST_F(DeformerGuards, TellOfLockedStatesAndPutTheOthersBack) {
    session.open(nodeText("skinCluster", "a") + nodeText("skinCluster", "b", "", "setAttr -l on \".nds\";"));
    {
        const DeformerGuard guard({session.node("a"), session.node("b")});
        EXPECT_FALSE(guard.areAllOff());
        EXPECT_EQ(state("a"), "1");
        EXPECT_EQ(state("b"), "0");
    }
    EXPECT_EQ(state("a"), "0");
}

TEST_F(DeformerGuards, TellOfStatesThatAreConnected) {
    session.open(nodeText("skinCluster", "a") + nodeText("transform", "t", "", "setAttr \".v\" no;") +
                 connectText("t.v", "a.nds"));
    {
        const DeformerGuard guard({session.node("a")});
        EXPECT_FALSE(guard.areAllOff());
    }
    EXPECT_EQ(state("a"), "0");
}

TEST_F(DeformerGuards, OfNoDeformersAreContent) {
    EXPECT_TRUE(DeformerGuard({}).areAllOff());
}

} // namespace
} // namespace tvk
