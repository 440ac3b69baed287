#include "MelScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

TEST(NodeCommands, Refusals) {
    MelScene mel("createNode transform -n \"a\";\n");
    expectRows(mel, {{"createNode zebra;", "ERROR: Unknown object type: zebra"},
                     {"createNode;", "ERROR: expected a node type, found the end of the command"},
                     {"createNode transform -zz 1;", "ERROR: Invalid flag '-zz'"},
                     {"rename gone b;", "ERROR: No object matches name: gone"},
                     {"rename persp b;", "ERROR: 'persp' belongs to every scene and stays as it is"},
                     {"rename a \"\";", "ERROR: '' has no legal characters for a name"},
                     {"delete gone;", "ERROR: No object matches name: gone"},
                     {"delete time1;", "ERROR: 'time1' belongs to every scene and stays as it is"},
                     {"nodeType gone;", "ERROR: No object matches name: gone"},
                     {"nodeType;", "ERROR: nodeType needs the name of one node"},
                     {"objExists;", "ERROR: objExists needs one name"}});
}

TEST(NodeCommands, MakeNameAndDelete) {
    MelScene mel;
    expectRows(mel, {{"createNode transform -n \"a\";", "a"},
                     {"ls -sl;", "(a)"},
                     {"createNode transform -n \"a\" -p \"a\";", "a|a"},
                     {"createNode -n \"m\" mesh;", "m"},
                     {"createNode blinn -ss;", "blinn1"},
                     {"ls -sl;", "(m)"},
                     {"rename blinn1 \"shiny\";", "shiny"},
                     {"rename \"renamed\";", "renamed"},
                     {"nodeType renamed;", "mesh"},
                     {"nodeType -i shiny;", "(dependNode|shadingDependNode|lambert|reflect|blinn)"},
                     {"objExists shiny;", "1"},
                     {"objExists \"sh*\";", "1"},
                     {"objExists \"shiny.c\";", "1"},
                     {"objExists \"shiny.zap\";", "0"},
                     {"objExists \"\";", "0"},
                     {"objExists \"zz*\";", "0"},
                     {"createNode transform -n \"b\" -p \"|a\"; createNode transform -n \"b\"; objExists b;", "1"},
                     {"delete shiny; objExists shiny;", "0"},
                     {"select -r renamed; delete; objExists renamed;", "0"},
                     {"delete |a; objExists \"a|a\";", "0"}});
}

TEST(NodeCommands, ChangesSetTheModifiedFlag) {
    for (const char* script : {"createNode transform;", "rename a b;", "delete a;", "setAttr a.tx 1;",
                               "addAttr -ln x -at bool a;", "connectAttr a.tx a.ty;", "parent a g;", "group a;"}) {
        MelScene mel("createNode transform -n \"a\";\ncreateNode transform -n \"g\";");
        EXPECT_EQ(mel.run("file -q -mf;"), "0");
        mel.run(script);
        EXPECT_EQ(mel.run("file -q -mf;"), "1") << script;
    }
    MelScene mel("createNode transform -n \"a\";");
    for (const char* script : {"select a;", "ls;", "getAttr a.tx;", "objExists a;", "currentTime -q;"}) {
        mel.run(script);
        EXPECT_EQ(mel.run("file -q -mf;"), "0") << script;
    }
}

} // namespace

} // namespace host
