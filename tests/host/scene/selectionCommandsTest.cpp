#include "MelScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

const char* const kScene =
    "createNode transform -n \"a\";\ncreateNode mesh -n \"aShape\" -p \"a\";\ncreateNode transform -n \"x\" -p \"a\";\n"
    "createNode transform -n \"b\";\ncreateNode transform -n \"x\" -p \"b\";\ncreateNode blinn -n \"ns:m\";\n"
    "createNode objectSet -n \"set\";\ncreateNode objectSet -n \"faces\";\n"
    "createNode mesh -n \"orig\" -p \"a\";\n\tsetAttr \".io\" yes;\n"
    "\tsetAttr \".iog[0].og[1].gcl\" -type \"componentList\" 1 \"f[0:2]\";\n"
    "connectAttr \"b.iog\" \"set.dsm\" -na;\nconnectAttr \"ns:m.msg\" \"set.dnsm\" -na;\n"
    "connectAttr \"orig.iog.og[1]\" \"faces.dsm\" -na;\n";

TEST(SelectCommand, Refusals) {
    MelScene mel(kScene);
    expectRows(mel, {{"select a; select gone;", "ERROR: No object matches name: gone"},
                     {"select -add x;", "ERROR: More than one object matches name: x"},
                     {"select -add \"zz*\";", "ERROR: No object matches name: zz*"},
                     {"select -zz a;", "ERROR: Invalid flag '-zz'"},
                     {"ls -sl;", "(a)"}});
}

TEST(SelectCommand, ReplacesAddsRemovesAndToggles) {
    MelScene mel(kScene);
    expectRows(mel, {{"select a; ls -sl;", "(a)"},
                     {"select b; ls -sl;", "(b)"},
                     {"select -add a \"a|x\"; ls -sl;", "(b|a|a|x)"},
                     {"select -d a; ls -sl;", "(b|a|x)"},
                     {"select -tgl b a; ls -sl;", "(a|x|a)"},
                     {"select -af b; ls -sl;", "(b|a|x|a)"},
                     {"select -cl; ls -sl;", "()"},
                     {"select \"a*Shape\"; ls -sl;", "(aShape)"},
                     {"string $two[] = {\"a\", \"b\"}; select $two; ls -sl;", "(a|b)"},
                     {"select -hi b; ls -sl;", "(b|b|x)"},
                     {"select -all; ls -sl;", "(a|b)"},
                     {"select -r a.f[0:2] a.f[4]; ls -sl;", "(aShape.f[0:2]|aShape.f[4])"},
                     {"select -d aShape.f[4]; ls -sl;", "(aShape.f[0:2])"},
                     {"select a.tx; ls -sl;", "(a.translateX)"},
                     {"select lambert1; ls -sl;", "(lambert1)"}});
}

TEST(SelectCommand, SetsStandForTheirMembers) {
    MelScene mel(kScene);
    expectRows(mel, {{"select set; ls -sl;", "(b|ns:m)"},
                     {"select -ne set; ls -sl;", "(set)"},
                     {"select faces; ls -sl;", "(orig.f[0:2])"},
                     {"connectAttr -na set.msg faces.dnsm; select faces; ls -sl;", "(orig.f[0:2]|b|ns:m)"}});
}

TEST(LsCommand, ListsByNameAndType) {
    MelScene mel(kScene);
    expectRows(mel, {{"ls a;", "(a)"},
                     {"ls gone;", "()"},
                     {"ls \"ns:*\";", "(ns:m)"},
                     {"ls -type blinn;", "(ns:m)"},
                     {"ls -type lambert;", "(lambert1|ns:m)"},
                     {"ls -et lambert;", "(lambert1)"},
                     {"ls -type mesh;", "(aShape|orig)"},
                     {"ls -s -ni -dag \"|a\";", "(aShape)"},
                     {"ls -io -type mesh;", "(orig)"},
                     {"ls -l \"a|x\";", "(|a|x)"},
                     {"ls -dag \"|a\";", "(a|aShape|a|x|orig)"},
                     {"ls -dag -type transform \"|b\";", "(b|b|x)"},
                     {"ls -as;", "(persp|top|front|side|a|b)"},
                     {"ls -ca;", "(perspShape|topShape|frontShape|sideShape)"},
                     {"ls -st a;", "(a|transform)"},
                     {"ls -l x;", "(|a|x||b|x)"}});
}

TEST(ListRelatives, ChildrenParentsAndShapes) {
    MelScene mel(kScene);
    expectRows(mel, {{"listRelatives a;", "(aShape|x|orig)"},
                     {"listRelatives -s a;", "(aShape|orig)"},
                     {"listRelatives -s -ni a;", "(aShape)"},
                     {"listRelatives -f a;", "(|a|aShape||a|x||a|orig)"},
                     {"listRelatives -pa a;", "(aShape|a|x|orig)"},
                     {"listRelatives -p \"a|x\";", "(a)"},
                     {"listRelatives -p a;", "()"},
                     {"listRelatives -ad b;", "(x)"},
                     {"listRelatives -typ mesh a;", "(aShape|orig)"},
                     {"select b; listRelatives -c;", "(x)"},
                     {"listRelatives gone;", "ERROR: No object matches name: gone"}});
}

} // namespace

} // namespace host
