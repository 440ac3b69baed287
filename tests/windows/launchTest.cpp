// The starter of the Material Workbench, as an export runs it. A stand-in records what it was started with.

#include "StartedProgram.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>

namespace tvk {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using namespace std::chrono_literals;

const std::string kSo = "\xE3\x82\xBD"; // katakana whose second byte is a backslash in Shift_JIS
const char* const kFailed = "Error: Failed to start Material Workbench\n";

class Launch : public testing::Test {
protected:
    void SetUp() override { writeFile(folder.path("a.ma"), sceneOf(nodeText("transform", "a"))); }

    // The tool's folder, with the stand-in in it.
    void install(const std::string& tools) {
        root = folder.path(tools);
        fs::create_directories(fs::u8path(root));
        fs::copy_file(fs::u8path(TVK_STARTER), fs::u8path(root + "/TVK_MTWB_Starter.exe"));
    }

    std::vector<std::string> words(const std::vector<std::string>& settings, const std::string& base) const {
        std::vector<std::string> arguments = {"a.ma", "-o", base, "--set", "use_mtworkbench=1"};
        for (const std::string& setting : settings) {
            arguments.insert(arguments.end(), {"--set", setting});
        }
        return arguments;
    }

    StartedProgram::Surroundings surroundings() const { return {{{"TVK_MTWB_ROOT", root}}, folder.path()}; }

    ProgramRun exportWith(const std::vector<std::string>& settings = {}, const std::string& base = "model") const {
        const ProgramRun run = runExporter(words(settings, base), surroundings());
        EXPECT_EQ(run.status, 0) << "the files are good all the same";
        EXPECT_TRUE(fs::exists(fs::u8path(folder.path(base + ".imd"))));
        return run;
    }

    bool hasStarted() const { return fs::exists(fs::u8path(root + "/words")); }
    std::string recorded() const { return fileBytes(root + "/words"); }

    const TemporaryFolder folder;
    std::string root;
};

// --- what can go wrong

TEST_F(Launch, WithoutTheVariableThereIsNone) {
    const ProgramRun run = runExporter(words({}, "model"), {{}, folder.path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.error, HasSubstr("Error: Material Workbench is not found (environment variable does not exist)\n"));
}

TEST_F(Launch, AMissingStarterIsTold) {
    root = folder.path();
    EXPECT_THAT(exportWith().error, HasSubstr("Error: Material Workbench is not found (exe file does not exist)\n"));
}

TEST_F(Launch, AStarterThatFailsIsTold) {
    install("tools");
    for (const char* status : {"1", "255", "-1"}) {
        writeFile(root + "/status", status);
        EXPECT_THAT(exportWith().error, HasSubstr(kFailed)) << status;
        EXPECT_TRUE(hasStarted());
    }
}

TEST_F(Launch, AStarterThatIsNoProgramIsTold) {
    root = folder.path();
    writeFile(folder.path("TVK_MTWB_Starter.exe"), "not a program");
    EXPECT_THAT(exportWith().error, HasSubstr(kFailed));
}

// There is no limit: the export waits as long as it takes, and goes on once the starter is through.
TEST_F(Launch, AStarterThatDoesNotReturnIsWaitedFor) {
    install("tools");
    writeFile(root + "/wait", "");
    const StartedProgram program(exporterWords(words({}, "model")), surroundings());
    for (int i = 0; i < 600 && !hasStarted(); ++i) {
        EXPECT_FALSE(program.endsWithin(100ms));
    }
    ASSERT_TRUE(hasStarted());
    EXPECT_FALSE(program.endsWithin(2s));
    EXPECT_TRUE(fs::exists(fs::u8path(folder.path("model.imd")))) << "written before";
    fs::remove(fs::u8path(root + "/wait"));
    EXPECT_TRUE(program.endsWithin(60s));
    EXPECT_EQ(program.status(), 0);
    EXPECT_EQ(program.error(), "");
}

// --- what it is started with

TEST_F(Launch, GetsThePathThatTheFilesShare) {
    install("tools");
    EXPECT_EQ(exportWith().error, "");
    EXPECT_EQ(recorded(), "-name\n" + folder.path("model") + "\n-imd\n");
    EXPECT_THAT(fileBytes(root + "/line"), testing::EndsWith(" -name \"" + folder.path("model") + "\" -imd"));
}

TEST_F(Launch, GetsTheKindsInTheirOrderAndTheMergeLast) {
    install("tools");
    exportWith({"ita_file_out=1", "iva_file_out=1", "itp_file_out=1", "ima_file_out=1", "ica_file_out=1",
                "merge_imd_flag=1", "merge_imd_path=C:/some where/other.imd"});
    EXPECT_EQ(recorded(), "-name\n" + folder.path("model") +
                              "\n-imd\n-ica\n-ima\n-itp\n-iva\n-ita\n-merge\nC:/some where/other.imd\n");
}

// `cmd` between the two must not take any of it for its own.
TEST_F(Launch, PathsArriveAsTheyAre) {
    install("Program Files (x86)/" + kSo + " & more");
    for (const std::string name : {"two  words", "it's", "5$ each", "a;b,c", "a&b", "(x) ^y", "a=b", kSo.c_str()}) {
        fs::remove(fs::u8path(root + "/words"));
        EXPECT_EQ(exportWith({}, name).error, "") << name;
        EXPECT_EQ(recorded(), "-name\n" + folder.path(name) + "\n-imd\n");
    }
}

} // namespace
} // namespace tvk
