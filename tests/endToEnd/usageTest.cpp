// What a user types, right and wrong.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"
#include "sceneText.h"

#include <gmock/gmock.h>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using Words = std::vector<std::string>;

struct Refused {
    const char* name;
    Words arguments;
    int status;
    std::string error; // all lines of the error output
};

void PrintTo(const Refused& row, std::ostream* out) {
    *out << row.name;
}

class RefusedUse : public testing::TestWithParam<Refused> {};

TEST_P(RefusedUse, IsToldAndLeavesNoFile) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    program.write("fails.mel", "print \"before\\n\";\nerror \"wanted\";\nprint \"behind\\n\";\n");
    program.write("broken.mel", "int $a = 1;\nint $b = {;\n");
    const std::vector<std::string> before = program.names();
    const ProgramRun run = program.run(GetParam().arguments);
    EXPECT_EQ(run.status, GetParam().status);
    std::string error = GetParam().error;
    if (const std::size_t at = error.find('@'); at != std::string::npos) {
        error.replace(at, 1, program.path());
    }
    EXPECT_THAT(run.errorLines(), ElementsAre("Error: " + error));
    EXPECT_THAT(run.out, testing::Not(HasSubstr("behind")));
    EXPECT_EQ(program.names(), before);
}

constexpr const char* kMore = " (tvkexport --help tells more)";

INSTANTIATE_TEST_SUITE_P(
    Words, RefusedUse,
    testing::Values(
        Refused{"Nothing", {}, 64, std::string("no scene was named") + kMore},
        Refused{"TwoScenes",
                {"scene.ma", "b.ma"},
                64,
                std::string("The following argument was not expected: b.ma") + kMore},
        Refused{"UnknownOption",
                {"scene.ma", "--nonsense"},
                64,
                std::string("The following argument was not expected: --nonsense") + kMore},
        Refused{"UnknownKind", {"scene.ma", "--kinds", "xyz"}, 64, std::string("--kinds: unknown kind 'xyz'") + kMore},
        Refused{"BatchOfAScene",
                {"--batch", "l.z3be", "scene.ma"},
                64,
                std::string("--batch takes all from its list: SCENE.ma, -o, --kinds, --settings, --set and --select do "
                            "not go with it") +
                    kMore},
        Refused{"CheckOfNothing", {"--check"}, 64, std::string("no scene was named") + kMore},
        Refused{"CheckOfSome",
                {"--check", "scene.ma", "--target", "some"},
                64,
                std::string("--target: 'some' is neither all nor selection") + kMore},
        Refused{"NoSetting",
                {"scene.ma", "--set", "magnify"},
                64,
                std::string("--set: 'magnify' is not KEY=VALUE without further '=' or ';'") + kMore},
        Refused{"ScriptWithOutput",
                {"scene.ma", "--script", "fails.mel", "-o", "x"},
                64,
                std::string("--script and --command export nothing: -o, --kinds, --settings, --set and --select do not "
                            "go with them") +
                    kMore}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Runs, RefusedUse,
    testing::Values(
        Refused{"NoKind", {"scene.ma", "--set", "imd_file_out=0"}, 1, "No output file"},
        Refused{"MissingNode", {"scene.ma", "--select", "none"}, 1, "No object matches name: none"},
        Refused{"MissingNodeAmongOthers", {"scene.ma", "--select", "a,none"}, 1, "No object matches name: none"},
        Refused{"MissingSettings", {"scene.ma", "--settings", "f.z3es"}, 1, "not a settings file: f.z3es"},
        Refused{"SettingsThatAreNone", {"scene.ma", "--settings", "scene.ma"}, 1, "not a settings file: scene.ma"},
        Refused{"MissingList", {"--batch", "l.z3be"}, 1, "Can't open file: l.z3be"},
        Refused{"ListThatIsNone", {"--batch", "scene.ma"}, 1, "z3be file is wrong"},
        Refused{"CheckOfAMissingScene", {"--check", "none.ma"}, 1, "the scene does not exist: none.ma"},
        Refused{"CheckOfAMissingNode", {"--check", "scene.ma", "--select", "none"}, 1, "No object matches name: none"},
        Refused{"MissingPlugin", {"scene.ma", "--plugin", "none.so"}, 1, "Plug-in, \"@/none.so\", was not found"},
        Refused{"MissingScript", {"--script", "none.mel"}, 1, "Cannot find file \"@/none.mel\" for source statement."},
        Refused{"FailingScript", {"scene.ma", "--script", "fails.mel"}, 1, "@/fails.mel, line 2, column 1: wanted"},
        Refused{"BrokenScript",
                {"--script", "broken.mel"},
                1,
                "@/broken.mel, line 2, column 11: Syntax error: expected an expression, found ';'"},
        Refused{"FailingCommand", {"--command", "error \"wanted\""}, 1, "line 1, column 1: wanted"},
        Refused{
            "UnknownCommand", {"--command", "nonsense"}, 1, "line 1, column 1: Cannot find procedure \"nonsense\"."},
        Refused{"BrokenCommand",
                {"--command", "if ("},
                1,
                "line 1, column 5: Syntax error: expected an expression, found end of text"}),
    [](const auto& row) { return row.param.name; });

// What a user reads at the end of an ordinary run.
TEST(OrdinaryRun, TellsWhatWasWritten) {
    const FinishedProgram program;
    program.write("house.ma", sceneOf(nodeText("transform", "a") + nodeText("transform", "b", "a")));
    const ProgramRun run = program.run({"house.ma", "-o", "out/home"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.error, "");
    const std::string size = std::to_string(program.bytes("out/home.imd").size());
    EXPECT_THAT(run.out, StartsWith("========== TVK_Export : home ========== imd \n"));
    EXPECT_THAT(run.out, HasSubstr("Output Folder\t: " + program.path("out/") + "\n"));
    EXPECT_THAT(run.out, HasSubstr("Compress Node\t: None ( 2 )\n"));
    EXPECT_THAT(run.out, testing::EndsWith("\nWritten: out/home.imd (" + size + " bytes)\n"));
    EXPECT_THAT(decode::readModelFile(program.bytes("out/home.imd")).names(), ElementsAre("a", "b"));
}

TEST(OrdinaryRun, WithoutABaseStandsInTheWorkingFolder) {
    const FinishedProgram program;
    std::filesystem::create_directories(program.path("scenes"));
    std::filesystem::create_directories(program.path("work"));
    program.write("scenes/house.v2.ma", sceneOf(nodeText("transform", "a")));
    EXPECT_EQ(program.run({"../scenes/house.v2.ma"}, {{}, "", "work", 60}).status, 0);
    EXPECT_THAT(program.names("work"), ElementsAre("house.v2.imd"));
    EXPECT_THAT(program.names("scenes"), ElementsAre("house.v2.ma"));
}

// A name of seventeen characters is exported with a warning.
const char* const kLongName = "a2345678901234567";

TEST(Strict, GivesTwoWhenThereAreWarnings) {
    const FinishedProgram program;
    program.write("clean.ma", sceneOf(nodeText("transform", "a")));
    program.write("scene.ma", sceneOf(nodeText("transform", kLongName)));
    const std::string warning = std::string("Warning: Length of name over 16 characters: node: ") + kLongName;
    const ProgramRun lenient = program.run({"scene.ma"});
    EXPECT_EQ(lenient.status, 0);
    EXPECT_THAT(lenient.errorLines(), ElementsAre(warning));
    const ProgramRun strict = program.run({"scene.ma", "--strict"});
    EXPECT_EQ(strict.status, 2);
    EXPECT_THAT(strict.errorLines(), ElementsAre(warning));
    EXPECT_EQ(program.run({"clean.ma", "--strict"}).status, 0);
    program.write("empty.ma", sceneOf(""));
    EXPECT_EQ(program.run({"empty.ma", "--strict"}).status, 1) << "a failure is no warning";
}

TEST(Quiet, LeavesWarningsAndErrorsAlone) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", kLongName)));
    const ProgramRun run = program.run({"-q", "scene.ma"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.errorLines().size(), 1U);
    EXPECT_EQ(program.run({"-q", "--command", "print \"no\""}).out, "");
}

TEST(Settings, ReachTheExporter) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a", "", set3("t", 1, 2, 3))));
    ASSERT_EQ(program.run({"scene.ma", "--set", "magnify=2"}).status, 0);
    const decode::ModelFile model = decode::readModelFile(program.bytes("scene.imd"));
    EXPECT_EQ(model.info->value("magnify"), "2.000000");
    EXPECT_EQ(model.node("a").translate, Imath::V3d(2, 4, 6));
}

TEST(Settings, OfAFileStandBelowThoseOfTheLine) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a", "", set3("t", 1, 2, 3))));
    program.write("f.z3es", "# TVK_Export settings\r\nmagnify=\"2\"\r\noutput_ica=\"on\"\r\n");
    ASSERT_EQ(program.run({"scene.ma", "--settings", "f.z3es"}).status, 0);
    EXPECT_EQ(decode::readModelFile(program.bytes("scene.imd")).info->value("magnify"), "2.000000");
    EXPECT_THAT(program.names(), ElementsAre("f.z3es", "scene.ica", "scene.imd", "scene.ma"));
    ASSERT_EQ(
        program.run({"scene.ma", "--settings", "f.z3es", "--set", "magnify=3", "--kinds", "imd", "-o", "x"}).status, 0);
    EXPECT_EQ(decode::readModelFile(program.bytes("x.imd")).info->value("magnify"), "3.000000");
    EXPECT_THAT(program.names(), ElementsAre("f.z3es", "scene.ica", "scene.imd", "scene.ma", "x.imd"));
}

TEST(Settings, OfAnUnknownKeyAreWarnedOf) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    const ProgramRun run = program.run({"scene.ma", "--set", "nonsense=1", "--set", "magnify=2", "--strict"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errorLines(), ElementsAre("Warning: --set: the exporter has no option 'nonsense'"));
    EXPECT_EQ(decode::readModelFile(program.bytes("scene.imd")).info->value("magnify"), "2.000000");
}

// The exporter takes a magnification that is none for 1.
TEST(Settings, ThatMakeNoSenseChangeNothing) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a", "", set3("t", 1, 2, 3))));
    ASSERT_EQ(program.run({"scene.ma", "-o", "plain"}).status, 0);
    for (const char* setting : {"magnify=x", "magnify=-1", "magnify=nan", "magnify=", "start_frame=1e999"}) {
        const ProgramRun run = program.run({"scene.ma", "-q", "--set", setting});
        EXPECT_EQ(run.status, 0) << setting;
        EXPECT_THAT(run.errorLines(), IsEmpty()) << setting;
        EXPECT_EQ(withoutMaker(program.bytes("scene.imd")), withoutMaker(program.bytes("plain.imd"))) << setting;
    }
}

TEST(Select, ExportsTheNodesAndWhatIsBelow) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a") + nodeText("transform", "b") +
                                      nodeText("transform", "c", "b") + nodeText("transform", "d")));
    ASSERT_EQ(program.run({"scene.ma", "--select", "b,d"}).status, 0);
    EXPECT_THAT(decode::readModelFile(program.bytes("scene.imd")).names(), ElementsAre("world_root", "b", "d", "c"));
}

TEST(Scripts, SeeTheSceneAndMayExport) {
    const FinishedProgram program;
    program.write("scene.ma", sceneOf(nodeText("transform", "a") + nodeText("transform", "b", "a")));
    program.write("export.mel", "setAttr a.tx 5;\n"
                                "file -f -ea -typ \"KALDERA_ZEPHRA_System\" -op \"magnify=2;\" \"mine\";\n");
    const ProgramRun run = program.run({"scene.ma", "--script", "export.mel", "--command", "print(`ls -tr \"b*\"`)"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.out, testing::EndsWith("b\n"));
    EXPECT_THAT(program.names(), ElementsAre("export.mel", "mine.imd", "scene.ma"));
    EXPECT_EQ(decode::readModelFile(program.bytes("mine.imd")).node("a").translate.x, 10.0);
}

} // namespace
} // namespace tvk
