#include "MelScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

const char* const kScene =
    "createNode transform -n \"a\";\naddAttr -ln \"kind\" -en \"x:y=4:z\" -at \"enum\";\n"
    "createNode mesh -n \"m\";\n\tsetAttr -s 3 \".pt[1:3]\" -type \"float3\" 1 1 1 2 2 2 3 3 3;\n"
    "createNode animCurveTL -n \"c\";\n\tsetAttr -s 2 \".ktv[0:1]\" 1 10 11 20;\n\tsetAttr -s 2 \".kot[0:1]\" 2 2;\n"
    "\tsetAttr -s 2 \".kit[0:1]\" 2 2;\ncreateNode transform -n \"d\";\nconnectAttr \"c.o\" \"d.tx\";\n";

TEST(AttributeCommands, Refusals) {
    MelScene mel(kScene);
    mel.run("setAttr -l on a.ty;");
    expectRows(mel, {{"setAttr a.tx;", "ERROR: expected a value, found the end of the command"},
                     {"setAttr a.tx \"five\";", "ERROR: expected a number, found 'five'"},
                     {"setAttr a.tx 1 2;", "ERROR: more values than attribute 'a.tx' takes"},
                     {"setAttr a.t 1 2;", "ERROR: expected a number, found the end of the command"},
                     {"setAttr a.zap 1;", "ERROR: No attribute matches name: a.zap"},
                     {"setAttr gone.tx 1;", "ERROR: No object matches name: gone"},
                     {"setAttr a 1;", "ERROR: No attribute matches name: a"},
                     {"setAttr a.ty 1;", "ERROR: a.translateY is locked"},
                     {"setAttr d.tx 1;", "ERROR: d.translateX is connected"},
                     {"setAttr a.worldMatrix[0] 1;", "ERROR: a.worldMatrix[0] is computed"},
                     {"setAttr a.t -type string \"x\";", "ERROR: value of type 'string' does not fit attribute 'a.t'"},
                     {"getAttr a.zap;", "ERROR: No attribute matches name: a.zap"},
                     {"getAttr;", "ERROR: getAttr needs the name of one attribute"},
                     {"addAttr -ln v -at bool a;", "ERROR: node 'a' has an attribute 'v' already"},
                     {"select -cl; addAttr -ln w -at bool;", "ERROR: nothing is selected"},
                     {"attributeQuery -n a -ln zap;", "ERROR: No attribute matches name: zap"},
                     {"attributeQuery -n gone -ln tx;", "ERROR: No object matches name: gone"},
                     {"attributeQuery -typ zebra -ln tx;", "ERROR: Unknown object type: zebra"},
                     {"attributeQuery -n a tx;", "ERROR: attributeQuery needs a flag that says what is asked"}});
}

TEST(AttributeCommands, SetAndGet) {
    MelScene mel(kScene);
    expectRows(mel, {{"setAttr a.tx 5; getAttr a.tx;", "5"},
                     {"setAttr \"a.t\" 1 2 3; getAttr a.t;", "(1|2|3)"},
                     {"setAttr \"a.r\" -type double3 10 20 30; getAttr a.rotate;", "(10|20|30)"},
                     {"setAttr a.v off; getAttr a.v;", "0"},
                     {"setAttr a.v 1; getAttr a.v;", "1"},
                     {"setAttr a.kind 4; getAttr a.kind;", "4"},
                     {"getAttr \"m.pt[2]\";", "(2|2|2)"},
                     {"getAttr \"m.pt[2:9]\";", "(2|2|2|3|3|3)"},
                     {"getAttr m.pt;", "(1|1|1|2|2|2|3|3|3)"},
                     {"getAttr -s m.pt;", "3"},
                     {"getAttr -mi m.pt;", "(1|2|3)"},
                     {"setAttr \"m.pt[9]\" 4 5 6; getAttr \"m.pt[9].py\";", "5"},
                     {"getAttr -typ a.t;", "double3"},
                     {"getAttr -typ a.tx;", "doubleLinear"},
                     {"getAttr -typ a.rx;", "doubleAngle"},
                     {"getAttr -typ a.v;", "bool"},
                     {"getAttr -typ a.kind;", "enum"},
                     {"getAttr d.tx;", "10"},
                     {"getAttr -t 6 d.tx;", "15"},
                     {"currentTime -q;", "1"},
                     {"getAttr -se d.tx;", "0"},
                     {"getAttr -se d.ty;", "1"},
                     {"setAttr -l on d.ty; getAttr -l d.ty;", "1"},
                     {"setAttr -l off d.ty 4; getAttr d.ty;", "4"},
                     {"setAttr -k off d.ty; getAttr -k d.ty;", "0"},
                     {"getAttr -k d.tz;", "1"},
                     {"setAttr -cb on d.ro; getAttr -cb d.ro;", "1"},
                     {"addAttr -ln note -dt \"string\" a; setAttr -type \"string\" a.note \"hello\"; getAttr a.note;",
                      "hello"},
                     {"select a; addAttr -ln num -at long -dv 3; getAttr a.num;", "3"}});
}

TEST(AttributeCommands, ResultTypes) {
    MelScene mel(kScene);
    EXPECT_EQ(mel.typeOf("getAttr a.tx;"), mel::ValueType::kFloat);
    EXPECT_EQ(mel.typeOf("getAttr a.v;"), mel::ValueType::kInt);
    EXPECT_EQ(mel.typeOf("getAttr a.kind;"), mel::ValueType::kInt);
    EXPECT_EQ(mel.typeOf("getAttr a.t;"), mel::ValueType::kFloatArray);
    EXPECT_EQ(mel.typeOf("getAttr lambert1.msg;"), mel::ValueType::kNone);
}

TEST(AttributeCommands, ValuesAreInTheUsersUnits) {
    MelScene mel(
        "currentUnit -l m -a rad -t ntsc;\ncreateNode transform -n \"a\";\ncreateNode animCurveTL -n \"c\";\n");
    expectRows(mel, {{"setAttr a.tx 2.5; getAttr a.tx;", "2.5"},
                     {"setAttr a.rx 1.5; getAttr a.rx;", "1.5"},
                     {"setAttr \"c.ktv[0]\" 15 2; getAttr \"c.ktv[0]\";", "(15|2)"}});
    EXPECT_EQ(mel.scene.graph().number(mel.scene.findPlug("a.tx").plug), 250.0);
    EXPECT_EQ(mel.scene.graph().number(mel.scene.findPlug("c.ktv[0].kt").plug), kTicksPerSecond / 2.0);
}

TEST(AttributeCommands, SettingTimeGoesThere) {
    MelScene mel(kScene);
    expectRows(mel, {{"setAttr time1.outTime 11; currentTime -q;", "11"}, {"getAttr d.tx;", "20"}});
}

TEST(AttributeCommands, Questions) {
    MelScene mel(kScene);
    mel.run("addAttr -ln \"num\" -sn \"nm\" -nn \"A number\" -at \"double\" -min -1 -max 2 -dv 0.5 -k true a;");
    expectRows(mel, {{"attributeQuery -n a -ex tx;", "1"},
                     {"attributeQuery -ex -n a zap;", "0"},
                     {"attributeQuery -n gone -ex tx;", "0"},
                     {"attributeQuery -typ mesh -ex inMesh;", "1"},
                     {"attributeQuery -n a -ln tx;", "translateX"},
                     {"attributeQuery -n a -sn translateX;", "tx"},
                     {"attributeQuery -n a -nn translateX;", "Translate X"},
                     {"attributeQuery -n a -nn num;", "A number"},
                     {"attributeQuery -n a -at num;", "double"},
                     {"attributeQuery -n a -r num;", "(-1|2)"},
                     {"attributeQuery -n a -mne num;", "1"},
                     {"attributeQuery -n a -mxe tx;", "0"},
                     {"attributeQuery -n a -ld num;", "(0.5)"},
                     {"attributeQuery -n a -ld s;", "(1|1|1)"},
                     {"attributeQuery -n a -k num;", "1"},
                     {"attributeQuery -n a -le kind;", "(x:y=4:z)"},
                     {"attributeQuery -n a -lc t;", "(translateX|translateY|translateZ)"},
                     {"attributeQuery -n a -lp tx;", "(translate)"},
                     {"attributeQuery -n m -m pt;", "1"},
                     {"attributeQuery -n a -msg message;", "1"}});
}

} // namespace

} // namespace host
