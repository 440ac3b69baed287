#include "host/scene/applyReferenceEdits.h"

#include "SceneFiles.h"

#include <gmock/gmock.h>

#include <cmath>
#include <iterator>
#include <random>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Two groups, one below the other, a curve that turns the lower one, and a layer.
const char* const kRig = "createNode transform -n \"root\";\n\tsetAttr \".tx\" 1;\n"
                         "createNode transform -n \"hand\" -p \"root\";\n\tsetAttr \".ty\" 2;\n"
                         "createNode transform -n \"other\";\n"
                         "createNode animCurveTA -n \"turn\";\n\tsetAttr \".ktv[0]\"  1 30;\n"
                         "connectAttr \"turn.o\" \"hand.rz\";\n"
                         "createNode displayLayer -n \"layer\";\n\tsetAttr \".v\" no;\n";

// A scene that refers to the rig as x, and whose reference node has these edits.
struct EditedRig : SceneFiles {
    EditedRig() { write("rig.ma", kRig); }

    std::vector<std::string> open(int count, const std::string& edits, const std::string& own = "") {
        write("main.ma", referenceText("x", "rig.ma") +
                             "createNode reference -n \"xRN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\" \n"
                             "\t\t\"xRN\"\n\t\t\"xRN\" 0\n\t\t\"xRN\" " +
                             std::to_string(count) + "\n" + edits + ";\n" + own);
        return SceneFiles::open("main.ma");
    }
    std::string sourceOf(const std::string& plug) {
        const Plug source = opened.scene.graph().sourceOf(opened.scene.findPlug(plug).plug);
        return source ? source.node->name() + "." + opened.scene.graph().plugName(*source.node, source.at, false) : "";
    }
};

// --- edits that find nothing

struct Unfit {
    const char* name;
    std::string edit;
    std::string reason;
};

void PrintTo(const Unfit& row, std::ostream* out) {
    *out << row.name;
}

class UnfitEdit : public testing::TestWithParam<Unfit> {};

TEST_P(UnfitEdit, IsToldAndTheOthersAreDone) {
    EditedRig rig;
    const std::vector<std::string> lines = rig.open(2, GetParam().edit + " 2 \"x:root\" \"translateX\" \" 7\"");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_THAT(lines[0], testing::EndsWith("): 1 of 2 edits of reference 'xRN' do not fit what it brings; the "
                                            "first: " +
                                            GetParam().reason));
    EXPECT_EQ(rig.opened.number("x:root.tx"), 7.0);
}

INSTANTIATE_TEST_SUITE_P(
    All, UnfitEdit,
    testing::Values(Unfit{"NodeThatIsGone", "2 \"|x:gone\" \"tx\" \" 1\"", "No object matches name: |x:gone"},
                    Unfit{"AttributeThatIsGone", "2 \"x:root\" \"zap\" \" 1\"",
                          "unknown attribute 'zap' of node type 'transform' is skipped"},
                    Unfit{"BrokenValue", "2 \"x:root\" \"translateY\" \" -type \\\"double3\\\" 1\"",
                          "value of type 'double3' does not fit attribute 'x:root.translateY'"},
                    Unfit{"CutValue", "2 \"x:root\" \"translate\" \" -type \\\"double3\\\" 1\"",
                          "expected a number, found end of text"},
                    Unfit{"WithoutTexts", "2", "an edit does not name all that it is about"},
                    Unfit{"ConnectionThatIsGone", "3 \"x:root.tx\" \"x:hand.rz\" \"\"",
                          "x:root.translateX is not connected to x:hand.rotateZ"},
                    Unfit{"PlaceholderOfNothing", "5 4 \"xRN\" \"x:gone.tx\" \"xRN.phl[1]\" \"\"",
                          "No object matches name: x:gone"},
                    Unfit{"ParentThatIsGone", "0 \"x:hand\" \"x:gone\" \"-s -r\"", "No object matches name: x:gone"},
                    Unfit{"ParentBelowItself", "0 \"x:root\" \"x:hand\" \"-s -r\"",
                          "x:root cannot be placed below itself"},
                    Unfit{"DeletedAttribute", "4 \"x:root\" \"extra\" ", "attribute 'x:root.extra' stays"},
                    Unfit{"UnknownKind", "77 \"x:root\"", "this kind of edit is not known"}),
    [](const auto& row) { return row.param.name; });

TEST(ReferenceEdits, BrokenOnesBreakTheScene) {
    EditedRig rig;
    rig.write("main.ma", referenceText("x", "rig.ma") + "createNode reference -n \"xRN\";\n"
                                                        "\tsetAttr \".ed\" -type \"dataReferenceEdits\" {;\n");
    EXPECT_EQ(rig.opened.scene.open(rig.folder.path("main.ma")).error,
              rig.folder.path("main.ma") + ":5:43: expected an edit of a reference, found '{'");
    rig.write("main.ma", "createNode reference -n \"xRN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\" 3;\n");
    EXPECT_EQ(rig.opened.scene.open(rig.folder.path("main.ma")).error,
              rig.folder.path("main.ma") + ":3:44: expected the name of a reference node, found ';'");
}

TEST(ReferenceEdits, OfAMissingReferenceWait) {
    EditedRig rig;
    rig.write("main.ma", referenceText("y", "gone.ma") + "createNode reference -n \"yRN\";\n"
                                                         "\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"yRN\"\n"
                                                         "\t\t\"yRN\" 2 2 \"y:a\" \"tx\" \" 1\"\n"
                                                         "\t\t5 4 \"yRN\" \"y:a.tx\" \"yRN.phl[1]\" \"\";\n"
                                                         "createNode transform -n \"b\";\n"
                                                         "connectAttr \"b.tx\" \"yRN.phl[1]\";\n");
    EXPECT_THAT(rig.SceneFiles::open("main.ma"), ElementsAre(testing::HasSubstr("'yRN' is not loaded")));
    EXPECT_EQ(rig.sourceOf("yRN.phl[1]"), "b.tx");
}

// --- each kind

TEST(ReferenceEdits, SetValuesInTheSceneSUnits) {
    EditedRig rig;
    EXPECT_THAT(rig.open(4,
                         "\t\t2 \"|x:root\" \"translate\" \" -type \\\"double3\\\" 1 2 3\"\n"
                         "\t\t2 \"|x:root|x:hand\" \n\t\t\"visibility\" \" -k off 0\"\n"
                         "\t\t2 \"x:layer\" \"visibility\" \" 1\"\n"
                         "\t\t2 \"x:root\" \"rotateX\" \" -av 1\"",
                         ""),
                IsEmpty());
    EXPECT_EQ(rig.opened.numbers("x:root.t"), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(rig.opened.number("x:hand.v"), 0.0);
    EXPECT_EQ(rig.opened.number("x:layer.v"), 1.0);
    rig.write("metres.ma", "currentUnit -l meter -a degree -t film;\n" + referenceText("x", "rig.ma") +
                               "createNode reference -n \"xRN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\" "
                               "\"xRN\" \"xRN\" 1 2 \"x:root\" \"ty\" \" 3\";\n");
    EXPECT_THAT(rig.SceneFiles::open("metres.ma"), IsEmpty());
    EXPECT_EQ(rig.opened.number("x:root.tx"), 0.01); // of the rig, which is in centimetres
    EXPECT_EQ(rig.opened.number("x:root.ty"), 3.0);
}

TEST(ReferenceEdits, AddAttributes) {
    EditedRig rig;
    EXPECT_THAT(rig.open(2, "\t\t1 |x:root|x:hand \"noCut\" \"nc\" \" -ci 1 -k 1 -dv 0 -min 0 -max 1 -at "
                            "\\\"long\\\"\"\n\t\t2 \"|x:root|x:hand\" \"noCut\" \" -k 1 1\""),
                IsEmpty());
    EXPECT_EQ(rig.opened.number("x:hand.nc"), 1.0);
}

TEST(ReferenceEdits, MoveNodes) {
    constexpr double kThirtyDegrees = 0.5235987755982988; // the hand is turned
    EditedRig rig;
    EXPECT_THAT(rig.open(3,
                         "\t\t0 \"|x:root\" \"|group\" \"-s -r \"\n"
                         "\t\t0 \"|xRNfosterParent1|hat\" \"|x:root|x:hand\" \"-s -r \"\n"
                         "\t\t2 \"|group|x:root\" \"translateX\" \" 5\"",
                         "createNode transform -n \"group\";\n\tsetAttr \".tx\" 10;\n"
                         "createNode fosterParent -n \"xRNfosterParent1\";\n"
                         "createNode transform -n \"hat\" -p \"xRNfosterParent1\";\n\tsetAttr \".tx\" 100;\n"
                         "connectAttr \"xRNfosterParent1.msg\" \"xRN.fp\";\n"),
                IsEmpty());
    EXPECT_DOUBLE_EQ(rig.opened.numbers("|group|x:root|x:hand|hat.wm")[12], 15.0 + 100.0 * std::cos(kThirtyDegrees));
    EXPECT_EQ(rig.opened.node("xRNfosterParent1"), nullptr);
}

TEST(ReferenceEdits, DisconnectAndConnect) {
    EditedRig rig;
    EXPECT_THAT(rig.open(4,
                         "\t\t2 \"x:hand\" \"rotateZ\" \" 12\"\n"
                         "\t\t3 \"x:turn.output\" \"|x:root|x:hand.rotateZ\" \"\"\n"
                         "\t\t5 0 \"xRN\" \"x:layer.drawInfo\" \"|x:root.drawOverride\" \n"
                         "\t\t\"xRN.placeHolderList[1]\" \"xRN.placeHolderList[2]\" \"\"\n"
                         "\t\t5 4 \"xRN\" \"|x:root|x:hand.translateX\" \"xRN.placeHolderList[3]\" \"\"",
                         "createNode animCurveTL -n \"own\";\n\tsetAttr \".ktv[0]\"  1 6;\n"
                         "connectAttr \"xRN.phl[1]\" \"xRN.phl[2]\";\nconnectAttr \"own.o\" \"xRN.phl[3]\";\n"),
                IsEmpty());
    EXPECT_EQ(rig.sourceOf("x:hand.rz"), "");
    EXPECT_NEAR(rig.opened.number("x:hand.rz"), 12.0, 1e-12);
    EXPECT_EQ(rig.sourceOf("x:root.do"), "x:layer.di");
    EXPECT_EQ(rig.opened.number("x:root.overrideVisibility"), 0.0);
    EXPECT_EQ(rig.opened.number("x:root.overrideEnabled"), 1.0);
    EXPECT_EQ(rig.sourceOf("x:hand.tx"), "own.o");
    EXPECT_EQ(rig.opened.number("x:hand.tx"), 6.0);
    EXPECT_EQ(rig.sourceOf("xRN.phl[2]"), "");
    EXPECT_EQ(rig.sourceOf("xRN.phl[3]"), "");
}

TEST(ReferenceEdits, ConnectFromAReference) {
    EditedRig rig;
    EXPECT_THAT(rig.open(2,
                         "\t\t5 3 \"xRN\" \"|x:root.translateX\" \"xRN.placeHolderList[1]\" \"\"\n"
                         "\t\t5 3 \"xRN\" \"|x:root|x:hand.message\" \"xRN.placeHolderList[2]\" \"\"",
                         "createNode transform -n \"b\";\ncreateNode objectSet -n \"s\";\n"
                         "connectAttr \"xRN.phl[1]\" \"b.ty\";\nconnectAttr \"xRN.phl[2]\" \"s.dnsm\" -na;\n"),
                IsEmpty());
    EXPECT_EQ(rig.opened.number("b.ty"), 1.0);
    EXPECT_EQ(rig.sourceOf("s.dnsm[0]"), "x:hand.msg");
}

TEST(ReferenceEdits, ConnectOneReferenceToAnother) {
    EditedRig rig;
    rig.write("main.ma",
              referenceText("x", "rig.ma") + referenceText("y", "rig.ma") +
                  "createNode reference -n \"xRN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"xRN\"\n"
                  "\t\t\"xRN\" 1 5 3 \"xRN\" \"x:root.tx\" \"xRN.phl[1]\" \"\";\n"
                  "createNode reference -n \"yRN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\" \"yRN\"\n"
                  "\t\t\"yRN\" 1 5 4 \"yRN\" \"y:hand.tz\" \"yRN.phl[9]\" \"\";\n"
                  "connectAttr \"xRN.phl[1]\" \"yRN.phl[9]\";\n");
    EXPECT_THAT(rig.SceneFiles::open("main.ma"), IsEmpty());
    EXPECT_EQ(rig.sourceOf("y:hand.tz"), "x:root.tx");
    EXPECT_EQ(rig.opened.number("y:hand.tz"), 1.0);
}

TEST(ReferenceEdits, AddMembersToASetOfAReference) {
    EditedRig rig;
    rig.write("rig.ma", "createNode shadingEngine -n \"sg\";\ncreateNode mesh -n \"m\";\n"
                        "connectAttr \"m.iog\" \"sg.dsm\" -na;\n");
    EXPECT_THAT(rig.open(1, "\t\t5 4 \"xRN\" \"x:sg.dagSetMembers\" \"xRN.placeHolderList[1]\" \"\"",
                         "createNode mesh -n \"own\";\nconnectAttr \"own.iog\" \"xRN.phl[1]\";\n"),
                IsEmpty());
    EXPECT_EQ(rig.sourceOf("x:sg.dsm[0]"), "x:m.iog[0]");
    EXPECT_EQ(rig.sourceOf("x:sg.dsm[1]"), "own.iog[0]");
}

// A scene takes the faces of a reference's mesh out of its material, and puts them into its own and another.
TEST(ReferenceEdits, AssignMaterialsToFaces) {
    EditedRig rig;
    rig.write("rig.ma", "createNode transform -n \"body\";\ncreateNode mesh -n \"bodyShape\" -p \"body\";\n"
                        "createNode shadingEngine -n \"sg\";\nconnectAttr \"bodyShape.iog\" \"sg.dsm\" -na;\n");
    const std::string shape = "|x:body|x:bodyShape.instObjGroups";
    EXPECT_THAT(
        rig.open(5,
                 "\t\t2 \"|x:body|x:bodyShape\" \"instObjGroups.objectGroups\" \" -s 2\"\n"
                 "\t\t2 \"|x:body|x:bodyShape\" \"instObjGroups.objectGroups[1].objectGrpCompList\" "
                 "\" -type \\\"componentList\\\" 1 \\\"f[0:3]\\\"\"\n\t\t3 \"" +
                     shape + "\" \"x:sg.dagSetMembers\" \"-na\"\n\t\t5 4 \"xRN\" \"" + shape +
                     ".objectGroups[1].objectGroupId\" \n\t\t\"xRN.placeHolderList[1]\" \"\"\n\t\t5 3 \"xRN\" \"" +
                     shape + ".objectGroups[1]\" \n\t\t\"xRN.placeHolderList[2]\" \"own.dsm\"",
                 "createNode groupId -n \"g\";\ncreateNode shadingEngine -n \"own\";\n"
                 "connectAttr \"g.id\" \"xRN.phl[1]\";\nconnectAttr \"xRN.phl[2]\" \"own.dsm\" -na;\n"),
        IsEmpty());
    EXPECT_EQ(rig.sourceOf("x:sg.dsm[0]"), "");
    EXPECT_EQ(rig.sourceOf("own.dsm[0]"), "x:bodyShape.iog[0].og[1]");
    EXPECT_EQ(rig.sourceOf("x:bodyShape.iog[0].og[1].gid"), "g.id");
    EXPECT_EQ(rig.opened.texts("x:bodyShape.iog[0].og[1].gcl"), std::vector<std::string>{"f[0:3]"});
}

// As the host stores that a scene has given a mesh of a reference another of its materials.
TEST(ReferenceEdits, ExchangeMaterialsWithinAReference) {
    EditedRig rig;
    rig.write("rig.ma", "createNode transform -n \"body\";\ncreateNode mesh -n \"bodyShape\" -p \"body\";\n"
                        "createNode shadingEngine -n \"old\";\ncreateNode shadingEngine -n \"new\";\n"
                        "createNode mesh -n \"other\";\nconnectAttr \"other.iog\" \"new.dsm\" -na;\n"
                        "connectAttr \"bodyShape.iog\" \"old.dsm\" -na;\n");
    EXPECT_THAT(rig.open(2,
                         "\t\t3 \"|x:body|x:bodyShape.instObjGroups\" \n\t\t\"x:old.dagSetMembers\" \"-na\"\n"
                         "\t\t5 0 \"xRN\" \"|x:body|x:bodyShape.instObjGroups\" \"x:new.dagSetMembers\" \n"
                         "\t\t\"xRN.placeHolderList[1]\" \"xRN.placeHolderList[2]\" \"x:new.dsm\"",
                         "connectAttr \"xRN.phl[1]\" \"xRN.phl[2]\";\n"),
                IsEmpty());
    EXPECT_EQ(rig.sourceOf("x:old.dsm[0]"), "");
    EXPECT_EQ(rig.sourceOf("x:new.dsm[0]"), "x:other.iog[0]");
    EXPECT_EQ(rig.sourceOf("x:new.dsm[1]"), "x:bodyShape.iog[0]");
    EXPECT_EQ(rig.sourceOf("xRN.phl[2]"), "");
}

TEST(ReferenceEdits, UnlockBeforeAndLockAfter) {
    EditedRig rig;
    rig.write("rig.ma", "createNode transform -n \"a\";\n\tsetAttr -l on \".tx\" 1;\n");
    EXPECT_THAT(rig.open(3, "2 \"x:a\" \"tx\" \" 5\" 8 \"x:a\" \"tx\" 9 \"x:a\" \"tx\""), IsEmpty());
    EXPECT_EQ(rig.opened.number("x:a.tx"), 5.0);
    EXPECT_TRUE(rig.opened.scene.graph().isLocked(rig.opened.scene.findPlug("x:a.tx").plug));
    EXPECT_THAT(rig.open(1, "2 \"x:a\" \"tx\" \" 5\""), ElementsAre(testing::HasSubstr("x:a.translateX is locked")));
}

TEST(ReferenceEdits, LightLinksAreReadOver) {
    EditedRig rig;
    EXPECT_THAT(rig.open(3, "7 \"link\" \":lightLinker1\" 2 \"x:sg.message\" \":defaultLightSet.message\"\n"
                            "6 \"shadowLink\" \":lightLinker1\" \"x:sg.message\"\n"
                            "2 \"x:root\" \"tx\" \" 5\""),
                IsEmpty());
    EXPECT_EQ(rig.opened.number("x:root.tx"), 5.0);
}

// A scene changes what a file below its reference brought, in a block of its own.
TEST(ReferenceEdits, OfNestedReferences) {
    EditedRig rig;
    rig.write("middle.ma", referenceText("x", "rig.ma") +
                               "createNode reference -n \"xRN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\"\n"
                               "\t\t\"xRN\"\n\t\t\"xRN\" 2\n\t\t2 \"|x:root\" \"translateX\" \" 2\"\n"
                               "\t\t2 \"|x:root\" \"translateY\" \" 2\";\n");
    rig.write("main.ma", referenceText("m", "middle.ma") +
                             "createNode reference -n \"mRN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\"\n"
                             "\t\t\"mRN\"\n\t\t\"m:xRN\" 1\n\t\t2 \"|m:x:root\" \"translateX\" \" 3\"\n\t\t\"mRN\" 0\n"
                             "\t\t\"m:xRN\" 1\n\t\t2 \"|m:x:root|m:x:hand\" \"translateX\" \" 4\";\n");
    EXPECT_THAT(rig.SceneFiles::open("main.ma"), IsEmpty());
    EXPECT_EQ(rig.opened.number("m:x:root.tx"), 3.0);
    EXPECT_EQ(rig.opened.number("m:x:root.ty"), 2.0);
    EXPECT_EQ(rig.opened.number("m:x:hand.tx"), 4.0);
}

// Pieces of edits in any order, with any counts: the scene opens, and says so.
TEST(ReferenceEdits, MixedAtRandomNeverBreakTheScene) {
    const char* const pieces[] = {"0",
                                  "1",
                                  "2",
                                  "3",
                                  "4",
                                  "5",
                                  "6",
                                  "7",
                                  "8",
                                  "9",
                                  "-3",
                                  "999999999999",
                                  "-9223372036854775808",
                                  "\"xRN\"",
                                  "\"x:root\"",
                                  "x:hand",
                                  "\"x:other\"",
                                  "\"\"",
                                  "\" -s -r\"",
                                  "\"xRN.phl[1]\"",
                                  "\"xRN.phl[2]\"",
                                  "\"x:hand.rotateZ\"",
                                  "\"x:turn.output\"",
                                  "\"translateX\"",
                                  "\" 4\"",
                                  "\"x:layer.drawInfo\"",
                                  "\"x:root.drawOverride\"",
                                  "\" -at \\\"long\\\"\"",
                                  "\"-w\"",
                                  "\"|x:root|x:hand\"",
                                  "\"a;b\"",
                                  "\"\\\"\""};
    std::mt19937 random(11);
    EditedRig rig;
    for (int run = 0; run < 150; ++run) {
        std::string text;
        for (std::size_t count = random() % 25; count > 0; --count) {
            text += std::string(pieces[random() % std::size(pieces)]) + " ";
        }
        rig.open(static_cast<int>(random() % 5), text,
                 "createNode transform -n \"own\";\nconnectAttr \"own.tx\" \"xRN.phl[1]\";\n"
                 "connectAttr \"xRN.phl[1]\" \"xRN.phl[2]\";\nconnectAttr \"xRN.phl[2]\" \"own.ty\";\n");
        EXPECT_TRUE(rig.opened.result.ok()) << text;
        EXPECT_NE(rig.opened.node("own"), nullptr) << text;
    }
}

} // namespace

} // namespace host
