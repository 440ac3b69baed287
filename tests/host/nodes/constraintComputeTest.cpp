#include "host/nodes/constraintCompute.h"

#include "GraphFixture.h"

#include <vector>

namespace host {
namespace {

using Imath::V3d;

class Constraints : public GraphFixture {
protected:
    /// A constraint below `held`, connected to it as the host's commands connect it.
    Node& hold(const char* type, Node& held) {
        Node& constraint = make(type, "constraint1", &held);
        connect(held, "pim[0]", constraint, "cpim");
        const auto connectIf = [&](const char* from, const char* to) {
            if (held.findAttribute(from) != kNoAttr && constraint.findAttribute(to) != kNoAttr) {
                connect(held, from, constraint, to);
            }
        };
        connectIf("rp", "crp");
        connectIf("rpt", "crt");
        connectIf("ro", "cro");
        connectIf("jo", "cjo");
        for (const char* output : {"constraintTranslate", "constraintRotate", "constraintScale"}) {
            const AttrIndex attr = constraint.findAttribute(output);
            if (attr != kNoAttr && constraint.attribute(attr).computed) {
                const std::string channel = std::string(output).substr(10);
                connect(constraint, output, held, (channel[0] == 'T' ? "t" : channel[0] == 'R' ? "r" : "s"));
            }
        }
        if (type == std::string("aimConstraint")) {
            connect(held, "t", constraint, "ct");
        }
        return constraint;
    }
    void addTarget(Node& constraint, int index, Node& target, double weight) {
        const std::string element = "tg[" + std::to_string(index) + "].";
        const char* const pairs[][2] = {{"t", "tt"}, {"rp", "trp"},    {"rpt", "trt"}, {"r", "tr"},    {"ro", "tro"},
                                        {"s", "ts"}, {"pm[0]", "tpm"}, {"jo", "tjo"},  {"ssc", "tsc"}, {"is", "tis"}};
        for (const auto& [from, to] : pairs) {
            if (graph.findPlug(target, from).attr != kNoAttr && constraint.findAttribute(to) != kNoAttr) {
                connect(target, from, constraint, element + to);
            }
        }
        set(constraint, element + "tw", weight);
    }
    V3d triple(Node& node, const std::string& path) {
        const Plug parent = plug(node, path);
        V3d result;
        for (int i = 0; i < 3; ++i) {
            Plug child = parent;
            child.at.attr = node.attribute(parent.at.attr).children[static_cast<std::size_t>(i)];
            result[i] = graph.number(child);
        }
        return result;
    }
    void expectTriple(Node& node, const std::string& path, const V3d& expected, const char* why = "") {
        const V3d actual = triple(node, path);
        EXPECT_LT((actual - expected).length(), 1e-9) << actual << " instead of " << expected << " " << why;
    }
    V3d origin(Node& node) {
        const Matrix44 world = matrix(node, "wm[0]");
        return {world[3][0], world[3][1], world[3][2]};
    }

    /// One along x, turned by 90 degrees about z, twice as large.
    Node& makeTurnedGroup(const char* name) {
        Node& group = make("transform", name);
        set3(group, "t", 1, 0, 0);
        set3(group, "r", 0, 0, 90 * kDegree);
        set3(group, "s", 2, 2, 2);
        return group;
    }
};

TEST_F(Constraints, PointFollowsTheWeightedMeanOfItsTargets) {
    Node& a = make("transform", "a");
    Node& b = make("transform", "b");
    Node& held = make("transform", "held");
    Node& constraint = hold("pointConstraint", held);
    set3(a, "t", 4, 0, 0);
    set3(b, "t", 0, 8, 2);
    addTarget(constraint, 0, a, 1);
    addTarget(constraint, 3, b, 3);
    expectTriple(held, "t", {1, 6, 1.5});
    set(constraint, "tg[3].tw", 0);
    expectTriple(held, "t", {4, 0, 0});
    set(a, "ty", 2);
    expectTriple(held, "t", {4, 2, 0}, "what is cached must go");
    set3(constraint, "offset", 0, 0, 5);
    expectTriple(held, "t", {4, 2, 5});
}

TEST_F(Constraints, PointMeetsPivotsThroughTheSpacesOfBoth) {
    Node& target = make("transform", "target", &makeTurnedGroup("targetGroup"));
    Node& held = make("transform", "held", &makeTurnedGroup("heldGroup"));
    Node& constraint = hold("pointConstraint", held);
    addTarget(constraint, 0, target, 1);
    set3(target, "t", 1, 0, 0);
    set3(target, "rp", 2, 0, 0);
    set3(target, "rpt", 0, 0, 3);
    set3(held, "rp", 0, 1, 0);
    // The target's pivot is at (3, 0, 3) in its group: (1, 6, 6) in the world.
    expectTriple(held, "t", {3, -1, 3});
    set3(held, "rpt", 1, 0, 0);
    expectTriple(held, "t", {2, -1, 3});
}

TEST_F(Constraints, WithoutWeightRestOrKeepWhatIsStored) {
    Node& target = make("transform", "target");
    Node& held = make("transform", "held");
    set3(held, "t", 7, 8, 9);
    Node& constraint = hold("pointConstraint", held);
    set3(constraint, "rst", 1, 2, 3);
    expectTriple(held, "t", {1, 2, 3}, "no targets");
    addTarget(constraint, 0, target, 0);
    expectTriple(held, "t", {1, 2, 3}, "no weight");
    set(constraint, "erp", 0);
    expectTriple(held, "t", {7, 8, 9});
    set(constraint, "tg[0].tw", 1);
    expectTriple(held, "t", {0, 0, 0});
    set(constraint, "nodeState", 1);
    expectTriple(held, "t", {7, 8, 9}, "a node that is switched off");
}

TEST_F(Constraints, OrientTurnsAsItsTargetInEveryOrder) {
    Node& group = makeTurnedGroup("group");
    Node& target = make("transform", "target", &group);
    Node& held = make("transform", "held");
    Node& constraint = hold("orientConstraint", held);
    addTarget(constraint, 0, target, 1);
    set3(target, "r", 20 * kDegree, -30 * kDegree, 40 * kDegree);
    for (int order = 0; order < 6; ++order) {
        set(target, "ro", order);
        set(held, "ro", (order + 2) % 6);
        const Matrix44 wanted = matrix(target, "wm[0]");
        const Matrix44 found = matrix(held, "wm[0]");
        for (int line = 0; line < 3; ++line) {
            for (int column = 0; column < 3; ++column) {
                EXPECT_NEAR(found[line][column], wanted[line][column] / 2, 1e-9) << order;
            }
        }
    }
}

TEST_F(Constraints, OrientOfJointsTakesTheirOrientationOut) {
    Node& target = make("joint", "target");
    Node& held = make("joint", "held");
    Node& constraint = hold("orientConstraint", held);
    addTarget(constraint, 0, target, 1);
    set3(target, "jo", 0, 0, 50 * kDegree);
    set3(target, "r", 0, 0, 20 * kDegree);
    set3(held, "jo", 0, 0, 30 * kDegree);
    expectTriple(held, "r", {0, 0, 40 * kDegree});
    set3(constraint, "offset", 0, 0, -10 * kDegree);
    expectTriple(held, "r", {0, 0, 30 * kDegree});
}

TEST_F(Constraints, OrientMixesItsTargetsAsAsked) {
    Node& a = make("transform", "a");
    Node& b = make("transform", "b");
    Node& held = make("transform", "held");
    Node& constraint = hold("orientConstraint", held);
    addTarget(constraint, 0, a, 1);
    addTarget(constraint, 1, b, 1);
    set3(a, "r", 0, 0, 10 * kDegree);
    set3(b, "r", 0, 0, 90 * kDegree);
    struct Row {
        double interpolation, degrees;
    };
    // The long way from 10 to 90 degrees goes down to -270: its middle is -130.
    for (const Row& row : {Row{0, 50}, Row{1, 50}, Row{2, 50}, Row{3, -130}, Row{4, 50}}) {
        set(constraint, "interpType", row.interpolation);
        expectTriple(held, "r", {0, 0, row.degrees * kDegree});
    }
    set(constraint, "interpType", 2);
    set(constraint, "tg[1].tw", 3);
    expectTriple(held, "r", {0, 0, 70 * kDegree});
}

TEST_F(Constraints, ParentCarriesLikeAChild) {
    Node& target = make("transform", "target", &makeTurnedGroup("group"));
    Node& held = make("transform", "held");
    Node& constraint = hold("parentConstraint", held);
    addTarget(constraint, 0, target, 1);
    set3(target, "t", 3, 0, 0);
    set3(constraint, "tg[0].tot", 0, 1, 0);
    set3(constraint, "tg[0].tor", 15 * kDegree, 0, 0);
    set3(target, "r", 0, 0, 90 * kDegree);
    // (0, 1, 0), turned to (-1, 0, 0), moved to (2, 0, 0), and by the group to (1, 4, 0).
    expectTriple(held, "t", {1, 4, 0});
    const Matrix44 world = matrix(held, "wm[0]");
    EXPECT_NEAR(world[0][0], -1, 1e-9) << "two quarter turns, and no scale";
    EXPECT_NEAR(world[1][1], -std::cos(15 * kDegree), 1e-9);
    EXPECT_NEAR(world[1][2], std::sin(15 * kDegree), 1e-9);
    set3(target, "s", 1, 5, 1);
    expectTriple(held, "t", {1, -4, 0}, "the offset is in the target's space");
}

TEST_F(Constraints, ParentOfCompensatedJointsDividesByTheirParentsScale) {
    Node& parent = make("joint", "parent");
    Node& target = make("joint", "target", &parent);
    connect(parent, "s", target, "is");
    Node& held = make("transform", "held");
    Node& constraint = hold("parentConstraint", held);
    addTarget(constraint, 0, target, 1);
    set3(parent, "s", 2, 1, 1);
    set3(target, "t", 3, 0, 0);
    set3(constraint, "tg[0].tot", 1, 0, 0);
    expectTriple(held, "t", {7, 0, 0});
    set(target, "ssc", 0);
    expectTriple(held, "t", {8, 0, 0});
}

TEST_F(Constraints, ParentBelowAnotherParentGivesTheSamePlace) {
    Node& target = make("transform", "target");
    Node& held = make("joint", "held", &makeTurnedGroup("group"));
    Node& constraint = hold("parentConstraint", held);
    addTarget(constraint, 0, target, 1);
    set3(held, "jo", 10 * kDegree, 20 * kDegree, 0);
    set3(target, "t", 3, -2, 5);
    set3(target, "r", 0.4, 0.5, -0.6);
    const Matrix44 wanted = matrix(target, "wm[0]");
    Matrix44 found = matrix(held, "wm[0]");
    for (int line = 0; line < 3; ++line) {
        for (int column = 0; column < 3; ++column) {
            found[line][column] /= 2;
        }
    }
    EXPECT_TRUE(isNear(found, wanted, 1e-9));
}

TEST_F(Constraints, ScaleTakesTheGeometricMean) {
    Node& a = make("transform", "a", &makeTurnedGroup("group"));
    Node& b = make("transform", "b");
    Node& held = make("transform", "held");
    Node& constraint = hold("scaleConstraint", held);
    expectTriple(held, "s", {1, 1, 1}, "at rest");
    addTarget(constraint, 0, a, 1);
    set3(a, "s", 1, -4, 3);
    expectTriple(held, "s", {2, -8, 6});
    addTarget(constraint, 1, b, 1);
    set3(b, "s", 8, 2, 6);
    expectTriple(held, "s", {4, -4, 6});
    set3(constraint, "offset", 1, 1, 0.5);
    expectTriple(held, "s", {4, -4, 3});
}

TEST_F(Constraints, AimPointsAtItsTargetWithUpAsToldByItsType) {
    Node& target = make("transform", "target");
    Node& up = make("transform", "up");
    Node& held = make("transform", "held");
    Node& constraint = hold("aimConstraint", held);
    addTarget(constraint, 0, target, 1);
    connect(up, "wm[0]", constraint, "wum");
    set3(target, "t", 0, 0, -3);
    // Aim x to -z; up y stays.
    set(constraint, "wut", 3);
    expectTriple(held, "r", {0, 90 * kDegree, 0});
    set3(constraint, "wu", 1, 0, 0);
    Matrix44 world = matrix(held, "wm[0]");
    EXPECT_NEAR(world[0][2], -1, 1e-12);
    EXPECT_NEAR(world[1][0], 1, 1e-12) << "up to the right";
    set(constraint, "wut", 0);
    EXPECT_NEAR(matrix(held, "wm[0]")[1][1], 1, 1e-12) << "up of the scene";
    set(constraint, "wut", 1);
    set3(up, "t", -5, 0, 0);
    EXPECT_NEAR(matrix(held, "wm[0]")[1][0], -1, 1e-12) << "up to an object";
    set(constraint, "wut", 2);
    set3(up, "r", 0, 0, 90 * kDegree); // its x is up
    EXPECT_NEAR(matrix(held, "wm[0]")[1][1], 1, 1e-12) << "up as an object is turned";
    set(constraint, "wut", 4);
    expectTriple(held, "r", {0, 90 * kDegree, 0}, "the shortest turn");
}

TEST_F(Constraints, AimKeepsItsSideOfDegenerateDirections) {
    Node& target = make("transform", "target");
    Node& held = make("transform", "held");
    Node& constraint = hold("aimConstraint", held);
    addTarget(constraint, 0, target, 1);
    set(constraint, "wut", 3);
    set3(constraint, "rsrr", 0.1, 0.2, 0.3);
    expectTriple(held, "r", {0.1, 0.2, 0.3}, "a target in the same place");
    set3(target, "t", 0, 2, 0);
    expectTriple(held, "r", {0, 0, 90 * kDegree}, "a target straight above");
    set3(constraint, "aimVector", 0, 0, 0);
    expectTriple(held, "r", {0, 0, 0}, "no aim");
}

TEST_F(Constraints, AimStartsAtTheHeldPivotInItsParentsSpace) {
    Node& target = make("transform", "target");
    Node& held = make("transform", "held", &makeTurnedGroup("group"));
    Node& constraint = hold("aimConstraint", held);
    addTarget(constraint, 0, target, 1);
    set(constraint, "wut", 3);
    set3(held, "t", 1, 0, 0);
    set3(held, "rp", 0, -1, 0); // in the world at (3, 2, 0)
    set3(target, "t", 8, 2, 0);
    expectTriple(held, "r", {0, 0, -90 * kDegree});
    set3(constraint, "offset", 0, 0, 30 * kDegree);
    expectTriple(held, "r", {0, 0, -60 * kDegree});
}

TEST_F(Constraints, PoleVectorsPointFromTheStartOfTheChain) {
    Node& target = make("transform", "target");
    Node& group = makeTurnedGroup("group");
    Node& joint = make("joint", "joint1", &group);
    Node& handle = make("ikHandle", "ikHandle1", &group);
    Node& constraint = make("poleVectorConstraint", "pole", &handle);
    connect(handle, "pim[0]", constraint, "cpim");
    connect(joint, "pm[0]", constraint, "ps");
    connect(joint, "t", constraint, "crp");
    addTarget(constraint, 0, target, 1);
    connect(constraint, "ct", handle, "pv");
    set3(joint, "t", 0, 0, 1); // in the world at (1, 0, 2)
    set3(target, "t", 1, 4, 2);
    expectTriple(handle, "pv", {2, 0, 0});
}

TEST_F(Constraints, FollowTheirTargetsInTime) {
    Node& target = make("transform", "target");
    Node& held = make("transform", "held");
    addTarget(hold("parentConstraint", held), 0, target, 1);
    Node& curve = make("animCurveTL", "curve");
    set(curve, "tan", 2);
    set(curve, "ktv[0].kt", 0);
    set(curve, "ktv[0].kv", 0);
    set(curve, "ktv[1].kt", 1000);
    set(curve, "ktv[1].kv", 10);
    connect(curve, "o", target, "tx");
    EXPECT_NEAR(origin(held).x, 0, 1e-12);
    graph.setTime(500);
    EXPECT_NEAR(origin(held).x, 5, 1e-12);
}

TEST_F(Constraints, OfFlatSpacesStayFinite) {
    Node& group = make("transform", "group");
    set3(group, "s", 0, 1, 0);
    Node& target = make("transform", "target", &group);
    for (const char* type : {"pointConstraint", "orientConstraint", "parentConstraint", "scaleConstraint"}) {
        Node& held = make("transform", "held", &group);
        addTarget(hold(type, held), 0, target, 1);
        const Matrix44 world = matrix(held, "wm[0]");
        for (int line = 0; line < 4; ++line) {
            for (int column = 0; column < 4; ++column) {
                EXPECT_TRUE(std::isfinite(world[line][column])) << type;
            }
        }
    }
}

TEST_F(Constraints, ThatHoldEachOtherEndWithOneWarningPerChannel) {
    std::vector<std::string> warnings;
    graph.onWarning = [&](const std::string& text) { warnings.push_back(text); };
    Node& a = make("transform", "a");
    Node& b = make("transform", "b");
    addTarget(hold("pointConstraint", a), 0, b, 1);
    addTarget(hold("pointConstraint", b), 0, a, 1);
    for (Ticks time = 0; time < 5; ++time) {
        graph.setTime(time);
        set3(b, "rpt", 0, static_cast<double>(time), 0);
        EXPECT_TRUE(std::isfinite(number(a, "tx")));
    }
    EXPECT_GE(warnings.size(), 1U);
    EXPECT_LE(warnings.size(), 3U);
    for (const std::string& warning : warnings) {
        EXPECT_EQ(warning.find("Cycle in the graph at "), 0U) << warning;
    }
}

} // namespace
} // namespace host
