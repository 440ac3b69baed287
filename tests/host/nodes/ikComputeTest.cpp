#include "host/nodes/ikCompute.h"

#include "GraphFixture.h"

#include <vector>

namespace host {
namespace {

using Imath::V3d;

class IkHandles : public GraphFixture {
protected:
    /// A joint below `parent`, or below the world, that knows its parent's scale.
    Node& makeJoint(const char* name, Node* parent, const V3d& place) {
        Node& joint = make("joint", name, parent);
        set3(joint, "t", place.x, place.y, place.z);
        if (parent != nullptr && parent->type().isKindOf("joint")) {
            connect(*parent, "s", joint, "is");
        }
        return joint;
    }
    /// A handle from `start` to the place of `end`, below the world.
    Node& makeHandle(const char* solver, Node& start, Node& end) {
        Node& effector = make("ikEffector", "effector1", end.parents().front());
        connect(end, "t", effector, "t");
        Node& handle = make("ikHandle", "ikHandle1");
        connect(start, "msg", handle, "hsj");
        connect(effector, "hp", handle, "hee");
        connect(make(solver, "solver1"), "msg", handle, "hsv");
        return handle;
    }
    /// Upper arm 5, forearm 5, the elbow likes to bend by 20 degrees about z.
    Node& makeArm(const char* solver) {
        shoulder = &makeJoint("shoulder", nullptr, {0, 0, 0});
        elbow = &makeJoint("elbow", shoulder, {5, 0, 0});
        wrist = &makeJoint("wrist", elbow, {5, 0, 0});
        set3(*elbow, "pa", 0, 0, -20 * kDegree);
        Node& handle = makeHandle(solver, *shoulder, *wrist);
        tieIkChains(graph);
        return handle;
    }
    V3d origin(Node& node) {
        const Matrix44 world = matrix(node, "wm[0]");
        return {world[3][0], world[3][1], world[3][2]};
    }
    void expectAt(Node& node, const V3d& expected, const char* why = "") {
        const V3d actual = origin(node);
        EXPECT_LT((actual - expected).length(), 1e-7) << actual << " instead of " << expected << " " << why;
    }
    void expectDegrees(Node& joint, const V3d& expected, double tolerance, const char* why = "") {
        const V3d actual = V3d(number(joint, "rx"), number(joint, "ry"), number(joint, "rz")) / kDegree;
        EXPECT_LT((actual - expected).length(), tolerance) << actual << " instead of " << expected << " " << why;
    }

    Node* shoulder = nullptr;
    Node* elbow = nullptr;
    Node* wrist = nullptr;
};

// What the host itself solved and stored, for a chain and a handle of a real scene.
TEST_F(IkHandles, SolveAsTheHostStoredIt) {
    Node& joint1 = makeJoint("joint1", nullptr, {0.019505787300588828, 0, -0.020231899029152345});
    Node& joint2 = makeJoint("joint2", &joint1, {1.8202072563168847, 0, 2.7755575615628914e-16});
    Node& joint3 = makeJoint("joint3", &joint2, {2.1232561047443403, 0, -1.1171619185290638e-15});
    set3(joint1, "jo", 0, -6.2001900056254113 * kDegree, 0);
    set3(joint2, "jo", 0, 7.5523314331760796 * kDegree, 0);
    Node& handle = makeHandle("ikRPsolver", joint1, joint3);
    set3(handle, "pv", -0.074452937179399353, 1.7850079971217804e-09, 1.9986137095860652);
    set3(handle, "t", -3.9012512308195548, 0.4, -0.039999995549662576);
    tieIkChains(graph);
    // The host stops when the end is less than a millionth from its goal; so near to straight that shows in angles.
    const V3d start(0.41667044254269303, -7.997163072751122, 174.12845392577671);
    expectDegrees(joint1, start, 1e-3);
    expectDegrees(joint2, {0, -3.6214533162687599, 0}, 1e-3);
    // Where the joints hold what the host found, it stays.
    set3(joint1, "r", start.x * kDegree, start.y * kDegree, start.z * kDegree);
    set3(joint2, "r", 0, -3.6214533162687599 * kDegree, 0);
    expectDegrees(joint1, start, 1e-12);
    set(handle, "ty", 0.4001);
    EXPECT_GT(std::abs(number(joint1, "rz") - start.z * kDegree), 1e-5) << "and is solved again for another goal";
}

TEST_F(IkHandles, BringTheirEffectorToThemselvesOnTheSideOfThePole) {
    Node& handle = makeArm("ikRPsolver");
    set3(handle, "pv", 0, 0, 1);
    set3(handle, "t", 6, 0, 0);
    expectAt(*elbow, {3, 0, 4});
    expectAt(*wrist, {6, 0, 0});
    set3(handle, "pv", 0, 1, 0);
    expectAt(*elbow, {3, 4, 0}, "another pole");
    set(handle, "twist", 90 * kDegree);
    expectAt(*elbow, {3, 0, 4}, "twisted");
    set3(handle, "t", 0, 6, 0);
    expectAt(*wrist, {0, 6, 0}, "another place");
}

TEST_F(IkHandles, WorkInTheSpacesOfChainAndHandle) {
    Node& body = make("transform", "body");
    shoulder = &makeJoint("shoulder", &body, {0, 0, 0});
    elbow = &makeJoint("elbow", shoulder, {5, 0, 0});
    wrist = &makeJoint("wrist", elbow, {5, 0, 0});
    set3(*elbow, "pa", 0, 0, -20 * kDegree);
    Node& control = make("transform", "control");
    Node& handle = makeHandle("ikRPsolver", *shoulder, *wrist);
    ASSERT_EQ(graph.removeParent(handle, graph.world()).error, "");
    ASSERT_EQ(graph.addParent(handle, control).error, "");
    tieIkChains(graph);
    set3(handle, "pv", 0, 1, 0);
    set3(handle, "t", 6, 0, 0);
    expectAt(*elbow, {3, 4, 0});
    set3(body, "s", 2, 2, 2);
    set3(control, "s", 2, 2, 2);
    expectAt(*elbow, {6, 8, 0}, "twice as large");
    set3(body, "t", 1, 1, 1);
    set3(control, "t", 1, 1, 1);
    set3(control, "r", 0, 0, 90 * kDegree);
    expectAt(*wrist, {1, 13, 1});
    expectAt(*elbow, {-7, 7, 1}, "the pole turns with what the handle hangs on");
    set3(body, "r", 0.3, -0.2, 1);
    expectAt(*elbow, {-7, 7, 1}, "how the chain's parent is turned does not count");
}

TEST_F(IkHandles, SolveAgainWhenAnythingOfTheChainChanges) {
    Node& handle = makeArm("ikRPsolver");
    set3(handle, "pv", 0, 1, 0);
    set3(handle, "t", 6, 0, 0);
    expectAt(*wrist, {6, 0, 0});
    set(*wrist, "tx", 3);
    expectAt(*wrist, {6, 0, 0}, "a shorter forearm");
    set3(*shoulder, "t", 1, 0, 0);
    expectAt(*wrist, {6, 0, 0}, "another start");
    set3(*shoulder, "jo", 0.5, 0.25, 0);
    set3(*elbow, "ra", 0.1, 0, 0);
    set(*elbow, "ro", 3);
    set(*shoulder, "ro", 5);
    expectAt(*wrist, {6, 0, 0}, "joints turned otherwise");
    const double before = origin(*elbow).y;
    EXPECT_GT(before, 0);
    set3(handle, "pv", 0, -1, 0);
    EXPECT_NEAR(origin(*elbow).y, -before, 1e-7);
}

TEST_F(IkHandles, FollowTheTime) {
    Node& handle = makeArm("ikRPsolver");
    set3(handle, "pv", 0, 1, 0);
    Node& curve = make("animCurveTL", "curve");
    set(curve, "tan", 2);
    set(curve, "ktv[0].kt", 0);
    set(curve, "ktv[0].kv", 6);
    set(curve, "ktv[1].kt", 1000);
    set(curve, "ktv[1].kv", 8);
    connect(curve, "o", handle, "tx");
    expectAt(*elbow, {3, 4, 0});
    graph.setTime(1000);
    expectAt(*elbow, {4, 3, 0});
    const std::size_t before = graph.computeCount();
    expectAt(*elbow, {4, 3, 0});
    EXPECT_EQ(graph.computeCount(), before) << "asking twice solves once";
}

TEST_F(IkHandles, MixWithWhatTheJointsHold) {
    Node& handle = makeArm("ikRPsolver");
    set3(handle, "pv", 0, 1, 0);
    set3(handle, "t", 0, 10, 0);
    expectDegrees(*shoulder, {0, 0, 90}, 1e-4);
    set3(*shoulder, "r", 0, 0, 30 * kDegree);
    set(handle, "ikBlend", 0);
    expectDegrees(*shoulder, {0, 0, 30}, 1e-9);
    set(handle, "ikBlend", 0.5);
    expectDegrees(*shoulder, {0, 0, 60}, 1e-4);
    Node& curve = make("animCurveTA", "curve");
    set(curve, "ktv[0].kt", 0);
    set(curve, "ktv[0].kv", 10 * kDegree);
    connect(curve, "o", *shoulder, "rz");
    expectDegrees(*shoulder, {0, 0, 50}, 1e-4, "keys on the joint");
    set(handle, "ikBlend", 1);
    set(handle, "snapEnable", 0);
    expectDegrees(*shoulder, {0, 0, 10}, 1e-9, "a handle that does not pull");
}

TEST_F(IkHandles, OfSingleChainsTurnTheLastJointAsThemselves) {
    Node& ankle = makeJoint("ankle", nullptr, {0, 1, 0});
    Node& ball = makeJoint("ball", &ankle, {3, 0, 0});
    Node& handle = makeHandle("ikSCsolver", ankle, ball);
    tieIkChains(graph);
    set3(handle, "t", 0, 1, 3);
    set3(handle, "r", 0, -90 * kDegree, 0);
    expectAt(ball, {0, 1, 3});
    expectDegrees(ankle, {0, -90, 0}, 1e-6);
    set3(handle, "r", 25 * kDegree, 0, 0);
    set3(handle, "t", 9, 1, 0);
    expectDegrees(ankle, {25, 0, 0}, 1e-6, "rolled by the handle, and as near as it gets");
    expectAt(ball, {3, 1, 0});
}

TEST_F(IkHandles, WithoutAWholeChainOrAKnownSolverLeaveTheJointsAlone) {
    Node& handle = makeArm("ikSplineSolver");
    set3(handle, "t", 6, 0, 0);
    set3(*shoulder, "r", 0.1, 0.2, 0.3);
    EXPECT_FALSE(hasKnownSolver(handle));
    EXPECT_EQ(number(*shoulder, "ry"), 0.2);
    Node& lone = make("ikHandle", "lone");
    connect(*shoulder, "msg", lone, "hsj");
    tieIkChains(graph);
    EXPECT_EQ(number(*shoulder, "ry"), 0.2);
    EXPECT_FALSE(hasKnownSolver(lone));
    // The effector hangs elsewhere.
    Node& other = makeJoint("other", nullptr, {0, 0, 0});
    Node& end = makeJoint("end", &other, {1, 0, 0});
    Node& astray = makeHandle("ikRPsolver", *shoulder, end);
    tieIkChains(graph);
    set3(astray, "t", 0, 5, 0);
    EXPECT_EQ(number(*shoulder, "ry"), 0.2);
}

TEST_F(IkHandles, SurviveTheirChainAndTheirSolver) {
    Node& handle = makeArm("ikRPsolver");
    set3(handle, "pv", 0, 1, 0);
    set3(handle, "t", 6, 0, 0);
    expectAt(*elbow, {3, 4, 0});
    graph.destroy(*graph.sourceOf(plug(handle, "hsv")).node);
    expectAt(*elbow, {5, 0, 0}, "no solver: what is stored");
    graph.destroy(*elbow);
    EXPECT_TRUE(std::isfinite(number(*shoulder, "rz")));
    graph.destroy(handle);
    set(*shoulder, "rz", 0.5);
    EXPECT_EQ(number(*shoulder, "rz"), 0.5);
}

TEST_F(IkHandles, BelowTheirOwnChainEndWithAWarning) {
    std::vector<std::string> warnings;
    graph.onWarning = [&](const std::string& text) { warnings.push_back(text); };
    Node& handle = makeArm("ikRPsolver");
    ASSERT_EQ(graph.removeParent(handle, graph.world()).error, "");
    ASSERT_EQ(graph.addParent(handle, *elbow).error, "");
    EXPECT_TRUE(std::isfinite(origin(*wrist).x));
    EXPECT_FALSE(warnings.empty());
    EXPECT_LT(warnings.size(), 10U);
}

TEST_F(IkHandles, OfManyChainsAfterEachOther) {
    Node& handle = makeArm("ikRPsolver");
    Node& finger = makeJoint("finger", wrist, {2, 0, 0});
    Node& second = makeHandle("ikSCsolver", *wrist, finger);
    tieIkChains(graph);
    set3(handle, "pv", 0, 1, 0);
    set3(handle, "t", 6, 0, 0);
    set3(second, "t", 6, -2, 0);
    set3(second, "r", 0, 0, -90 * kDegree);
    expectAt(finger, {6, -2, 0});
    expectAt(*wrist, {6, 0, 0});
    set3(handle, "t", 0, 0, 6);
    set3(second, "t", 0, -2, 6);
    expectAt(finger, {0, -2, 6});
}

} // namespace
} // namespace host
