#include "host/scene/MaReader.h"

#include "OpenedScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct BrokenRow {
    const char* name;
    std::string text; // a whole file
    const char* error;
};

class BrokenScene : public testing::TestWithParam<BrokenRow> {};

TEST_P(BrokenScene, FailsWithItsPlaceAndLeavesAnEmptyScene) {
    OpenedScene opened;
    const std::size_t emptyCount = opened.scene.graph().nodes().size();
    const SceneResult result = opened.scene.openText(GetParam().text, "s.ma");
    EXPECT_EQ(result.error, GetParam().error);
    EXPECT_EQ(opened.scene.graph().nodes().size(), emptyCount);
    EXPECT_EQ(opened.scene.file().path, "");
}

const std::string kHead = "//Maya ASCII 2018 scene\n";

INSTANTIATE_TEST_SUITE_P(
    All, BrokenScene,
    testing::Values(
        BrokenRow{"UnterminatedString", kHead + "createNode transform -n \"a;\n",
                  "s.ma:2:25: expected a text, found unterminated string"},
        BrokenRow{"UnterminatedComment", kHead + "/* a", "s.ma:2:1: expected a command, found unterminated comment"},
        BrokenRow{"MissingNodeType", kHead + "createNode -n \"a\";", "s.ma:2:18: expected a node type, found ';'"},
        BrokenRow{"MissingFlagValue", kHead + "createNode transform -n;", "s.ma:2:24: expected a text, found ';'"},
        BrokenRow{"MissingSemicolonAtTheEnd", kHead + "createNode transform -n \"a\"",
                  "s.ma:2:28: expected ';', found end of text"},
        BrokenRow{"CutInANumberList", kHead + "createNode mesh -n \"m\";\n\tsetAttr -s 8 \".vt[0:7]\"  1 2 3 4 5",
                  "s.ma:3:36: expected a number, found end of text"},
        BrokenRow{"CutInAnIgnoredStatement", kHead + "requires maya \"2018\"",
                  "s.ma:2:21: expected ';', found end of text"},
        BrokenRow{"MissingNumber", kHead + "createNode transform;\nsetAttr \".t\" -type \"double3\" 1 2 ;",
                  "s.ma:3:34: expected a number, found ';'"},
        BrokenRow{"WordForANumber", kHead + "createNode transform;\nsetAttr \".tx\" much;",
                  "s.ma:3:15: expected a number, found 'much'"},
        BrokenRow{"StringForANumber", kHead + "createNode transform;\nsetAttr \".tx\" \"1\";",
                  "s.ma:3:15: expected a number, found string \"1\""},
        BrokenRow{"TypeWithoutValue", kHead + "createNode transform;\nsetAttr \".t\" -type \"double3\" ;",
                  "s.ma:3:30: expected a value, found ';'"},
        BrokenRow{"SetAttrWithoutName", kHead + "createNode transform;\nsetAttr -k on;",
                  "s.ma:3:14: expected the name of an attribute, found ';'"},
        BrokenRow{"RangeThatClaimsTwoBillionRows",
                  kHead + "createNode mesh;\nsetAttr -s 2000000000 \".vt[0:2000000000]\" 1 2 3;",
                  "s.ma:3:48: expected a number, found ';'"},
        BrokenRow{"ListThatClaimsTwoBillionTexts",
                  kHead + "createNode transform;\naddAttr -ln \"t\" -dt \"stringArray\";\n"
                          "setAttr \".t\" -type \"stringArray\" 2000000000 \"a\";",
                  "s.ma:4:48: expected a string, found ';'"},
        BrokenRow{"RaggedRangeThatClaimsTwoBillion",
                  kHead + "createNode skinCluster;\nsetAttr \".wl[0:2000000000].w\" 1 0 1;",
                  "s.ma:3:36: expected a count, found ';'"},
        BrokenRow{"RaggedIndexBelowZero", kHead + "createNode skinCluster;\nsetAttr \".wl[0:1].w\" 1 -1 1;",
                  "s.ma:3:27: expected an element index, found '1'"},
        BrokenRow{"NegativeCount",
                  kHead + "createNode transform;\naddAttr -ln \"t\" -dt \"doubleArray\";\n"
                          "setAttr \".t\" -type \"doubleArray\" -1;",
                  "s.ma:4:36: expected a count, found ';'"},
        BrokenRow{"FaceWithTooFewEdges", kHead + "createNode mesh;\nsetAttr \".fc[0]\" -type \"polyFaces\" f 4 0 1 2 ;",
                  "s.ma:3:46: face 0: 1 numbers are missing"},
        BrokenRow{"OpenBrace",
                  kHead + "createNode blendShape;\nsetAttr \".aal\" -type \"attributeAlias\" {\"a\",\"b\" ;",
                  "s.ma:3:39: expected pairs of strings in braces, found '{'"},
        BrokenRow{"OneNameToConnect", kHead + "connectAttr \"a.b\";",
                  "s.ma:2:18: expected a source and a destination, found ';'"},
        BrokenRow{"NumberAsCommand", kHead + "12 3;", "s.ma:2:1: expected a command, found '12'"},
        BrokenRow{"StringAsCommand", kHead + "\"a\";", "s.ma:2:1: expected a command, found string \"a\""},
        BrokenRow{"NulByte", kHead + std::string("createNode\0transform;", 21),
                  "s.ma:2:11: expected a name or a flag, found unexpected character"},
        BrokenRow{"AnotherLanguage", "int main() {\n}\n", "s.ma:1:1: expected a command of a scene file, found 'int'"},
        BrokenRow{"RandomBytes", "\x89PNG\r\n\x1a\n\x00\x00",
                  "s.ma:1:1: expected a command, found unexpected character"}),
    [](const auto& row) { return row.param.name; });

TEST(MaReader, RandomBytesNeverOpenAsAScene) {
    std::mt19937 random(7);
    OpenedScene opened;
    for (int run = 0; run < 200; ++run) {
        std::string bytes(1 + random() % 400, ' ');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        EXPECT_FALSE(opened.scene.openText(bytes, "s.ma").ok());
    }
}

// A statement that is cut anywhere in the file is an error; a file cut between two statements is a shorter scene.
TEST(MaReader, TruncatedFilesFailUnlessCutBetweenStatements) {
    const std::string whole = kHead + "createNode transform -n \"a\";\n\tsetAttr \".t\" -type \"double3\" 1 2 3 ;\n"
                                      "createNode mesh -n \"m\" -p \"a\";\n\tsetAttr -s 2 \".vt[0:1]\" 0 0 0 1 1 1;\n"
                                      "connectAttr \"a.tx\" \"a.ty\";\n";
    OpenedScene opened;
    for (std::size_t length = kHead.size(); length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const std::size_t last = cut.find_last_not_of("\n\t ");
        const bool isBetween = cut[last] == ';' || length == kHead.size() || last + 1 == kHead.size() - 1;
        EXPECT_EQ(opened.scene.openText(cut, "s.ma").ok(), isBetween) << cut;
    }
}

struct SkippedRow {
    const char* name;
    std::string statements; // from line 2 on
    std::vector<std::string> warnings;
};

class SkippedStatement : public testing::TestWithParam<SkippedRow> {};

TEST_P(SkippedStatement, IsToldAndTheSceneOpens) {
    OpenedScene opened(GetParam().statements + "\ncreateNode transform -n \"last\";");
    EXPECT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.warnings, GetParam().warnings);
    EXPECT_NE(opened.node("last"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    All, SkippedStatement,
    testing::Values(
        SkippedRow{"UnknownCommandOnce",
                   "frobnicate 1 2;\nfrobnicate \"a;b\" (1);",
                   {"s.ma(2): unknown command 'frobnicate' is skipped"}},
        SkippedRow{"CommandsThatRunThings",
                   "eval \"quit\";\nsystem(\"rm x\");\npython \"1\";\nloadPlugin \"x\";\nquit;",
                   {"s.ma(2): command 'eval' is not run from a scene file",
                    "s.ma(3): command 'system' is not run from a scene file",
                    "s.ma(4): command 'python' is not run from a scene file",
                    "s.ma(5): command 'loadPlugin' is not run from a scene file",
                    "s.ma(6): command 'quit' is not run from a scene file"}},
        SkippedRow{"FileThatSaves",
                   "file -save;",
                   {"s.ma(2): unknown flag '-save' of command 'file' is skipped",
                    "s.ma(2): command 'file' is not run from a scene file"}},
        SkippedRow{"ScriptNodeThatRuns",
                   "createNode script -n \"s\";\nsetAttr \".b\" -type \"string\" \"evil\";\nsetAttr \".st\" 1;",
                   {"s.ma(5): script node 's' is not run"}},
        SkippedRow{
            "UnknownNodeTypeOnce",
            "createNode flux -n \"f\";\n\tsetAttr \".x\" 1;\ncreateNode flux -n \"g\";\nconnectAttr \"f.a\" \"g.b\";",
            {"s.ma(2): unknown node type 'flux': its nodes keep their names and place, but do nothing"}},
        SkippedRow{
            "UnknownAttributeOncePerType",
            "createNode transform;\n\tsetAttr \".zap[3].q\" 1;\ncreateNode transform;\n\tsetAttr \".zap[4].q\" 2;\n"
            "createNode mesh;\n\tsetAttr \".zap\" 2;",
            {"s.ma(3): unknown attribute 'zap.q' of node type 'transform' is skipped",
             "s.ma(7): unknown attribute 'zap' of node type 'mesh' is skipped"}},
        SkippedRow{"FlagsAloneOfUnknownAttributesLoseNothing",
                   "createNode transform;\n\tsetAttr -k off \".zap\";\n\tsetAttr -s 3 \".zap\";",
                   {}},
        SkippedRow{"UnknownFlags",
                   "createNode transform -zz 1 -n \"a\";\n\tsetAttr -qq yes \".tx\" 1;",
                   {"s.ma(2): unknown flag '-zz' of command 'createNode' is skipped",
                    "s.ma(3): unknown flag '-qq' of command 'setAttr' is skipped"}},
        SkippedRow{
            "ConnectionsWithoutEnds",
            "createNode transform -n \"a\";\nconnectAttr \"gone.tx\" \"a.tx\";\nconnectAttr \"a.zap\" \"a.tx\";\n"
            "connectAttr \"a.tx\" \"a.rotate\";",
            {"s.ma(3): No object matches name: gone",
             "s.ma(4): unknown attribute 'zap' of node type 'transform' is skipped",
             "s.ma(5): a.translateX and a.rotate hold different kinds of value"}},
        SkippedRow{"MissingReferencesOnce",
                   "file -rdi 1 -ns \"b\" -rfn \"bRN\" -op \"v=0;\" -typ \"mayaAscii\" \"C:/x/b.ma\";\n"
                   "file -r -ns \"b\" -dr 1 -rfn \"bRN\" -op \"v=0;\" -typ \"mayaAscii\" \"C:/x/b.ma\";\n"
                   "file -r -rpr \"old\" -rfn \"oldRN\" \"old.ma\";",
                   {"s.ma(3): reference 'bRN' is not loaded, so that its nodes are missing in the scene: File not "
                    "found: C:/x/b.ma",
                    "s.ma(4): reference 'oldRN' is not loaded, so that its nodes are missing in the scene: File not "
                    "found: old.ma"}},
        SkippedRow{"ParentThatIsNotThere",
                   "createNode transform -n \"a\" -p \"gone\";",
                   {"s.ma(2): No object matches name: gone"}},
        SkippedRow{"ParentThatIsAShape",
                   "createNode transform -n \"a\";\ncreateNode mesh -n \"m\" -p \"a\";\n"
                   "createNode transform -n \"b\" -p \"m\";",
                   {"s.ma(4): 'm' cannot have children; 'b' is placed below the world"}},
        SkippedRow{
            "CyclicParents",
            "createNode transform -n \"a\";\ncreateNode transform -n \"b\" -p \"a\";\nparent -s -nc -r \"a\" \"b\";",
            {"s.ma(4): a cannot be placed below itself"}},
        SkippedRow{"IllegalName",
                   "createNode transform -n \"a b-c\";",
                   {"s.ma(2): name 'a b-c' is not legal; the node is called 'a_b_c'"}},
        SkippedRow{"ValuesOfTheWrongType",
                   "createNode transform;\n\tsetAttr \".tx\" -type \"string\" \"a\";\n\tsetAttr \".t\" -type "
                   "\"matrix\" 1 0 0 0 0 1 0 "
                   "0 0 0 1 0 0 0 0 1;\n\tsetAttr \".r\" -type \"double2\" 1 2;\n\tsetAttr \".msg\" 3;",
                   {"s.ma(3): value of type 'string' does not fit attribute '.tx'",
                    "s.ma(4): value of type 'matrix' does not fit attribute '.t'",
                    "s.ma(5): value of type 'double2' does not fit attribute '.r'",
                    "s.ma(6): attribute '.msg' holds no value"}},
        SkippedRow{"TooManyValues",
                   "createNode transform;\n\tsetAttr \".tx\" 1 2 3;",
                   {"s.ma(3): more values than attribute '.tx' takes"}},
        SkippedRow{
            "UnknownValueType",
            "createNode transform;\naddAttr -ln \"g\" -at \"generic\";\n\tsetAttr \".g\" -type \"zebra\" { 1 2 };",
            {"s.ma(4): unknown value type 'zebra' is skipped: .g"}},
        SkippedRow{"UnknownUnits", "currentUnit -l parsec -t ntsc;", {"s.ma(2): unknown unit 'parsec'"}},
        SkippedRow{"NothingToSetOn", "setAttr \".tx\" 1;", {"s.ma(2): no current node to set '.tx' on"}},
        SkippedRow{"DefaultNodesOfLaterVersions",
                   "select -ne :openPBR_shader1;\n\tsetAttr \".ro\" 1;\naddAttr -ln \"x\" -at \"bool\";",
                   {}},
        SkippedRow{"KnownWithoutMeaning",
                   "requires -nodeType \"a\" -dataType \"b\" \"plug\" \"1\";\nrelationship \"link\" \":lightLinker1\" "
                   "\"a.message\" "
                   "\"b.message\";\nlockNode -l 1 ;\ndataStructure -fmt \"raw\" -as \"name=x\";\napplyMetadata -fmt "
                   "\"raw\" -v \"channel\";",
                   {}}),
    [](const auto& row) { return row.param.name; });

TEST(MaReader, ReadsHeadingUnitsInfoAndRange) {
    OpenedScene opened("requires maya \"2018\";currentUnit -linear millimeter -angle radian -time pal;\n"
                       "fileInfo \"application\" \"maya\";\nfileInfo \"osv\" \"Windows\\n\";\n"
                       "createNode script -n \"sceneConfigurationScriptNode\";\n"
                       "\tsetAttr \".b\" -type \"string\" \"playbackOptions -min 2.5 -max 120 -ast -3 -aet 200 \";\n"
                       "\tsetAttr \".st\" 6;\nselect -ne :time1;\n\tsetAttr \".o\" 12;\n\tsetAttr \".unw\" 12;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    EXPECT_EQ(opened.scene.units().linearName, "mm");
    EXPECT_EQ(opened.scene.units().angularName, "rad");
    EXPECT_EQ(opened.scene.units().framesPerSecond, 25.0);
    EXPECT_EQ(opened.scene.file().info.at("osv"), "Windows\n");
    EXPECT_EQ(opened.scene.playback().minimum, 2.5);
    EXPECT_EQ(opened.scene.playback().maximum, 120.0);
    EXPECT_EQ(opened.scene.playback().animationStart, -3.0);
    EXPECT_EQ(opened.scene.playback().animationEnd, 200.0);
    EXPECT_EQ(opened.scene.currentFrame(), 12.0);
    EXPECT_EQ(opened.scene.graph().time(), 12 * kTicksPerSecond / 25);
}

TEST(MaReader, RangeOfASceneThatTellsNone) {
    OpenedScene opened("createNode transform;");
    EXPECT_EQ(opened.scene.playback().minimum, 1.0);
    EXPECT_EQ(opened.scene.playback().maximum, 24.0);
    EXPECT_EQ(opened.scene.playback().animationStart, 1.0);
    EXPECT_EQ(opened.scene.playback().animationEnd, 48.0);
    EXPECT_EQ(opened.scene.currentFrame(), 1.0);
}

TEST(MaReader, LineEndsCommentsAndEmptyStatementsAreFree) {
    OpenedScene opened(";;\r\n// a comment; with a semicolon\r\ncreateNode /* here */ transform\r\n\t-n \"a\"\r\n;\r\n"
                       "\tsetAttr \".tx\" // five\r\n 5;\r\n// End of s.ma");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.number("a.tx"), 5.0);
}

TEST(MaReader, AByteOrderMarkIsNoText) {
    OpenedScene opened;
    EXPECT_TRUE(
        opened.scene.openText("\xEF\xBB\xBF//Maya ASCII 2018 scene\ncreateNode transform -n \"a\";", "s.ma").ok());
    EXPECT_NE(opened.node("a"), nullptr);
}

TEST(MaReader, LocksHoldOnlyAfterTheFile) {
    OpenedScene opened("createNode transform -n \"a\";\n\tsetAttr -l on -k off \".tx\" 5;\n\tsetAttr -l on \".ty\";\n"
                       "\tsetAttr \".ty\" 6;\ncreateNode animCurveTL -n \"c\";\n\tsetAttr \".ktv[0]\" 1 3;\n"
                       "connectAttr -l on \"c.o\" \"a.tx\";");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    EXPECT_EQ(opened.number("a.tx"), 3.0);
    EXPECT_EQ(opened.number("a.ty"), 6.0);
    EXPECT_TRUE(opened.scene.graph().isLocked(opened.scene.findPlug("a.ty").plug));
    EXPECT_TRUE(opened.scene.graph().isLocked(opened.scene.findPlug("a.tx").plug));
}

TEST(MaReader, FilesMayTakeWhatDefaultNodesHold) {
    OpenedScene opened("createNode blinn -n \"b\";\nconnectAttr \"b.oc\" \":initialShadingGroup.ss\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_THAT(opened.warnings, IsEmpty());
    const Plug source = opened.scene.graph().sourceOf(opened.scene.findPlug("initialShadingGroup.ss").plug);
    EXPECT_EQ(source.node, opened.node("b"));
}

TEST(MaReader, HugeAndOddNumbersAreAccepted) {
    OpenedScene opened("createNode transform -n \"a\";\n\tsetAttr \".tx\" 1e+400;\n\tsetAttr \".ty\" -1.#IND;\n"
                       "\tsetAttr \".tz\" 1e-005;\n\tsetAttr \".ro\" 99999999999999999999;\n\tsetAttr \".rx\" nan;\n"
                       "select -ne :time1;\n\tsetAttr \".o\" 1e300;\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.number("a.tx"), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(opened.number("a.ty")));
    EXPECT_EQ(opened.number("a.tz"), 1e-5);
}

TEST(MaReader, CyclicConnectionsOpen) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode transform -n \"b\";\nconnectAttr \"a.tx\" \"b.tx\";\n"
        "connectAttr \"b.tx\" \"a.tx\";\n");
    ASSERT_EQ(opened.result.error, "");
    EXPECT_EQ(opened.number("a.tx"), 0.0);
}

class NestedGroups : public testing::TestWithParam<int> {};

TEST_P(NestedGroups, OpenAndAddUp) {
    const int depth = GetParam();
    std::string text = "createNode transform -n \"n0\";\n\tsetAttr \".tx\" 1;\n";
    for (int level = 1; level < depth; ++level) {
        const std::string name = "n" + std::to_string(level);
        text += "createNode transform -n \"" + name + "\" -p \"n" + std::to_string(level - 1) +
                "\";\n\tsetAttr \".tx\" 1;\n";
    }
    OpenedScene opened(text);
    ASSERT_EQ(opened.result.error, "");
    const std::string last = "n" + std::to_string(depth - 1);
    EXPECT_EQ(opened.numbers(last + ".worldMatrix[0]")[12], depth);
    opened.scene.newScene();
    EXPECT_EQ(opened.node(last), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Depths, NestedGroups, testing::Values(100, 100000));

} // namespace

} // namespace host
