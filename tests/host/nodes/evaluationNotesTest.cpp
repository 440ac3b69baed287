#include "host/nodes/evaluationNotes.h"

#include "GraphFixture.h"

namespace host {
namespace {

using Notes = std::vector<std::string>;

class EvaluationNotes : public GraphFixture {
protected:
    Node& makeMesh(const char* name) {
        Node& body = make("transform", name);
        return make("mesh", (std::string(name) + "Shape").c_str(), &body);
    }
    Node& makeUnknown(const char* type, const char* name) {
        Node& node = graph.create(types.addUnknown(type, "dependNode"), name);
        Attribute output;
        output.longName = output.shortName = "out";
        node.addAttribute(output);
        return node;
    }
};

TEST_F(EvaluationNotes, AreNoneForWhatIsEvaluated) {
    Node& node = make("joint", "a");
    Node& curve = make("animCurveTL", "curve");
    Node& character = make("character", "character1");
    Node& blend = make("pairBlend", "blend");
    Node& layer = make("displayLayer", "layer");
    connect(curve, "o", character, "lv[0]");
    connect(character, "lv[0]", blend, "itx1");
    connect(blend, "otx", node, "tx");
    connect(layer, "di", node, "do");
    EXPECT_EQ(findEvaluationNotes(graph), Notes{});
}

TEST_F(EvaluationNotes, NameHistoryByTheTransformOfTheMesh) {
    Node& shape = makeMesh("body");
    Node& bevel = make("polyBevel3", "polyBevel1");
    Node& helix = make("polyHelix", "polyHelix1");
    connect(helix, "out", bevel, "ip");
    connect(bevel, "out", shape, "i");
    EXPECT_EQ(findEvaluationNotes(graph),
              (Notes{"node type 'polyBevel3' is not supported: body.polyBevel1 passes its input through",
                     "node type 'polyHelix' is not supported: body.polyHelix1 makes no mesh"}));
}

TEST_F(EvaluationNotes, SpeakOncePerType) {
    for (const char* name : {"one", "two"}) {
        connect(make("polyHelix", "helix"), "out", makeMesh(name), "i");
    }
    EXPECT_EQ(findEvaluationNotes(graph), Notes{"node type 'polyHelix' is not supported: one.helix makes no mesh"});
}

TEST_F(EvaluationNotes, FindDriversBehindEvaluatedNodes) {
    Node& joint = make("joint", "joint1");
    Node& mute = make("mute", "mute1");
    Node& conversion = make("unitConversion", "conv");
    connect(mute, "o", conversion, "i");
    connect(conversion, "o", joint, "rx");
    Node& character = make("character", "set");
    Node& scheduler = make("clipScheduler", "scheduler");
    connect(scheduler, "ce", character, "cer");
    connect(character, "av[0]", joint, "ry");
    EXPECT_EQ(findEvaluationNotes(graph),
              (Notes{"node type 'clipScheduler' is not supported: joint1.scheduler keeps its stored values",
                     "node type 'mute' is not supported: joint1.mute1 keeps its stored values"}));
}

TEST_F(EvaluationNotes, NameConstraintsByWhatTheyHold) {
    Node& cube = make("transform", "cube");
    Node& constraint = make("geometryConstraint", "cube_geometryConstraint1", &cube);
    Node& evaluated = make("pointConstraint", "cube_pointConstraint1", &cube);
    connect(constraint, "cg", cube, "ty");
    connect(evaluated, "ctx", cube, "tx");
    EXPECT_EQ(findEvaluationNotes(graph),
              Notes{"node type 'geometryConstraint' is not supported: cube.cube_geometryConstraint1 keeps its stored "
                    "values"});
}

TEST_F(EvaluationNotes, NameHandlesByTheJointWhereTheyBegin) {
    Node& joint = make("joint", "joint1");
    Node& handle = make("ikHandle", "ikHandle1");
    EXPECT_EQ(findEvaluationNotes(graph), Notes{}) << "a handle without a chain moves nothing";
    connect(joint, "msg", handle, "hsj");
    connect(make("ikSplineSolver", "spline"), "msg", handle, "hsv");
    EXPECT_EQ(findEvaluationNotes(graph),
              Notes{"node type 'ikHandle' is not supported: joint1.ikHandle1 keeps its stored values"});
}

TEST_F(EvaluationNotes, GoOnBehindLayersWhichPassTheirInput) {
    Node& joint = make("joint", "joint1");
    Node& blend = make("animBlendNodeAdditiveDL", "blend1");
    Node& path = make("motionPath", "path1");
    Attribute place;
    place.longName = place.shortName = "place";
    path.addAttribute(place);
    connect(path, "place", blend, "inputA");
    connect(blend, "output", joint, "tx");
    EXPECT_EQ(findEvaluationNotes(graph),
              (Notes{"node type 'animBlendNodeAdditiveDL' is not supported: joint1.blend1 passes its input through",
                     "node type 'motionPath' is not supported: joint1.path1 keeps its stored values"}));
}

TEST_F(EvaluationNotes, AreNoneForHandlesWithSolversThatAreKnown) {
    for (const char* solver : {"ikRPsolver", "ikSCsolver"}) {
        Node& handle = make("ikHandle", "ikHandle1");
        connect(make("joint", "joint1"), "msg", handle, "hsj");
        connect(make(solver, "solver"), "msg", handle, "hsv");
    }
    EXPECT_EQ(findEvaluationNotes(graph), Notes{});
}

TEST_F(EvaluationNotes, DoNotCountMembersOfASetAsItsDrivers) {
    Node& joint = make("joint", "joint1");
    Node& character = make("character", "set");
    Node& shape = make("blendShape", "blendShape1");
    connect(shape, "w[0]", character, "dnsm[0]");
    connect(character, "uv[0]", joint, "sx");
    EXPECT_EQ(findEvaluationNotes(graph), Notes{});
}

TEST_F(EvaluationNotes, NameUnknownTypesOnlyWhereTheyDrive) {
    Node& joint = make("joint", "joint1");
    Node& shape = makeMesh("body");
    Node& group = make("shadingEngine", "group");
    Node& shader = makeUnknown("fancyShader", "shader1");
    connect(shader, "out", group, "ss");
    connect(group, "mwc", shape, "iog[0].og[0].gco");
    EXPECT_EQ(findEvaluationNotes(graph), Notes{}) << "a shader is no driver";
    Node& driver = makeUnknown("fancyRig", "rig1");
    connect(driver, "out", joint, "tx");
    EXPECT_EQ(findEvaluationNotes(graph),
              Notes{"node type 'fancyRig' is not supported: joint1.rig1 keeps its stored values"});
}

} // namespace
} // namespace host
