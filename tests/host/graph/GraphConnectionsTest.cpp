#include "TinyTypes.h"

using namespace host;

namespace {

using GraphConnectionsTest = TinyScene;

struct Pair {
    const char* source;
    const char* destination;
    bool fits;
};

/// Between two holders.
constexpr Pair kPairs[] = {
    {"real", "length", true},
    {"angle", "when", true},
    {"flag", "choice", true},
    {"ratio", "byte", true},
    {"text", "text", true},
    {"text", "real", false},
    {"real", "text", false},
    {"frame", "frame", true},
    {"frame", "real", false},
    {"frame", "matrices[2]", true},
    {"mesh", "mesh", true},
    {"mesh", "curve", false},
    {"mesh", "real", false},
    {"message", "target", true},
    {"message", "members[7]", true},
    {"message", "any", true},
    {"message", "real", false},
    {"message", "translate", false},
    {"real", "target", false},
    {"instObjGroups[0]", "members[0]", true},
    {"instObjGroups[0].objectGroups[3]", "members[0]", true},
    {"any", "mesh", true},
    {"mesh", "any", true},
    {"real", "any", true},
    {"translate", "translate", true},
    {"translate", "points[4]", true},
    {"translate", "pair", false},
    {"translate", "real", false},
    {"real", "translate", false},
    {"translateX", "pairA", true},
    {"points", "points", true},
    {"points", "translate", false},
    {"points[1]", "points", false},
};

} // namespace

TEST_F(GraphConnectionsTest, OnlyKindsThatFitAreConnected) {
    for (const Pair& each : kPairs) {
        SCOPED_TRACE(std::string(each.source) + " -> " + each.destination);
        Node& a = make("holder", "a");
        Node& b = make("holder", "b");
        const std::string error = tryConnect(a, each.source, b, each.destination);
        const std::string refusal =
            "a." + std::string(each.source) + " and b." + each.destination + " hold different kinds of value";
        EXPECT_EQ(error, each.fits ? "" : refusal);
        EXPECT_EQ(static_cast<bool>(graph.sourceOf(plug(b, each.destination))), each.fits);
    }
}

TEST_F(GraphConnectionsTest, RefusesEndsThatAreNone) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    EXPECT_EQ(tryConnect(a, "nothing", b, "real"), "There is no such plug to connect");
    EXPECT_EQ(tryConnect(a, "real", b, "nothing"), "There is no such plug to connect");
    EXPECT_EQ(tryConnect(a, "weights", b, "numbers"), "a.weightList.weights names no element of its array");
    EXPECT_EQ(tryConnect(a, "secret", b, "real"), "a.secret cannot be the source of a connection");
    EXPECT_EQ(tryConnect(a, "real", b, "fixed"), "b.fixed cannot be the destination of this connection");
    EXPECT_EQ(tryConnect(a, "real", a, "real"), "a.real cannot be the destination of this connection");
    EXPECT_EQ(tryConnect(a, "real", b, "numbers"), "a.real and b.numbers hold different kinds of value");
}

TEST_F(GraphConnectionsTest, RefusesLockedDestinations) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    PlugFlags locked;
    locked.locked = true;
    graph.setFlags(plug(b, "translate"), locked);
    EXPECT_EQ(tryConnect(a, "real", b, "tx"), "b.translateX is locked");
    EXPECT_EQ(tryConnect(a, "translate", b, "translate", true), "b.translate is locked");
    EXPECT_TRUE(graph.isLocked(plug(b, "tz")));
    EXPECT_FALSE(graph.isLocked(plug(b, "real")));
}

TEST_F(GraphConnectionsTest, ReplacesASourceOnlyWithForce) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    set(a, "real", 1.0);
    set(a, "length", 2.0);
    connect(a, "real", b, "real");
    connect(a, "real", b, "real"); // the same again
    EXPECT_EQ(b.incoming().size(), 1U);
    EXPECT_EQ(a.outgoing().size(), 1U);
    EXPECT_EQ(tryConnect(a, "length", b, "real"), "b.real is connected to a.real already");
    EXPECT_EQ(number(b, "real"), 1.0);
    EXPECT_EQ(tryConnect(a, "length", b, "real", true), "");
    EXPECT_EQ(number(b, "real"), 2.0);
    EXPECT_TRUE(graph.destinationsOf(plug(a, "real")).empty());
}

TEST_F(GraphConnectionsTest, DisconnectsExactlyWhatIsConnected) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    set(a, "real", 1.0);
    set(b, "real", 5.0);
    connect(a, "real", b, "real");
    EXPECT_EQ(graph.disconnect(plug(a, "length"), plug(b, "real")).error, "a.length is not connected to b.real");
    EXPECT_EQ(graph.disconnect(plug(a, "real"), plug(b, "length")).error, "a.real is not connected to b.length");
    EXPECT_EQ(graph.disconnect({}, plug(b, "real")).error, "nothing is not connected to b.real");
    EXPECT_EQ(graph.disconnect(plug(a, "real"), plug(b, "real")).error, "");
    EXPECT_EQ(number(b, "real"), 5.0);
    EXPECT_TRUE(a.outgoing().empty());
    EXPECT_TRUE(b.incoming().empty());
}

TEST_F(GraphConnectionsTest, OneSourceKeepsTheOrderOfItsDestinations) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    for (const char* to : {"when", "angle", "length"}) {
        connect(a, "real", b, to);
    }
    EXPECT_EQ(graph.destinationsOf(plug(a, "real")),
              (std::vector<Plug>{plug(b, "when"), plug(b, "angle"), plug(b, "length")}));
}

TEST_F(GraphConnectionsTest, AConnectionOfACompoundDrivesItsChildren) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    connect(a, "translate", b, "points[4]");
    EXPECT_EQ(graph.sourceOf(plug(b, "points[4].pointsY")), Plug());
    EXPECT_EQ(graph.drivingSource(plug(b, "points[4].pointsY")), plug(a, "translateY"));
    EXPECT_EQ(graph.drivingSource(plug(b, "points[3].pointsY")), Plug());
    connect(a, "real", b, "points[4].pointsY"); // its own connection is nearer
    EXPECT_EQ(graph.drivingSource(plug(b, "points[4].pointsY")), plug(a, "real"));
    EXPECT_EQ(graph.drivingSource(plug(b, "points[4].pointsX")), plug(a, "translateX"));
}

TEST_F(GraphConnectionsTest, AConnectionOfAnArrayDrivesItsElements) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    connect(a, "weightList", b, "weightList");
    EXPECT_EQ(graph.drivingSource(plug(b, "wl[3].w[9]")), plug(a, "wl[3].w[9]"));
    set(a, "wl[3].w[9]", 0.5);
    EXPECT_EQ(number(b, "wl[3].w[9]"), 0.5);
}

TEST_F(GraphConnectionsTest, TellsWhetherAnythingDrivesAPlug) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    connect(a, "real", b, "points[4].pointsY");
    for (const char* path : {"points", "points[4]", "points[4].pointsY"}) {
        EXPECT_TRUE(graph.isDriven(plug(b, path))) << path;
    }
    for (const char* path : {"points[3]", "points[4].pointsX", "numbers", "translate"}) {
        EXPECT_FALSE(graph.isDriven(plug(b, path))) << path;
    }
    connect(a, "translate", b, "translate");
    EXPECT_TRUE(graph.isDriven(plug(b, "tx")));
    EXPECT_FALSE(graph.isDriven({}));
}

TEST_F(GraphConnectionsTest, ElementsExistWhenStoredOrConnected) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    set(b, "points[9].pointsX", 1.0);
    connect(a, "real", b, "points[4].pointsY");
    connect(b, "points[6]", a, "translate");
    EXPECT_EQ(graph.elementIndices(plug(b, "points")), (std::vector<std::int32_t>{4, 6, 9}));
    EXPECT_TRUE(graph.elementIndices(plug(b, "real")).empty());
    EXPECT_TRUE(graph.elementIndices({}).empty());
}

TEST_F(GraphConnectionsTest, TheNextFreeElementIsTheLowest) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    const Plug members = plug(b, "members");
    EXPECT_EQ(graph.nextAvailableIndex(members), 0);
    EXPECT_EQ(graph.nextAvailableIndex(members), 0);
    connect(a, "message", b, "members[0]");
    connect(a, "message", b, "members[2]");
    EXPECT_EQ(graph.nextAvailableIndex(members), 1);
    connect(a, "message", b, "members[1]");
    EXPECT_EQ(graph.nextAvailableIndex(members), 3);
    EXPECT_TRUE(graph.disconnect(plug(a, "message"), plug(b, "members[1]")).ok());
    EXPECT_EQ(graph.nextAvailableIndex(members), 1);
    connect(a, "message", b, "members[1]");
    EXPECT_EQ(graph.nextAvailableIndex(members), 3);
    set(b, "numbers[0]", 4.0);
    EXPECT_EQ(graph.nextAvailableIndex(plug(b, "numbers")), 1);
    EXPECT_EQ(graph.nextAvailableIndex(plug(b, "weightList[2].weights")), 0);
    EXPECT_EQ(graph.nextAvailableIndex(plug(b, "real")), 0);
}

TEST_F(GraphConnectionsTest, AnElementThatLosesItsLastDestinationIsFree) {
    Node& a = make("holder", "a");
    Node& b = make("holder", "b");
    connect(b, "numbers[0]", a, "real");
    connect(b, "numbers[1]", a, "length");
    EXPECT_EQ(graph.nextAvailableIndex(plug(b, "numbers")), 2);
    EXPECT_TRUE(graph.disconnect(plug(b, "numbers[0]"), plug(a, "real")).ok());
    EXPECT_EQ(graph.nextAvailableIndex(plug(b, "numbers")), 0);
    EXPECT_EQ(tryConnect(b, "numbers[0]", a, "length", true), "");
    graph.destroy(a);
    EXPECT_EQ(graph.nextAvailableIndex(plug(b, "numbers")), 0);
    EXPECT_TRUE(graph.elementIndices(plug(b, "numbers")).empty());
}

TEST_F(GraphConnectionsTest, FreeElementsAreFoundAmongManyMembers) {
    constexpr std::int32_t kCount = 100000;
    Node& set = make("holder", "set");
    const Plug members = plug(set, "members");
    std::vector<NodeId> ids;
    for (std::int32_t i = 0; i < kCount; ++i) {
        Node& member = make("holder", "m");
        ids.push_back(member.id());
        const std::int32_t index = graph.nextAvailableIndex(members);
        ASSERT_EQ(index, i);
        ASSERT_TRUE(graph.connect(plug(member, "message"), {&set, members.at.element(index)}, false).ok());
    }
    // One leaves and one comes, again and again.
    for (std::int32_t i = 0; i < kCount; ++i) {
        graph.destroy(*graph.node(ids[static_cast<std::size_t>(i)]));
        ASSERT_EQ(graph.nextAvailableIndex(members), i);
        Node& member = make("holder", "m");
        ASSERT_TRUE(graph.connect(plug(member, "message"), {&set, members.at.element(i)}, false).ok());
    }
    EXPECT_EQ(graph.nextAvailableIndex(members), kCount);
}
