// Scenes from strangers: opening one runs nothing that it holds.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"
#include "sceneText.h"

#include <gmock/gmock.h>

namespace tvk {
namespace {

using testing::ElementsAre;

/// A statement or node of a scene; "@" stands for the path of a file that must not appear.
struct Untrusted {
    const char* name;
    std::string statements;
    std::string warning; // behind the scene's name
};

void PrintTo(const Untrusted& row, std::ostream* out) {
    *out << row.name;
}

std::string replaced(std::string text, const std::string& path) {
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + path.size())) {
        text.replace(at, 1, path);
    }
    return text;
}

class UntrustedScene : public testing::TestWithParam<Untrusted> {};

TEST_P(UntrustedScene, RunsNothingAndIsExported) {
    const FinishedProgram program;
    const std::string marker = program.path("marker");
    program.write("evil.mel", "system(\"touch " + marker + "\");\n");
    program.write("scene.ma", sceneOf(replaced(GetParam().statements, marker) + nodeText("transform", "last")));
    const std::vector<std::string> before = program.names();
    const ProgramRun run = program.run({"scene.ma", "-q", "-o", "out/base"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.errorLines(), ElementsAre("Warning: " + program.path("scene.ma") + GetParam().warning));
    EXPECT_EQ(program.names("out"), std::vector<std::string>{"base.imd"});
    std::filesystem::remove_all(program.path("out"));
    EXPECT_EQ(program.names(), before);
}

std::string scriptNode(int type, int language) {
    return nodeText("script", "s", "",
                    "setAttr \".b\" -type \"string\" \"system(\\\"touch @\\\")\";\n"
                    "\tsetAttr \".a\" -type \"string\" \"system(\\\"touch @\\\")\";\n"
                    "\tsetAttr \".st\" " +
                        std::to_string(type) + ";\n\tsetAttr \".stp\" " + std::to_string(language) + ";");
}

std::string notRun(const std::string& command) {
    return "(5): command '" + command + "' is not run from a scene file";
}

INSTANTIATE_TEST_SUITE_P(
    Statements, UntrustedScene,
    testing::Values(Untrusted{"System", "system \"touch @\";\n", notRun("system")},
                    Untrusted{"Exec", "exec \"touch @\";\n", notRun("exec")},
                    Untrusted{"Popen", "popen \"touch @\" \"r\";\n", notRun("popen")},
                    Untrusted{"Eval", "eval \"system \\\"touch @\\\"\";\n", notRun("eval")},
                    Untrusted{"EvalDeferred", "evalDeferred \"system \\\"touch @\\\"\";\n", notRun("evalDeferred")},
                    Untrusted{"Python", "python \"open('@', 'w')\";\n", notRun("python")},
                    Untrusted{"Source", "source \"evil.mel\";\n", notRun("source")},
                    Untrusted{"LoadPlugin", "loadPlugin \"@\";\n", notRun("loadPlugin")},
                    Untrusted{"OpenFile", "fopen \"@\" \"w\";\n", notRun("fopen")},
                    Untrusted{"DeleteFile", "sysFile -delete \"evil.mel\";\n", notRun("sysFile")},
                    Untrusted{"ScriptJob", "scriptJob -e \"SceneOpened\" \"system(\\\"touch @\\\")\";\n",
                              notRun("scriptJob")},
                    Untrusted{"ScriptNode", "scriptNode -b \"system(\\\"touch @\\\")\";\n", notRun("scriptNode")},
                    Untrusted{"Quit", "quit -f;\n", notRun("quit")}),
    [](const auto& row) { return row.param.name; });

// Told when the whole scene has been read: the node's script may stand anywhere behind the node.
constexpr const char* kNodeNotRun = "(12): script node 's' is not run";

INSTANTIATE_TEST_SUITE_P(ScriptNodes, UntrustedScene,
                         testing::Values(Untrusted{"OnOpening", scriptNode(1, 0), kNodeNotRun},
                                         Untrusted{"OnOpeningInPython", scriptNode(1, 1), kNodeNotRun},
                                         Untrusted{"OnOpeningTheWindow", scriptNode(2, 0), kNodeNotRun},
                                         Untrusted{"OnClosingTheWindow", scriptNode(4, 0), kNodeNotRun},
                                         Untrusted{"OfTheScene", scriptNode(6, 0),
                                                   "(12): command 'system' is not run from a scene file"},
                                         Untrusted{"OnTimeChange", scriptNode(7, 0), kNodeNotRun}),
                         [](const auto& row) { return row.param.name; });

TEST(UntrustedScenes, CannotSaveOverAnything) {
    const FinishedProgram program;
    program.write("kept", "bytes");
    program.write("scene.ma", sceneOf("file -rename \"" + program.path("kept") + "\";\nfile -save;\nfile -f -new;\n" +
                                      nodeText("transform", "last")));
    const ProgramRun run = program.run({"scene.ma", "-q"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.errorLines(), testing::Each(testing::StartsWith("Warning: " + program.path("scene.ma") + "(")));
    EXPECT_THAT(run.errorLines(), testing::Contains(testing::HasSubstr("command 'file' is not run from a scene file")));
    EXPECT_EQ(program.bytes("kept"), "bytes");
    EXPECT_THAT(program.names(), ElementsAre("kept", "scene.imd", "scene.ma"));
}

// Shell signs in a requirement and a reference are names like others.
TEST(UntrustedScenes, NamesOfPluginsAndReferencesAreNotLookedFor) {
    const FinishedProgram program;
    const std::string marker = program.path("marker");
    program.write("scene.ma", sceneOf("requires -nodeType \"evil\" \"$(touch " + marker + ")\" \"1.0\";\n" +
                                      "file -rdi 1 -ns \"r\" -rfn \"rRN\" \"$(touch " + marker + ").ma\";\n" +
                                      nodeText("transform", "last")));
    EXPECT_EQ(program.run({"scene.ma", "-q"}).status, 0);
    EXPECT_THAT(program.names(), ElementsAre("scene.imd", "scene.ma"));
}

} // namespace
} // namespace tvk
