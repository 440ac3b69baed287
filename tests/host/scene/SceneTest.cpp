#include "host/scene/Scene.h"

#include "OpenedScene.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace host {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

TEST(SceneOpen, RefusesWhatIsNoReadableFile) {
    const tvk::TemporaryFolder folder;
    Scene scene;
    EXPECT_EQ(scene.open(folder.path("gone.ma")).error, "File not found: " + folder.path("gone.ma"));
    EXPECT_EQ(scene.open(folder.path()).error, "File is a directory: " + folder.path());
    write(folder.path("empty.ma"), "");
    EXPECT_EQ(scene.open(folder.path("empty.ma")).error, "File is empty: " + folder.path("empty.ma"));
    EXPECT_EQ(scene.open("/dev/zero").error, "File is not a regular file: /dev/zero");
    ASSERT_EQ(::mkfifo(folder.path("pipe.ma").c_str(), 0600), 0);
    EXPECT_EQ(scene.open(folder.path("pipe.ma")).error, "File is not a regular file: " + folder.path("pipe.ma"));
    if (::geteuid() != 0) { // everything is readable for root
        write(folder.path("secret.ma"), "x");
        std::filesystem::permissions(folder.path("secret.ma"), std::filesystem::perms::none);
        EXPECT_EQ(scene.open(folder.path("secret.ma")).error,
                  "File cannot be read: " + folder.path("secret.ma") + " (Permission denied)");
    }
}

TEST(SceneOpen, RefusesBinaryScenesByName) {
    const tvk::TemporaryFolder folder;
    Scene scene;
    for (const char* start : {"FOR4", "FOR8"}) {
        write(folder.path("a.mb"), std::string(start) + std::string("\0\0\1\2 Maya", 9));
        EXPECT_EQ(scene.open(folder.path("a.mb")).error,
                  "File is a Maya Binary scene, which cannot be read; save it as Maya ASCII (.ma): " +
                      folder.path("a.mb"));
    }
}

TEST(SceneOpen, AFailedOpenLeavesTheSceneThatWasOpen) {
    OpenedScene opened("createNode transform -n \"a\";");
    EXPECT_FALSE(opened.scene.open("/nowhere/a.ma").ok());
    EXPECT_NE(opened.node("a"), nullptr);
}

TEST(SceneOpen, TellsTheFileInWarningsAndErrors) {
    const tvk::TemporaryFolder folder;
    OpenedScene opened;
    write(folder.path("a.ma"), "//Maya ASCII 2018 scene\nfrob;\ncreateNode;\n");
    EXPECT_EQ(opened.scene.open(folder.path("a.ma")).error,
              folder.path("a.ma") + ":3:11: expected a node type, found ';'");
    EXPECT_THAT(opened.warnings, ElementsAre(folder.path("a.ma") + "(2): unknown command 'frob' is skipped"));
}

TEST(SceneOpen, ReplacesEverything) {
    OpenedScene opened("currentUnit -l mm -t pal;\ncreateNode transform -n \"a\";\nfileInfo \"k\" "
                       "\"v\";\nplaybackOptions -min 5 -max 6;\n"
                       "currentTime 7;");
    const NodeId id = opened.node("a")->id();
    opened.scene.selectOnly(*opened.node("a"));
    opened.open("createNode transform -n \"b\";");
    EXPECT_EQ(opened.node("a"), nullptr);
    EXPECT_EQ(opened.scene.graph().node(id), nullptr);
    EXPECT_NE(opened.node("b"), nullptr);
    EXPECT_FALSE(opened.node("b")->id() == id);
    EXPECT_TRUE(opened.scene.selection().empty());
    EXPECT_EQ(opened.scene.units().linearName, "cm");
    EXPECT_EQ(opened.scene.units().timeName, "film");
    EXPECT_EQ(opened.scene.playback().minimum, 1.0);
    EXPECT_EQ(opened.scene.currentFrame(), 1.0);
    EXPECT_THAT(opened.scene.file().info, IsEmpty());
}

TEST(SceneOpen, ExpressionsCountInItsFrames) {
    OpenedScene opened("currentUnit -l cm -a deg -t pal;\n"
                       "createNode transform -n \"a\";\n"
                       "createNode expression -n \"e\";\n"
                       "\tsetAttr -s 2 \".in[0:1]\"  3 4;\n"
                       "\tsetAttr -s 1 \".out\";\n"
                       "\tsetAttr \".ixp\" -type \"string\" \"//turn\\r\\n.O[0] = frame + .I[1];\";\n"
                       "connectAttr \":time1.o\" \"e.tim\";\n"
                       "connectAttr \"e.out[0]\" \"a.tx\";\n");
    EXPECT_THAT(opened.warnings, IsEmpty());
    opened.scene.setCurrentFrame(10);
    EXPECT_DOUBLE_EQ(opened.number("a.tx"), 14.0);
    opened.open("createNode transform -n \"b\";");
    EXPECT_EQ(opened.scene.graph().framesPerSecond(), 24.0);
}

TEST(SceneOpen, EachSceneTellsItsOwnCycles) {
    const std::string cycle =
        "createNode transform -n \"a\";\ncreateNode transform -n \"b\";\nconnectAttr \"a.tx\" \"b.tx\";\n"
        "connectAttr \"b.tx\" \"a.tx\";\n";
    OpenedScene opened;
    for (int time = 0; time < 2; ++time) {
        opened.open(cycle);
        opened.number("a.tx");
        opened.number("a.tx");
        EXPECT_EQ(opened.warnings.size(), 1U);
    }
}

TEST(SceneNew, HasItsDefaultNodes) {
    Scene scene;
    for (const char* name :
         {"persp", "|top|topShape", ":time1", "lambert1", "initialShadingGroup", "renderPartition"}) {
        const NodeMatch match = scene.find(name);
        ASSERT_TRUE(match.ok()) << match.error;
        EXPECT_TRUE(match.node->isDefault) << name;
    }
}

TEST(SceneNodes, NamesAndPlacesOfNewNodes) {
    Scene scene;
    const NodeType& transform = *scene.types().find("transform");
    const NodeType& mesh = *scene.types().find("mesh");
    EXPECT_EQ(scene.createNode(transform, "")->name(), "transform1");
    EXPECT_EQ(scene.createNode(transform, "")->name(), "transform2");
    EXPECT_EQ(scene.createNode(*scene.types().find("blinn"), "")->name(), "blinn1");
    Node* shape = scene.createNode(mesh, "boxShape3");
    EXPECT_EQ(shape->name(), "boxShape3");
    EXPECT_EQ(shape->parents().front()->name(), "box3");
    EXPECT_EQ(scene.createNode(transform, "x", shape), nullptr);
    EXPECT_TRUE(scene.file().modified);
}

TEST(SceneNodes, DeletingTakesChildrenThatHaveNoOtherPlace) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode mesh -n \"s\" -p \"a\";\ncreateNode transform -n \"k\" -p \"a\";\n"
        "createNode transform -n \"b\";\nparent -add \"|a|s\" \"b\";\n");
    Node* shape = opened.node("s");
    opened.scene.selectOnly(*opened.node("k"));
    EXPECT_TRUE(opened.scene.deleteNode(*opened.node("a")).ok());
    EXPECT_EQ(opened.node("a"), nullptr);
    EXPECT_EQ(opened.node("k"), nullptr);
    EXPECT_EQ(opened.node("|b|s"), shape);
    EXPECT_TRUE(opened.scene.selection().empty());
    EXPECT_EQ(opened.scene.deleteNode(*opened.node("persp")).error,
              "'persp' belongs to every scene and stays as it is");
    EXPECT_NE(opened.node("persp"), nullptr);
}

TEST(SceneNodes, RenamingKeepsNamesUnique) {
    OpenedScene opened("createNode transform -n \"a\";\ncreateNode transform -n \"b\";\n");
    EXPECT_TRUE(opened.scene.renameNode(*opened.node("b"), "a").ok());
    EXPECT_NE(opened.node("a1"), nullptr);
    EXPECT_EQ(opened.node("b"), nullptr);
    EXPECT_TRUE(opened.scene.renameNode(*opened.node("a1"), "a1").ok());
    EXPECT_EQ(opened.scene.renameNode(*opened.node("a1"), "").error, "'' has no legal characters for a name");
    EXPECT_EQ(opened.scene.renameNode(*opened.node("time1"), "t").error,
              "'time1' belongs to every scene and stays as it is");
}

TEST(SceneNodes, MovingRenamesOnAClash) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode transform -n \"x\" -p \"a\";\ncreateNode transform -n \"b\";\n"
        "createNode transform -n \"x\" -p \"b\";\n");
    Node* moved = opened.node("|a|x");
    EXPECT_TRUE(opened.scene.reparent(*moved, *opened.node("a"), *opened.node("b")).ok());
    EXPECT_EQ(opened.node("|b|x1"), moved);
    EXPECT_EQ(opened.node("|a|x"), nullptr);
    EXPECT_EQ(opened.scene.reparent(*opened.node("b"), opened.scene.graph().world(), *moved).error,
              "b cannot be placed below itself");
    EXPECT_EQ(opened.scene.removeInstance(*moved, *opened.node("b")).error, "'x1' has no other instance");
}

TEST(SceneNodes, AnInstanceKeepsOneNameEverywhere) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode transform -n \"x\" -p \"a\";\ncreateNode transform -n \"b\";\n"
        "createNode transform -n \"x\" -p \"b\";\ncreateNode transform -n \"x1\" -p \"a\";\n");
    Node* node = opened.node("|a|x");
    EXPECT_TRUE(opened.scene.addInstance(*node, *opened.node("b")).ok());
    EXPECT_EQ(node->name(), "x2"); // x is taken below b, x1 below a
    EXPECT_EQ(opened.node("|a|x2"), node);
    EXPECT_EQ(opened.node("|b|x2"), node);
    EXPECT_TRUE(opened.scene.removeInstance(*node, *opened.node("a")).ok());
    EXPECT_EQ(opened.node("|a|x2"), nullptr);
}

// A type takes far more memory than the statement that names it.
TEST(SceneNodes, ThousandsOfUnknownTypesShareOne) {
    Scene scene;
    const std::size_t before = scene.types().all().size();
    for (int count = 0; count < 3000; ++count) {
        const NodeType& type = scene.unknownType("flux" + std::to_string(count), "dependNode");
        EXPECT_FALSE(type.known);
    }
    EXPECT_LT(scene.types().all().size() - before, 1100U);
    EXPECT_EQ(scene.unknownType("flux7", "dependNode").name(), "flux7");
    EXPECT_EQ(scene.unknownType("fluxShape", "shape").dagRole, DagRole::kShape);
}

TEST(SceneItems, NamesStandForNodesComponentsAndPlugs) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode mesh -n \"aShape\" -p \"a\";\n\tsetAttr \".io\" yes;\n"
        "createNode mesh -n \"aShape2\" -p \"a\";\ncreateNode blinn -n \"b\";\n");
    const auto find = [&](const char* name) {
        std::vector<SelectionItem> items;
        EXPECT_EQ(opened.scene.findItems(name, items).error, "") << name;
        return items;
    };
    EXPECT_EQ(find("a")[0].node, opened.node("a"));
    EXPECT_EQ(find("b")[0].path.nodes.size(), 0U);
    // Components of a transform are those of its shape that is no intermediate object.
    EXPECT_EQ(find("a.f[0:2]")[0].node, opened.node("aShape2"));
    EXPECT_THAT(find("aShape2.vtx[*]")[0].components, ElementsAre("vtx[*]"));
    EXPECT_EQ(find("a.tx")[0].plug, opened.scene.findPlug("a.tx").plug.at);
    EXPECT_EQ(find("aShape*").size(), 2U);
    std::vector<SelectionItem> items;
    EXPECT_EQ(opened.scene.findItems("z*", items).error, "No object matches name: z*");
    EXPECT_EQ(opened.scene.findItems("a.zap", items).error, "No object matches name: a.zap");
    EXPECT_EQ(opened.scene.findItems("a.", items).error, "No object matches name: a.");
    EXPECT_THAT(items, IsEmpty());
}

TEST(ScenePlugs, InstanceOfAWorldSpaceArrayWithoutIndex) {
    OpenedScene opened(
        "createNode transform -n \"a\";\ncreateNode mesh -n \"s\" -p \"a\";\ncreateNode transform -n \"b\";\n"
        "parent -add \"|a|s\" \"b\";\n");
    EXPECT_EQ(opened.scene.findPlug("|b|s.worldMatrix").plug, opened.scene.findPlug("s.worldMatrix[1]").plug);
    EXPECT_EQ(opened.scene.findPlug("s.wm").plug, opened.scene.findPlug("s.worldMatrix[0]").plug);
    EXPECT_EQ(opened.scene.findPlug("s.zap").error, "No attribute matches name: s.zap");
    EXPECT_EQ(opened.scene.findPlug("z.tx").error, "No object matches name: z");
    EXPECT_EQ(opened.scene.findPlug(".tx").error, "No object matches name: .tx");
    EXPECT_TRUE(opened.scene.findPlug(".tx", opened.node("a")).ok());
}

} // namespace

} // namespace host
