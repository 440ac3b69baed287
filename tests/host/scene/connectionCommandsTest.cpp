#include "MelScene.h"

#include <gtest/gtest.h>

namespace host {

namespace {

const char* const kScene =
    "createNode transform -n \"a\";\ncreateNode mesh -n \"s\" -p \"a\";\ncreateNode transform -n \"b\";\n"
    "parent -add \"|a|s\" \"b\";\ncreateNode shadingEngine -n \"sg\";\ncreateNode blinn -n \"m\";\n"
    "createNode animCurveTL -n \"c\";\n";

TEST(ConnectionCommands, Refusals) {
    MelScene mel(kScene);
    expectRows(mel, {{"connectAttr a.tx;", "ERROR: expected a source and a destination, found the end of the command"},
                     {"connectAttr a.zap b.tx;", "ERROR: No attribute matches name: a.zap"},
                     {"connectAttr gone.tx b.tx;", "ERROR: No object matches name: gone"},
                     {"connectAttr a.tx b.t;", "ERROR: a.translateX and b.translate hold different kinds of value"},
                     {"connectAttr a.tx b.tx; connectAttr c.o b.tx;",
                      "ERROR: b.translateX is connected to a.translateX already"},
                     {"setAttr -l on b.ty; connectAttr a.tx b.ty;", "ERROR: b.translateY is locked"},
                     {"disconnectAttr a.tx b.tz;", "ERROR: a.translateX is not connected to b.translateZ"},
                     {"connectAttr \"s.pt[0:2]\" a.tx;", "ERROR: 's.pt[0:2]' is no range of elements"},
                     {"connectionInfo -id a.zap;", "ERROR: No attribute matches name: a.zap"},
                     {"connectionInfo a.tx;", "ERROR: connectionInfo needs a flag that says what is asked"},
                     {"isConnected a.tx;", "ERROR: isConnected needs a source and a destination"},
                     {"listConnections gone;", "ERROR: No object matches name: gone"}});
}

TEST(ConnectionCommands, ConnectAskAndDisconnect) {
    MelScene mel(kScene);
    expectRows(mel, {{"connectAttr a.tx b.tx; isConnected a.tx b.tx;", "1"},
                     {"isConnected a.ty b.tx;", "0"},
                     {"connectionInfo -id b.tx;", "1"},
                     {"connectionInfo -is a.tx;", "1"},
                     {"connectionInfo -sfd b.tx;", "a.translateX"},
                     {"connectionInfo -dfs a.tx;", "(b.translateX)"},
                     {"connectionInfo -sfd b.ty;", ""},
                     {"connectAttr -f c.o b.tx; connectionInfo -sfd b.tx;", "c.output"},
                     {"connectAttr a.r b.r; connectionInfo -sfd b.rx;", "a.rotateX"},
                     {"connectionInfo -ied b.rx;", "0"},
                     {"connectAttr -l on a.tz b.tz; connectionInfo -il b.tz;", "1"},
                     {"listConnections b;", "(c|a|a)"},
                     {"listConnections -s off -d on a;", "(b|b)"},
                     {"listConnections -p on -c on b.tx;", "(b.translateX|c.output)"},
                     {"listConnections -t animCurve b;", "(c)"},
                     {"disconnectAttr c.o b.tx; listConnections b.tx;", "()"}});
}

TEST(ConnectionCommands, PathsTellInstances) {
    MelScene mel(kScene);
    expectRows(mel, {{"connectAttr -na \"|b|s.iog\" sg.dsm; connectionInfo -sfd \"sg.dsm[0]\";", "s.instObjGroups[1]"},
                     {"connectAttr -na \"|a|s.iog\" sg.dsm; connectionInfo -sfd \"sg.dsm[1]\";", "s.instObjGroups[0]"},
                     {"connectAttr \"|b|s.iog.og[2]\" \"sg.dsm[5]\"; connectionInfo -sfd \"sg.dsm[5]\";",
                      "s.instObjGroups[1].objectGroups[2]"},
                     {"disconnectAttr -na \"|b|s.iog\" sg.dsm; connectionInfo -sfd \"sg.dsm[0]\";", ""},
                     {"connectAttr -na \"|b|s.iog\" sg.dsm; connectionInfo -sfd \"sg.dsm[0]\";", "s.instObjGroups[1]"},
                     {"listConnections -sh off sg;", "(a|a|a)"},
                     {"listConnections -sh on sg;", "(s|s|s)"}});
}

} // namespace

} // namespace host
