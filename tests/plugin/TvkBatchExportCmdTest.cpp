#include "BatchSession.h"
#include "sceneText.h"

#include "host/api/Host.h"

#include <maya/MPxCommand.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

const char* const kFinishedOne = "Batch Export is finished. Total 1 scene.\n";

class BatchExportCommand : public testing::Test {
protected:
    BatchSession session;
};

// --- the command

TEST_F(BatchExportCommand, WithoutAListItFailsWithoutAText) {
    for (const char* arguments : {"", " -batch \"\"", " -b \"\""}) {
        EXPECT_FALSE(session.melRuns(std::string("TVK_BatchExportCmd") + arguments)) << arguments;
        EXPECT_EQ(session.takeMessages(), "") << arguments;
    }
}

TEST_F(BatchExportCommand, TakesBothNamesOfItsFlag) {
    session.write("list.z3be", "# TVK_Batch_Export\n" + session.start() + "scene \"a.ma\"\n");
    for (const char* flag : {"-b", "-batch"}) {
        EXPECT_TRUE(session.melRuns(std::string("TVK_BatchExportCmd ") + flag + " \"" +
                                    session.folder.path("list.z3be") + "\""));
        EXPECT_THAT(session.takeMessages(), EndsWith(kFinishedOne)) << flag;
    }
}

TEST_F(BatchExportCommand, LetsNothingBeThrownIntoTheHost) {
    std::vector<std::string> shown;
    host::Host::instance().messages().error = [&](const std::string& line) { shown.push_back(line); };
    // The selection that the command makes is what throws here.
    host::Host::instance().feedbackLine().onChange = [] { throw std::runtime_error("no window"); };
    EXPECT_FALSE(session.batch(session.start() + "scene \"a.ma\"\n"));
    EXPECT_THAT(session.takeMessages(), EndsWith("Error: Failed to export\n"));
}

TEST_F(BatchExportCommand, InsideAnExportItFailsInSilence) {
    session.write("inner.z3be", "no list\n");
    const std::string inner = "TVK_BatchExportCmd -batch \"" + session.folder.path("inner.z3be") + "\"";
    int tries = 0;
    int failures = 0;
    host::Host::instance().feedbackLine().onChange = [&] {
        ++tries;
        failures += session.melRuns(inner) ? 0 : 1;
    };
    EXPECT_TRUE(session.batch("log \"@/log.txt\"\n" + session.start() + "scene \"a.ma\"\n"));
    EXPECT_GT(tries, 0);
    EXPECT_EQ(failures, tries);
    EXPECT_EQ(session.takeMessages(), session.announced(1, "a.ma") + kFinishedOne);
    EXPECT_THAT(session.fileText("log.txt"), EndsWith("\nSuccess\n\n")) << "the outer export's messages still go there";
}

TEST_F(BatchExportCommand, CannotBeUndone) {
    const auto& commands = session.plugin()->commands;
    for (const host::CommandEntry& entry : commands) {
        if (entry.name == "TVK_BatchExportCmd") {
            const std::unique_ptr<MPxCommand> command(static_cast<MPxCommand*>(entry.create()));
            const std::unique_ptr<MPxCommand> another(static_cast<MPxCommand*>(entry.create()));
            EXPECT_NE(command, another);
            EXPECT_FALSE(command->isUndoable());
            EXPECT_NE(entry.createSyntax, nullptr);
        }
    }
}

// --- lists that are refused before any scene

struct Refused {
    const char* name;
    std::string lines;   // behind the header; '@' is the folder, '$' the lines that name folders and settings
    std::string message; // all that is said
};

void PrintTo(const Refused& row, std::ostream* out) {
    *out << row.name;
}

class RefusedBatch : public BatchExportCommand, public testing::WithParamInterface<Refused> {};

TEST_P(RefusedBatch, SaysWhyOnce) {
    std::string lines = GetParam().lines;
    if (const std::size_t at = lines.find('$'); at != std::string::npos) {
        lines.replace(at, 1, session.start());
    }
    EXPECT_FALSE(session.batch(lines));
    EXPECT_EQ(session.takeMessages(), session.placed(GetParam().message) + "\n");
    EXPECT_TRUE(std::filesystem::is_empty(session.folder.path("out")));
}

const char* const kLogCharacters = "Error: \"log\" is wrong (don't use [\\] [=] [;] [*] [?] [<] [>] [|]): ";
const char* const kNameCharacters = "Error: \"-name\" is wrong (don't use [/] [\\] [:] [*] [?] [<] [>] [|]): ";

INSTANTIATE_TEST_SUITE_P(
    Lists, RefusedBatch,
    testing::Values(
        Refused{"Nothing", "", "Error: \"scene\" is not specified"},
        Refused{"NoScene", "$", "Error: \"scene\" is not specified"},
        Refused{"OnlyComments", "# scene \"a.ma\"\n\n#\n", "Error: \"scene\" is not specified"},
        Refused{"EmptyLog", "log \"\"\n$scene \"a.ma\"\n", "Error: \"log\" is wrong"},
        Refused{"LogWithoutQuotes", "log @/log.txt\n$", "Error: \"log\" is wrong"},
        Refused{"LogNowhere", "log \"@/none/log.txt\"\n$", "Error: Can't open file: @/none/log.txt"},
        Refused{"LogIsAFolder", "log \"@/out\"\n$", "Error: Can't open file: @/out"},
        Refused{"NoInput", "input_folder \"@/none\"\n", "Error: \"input_folder\" is wrong: @/none"},
        Refused{"InputIsAFile", "input_folder \"@/in/a.ma\"\n", "Error: \"input_folder\" is wrong: @/in/a.ma"},
        Refused{"InputEmpty", "input_folder \"\"\n", "Error: \"input_folder\" is wrong: "},
        Refused{"InputWithoutQuotes", "input_folder @/in\n", "Error: \"input_folder\" is wrong: "},
        Refused{"NoOutput", "output_folder \"@/none/out//\"\n", "Error: \"output_folder\" is wrong: @/none/out"},
        Refused{"OutputIsAFile", "output_folder \"@/in/a.ma\"\n", "Error: \"output_folder\" is wrong: @/in/a.ma"},
        Refused{"OutputEmpty", "output_folder\n", "Error: \"output_folder\" is wrong: "},
        Refused{"NoSettingsFolder", "z3es_folder \"@/none/\"\n", "Error: \"z3es_folder\" is wrong: @/none"},
        Refused{"SettingsFolderEmpty", "z3es_folder\n", "Error: \"z3es_folder\" is wrong: "},
        Refused{"SettingsEmpty", "$z3es \"\"\nscene \"a.ma\"\n", "Error: \"z3es\" is not specified"},
        Refused{"NoSettings", "$z3es \"none.z3es\"\nscene \"a.ma\"\n", "Error: \"z3es\" is wrong: none.z3es"},
        Refused{"SettingsAreNone", "$z3es_folder \"@/in\"\nz3es \"a.ma\"\nscene \"a.ma\"\n",
                "Error: \"z3es\" is wrong: a.ma"},
        Refused{"NameComesFirst", "scene \"a.ma\" -name \"x/y\"\n", std::string(kNameCharacters) + "x/y"},
        Refused{"SceneFirst", "scene \"a.ma\"\n$", "Error: \"input_folder\" is not specified"}),
    [](const auto& row) { return row.param.name; });

TEST_F(BatchExportCommand, EachMissingKeywordIsNamedInTurn) {
    const std::vector<std::pair<std::string, std::string>> lines = {
        {"input_folder", "@/in"}, {"output_folder", "@/out"}, {"z3es_folder", "@/set"}, {"z3es", "model.z3es"}};
    for (const auto& [missing, unused] : lines) {
        std::string text;
        for (const auto& [keyword, value] : lines) {
            text += keyword == missing ? "" : keyword + " \"" + value + "\"\n";
        }
        EXPECT_FALSE(session.batch(text + "scene \"a.ma\"\n")) << missing;
        EXPECT_EQ(session.takeMessages(), "Error: \"" + missing + "\" is not specified\n");
    }
    EXPECT_FALSE(session.batch("output_folder \"@/out\"\nscene \"a.ma\"\n"));
    EXPECT_EQ(session.takeMessages(), "Error: \"input_folder\" is not specified\n") << "the first of several";
}

TEST_F(BatchExportCommand, ForbiddenCharactersAreRefused) {
    for (const char c : std::string("\\=;*?<>|")) {
        const std::string log = "log" + std::string(1, c) + ".txt";
        EXPECT_FALSE(session.batch("log \"" + log + "\"\n" + session.start() + "scene \"a.ma\"\n"));
        EXPECT_EQ(session.takeMessages(), kLogCharacters + log + "\n");
    }
    for (const char c : std::string("/\\:*?<>|")) {
        const std::string name = "x" + std::string(1, c) + "y";
        EXPECT_FALSE(session.batch(session.start() + "scene \"a.ma\" -name \"" + name + "\"\n"));
        EXPECT_EQ(session.takeMessages(), kNameCharacters + name + "\n");
    }
}

// --- files that are no lists

TEST_F(BatchExportCommand, AListThatCannotBeOpenedIsNamed) {
    for (const std::string& path : {session.folder.path("none.z3be"), session.folder.path()}) {
        EXPECT_FALSE(session.batchFile(path));
        EXPECT_EQ(session.takeMessages(), "Error: Can't open file: " + path + "\n");
    }
}

TEST_F(BatchExportCommand, AFileWithoutTheHeaderIsNoList) {
    std::string noise;
    for (int i = 0; i < 100000; ++i) {
        noise += static_cast<char>(i * 7919 >> 3);
    }
    for (const std::string& text : {std::string(), std::string("\n# TVK_Batch_Export\n"), std::string("scene \"a.ma\""),
                                    std::string("# TVK_Export settings\n"), noise}) {
        session.write("list.z3be", text);
        EXPECT_FALSE(session.batchFile(session.folder.path("list.z3be")));
        EXPECT_EQ(session.takeMessages(), "Error: z3be file is wrong\n") << text.substr(0, 30);
    }
}

// --- lists that fail at a scene

TEST_F(BatchExportCommand, ASceneThatDoesNotOpenIsNamed) {
    session.write("in/broken.ma", "//Maya ASCII 2020 scene\ncreateNode {\n");
    for (const char* scene : {"none.ma", "broken.ma", ""}) {
        EXPECT_FALSE(session.batch(session.start() + "scene \"" + scene + "\"\n")) << scene;
        EXPECT_THAT(session.takeMessages(),
                    testing::AllOf(testing::StartsWith(session.announced(1, scene)),
                                   EndsWith(std::string("Error: \"scene\" is wrong: ") + scene + "\n")));
    }
}

TEST_F(BatchExportCommand, AMissingRootStopsTheBatch) {
    EXPECT_FALSE(session.batch(session.start() + "scene \"a.ma\" -root \"a, none\"\nscene \"b.ma\"\n"));
    EXPECT_EQ(session.takeMessages(), session.announced(1, "a.ma") + "Error: Node is not found: none\n");
    EXPECT_FALSE(session.hasFile("out/a.imd") || session.hasFile("out/b.imd"));
}

TEST_F(BatchExportCommand, AnExportThatFailsStopsTheBatch) {
    session.writeScene("in/empty.ma", "");
    EXPECT_FALSE(session.batch("log \"@/log.txt\"\n" + session.start() +
                               "scene \"a.ma\"\nscene \"empty.ma\"\nscene \"b.ma\"\n"));
    EXPECT_EQ(session.takeMessages(),
              session.announced(1, "a.ma") + session.announced(2, "empty.ma") + "Error: Failed to export\n");
    EXPECT_TRUE(session.hasFile("out/a.imd"));
    EXPECT_FALSE(session.hasFile("out/b.imd"));
    const std::string log = session.fileText("log.txt");
    EXPECT_THAT(log, testing::HasSubstr("# scene: a.ma\n"));
    EXPECT_THAT(log, EndsWith("# scene: empty.ma\n# output_folder: " + session.folder.path("out") +
                              "\n# output: empty.imd\n\nError: No effective node\n\n"));
}

TEST_F(BatchExportCommand, FoldersMayVanishBetweenScenes) {
    const std::pair<const char*, const char*> cases[] = {{"out", "Error: Failed to export\n"},
                                                         {"in", "Error: \"scene\" is wrong: b.ma\n"},
                                                         {"set", "Error: \"z3es\" is wrong: model.z3es\n"}};
    for (const auto& [folder, message] : cases) {
        session.write("list.z3be", "# TVK_Batch_Export\nlog \"" + session.folder.path("log.txt") + "\"\n" +
                                       session.start() + "scene \"a.ma\"\nz3es \"model.z3es\"\nscene \"b.ma\"\n");
        // The first export's feedback is the moment at which somebody takes the folder away.
        host::Host::instance().feedbackLine().onChange = [&, name = std::string(folder)] {
            if (session.hasFile("out/a.imd")) {
                std::filesystem::rename(session.folder.path(name), session.folder.path("taken"));
                host::Host::instance().feedbackLine().onChange = nullptr;
            }
        };
        EXPECT_FALSE(session.batchFile(session.folder.path("list.z3be"))) << folder;
        EXPECT_THAT(session.takeMessages(), EndsWith(message)) << folder;
        EXPECT_THAT(session.fileText("log.txt"), testing::HasSubstr("# scene: a.ma\n")) << folder;
        std::filesystem::rename(session.folder.path("taken"), session.folder.path(folder));
        EXPECT_FALSE(session.hasFile("out/b.imd")) << folder;
        std::filesystem::remove(session.folder.path("out/a.imd"));
    }
}

} // namespace
} // namespace tvk
