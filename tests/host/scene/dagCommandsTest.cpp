#include "MelScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

const char* const kTree = "createNode transform -n \"a\";\n\tsetAttr \".t\" -type \"double3\" 1 2 3;\n"
                          "createNode transform -n \"b\";\n\tsetAttr \".t\" -type \"double3\" 10 0 0;\n\tsetAttr "
                          "\".r\" -type \"double3\" 0 0 90;\n"
                          "createNode mesh -n \"bShape\" -p \"b\";\ncreateNode transform -n \"c\" -p \"b\";\n";

TEST(DagCommands, Refusals) {
    MelScene mel(kTree);
    expectRows(mel, {{"parent a;", "ERROR: expected a node and its parent, found the end of the command"},
                     {"parent a gone;", "ERROR: No object matches name: gone"},
                     {"parent a lambert1;", "ERROR: lambert1 has no place in the DAG"},
                     {"parent a bShape;", "ERROR: bShape is a shape, nothing can be placed below it"},
                     {"parent b c;", "ERROR: b cannot be placed below itself"},
                     {"parent -rm c;", "ERROR: 'c' has no other instance"},
                     {"group lambert1;", "ERROR: 'lambert1' is not in the DAG and has no place below 'world'"},
                     {"select -cl; group;", "ERROR: nothing is selected"},
                     {"instance bShape;", "ERROR: 'bShape' is no transform"},
                     {"xform -q -t bShape;", "ERROR: 'bShape' is no transform"},
                     {"xform -t a;", "ERROR: xform needs -query and one transform"},
                     {"xform -q a;", "ERROR: xform needs a flag that says what is asked"}});
}

TEST(DagCommands, ParentKeepsTheWorldUnlessRelative) {
    MelScene mel(kTree);
    expectRows(mel, {{"parent a b;", "(a)"},
                     {"xform -q -ws -t a;", "(1|2|3)"},
                     // 9 to the left of b, whose x axis is the world's y axis
                     {"getAttr a.t;", "(2|9|3)"},
                     {"parent -w a;", "(a)"},
                     {"getAttr a.t;", "(1|2|3)"},
                     {"parent -r a b; getAttr a.t;", "(1|2|3)"},
                     {"xform -q -ws -t a;", "(8|1|3)"}});
}

TEST(DagCommands, Instances) {
    MelScene mel(kTree);
    expectRows(mel, {{"parent -add -s \"b|bShape\" a;", "(bShape)"},
                     {"listRelatives -ap -f bShape;", "(|b||a)"},
                     {"ls -ap bShape;", "(b|bShape|a|bShape)"},
                     {"instance -n \"twin\" b;", "(twin)"},
                     {"listRelatives twin;", "(bShape|c)"},
                     {"getAttr twin.t;", "(10|0|0)"},
                     {"parent -rm \"twin|c\"; listRelatives twin;", "(bShape)"}});
}

TEST(DagCommands, Groups) {
    MelScene mel(kTree);
    expectRows(mel, {{"group -em;", "group1"},
                     {"group -em -n \"g\" -p b;", "g"},
                     {"listRelatives -f -p g;", "(|b)"},
                     {"group -n \"both\" a b;", "both"},
                     {"ls -sl;", "(both)"},
                     {"listRelatives both;", "(a|b)"},
                     {"xform -q -ws -t a;", "(1|2|3)"},
                     {"group -n \"inner\" c; ls -l inner;", "(|both|b|inner)"},
                     {"group -w -n \"outer\" c; ls -l c;", "(|outer|c)"}});
}

TEST(DagCommands, JointsHangBelowTheSelection) {
    MelScene mel("currentUnit -l mm;\n");
    expectRows(mel, {{"joint -p 10 0 0;", "joint1"},
                     {"joint -n \"knee\" -p 10 20 0 -rad 2;", "knee"},
                     {"ls -l knee;", "(|joint1|knee)"},
                     {"getAttr knee.t;", "(0|20|0)"},
                     {"getAttr knee.radi;", "2"},
                     {"select -cl; joint; ls -l -sl;", "(|joint2)"}});
    EXPECT_NEAR(mel.scene.graph().number(mel.scene.findPlug("knee.ty").plug), 2.0, 1e-12);
}

TEST(DagCommands, XformAnswersInUnits) {
    MelScene mel(kTree);
    mel.run("setAttr c.t -type double3 5 0 0; setAttr c.rp -type double3 1 0 0; setAttr c.s -type double3 2 2 2;");
    expectRows(mel, {{"xform -q -t c;", "(5|0|0)"},
                     {"xform -q -os -ro b;", "(0|0|90)"},
                     {"xform -q -s c;", "(2|2|2)"},
                     {"xform -q -rp c;", "(1|0|0)"}});
    const mel::FloatArray place = mel.interpreter.eval("xform -q -ws -t c;").value.floats();
    EXPECT_NEAR(place[0], 10.0, 1e-9);
    EXPECT_NEAR(place[1], 5.0, 1e-9);
    const mel::FloatArray turned = mel.interpreter.eval("xform -q -ws -ro c;").value.floats();
    EXPECT_NEAR(turned[2], 90.0, 1e-9);
    const mel::FloatArray matrix = mel.interpreter.eval("xform -q -m b;").value.floats();
    ASSERT_EQ(matrix.size(), 16U);
    EXPECT_NEAR(matrix[1], 1.0, 1e-12);
    EXPECT_EQ(matrix[12], 10.0);
}

} // namespace

} // namespace host
