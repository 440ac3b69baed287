// Batches that run to their end, and what they leave.

#include "BatchSession.h"
#include "sceneText.h"

#include "host/api/Host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

class BatchRuns : public testing::Test {
protected:
    std::string log() const { return session.fileText("log.txt"); }

    BatchSession session;
};

// --- scenes

TEST_F(BatchRuns, OneSceneIsCountedAsOne) {
    EXPECT_TRUE(session.batch(session.start() + "scene \"a.ma\"\n"));
    EXPECT_EQ(session.takeMessages(), session.announced(1, "a.ma") + "Batch Export is finished. Total 1 scene.\n");
    EXPECT_THAT(session.nodesOf("out/a.imd"), ElementsAre("world_root", "a", "shared"));
    EXPECT_THAT(session.infos, IsEmpty()) << "a batch shows nothing in the host";
}

TEST_F(BatchRuns, ThreeScenesAreScenes) {
    EXPECT_TRUE(session.batch(session.start() + "scene \"a.ma\"\nscene \"b.ma\"\nscene \"a.ma\" -name \"again\"\n"));
    EXPECT_EQ(session.takeMessages(), session.announced(1, "a.ma") + session.announced(2, "b.ma") +
                                          session.announced(3, "a.ma") + "Batch Export is finished. Total 3 scenes.\n");
    for (const char* name : {"out/a.imd", "out/b.imd", "out/again.imd"}) {
        EXPECT_TRUE(session.hasFile(name)) << name;
    }
}

TEST_F(BatchRuns, RootsAreSelectedAlone) {
    session.writeScene("in/c.ma", nodeText("transform", "a") + nodeText("transform", "b") + nodeText("transform", "c") +
                                      nodeText("transform", "d") + "select -ne d;\n");
    EXPECT_TRUE(session.batch(session.start() + "scene \"c.ma\" -root \"a, b\" -name \"two\"\n"
                                                "scene \"c.ma\" -root \" ,c,, \" -name \"one\"\n"
                                                "scene \"c.ma\" -root \",\" -name \"all\"\n"));
    EXPECT_THAT(session.nodesOf("out/two.imd"), ElementsAre("world_root", "a", "b"));
    EXPECT_THAT(session.nodesOf("out/one.imd"), ElementsAre("c"));
    EXPECT_THAT(session.nodesOf("out/all.imd"), ElementsAre("world_root", "a", "b", "c", "d"));
}

// --- names

TEST_F(BatchRuns, TheBaseNameIsTheScenesWithoutFolderAndExtension) {
    session.makeFolder("in/deep");
    session.writeScene("in/deep/char.v2.ma", nodeText("transform", "a"));

    EXPECT_TRUE(session.batch(session.start() + "scene \"deep/char.v2.ma\"\nscene \"a.ma\" -name \"b.imd\"\n"));
    EXPECT_TRUE(session.hasFile("out/char.v2.imd"));
    EXPECT_TRUE(session.hasFile("out/b.imd"));
}

// In Shift_JIS the second byte of "so" is a backslash; with UTF-8 no byte is.
TEST_F(BatchRuns, NamesMayBeOfAnyScript) {
    const std::vector<std::string> names = {"\xE3\x82\xBD", "\x83\x5C", "x=y;z", "it's", "two words", "\xC3\xBC"};
    std::string lines = "log \"@/\xE3\x82\xBD.txt\"\n" + session.start();
    for (const std::string& name : names) {
        session.writeScene("in/" + name + ".ma", nodeText("transform", "a"));
        lines += "scene \"" + name + ".ma\"\n";
    }
    EXPECT_TRUE(session.batch(lines)) << session.takeMessages();
    for (const std::string& name : names) {
        EXPECT_TRUE(std::filesystem::exists(session.folder.path("out/" + name + ".imd"))) << name;
    }
    EXPECT_THAT(session.fileText("\xE3\x82\xBD.txt"), HasSubstr("# output: \x83\x5C.imd\n"));
}

// --- folders

TEST_F(BatchRuns, TheOutputFolderIsMadeAndSlashesFallOff) {
    EXPECT_TRUE(session.batch("input_folder \"@/in//\"\noutput_folder \"@/new/\"\nz3es_folder \"@/set/\"\n"
                              "z3es \"model.z3es\"\nscene \"a.ma\"\n"));
    EXPECT_TRUE(session.hasFile("new/a.imd"));
}

TEST_F(BatchRuns, AProjectsSceneFolderIsUsed) {
    session.makeFolder("project/stage");
    session.write("project/workspace.mel", "workspace -ot \"scene\" \"stage\";\n");
    session.writeScene("project/stage/c.ma", nodeText("transform", "c"));
    EXPECT_TRUE(session.batch(session.start() + "input_folder \"@/project\"\nscene \"c.ma\"\n"));
    EXPECT_THAT(session.takeMessages(), HasSubstr("# scene: " + session.folder.path("project/stage/c.ma") + "\n"));
    EXPECT_THAT(session.mel("workspace -q -rd"), EndsWith("/project/"));
}

// --- settings

TEST_F(BatchRuns, SettingsAreReadOnceForSeveralScenes) {
    session.writeSettings("set/other.z3es", "magnify=\"2\"\n");
    session.writeScene("in/moved.ma", nodeText("transform", "a", "", set3("t", 1, 0, 0)));
    session.write("list.z3be", "# TVK_Batch_Export\n" + session.start() +
                                   "z3es \"other.z3es\"\nscene \"moved.ma\" -name \"first\"\n"
                                   "scene \"moved.ma\" -name \"second\"\nz3es \"other.z3es\"\n"
                                   "scene \"moved.ma\" -name \"third\"\nz3es_folder \"" +
                                   session.folder.path("set") + "\"\nscene \"moved.ma\" -name \"fourth\"\n");
    // Each time a scene is finished the settings have become others.
    const std::vector<std::string> exported = {"first", "second", "third"};
    host::Host::instance().feedbackLine().onChange = [&] {
        const auto done = std::count_if(exported.begin(), exported.end(), [&](const std::string& name) {
            return session.hasFile("out/" + name + ".imd");
        });
        session.writeSettings("set/other.z3es", "magnify=\"" + std::to_string(2 + done) + "\"\n");
    };
    EXPECT_TRUE(session.batchFile(session.folder.path("list.z3be"))) << session.takeMessages();
    const auto shift = [&](const std::string& name) {
        return decode::readModelFile(session.fileText("out/" + name + ".imd")).node("a").translate.x;
    };
    EXPECT_EQ(shift("first"), 2.0);
    EXPECT_EQ(shift("second"), 2.0) << "read again without being named";
    EXPECT_EQ(shift("third"), 4.0);
    EXPECT_EQ(shift("fourth"), 5.0);
}

TEST_F(BatchRuns, OutputsThatTheSettingsLeaveOutAreNotListed) {
    session.write("set/bare.z3es", "# TVK_Export settings\noutput_iva=\"on\"\n");
    EXPECT_TRUE(session.batch("log \"@/log.txt\"\n" + session.start() + "z3es \"bare.z3es\"\nscene \"a.ma\"\n"));
    EXPECT_TRUE(session.hasFile("out/a.imd") && session.hasFile("out/a.iva"));
    EXPECT_THAT(log(), HasSubstr("\n# output: a.iva\n"));
}

// --- the log

TEST_F(BatchRuns, TheLogTellsEverythingInOrder) {
    session.writeScene("in/long.ma", nodeText("transform", "a2345678901234567"));
    session.writeSettings("set/both.z3es", "output_iva=\"on\"\n");
    EXPECT_TRUE(
        session.batch("log \"@/log.txt\"\n" + session.start() +
                      "scene \"a.ma\" -root \"a, shared\"\nz3es \"both.z3es\"\nscene \"long.ma\" -name \"x\"\n"))
        << session.takeMessages();
    std::string text = log();
    const std::size_t body = text.find("\n\n") + 2;
    EXPECT_THAT(text.substr(0, body), MatchesRegex("# Log of TVK_Batch_Export\n# user: .+\n# host: .+\n"
                                                   "# date: [0-9]+-[0-9][0-9]-[0-9][0-9]T[0-9][0-9]:[0-9][0-9]:[0-9]"
                                                   "[0-9]\n# z3be: " +
                                                   session.folder.path("list.z3be") + "\n\n"));
    const std::string folders = session.placed("# input_folder: @/in\n# z3es_folder: @/set\n");
    const std::string out = session.placed("# output_folder: @/out\n");
    EXPECT_EQ(text.substr(body), "[1] " + std::string(50, '-') + "\n" + folders +
                                     "# z3es: model.z3es\n# scene: a.ma (root: a, shared)\n" + out +
                                     "# output: a.imd\n\nSuccess\n\n[2] " + std::string(50, '-') + "\n" + folders +
                                     "# z3es: both.z3es\n# scene: long.ma\n" + out +
                                     "# output: x.imd  x.iva\n\nWarning: No visibility animation\n"
                                     "Warning: Length of name over 16 characters: node: a2345678901234567\n\n");
}

TEST_F(BatchRuns, ALogIsBegunAfresh) {
    session.write("log.txt", "of yesterday\n");
    EXPECT_TRUE(session.batch("log \"@/log.txt\"\n" + session.start() + "scene \"a.ma\"\n"));
    EXPECT_THAT(log(), Not(HasSubstr("yesterday")));
}

TEST_F(BatchRuns, OnlyTheFirstLogLineBeforeTheFoldersCounts) {
    for (const char* keyword : {"input_folder \"@/in\"", "output_folder \"@/out\"", "z3es_folder \"@/set\"",
                                "z3es \"model.z3es\"", "log \"@/first.txt\""}) {
        const std::string lines = std::string(keyword) + "\nlog \"@/log.txt\"\nlog \"\"\n";
        EXPECT_TRUE(session.batch(lines + session.start() + "scene \"a.ma\"\n")) << keyword;
        EXPECT_FALSE(session.hasFile("log.txt")) << keyword;
    }
    EXPECT_TRUE(session.hasFile("first.txt"));
    EXPECT_TRUE(session.batch("# comment\nnonsense\n\nlog \"@/log.txt\"\n" + session.start() + "scene \"a.ma\"\n"));
    EXPECT_TRUE(session.hasFile("log.txt"));
}

TEST_F(BatchRuns, ALogOnAFullDiskStopsNothing) {
    std::filesystem::create_symlink("/dev/full", session.folder.path("log.txt"));
    EXPECT_TRUE(session.batch("log \"@/log.txt\"\n" + session.start() + "scene \"a.ma\"\n"));
    const std::string full = "Error: Can't write file: " + session.folder.path("log.txt") + "\n";
    EXPECT_EQ(session.takeMessages(),
              full + session.announced(1, "a.ma") + full + full + "Batch Export is finished. Total 1 scene.\n");
    EXPECT_TRUE(session.hasFile("out/a.imd"));
}

TEST_F(BatchRuns, ALogThatGoesAwayStopsTheBatch) {
    session.makeFolder("logs");
    session.write("list.z3be", "# TVK_Batch_Export\nlog \"" + session.folder.path("logs/log.txt") + "\"\n" +
                                   session.start() + "scene \"a.ma\"\nscene \"b.ma\"\n");
    host::Host::instance().feedbackLine().onChange = [&] {
        if (session.hasFile("out/a.imd")) {
            std::filesystem::remove_all(session.folder.path("logs"));
        }
    };
    EXPECT_FALSE(session.batchFile(session.folder.path("list.z3be")));
    EXPECT_THAT(session.takeMessages(), EndsWith(session.announced(2, "b.ma") + "Error: Can't open file: " +
                                                 session.folder.path("logs/log.txt") + "\n"));
    EXPECT_FALSE(session.hasFile("out/b.imd"));
}

// --- list files as editors leave them

TEST_F(BatchRuns, FilesFromElsewhereAreRead) {
    std::string text = "# TVK_Batch_Export\n" + session.start() + "scene \"a.ma\"";
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2)) {
        text.insert(at, "\r");
    }
    session.write("list.z3be", "\xEF\xBB\xBF" + text);
    EXPECT_TRUE(session.batchFile(session.folder.path("list.z3be"))) << session.takeMessages();
    EXPECT_TRUE(session.hasFile("out/a.imd"));
}

TEST_F(BatchRuns, LongLinesDisturbNobody) {
    for (const std::size_t length : {std::size_t{2047}, std::size_t{2048}, std::size_t{100000}}) {
        std::string line = "scene \"a.ma\" -name \"n" + std::to_string(length) + "\" ";
        line += std::string(length - line.size(), 'x');
        EXPECT_TRUE(session.batch(std::string(length, '#') + "\n" + session.start() + line + "\nscene \"b.ma\"\n"));
        EXPECT_TRUE(session.hasFile("out/n" + std::to_string(length) + ".imd"));
        EXPECT_TRUE(session.hasFile("out/b.imd"));
        std::filesystem::remove(session.folder.path("out/b.imd"));
    }
}

TEST_F(BatchRuns, BinaryLinesArePassedOver) {
    std::string noise;
    for (int i = 0; i < 100000; ++i) {
        noise += static_cast<char>(i * 7919 >> 3);
    }
    EXPECT_TRUE(session.batch(noise + "\n" + session.start() + noise + "\nscene \"a.ma\"\n" + noise));
    EXPECT_THAT(session.takeMessages(), EndsWith("Batch Export is finished. Total 1 scene.\n"));
    EXPECT_TRUE(session.hasFile("out/a.imd"));
}

TEST_F(BatchRuns, ManyThousandLinesAreRead) {
    std::string lines;
    for (int i = 0; i < 200000; ++i) {
        lines += i % 2 == 0 ? "# a comment\n" : "keyword_of_the_future \"x\"\n";
    }
    EXPECT_TRUE(session.batch(lines + session.start() + lines + "scene \"a.ma\"\n" + lines));
}

} // namespace
} // namespace tvk
