// Lists of scenes, as an artist's machine runs them.

#include "StartedProgram.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <filesystem>
#include <sstream>

namespace tvk {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const std::string kSo = "\xE3\x82\xBD"; // katakana whose second byte is a backslash in Shift_JIS

class Batch : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(fs::u8path(folder.path("scenes")));
        fs::create_directories(fs::u8path(folder.path("settings")));
        for (const std::string& name : {std::string("house"), std::string("tree"), kSo}) {
            writeFile(folder.path("scenes/" + name + ".ma"), sceneOf(nodeText("transform", "box")));
        }
        writeFile(folder.path("settings/model.z3es"), "# TVK_Export settings\r\noutput_imd=\"on\"\r\n");
    }

    // A list as an editor of this system saves it. The folders are named from the drive on.
    ProgramRun batch(const std::string& lines, const std::vector<std::string>& options = {}) const {
        const std::string text = "# TVK_Batch_Export\nlog \"" + folder.path("log.txt") + "\"\ninput_folder \"" +
                                 folder.path("scenes") + "\"\noutput_folder \"" + folder.path("out") +
                                 "\"\nz3es_folder \"" + folder.path("settings") + "\"\nz3es \"model.z3es\"\n" + lines;
        std::string ended;
        for (const char c : text) {
            ended += c == '\n' ? "\r\n" : std::string(1, c);
        }
        writeFile(folder.path("list.z3be"), ended);
        std::vector<std::string> arguments = {"--batch", "list.z3be"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runExporter(arguments, {{}, folder.path()});
    }

    std::vector<std::string> names(const std::string& of) const {
        std::vector<std::string> found;
        for (const fs::directory_entry& entry : fs::directory_iterator(fs::u8path(folder.path(of)))) {
            found.push_back(entry.path().filename().u8string());
        }
        return found;
    }

    std::string log() const { return withoutCarriageReturns(fileBytes(folder.path("log.txt"))); }

    const TemporaryFolder folder;
};

const std::string kRule = "] " + std::string(50, '-') + "\n";

// --- what stops it

TEST_F(Batch, AFolderThatIsNotThereStopsIt) {
    const ProgramRun run = batch("input_folder \"Q:/none\"\nscene \"house.ma\"\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: \"input_folder\" is wrong: Q:/none\n");
    EXPECT_TRUE(names("out").empty());
}

TEST_F(Batch, BackslashesInTheLogsNameStopIt) {
    writeFile(folder.path("list.z3be"), "# TVK_Batch_Export\r\nlog \"Z:\\logs\\log.txt\"\r\n");
    const ProgramRun run = runExporter({"--batch", "list.z3be"}, {{}, folder.path()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: \"log\" is wrong (don't use [\\] [=] [;] [*] [?] [<] [>] [|]): Z:\\logs\\log.txt\n");
}

TEST_F(Batch, ASceneThatFailsKeepsWhatWasExported) {
    writeFile(folder.path("scenes/broken.ma"), "//Maya ASCII 2020 scene\ncreateNode {\n");
    const ProgramRun run = batch("scene \"house.ma\"\nscene \"broken.ma\"\nscene \"tree.ma\"\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.error, testing::EndsWith("Error: \"scene\" is wrong: broken.ma\n"));
    EXPECT_THAT(names("out"), testing::ElementsAre("house.imd"));
}

// --- what it writes

TEST_F(Batch, ExportsItsScenesAndWritesTheLog) {
    const ProgramRun run = batch("scene \"house.ma\"\nscene \"" + kSo + ".ma\" -name \"oak\"\n");
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.error, "[1" + kRule + "# scene: " + folder.path("scenes/house.ma") + "\n[2" + kRule + "# scene: " +
                             folder.path("scenes/" + kSo + ".ma") + "\nBatch Export is finished. Total 2 scenes.\n");
    EXPECT_THAT(names("out"), testing::UnorderedElementsAre("house.imd", "oak.imd"));
    char user[256] = {}, computer[16] = {};
    DWORD userSize = sizeof user, computerSize = sizeof computer;
    ASSERT_TRUE(GetUserNameA(user, &userSize) && GetComputerNameA(computer, &computerSize));
    EXPECT_THAT(log(), testing::StartsWith("# Log of TVK_Batch_Export\n# user: " + std::string(user) +
                                           "\n# host: " + computer + "\n# date: "));
    const std::string folders = "# input_folder: " + folder.path("scenes") +
                                "\n# z3es_folder: " + folder.path("settings") + "\n# z3es: model.z3es\n";
    const std::string output = "\n# output_folder: " + folder.path("out") + "\n# output: ";
    EXPECT_THAT(log(), HasSubstr("\n# z3be: list.z3be\n\n[1" + kRule + folders + "# scene: house.ma" + output +
                                 "house.imd\n\nSuccess\n\n[2" + kRule + folders));
    EXPECT_THAT(log(), testing::EndsWith(output + "oak.imd\n\nSuccess\n\n"));
}

TEST_F(Batch, SeveralProcessesWriteTheSame) {
    const std::string lines = "scene \"house.ma\"\nscene \"" + kSo + ".ma\"\nscene \"tree.ma\" -root \"box\"\n";
    const ProgramRun alone = batch(lines);
    ASSERT_EQ(alone.status, 0) << alone.error;
    const std::string serialLog = log();
    std::map<std::string, std::string> serial;
    for (const std::string& name : names("out")) {
        serial[name] = withoutMaker(fileBytes(folder.path("out/" + name)));
    }
    EXPECT_EQ(serial.size(), 3U);
    fs::remove_all(fs::u8path(folder.path("out")));
    const ProgramRun run = batch(lines, {"--jobs", "2"});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.error, testing::EndsWith("Batch Export is finished. Total 3 scenes.\n"));
    for (const auto& [name, text] : serial) {
        EXPECT_EQ(withoutMaker(fileBytes(folder.path("out/" + name))), text) << name;
    }
    const auto withoutDate = [](const std::string& text) {
        const std::size_t at = text.find("# date: ");
        return text.substr(0, at) + text.substr(text.find('\n', at));
    };
    EXPECT_EQ(withoutDate(log()), withoutDate(serialLog));
}

// Without a log in the list, each run's messages go to one beside other short-lived files, and it does not stay.
TEST_F(Batch, TheDefaultLogGoesToTemp) {
    fs::create_directories(fs::u8path(folder.path("temp " + kSo)));
    writeFile(folder.path("list.z3be"), "# TVK_Batch_Export\ninput_folder \"scenes\"\noutput_folder \"out\"\n"
                                        "z3es_folder \"settings\"\nz3es \"model.z3es\"\nscene \"house.ma\"\n");
    const ProgramRun run =
        runExporter({"--batch", "list.z3be"}, {{{"TEMP", folder.path("temp " + kSo)}}, folder.path()});
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_TRUE(names("temp " + kSo).empty());
    const ProgramRun refused =
        runExporter({"--batch", "list.z3be"}, {{{"TEMP", folder.path("nowhere")}}, folder.path()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.error,
                HasSubstr("Error: Can't open file: " + folder.path("nowhere") + "\\maya50_batch_log.txt\n"));
}

} // namespace
} // namespace tvk
