// Scenes that refer to other files, through the finished program.

#include "FinishedProgram.h"
#include "decode/ModelGeometry.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <filesystem>

#include <sys/stat.h>

namespace tvk {
namespace {

using decode::ModelFile;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

std::string reference(const std::string& space, const std::string& path) {
    const std::string text = "-ns \"" + space + "\" -dr 1 -rfn \"" + space + "RN\" -op \"v=0;\" \"" + path + "\";\n";
    return "file -rdi 1 -ns \"" + space + "\" -rfn \"" + space + "RN\" \"" + path + "\";\nfile -r " + text;
}

std::string edits(const std::string& space, int count, const std::string& text) {
    return "createNode reference -n \"" + space + "RN\";\n\tsetAttr \".ed\" -type \"dataReferenceEdits\" \n\t\t\"" +
           space + "RN\"\n\t\t\"" + space + "RN\" " + std::to_string(count) + "\n" + text + ";\n";
}

// A body in metres with a triangle, which carries a hat from a file of its own.
void writeCharacter(const FinishedProgram& program) {
    std::filesystem::create_directory(program.path("chars"));
    program.write("chars/hat.ma",
                  sceneOf(nodeText("transform", "top", "", set3("t", 0, 3, 0)) + meshText("topShape", "top") +
                          "connectAttr \"topShape.iog\" \":initialShadingGroup.dsm\" -na;\n"));
    program.write("chars/body.ma", "//Maya ASCII 2018 scene\n" + reference("hat", "hat.ma") +
                                       "currentUnit -l meter -a degree -t film;\n" +
                                       nodeText("transform", "root", "", set3("t", 0.05, 0, 0)) +
                                       meshText("rootShape", "root") +
                                       nodeText("displayLayer", "extras", "", "setAttr \".v\" no;") +
                                       "connectAttr \"extras.di\" \"hat:top.do\";\n"
                                       "connectAttr \"rootShape.iog\" \":initialShadingGroup.dsm\" -na;\n" +
                                       edits("hat", 1, "\t\t0 \"|hat:top\" \"|root\" \"-s -r \""));
}

TEST(ReferencesOfAScene, AreExportedWhereTheSceneHasPutThem) {
    const FinishedProgram program;
    writeCharacter(program);
    std::filesystem::create_directory(program.path("shots"));
    program.write("shots/shot.ma", "//Maya ASCII 2018 scene\n" + reference("anna", "../chars/body.ma") +
                                       reference("bert", "D:/server/chars/body.ma") + reference("gone", "gone.ma") +
                                       "currentUnit -l centimeter -a degree -t ntsc;\n" +
                                       edits("bert", 2,
                                             "\t\t2 \"|bert:root\" \"translate\" \" -type \\\"double3\\\" 0 0 -7\"\n"
                                             "\t\t2 \"bert:extras\" \"visibility\" \" 1\"") +
                                       nodeText("transform", "ground", "", set3("t", 0, -1, 0)));
    const ProgramRun run = program.run({"shots/shot.ma", "-q", "-o", "shot", "--project", "."});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.errorLines(),
                ElementsAre("Warning: " + program.path("shots/shot.ma") +
                            "(7): reference 'goneRN' is not loaded, so that its nodes are missing in the scene: "
                            "File not found: gone.ma"));
    const ModelFile model = decode::readModelFile(program.bytes("shot.imd"));
    EXPECT_THAT(model.names(),
                UnorderedElementsAre("world_root", "anna:root", "anna:hat:top", "bert:root", "bert:hat:top", "ground"));
    const auto& anna = model.node("anna:hat:top");
    const auto& bert = model.node("bert:hat:top");
    EXPECT_EQ(model.nodes[static_cast<std::size_t>(anna.parent)].name, "anna:root");
    EXPECT_EQ(anna.world.translation(), Imath::V3d(5, 3, 0));
    EXPECT_EQ(bert.world.translation(), Imath::V3d(0, 3, -7));
    EXPECT_FALSE(anna.visibility); // by the layer of the file, which bert's was edited in
    EXPECT_TRUE(bert.visibility);
    const decode::ModelGeometry geometry = decode::readModelGeometry(model);
    EXPECT_EQ(geometry.polygons.size(), 4U);
}

TEST(ReferencesOfAScene, ThatAreNoScenesAreToldOneByOne) {
    const FinishedProgram program;
    program.write("rig.mb", "FOR4\1\2\3\4Maya");
    program.write("cut.ma", sceneOf(nodeText("transform", "half") + "createNode transform -n"));
    ASSERT_EQ(::mkfifo(program.path("pipe.ma").c_str(), 0600), 0);
    std::string text;
    for (const char* path : {"scene.ma", "rig.mb", "cut.ma", "pipe.ma", "/dev/zero", "/"}) {
        text += std::string("file -r -ns \"x\" -rfn \"xRN\" \"") + path + "\";\n";
    }
    program.write("scene.ma", "//Maya ASCII 2018 scene\n" + text + nodeText("transform", "left"));
    const ProgramRun run = program.run({"scene.ma", "-q"});
    EXPECT_EQ(run.status, 0) << run.error;
    const auto told = [&](int line, const std::string& reason) {
        return "Warning: " + program.path("scene.ma") + "(" + std::to_string(line) +
               "): reference 'xRN' is not loaded, so that its nodes are missing in the scene: " + reason;
    };
    EXPECT_THAT(run.errorLines(),
                ElementsAre(told(2, "File refers to itself, directly or through others: scene.ma"),
                            told(3, "File is a Maya Binary scene, which cannot be read; save it as Maya ASCII (.ma): "
                                    "rig.mb"),
                            told(4, "cut.ma:7:1: expected a text, found end of text"),
                            told(5, "File is not a regular file: pipe.ma"),
                            told(6, "File is not a regular file: /dev/zero"), told(7, "File is a directory: /")));
    EXPECT_THAT(decode::readModelFile(program.bytes("scene.imd")).names(), ElementsAre("left"));
}

// Each file twice in the one before.
TEST(ReferencesOfAScene, ThatDoubleAtEveryLevelEndInTime) {
    const FinishedProgram program;
    for (int level = 0; level < 30; ++level) {
        const std::string next = std::to_string(level + 1) + ".ma";
        program.write(std::to_string(level) + ".ma",
                      "//Maya ASCII 2018 scene\n" + reference("a", next) + reference("b", next));
    }
    program.write("30.ma", sceneOf(nodeText("transform", "leaf")));
    const ProgramRun run = program.run({"0.ma", "-q", "-o", "out"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.error, testing::HasSubstr("The scene refers to too many files, or to too much in them: "));
    EXPECT_FALSE(decode::readModelFile(program.bytes("out.imd")).nodes.empty());
}

} // namespace
} // namespace tvk
