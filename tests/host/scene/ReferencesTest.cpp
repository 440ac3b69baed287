#include "host/scene/References.h"

#include "SceneFiles.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- files that cannot be read

constexpr const char* kNotLoaded = "reference 'xRN' is not loaded, so that its nodes are missing in the scene: ";

struct Unreadable {
    const char* name;
    std::string path;
    std::string bytes; // of that file; nothing is written when there are none
    std::string reason;
};

void PrintTo(const Unreadable& row, std::ostream* out) {
    *out << row.name;
}

class UnreadableReference : public testing::TestWithParam<Unreadable> {};

TEST_P(UnreadableReference, IsToldAndTheSceneOpensWithoutIt) {
    SceneFiles files;
    files.write("folder/inside.ma", "createNode transform;");
    ASSERT_EQ(::mkfifo(files.folder.path("pipe.ma").c_str(), 0600), 0);
    if (!GetParam().bytes.empty()) {
        files.writeBytes(GetParam().path, GetParam().bytes);
    }
    files.write("main.ma", referenceText("x", GetParam().path) + "createNode transform -n \"last\";\n");
    EXPECT_THAT(files.open("main.ma"), ElementsAre("@/main.ma(3): " + (kNotLoaded + GetParam().reason)));
    EXPECT_NE(files.opened.node("last"), nullptr);
    EXPECT_EQ(files.opened.node("x:a"), nullptr);
    EXPECT_THAT(files.opened.scene.file().references, ElementsAre(GetParam().path));
}

const std::string kHead = "//Maya ASCII 2018 scene\n";

INSTANTIATE_TEST_SUITE_P(
    All, UnreadableReference,
    testing::Values(
        Unreadable{"Missing", "gone.ma", "", "File not found: gone.ma"},
        Unreadable{"MissingOnAnotherMachine", "C:/work/scenes/gone.ma", "", "File not found: C:/work/scenes/gone.ma"},
        Unreadable{"WithoutAName", "", "", "File not found: "},
        Unreadable{"Folder", "folder", "", "File is a directory: @/folder"},
        Unreadable{"Device", "/dev/zero", "", "File is not a regular file: /dev/zero"},
        Unreadable{"Pipe", "pipe.ma", "", "File is not a regular file: @/pipe.ma"},
        Unreadable{"Binary", "rig.mb", "FOR4\1\2\3",
                   "File is a Maya Binary scene, which cannot be read; save it as Maya ASCII (.ma): @/rig.mb"},
        Unreadable{"BinaryUnderAnotherName", "rig.ma", "FOR8\1\2\3",
                   "File is a Maya Binary scene, which cannot be read; save it as Maya ASCII (.ma): @/rig.ma"},
        Unreadable{"NoScene", "notes.ma", "Buy milk",
                   "@/notes.ma:1:1: expected a command of a scene file, found 'Buy'"},
        Unreadable{"CutOff", "cut.ma", kHead + "createNode transform -n \"a\";\ncreateNode transform -n",
                   "@/cut.ma:3:24: expected a text, found end of text"},
        Unreadable{"Itself", "main.ma", "", "File refers to itself, directly or through others: @/main.ma"}),
    [](const auto& row) { return row.param.name; });

TEST(References, ThatReferToEachOtherAreReadOnce) {
    SceneFiles files;
    files.write("main.ma", referenceText("a", "a.ma"));
    files.write("a.ma", referenceText("b", "b.ma") + "createNode transform -n \"top\";\n");
    files.write("b.ma",
                referenceText("a", "../" + files.folder.path().substr(files.folder.path().rfind('/') + 1) + "/a.ma") +
                    "createNode transform -n \"top\";\n");
    const std::vector<std::string> lines = files.open("main.ma");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_THAT(lines[0], testing::StartsWith("@/b.ma(3): reference 'aRN' is not loaded, so that its nodes are missing "
                                              "in the scene: File refers to itself"));
    EXPECT_NE(files.opened.node("a:top"), nullptr);
    EXPECT_NE(files.opened.node("a:b:top"), nullptr);
    EXPECT_EQ(files.opened.node("a:b:a:top"), nullptr);
}

TEST(References, EndAtSomeDepth) {
    SceneFiles files;
    for (int level = 0; level < 40; ++level) {
        files.write(std::to_string(level) + ".ma", "createNode transform -n \"n" + std::to_string(level) + "\";\n" +
                                                       referenceText("x", std::to_string(level + 1) + ".ma"));
    }
    EXPECT_THAT(files.open("0.ma"),
                ElementsAre("@/32.ma(4): reference 'xRN' is not loaded, so that its nodes are missing in the scene: "
                            "File lies more than 32 references deep: @/33.ma"));
}

// Each of them twice in the one before: a million files, if one went on.
TEST(References, ThatDoubleAtEveryLevelEnd) {
    SceneFiles files;
    for (int level = 0; level < 20; ++level) {
        const std::string next = std::to_string(level + 1) + ".ma";
        files.write(std::to_string(level) + ".ma", referenceText("a", next) + referenceText("b", next));
    }
    files.write("20.ma", "createNode transform -n \"leaf\";\n");
    const std::vector<std::string> lines = files.open("0.ma");
    ASSERT_FALSE(lines.empty());
    EXPECT_THAT(lines.back(), testing::HasSubstr("The scene refers to too many files, or to too much in them: "));
}

// A file of five gigabytes that takes no place on the disk: it is not read at all.
TEST(References, ToTooMuchAreNotRead) {
    SceneFiles files;
    files.write("huge.ma", "createNode transform -n \"a\";");
    std::filesystem::resize_file(files.folder.path("huge.ma"), std::uintmax_t{5} << 30U);
    files.write("main.ma", referenceText("x", "huge.ma"));
    EXPECT_THAT(files.open("main.ma"),
                ElementsAre("@/main.ma(3): reference 'xRN' is not loaded, so that its nodes are missing in the scene: "
                            "The scene refers to too many files, or to too much in them: @/huge.ma"));
}

TEST(References, AnUnloadedOneStaysUnloaded) {
    SceneFiles files;
    files.write("rig.ma", "createNode transform -n \"a\";");
    files.write("declared.ma", "file -rdi 1 -ns \"x\" -dr 1 -rfn \"xRN\" \"rig.ma\";\n"
                               "file -r -ns \"x\" -dr 1 -rfn \"xRN\" \"rig.ma\";\n");
    EXPECT_THAT(files.open("declared.ma"),
                ElementsAre("@/declared.ma(3): reference 'xRN' is unloaded in the scene, so that its nodes are "
                            "missing: rig.ma"));
    EXPECT_EQ(files.opened.node("x:a"), nullptr);
    files.write("alone.ma", "file -r -ns \"x\" -dr 1 -rfn \"xRN\" \"rig.ma\";\n");
    EXPECT_THAT(files.open("alone.ma"), ElementsAre(testing::HasSubstr("'xRN' is unloaded")));
    files.write("outer.ma", "file -rdi 1 -ns \"o\" -rfn \"oRN\" \"inner.ma\";\n"
                            "file -rdi 2 -ns \"x\" -dr 1 -rfn \"o:xRN\" \"rig.ma\";\n"
                            "file -r -ns \"o\" -dr 1 -rfn \"oRN\" \"inner.ma\";\n");
    files.write("inner.ma", referenceText("x", "rig.ma"));
    EXPECT_THAT(files.open("outer.ma"), ElementsAre(testing::HasSubstr("@/inner.ma(3): reference 'xRN' is unloaded")));
    EXPECT_THAT(files.open("inner.ma"), IsEmpty());
    EXPECT_NE(files.opened.node("x:a"), nullptr);
}

// --- names

TEST(References, OneFileInTwoNamespaces) {
    SceneFiles files;
    files.write("rig.ma", "createNode transform -n \"a\";\n\tsetAttr \".tx\" 2;\n"
                          "createNode transform -n \"b\" -p \"a\";\n"
                          "createNode transform -n \"b\";\n"
                          "connectAttr \"a.tx\" \"|a|b.ty\";\nconnectAttr \":time1.o\" \"|b.tz\";\n");
    files.write("main.ma", referenceText("left", "rig.ma") + referenceText("right", "rig.ma") +
                               "createNode transform -n \"a\";\n\tsetAttr \".tx\" 7;\n"
                               "connectAttr \"a.tx\" \"right:a.ty\";\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    OpenedScene& opened = files.opened;
    for (const char* space : {"left", "right"}) {
        const std::string start = std::string(space) + ":";
        ASSERT_NE(opened.node(start + "a"), nullptr) << space;
        EXPECT_EQ(opened.number("|" + start + "a|" + start + "b.ty"), 2.0);
        EXPECT_EQ(opened.number("|" + start + "b.ty"), 0.0);
        EXPECT_TRUE(opened.node(start + "a")->isFromReference);
    }
    EXPECT_FALSE(opened.node("a")->isFromReference);
    EXPECT_EQ(opened.number("right:a.ty"), 7.0);
    EXPECT_EQ(opened.number("left:a.ty"), 0.0);
}

TEST(References, OldOnesPutAPrefixBeforeNames) {
    SceneFiles files;
    files.write("rig.ma", "createNode transform -n \"a\";\ncreateNode transform -n \"b\" -p \"a\";\n"
                          "connectAttr \"a.tx\" \"b.tx\";\n");
    files.write("main.ma", "file -r -rpr \"Old\" -rfn \"OldRN\" \"rig.ma\";\n"
                           "file -r -rfn \"plainRN\" \"rig.ma\";\n"
                           "setAttr \"Old_a.tx\" 5;\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    EXPECT_EQ(files.opened.number("|Old_a|Old_b.tx"), 5.0);
    EXPECT_EQ(files.opened.number("|rig_a|rig_b.tx"), 0.0); // neither prefix nor namespace: the file's name
}

TEST(References, NestedOnesNestTheirNames) {
    SceneFiles files;
    files.write("chars/rig.ma", referenceText("hat", "../props/hat.ma") + "createNode transform -n \"head\";\n"
                                                                          "connectAttr \"head.tx\" \"hat:top.tx\";\n");
    files.write("props/hat.ma", "createNode transform -n \"top\";\ncreateNode transform -n \"sub:brim\" -p \"top\";\n"
                                "\tsetAttr \".ty\" 3;\n");
    files.write("main.ma", referenceText("hero", "chars/rig.ma") + "setAttr \"hero:head.tx\" 4;\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    EXPECT_EQ(files.opened.number("hero:hat:top.tx"), 4.0);
    EXPECT_EQ(files.opened.number("|hero:hat:top|hero:hat:sub:brim.ty"), 3.0);
    EXPECT_THAT(files.opened.scene.file().references, ElementsAre("chars/rig.ma"));
}

// The second file goes on to speak of its own node, though another bears the name.
TEST(References, WithoutNamespacesKeepTheirNodesApart) {
    SceneFiles files;
    files.write("rig.ma", "createNode transform -n \"a\";\ncreateNode transform -n \"b\" -p \"a\";\n"
                          "createNode multiplyDivide -n \"m\";\n\tsetAttr \".i1x\" 2;\n"
                          "connectAttr \"m.ox\" \"|a|b.ty\";\nconnectAttr \"a.tx\" \"|a|b.tx\";\n");
    files.write("main.ma", referenceText(":", "rig.ma") + referenceText(":", "rig.ma") +
                               "createNode transform -n \"a\";\nsetAttr \"a.tx\" 9;\nsetAttr \"|a1.tx\" 8;\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    EXPECT_EQ(files.opened.number("|a|b.tx"), 0.0);
    EXPECT_EQ(files.opened.number("|a|b.ty"), 2.0);
    EXPECT_EQ(files.opened.number("|a1|b.tx"), 8.0);
    EXPECT_EQ(files.opened.number("|a1|b.ty"), 2.0);
    EXPECT_EQ(files.opened.number("|a2.tx"), 9.0);
}

TEST(References, ANamespaceThatIsTakenGetsANumber) {
    SceneFiles files;
    files.write("rig.ma", "createNode transform -n \"a\";\n");
    files.write("main.ma", "file -r -ns \"x\" -rfn \"xRN\" \"rig.ma\";\nfile -r -ns \"x\" -rfn \"x1RN\" \"rig.ma\";\n"
                           "file -r -ns \"x\" -mnc true -rfn \"x2RN\" \"rig.ma\";\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    for (const char* name : {"x:a", "x1:a", "x:a1"}) {
        EXPECT_NE(files.opened.node(name), nullptr) << name;
    }
}

// --- what every scene has

TEST(References, ShareTheNodesOfEveryScene) {
    SceneFiles files;
    files.write("rig.ma", "createNode transform -s -n \"persp\";\n\trename -uid \"X\";\n\tsetAttr \".tx\" 500;\n"
                          "createNode camera -s -n \"perspShape\" -p \"persp\";\n\tsetAttr \".fl\" 99;\n"
                          "createNode lightLinker -s -n \"lightLinker1\";\n"
                          "createNode blinn -n \"shader\";\ncreateNode shadingEngine -n \"shaderSG\";\n"
                          "createNode mesh -n \"m\";\n"
                          "select -ne :time1;\n\tsetAttr \".o\" 12;\n\tsetAttr \".unw\" 12;\n"
                          "select -ne :initialShadingGroup;\n\tsetAttr \".ro\" no;\n"
                          "connectAttr \"shaderSG.pa\" \":renderPartition.st\" -na;\n"
                          "connectAttr \"shader.oc\" \"shaderSG.ss\";\n"
                          "connectAttr \"shader.oc\" \":initialShadingGroup.ss\";\n"
                          "connectAttr \"shaderSG.msg\" \"lightLinker1.lnk[2].olnk\";\n"
                          "connectAttr \"m.iog\" \":initialShadingGroup.dsm\" -na;\n");
    files.write("main.ma", referenceText("x", "rig.ma") + "createNode shadingEngine -n \"own\";\n"
                                                          "connectAttr \"own.msg\" \"lightLinker1.lnk[2].olnk\";\n");
    const double frame = OpenedScene("").scene.currentFrame();
    const double x = OpenedScene("").number("persp.tx");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    OpenedScene& opened = files.opened;
    EXPECT_EQ(opened.node("x:persp"), nullptr);
    EXPECT_EQ(opened.node("x:lightLinker1"), nullptr);
    EXPECT_EQ(opened.number("persp.tx"), x);
    EXPECT_NE(opened.number("perspShape.fl"), 99.0);
    EXPECT_EQ(opened.scene.currentFrame(), frame);
    EXPECT_EQ(opened.number("initialShadingGroup.ro"), 1.0);
    const auto sourceOf = [&](const char* plug) {
        const Plug source = opened.scene.graph().sourceOf(opened.scene.findPlug(plug).plug);
        return source ? source.node->name() : std::string();
    };
    EXPECT_EQ(sourceOf("initialShadingGroup.ss"), "lambert1");
    EXPECT_EQ(sourceOf("renderPartition.st[2]"), "x:shaderSG");
    EXPECT_EQ(sourceOf("lightLinker1.lnk[2].olnk"), "own");
    EXPECT_EQ(sourceOf("initialShadingGroup.dsm[0]"), "x:m");
}

// Plug-ins have nodes that every scene has as soon as one of its files needs them.
TEST(References, ShareWhatPlugInsShare) {
    SceneFiles files;
    files.write("rig.ma", "createNode objectSet -s -n \"options\";\ncreateNode objectSet -n \"options\";\n"
                          "connectAttr \":options.msg\" \"options.dnsm\" -na;\n");
    files.write("main.ma", referenceText("x", "rig.ma") + referenceText("y", "rig.ma"));
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    for (const char* name : {"options", "x:options", "y:options"}) {
        EXPECT_NE(files.opened.node(name), nullptr) << name;
    }
    EXPECT_EQ(files.opened.node("options1"), nullptr);
}

TEST(References, DoNotFindTheSceneSOwnNodes) {
    SceneFiles files;
    files.write("rig.ma", "createNode transform -n \"b\";\nconnectAttr \"a.tx\" \"b.tx\";\n");
    files.write("main.ma", "createNode transform -n \"a\";\n" + referenceText("x", "rig.ma"));
    EXPECT_THAT(files.open("main.ma"), ElementsAre("@/rig.ma(3): No object matches name: x:a"));
}

TEST(References, AreReadInTheirOwnUnits) {
    SceneFiles files;
    files.write("metres.ma", "currentUnit -l meter -a radian -t ntsc;\ncreateNode transform -n \"a\";\n"
                             "\tsetAttr \".t\" -type \"double3\" 1 2 3;\n\tsetAttr \".rx\" 1;\n"
                             "createNode animCurveTL -n \"c\";\n\tsetAttr -s 2 \".ktv[0:1]\"  0 0 30 1;\n"
                             "connectAttr \"c.o\" \"a.tz\";\n"
                             "createNode script -n \"sceneConfigurationScriptNode\";\n"
                             "\tsetAttr \".b\" -type \"string\" \"playbackOptions -min 5 -max 6\";\n"
                             "\tsetAttr \".st\" 6;\n");
    files.write("main.ma", referenceText("x", "metres.ma") + "currentUnit -l centimeter -a degree -t film;\n"
                                                             "createNode transform -n \"b\";\n\tsetAttr \".tx\" 1;\n");
    EXPECT_THAT(files.open("main.ma"), IsEmpty());
    OpenedScene& opened = files.opened;
    EXPECT_EQ(opened.number("x:a.tx"), 100.0);
    EXPECT_NEAR(opened.number("x:a.rx"), 57.29577951308232, 1e-9);
    EXPECT_EQ(opened.number("b.tx"), 1.0);
    opened.scene.setCurrentFrame(24.0); // one second, as frame 30 is there
    EXPECT_NEAR(opened.number("x:a.tz"), 100.0, 1e-9);
    EXPECT_EQ(opened.scene.playback().minimum, 1.0);
}

TEST(References, TellTheirWarningsOnce) {
    SceneFiles files;
    files.write("rig.ma", "frobnicate;\ncreateNode transform -n \"a\";\n");
    files.write("main.ma", referenceText("x", "rig.ma") + referenceText("y", "rig.ma") + "frobnicate;\n");
    EXPECT_THAT(files.open("main.ma"), ElementsAre("@/rig.ma(2): unknown command 'frobnicate' is skipped",
                                                   "@/main.ma(6): unknown command 'frobnicate' is skipped"));
}

} // namespace

} // namespace host
