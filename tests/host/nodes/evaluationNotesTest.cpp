#include "host/nodes/evaluationNotes.h"

#include "GraphFixture.h"

#include "host/geometry/PolyFacesBuilder.h"

namespace host {
namespace {

using Notes = std::vector<std::string>;

class EvaluationNotes : public GraphFixture {
protected:
    Notes notes() { return findEvaluationNotes(graph).warnings; }
    std::string refusal() { return findEvaluationNotes(graph).refusal; }
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
    EXPECT_EQ(notes(), Notes{});
}

TEST_F(EvaluationNotes, NameHistoryByTheTransformOfTheMesh) {
    Node& shape = makeMesh("body");
    Node& bevel = make("polyBevel3", "polyBevel1");
    Node& helix = make("polyHelix", "polyHelix1");
    connect(helix, "out", bevel, "ip");
    connect(bevel, "out", shape, "i");
    EXPECT_EQ(notes(), (Notes{"node type 'polyBevel3' is not supported: body.polyBevel1 makes no mesh",
                              "node type 'polyHelix' is not supported: body.polyHelix1 makes no mesh"}));
}

TEST_F(EvaluationNotes, SpeakOncePerType) {
    for (const char* name : {"one", "two"}) {
        connect(make("polyHelix", "helix"), "out", makeMesh(name), "i");
    }
    EXPECT_EQ(notes(), Notes{"node type 'polyHelix' is not supported: one.helix makes no mesh"});
}

TEST_F(EvaluationNotes, FindDriversBehindEvaluatedNodes) {
    Node& joint = make("joint", "joint1");
    Node& conversion = make("unitConversion", "conv");
    connect(makeUnknown("fancyRig", "rig1"), "out", conversion, "i");
    connect(conversion, "o", joint, "rx");
    Node& character = make("character", "set");
    Node& blend = make("animBlendNodeAdditiveDA", "blend1");
    connect(makeUnknown("fancyPath", "path1"), "out", blend, "inputA");
    connect(blend, "output", character, "av[0]");
    connect(character, "av[0]", joint, "ry");
    EXPECT_EQ(notes(), (Notes{"node type 'fancyPath' is not supported: joint1.path1 is left out, so that what it "
                              "drives keeps its stored values",
                              "node type 'fancyRig' is not supported: joint1.rig1 is left out, so that what it drives "
                              "keeps its stored values"}));
}

TEST_F(EvaluationNotes, TellOfTimeThatIsWarped) {
    Node& time = make("time", "time1");
    connect(make("animCurveTT", "warp"), "o", time, "timewarpIn[0]");
    EXPECT_EQ(notes(), Notes{});
    set(time, "enableTimewarp", 1);
    EXPECT_EQ(
        notes(),
        Notes{"the time of the scene is warped (time1): that is not supported, everything moves at an even pace"});
}

TEST_F(EvaluationNotes, NameConstraintsByWhatTheyHold) {
    Node& cube = make("transform", "cube");
    Node& constraint = make("geometryConstraint", "cube_geometryConstraint1", &cube);
    Node& evaluated = make("pointConstraint", "cube_pointConstraint1", &cube);
    connect(constraint, "cg", cube, "ty");
    connect(evaluated, "ctx", cube, "tx");
    EXPECT_EQ(notes(), Notes{"node type 'geometryConstraint' is not supported: cube.cube_geometryConstraint1 holds "
                             "nothing, so that it keeps its stored "
                             "values"});
}

TEST_F(EvaluationNotes, NameHandlesByTheJointWhereTheyBegin) {
    Node& joint = make("joint", "joint1");
    Node& handle = make("ikHandle", "ikHandle1");
    EXPECT_EQ(notes(), Notes{}) << "a handle without a chain moves nothing";
    connect(joint, "msg", handle, "hsj");
    connect(make("ikSplineSolver", "spline"), "msg", handle, "hsv");
    EXPECT_EQ(notes(), Notes{"node type 'ikHandle' is not supported: joint1.ikHandle1 turns no joints, so that they "
                             "keep their own angles"});
}

TEST_F(EvaluationNotes, RefuseADeformerThatIsNotEvaluatedBehindAMesh) {
    Node& shape = makeMesh("body");
    Node& original = makeMesh("bodyOrig");
    Node& wrap = make("wrap", "wrap1");
    Node& parts = make("groupParts", "parts");
    connect(original, "worldMesh[0]", parts, "ig");
    connect(parts, "og", wrap, "ip[0].ig");
    connect(wrap, "og[0]", shape, "i");
    EXPECT_EQ(refusal(), "node type 'wrap' is not supported: body.wrap1 shapes the mesh (delete the history of 'body', "
                         "or export from Maya)");
}

TEST_F(EvaluationNotes, RefuseADeformerThatGoesBeyondWhatIsEvaluated) {
    Node& bend = make("nonLinear", "wave1");
    connect(bend, "og[0]", makeMesh("body"), "i");
    EXPECT_EQ(refusal(), "");
    connect(make("deformWave", "handle", &make("transform", "t")), "dd", bend, "dd");
    EXPECT_EQ(refusal(), "node type 'nonLinear' with a handle of type 'deformWave' is not supported: body.wave1 shapes "
                         "the mesh (delete the history of 'body', or export from Maya)");
}

TEST_F(EvaluationNotes, RefuseAnUnknownNodeInTheGeometryOfAMesh) {
    Node& shape = makeMesh("body");
    connect(makeUnknown("fancyMesh", "mesh1"), "out", shape, "i");
    EXPECT_EQ(refusal(), "node type 'fancyMesh' is not supported: body.mesh1 shapes the mesh (delete the history of "
                         "'body', or export from Maya)");
}

TEST_F(EvaluationNotes, RefusePolygonHistoryThatIsNotEvaluated) {
    Node& bevel = make("polyBevel3", "polyBevel1");
    Node& soft = make("polySoftEdge", "soft");
    connect(make("polyCube", "cube"), "out", bevel, "ip");
    connect(bevel, "out", soft, "ip");
    connect(soft, "out", makeMesh("body"), "i");
    EXPECT_EQ(refusal(), "node type 'polyBevel3' is not supported: body.polyBevel1 shapes the mesh (delete the history "
                         "of 'body', or export from Maya)");
    set(bevel, "nodeState", 1);
    EXPECT_EQ(refusal(), "") << "its input passes";
}

TEST_F(EvaluationNotes, RefuseCreatorsThatAreNotEvaluated) {
    connect(make("polyHelix", "polyHelix1"), "out", makeMesh("spring"), "i");
    EXPECT_EQ(refusal(),
              "node type 'polyHelix' is not supported: spring.polyHelix1 shapes the mesh (delete the history "
              "of 'spring', or export from Maya)");
}

TEST_F(EvaluationNotes, RefuseSettingsThatAreNotEvaluated) {
    Node& chip = make("polyChipOff", "polyChipOff1");
    connect(make("polyCube", "cube"), "out", chip, "ip");
    connect(chip, "out", makeMesh("body"), "i");
    EXPECT_EQ(refusal(), "");
    set(chip, "localTranslateZ", 0.5);
    EXPECT_EQ(refusal(),
              "node type 'polyChipOff' with this 'localTranslate' is not supported: body.polyChipOff1 shapes "
              "the mesh (delete the history of 'body', or export from Maya)");
    set(chip, "nodeState", 1);
    EXPECT_EQ(refusal(), "");
}

TEST_F(EvaluationNotes, RefuseNothingBehindFacesThatTheFileKeeps) {
    Node& shape = makeMesh("body");
    connect(make("polyHelix", "polyHelix1"), "out", shape, "i");
    PolyFacesBuilder faces;
    ASSERT_EQ(graph.setData(plug(shape, "face[0]"), faces.finish()).error, "");
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(notes(), Notes{"node type 'polyHelix' is not supported: body.polyHelix1 makes no mesh"});
}

TEST_F(EvaluationNotes, RefuseNoDeformerWithoutEffect) {
    Node& shape = makeMesh("body");
    Node& wrap = make("wrap", "wrap1");
    connect(wrap, "og[0]", shape, "i");
    set(wrap, "envelope", 0);
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(notes(), Notes{});
    set(wrap, "envelope", 1);
    set(wrap, "nodeState", 1);
    EXPECT_EQ(refusal(), "");
    connect(make("animCurveTU", "curve"), "o", wrap, "nodeState");
    EXPECT_NE(refusal(), "") << "a state that is keyed may change";
}

TEST_F(EvaluationNotes, RefuseNothingForACopyThatNobodySees) {
    Node& shape = makeMesh("body");
    set(shape, "intermediateObject", 1);
    connect(make("wrap", "wrap1"), "og[0]", shape, "i");
    EXPECT_EQ(refusal(), "");
    Node& tweak = make("tweak", "tweak1");
    connect(shape, "worldMesh[0]", tweak, "ip[0].ig");
    connect(tweak, "og[0]", makeMesh("seen"), "i");
    EXPECT_NE(refusal(), "") << "what reads it is seen";
}

TEST_F(EvaluationNotes, RefuseNothingThatOnlyMovesAMesh) {
    Node& car = make("transform", "car");
    connect(make("geometryConstraint", "constraint", &car), "cg", car, "ty");
    EXPECT_EQ(refusal(), "");
}

TEST_F(EvaluationNotes, AreNoneForHandlesWithSolversThatAreKnown) {
    for (const char* solver : {"ikRPsolver", "ikSCsolver"}) {
        Node& handle = make("ikHandle", "ikHandle1");
        connect(make("joint", "joint1"), "msg", handle, "hsj");
        connect(make(solver, "solver"), "msg", handle, "hsv");
    }
    EXPECT_EQ(notes(), Notes{});
}

TEST_F(EvaluationNotes, DoNotCountMembersOfASetAsItsDrivers) {
    Node& joint = make("joint", "joint1");
    Node& character = make("character", "set");
    Node& shape = make("blendShape", "blendShape1");
    connect(shape, "w[0]", character, "dnsm[0]");
    connect(character, "uv[0]", joint, "sx");
    EXPECT_EQ(notes(), Notes{});
}

TEST_F(EvaluationNotes, NameUnknownTypesOnlyWhereTheyDrive) {
    Node& joint = make("joint", "joint1");
    Node& shape = makeMesh("body");
    Node& group = make("shadingEngine", "group");
    Node& shader = makeUnknown("fancyShader", "shader1");
    connect(shader, "out", group, "ss");
    connect(group, "mwc", shape, "iog[0].og[0].gco");
    EXPECT_EQ(notes(), Notes{}) << "a shader is no driver";
    Node& driver = makeUnknown("fancyRig", "rig1");
    connect(driver, "out", joint, "tx");
    EXPECT_EQ(notes(), Notes{"node type 'fancyRig' is not supported: joint1.rig1 is left out, so that what it drives "
                             "keeps its stored values"});
}

} // namespace
} // namespace host
