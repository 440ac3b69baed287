// Scenes that are no scenes, or only a part of one: one line that tells where and why, no file, and no crash.

#include "FinishedProgram.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <sstream>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

struct Refused {
    const char* name;
    std::string file, bytes; // nothing is written when there are no bytes
    std::string error;       // "@" stands for the folder
};

void PrintTo(const Refused& row, std::ostream* out) {
    *out << row.name;
}

class RefusedScene : public testing::TestWithParam<Refused> {};

TEST_P(RefusedScene, IsNamedInOneLineAndLeavesNoFile) {
    const FinishedProgram program;
    if (!GetParam().bytes.empty()) {
        program.write(GetParam().file, GetParam().bytes);
    }
    const std::vector<std::string> before = program.names();
    const ProgramRun run = program.run({GetParam().file, "-o", "fresh/base"});
    std::string error = GetParam().error;
    if (const std::size_t at = error.find('@'); at != std::string::npos) {
        error.replace(at, 1, program.path());
    }
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: " + error + "\n");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(program.names(), before);
}

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    All, RefusedScene,
    testing::Values(
        Refused{"Missing", "none.ma", "", "the scene does not exist: none.ma"},
        Refused{"MissingFolder", "no/none.ma", "", "the scene does not exist: no/none.ma"},
        Refused{"Folder", ".", "", "the scene is a folder: ."},
        Refused{"Device", "/dev/null", "", "File is not a regular file: /dev/null"},
        Refused{"BinaryByName", "scene.mb", "FOR4", "only Maya ASCII scenes (.ma) can be read: scene.mb"},
        Refused{"BinaryByContents", "scene.ma", "FOR4\0\0\1\0MayaHEAD"s,
                "File is a Maya Binary scene, which cannot be read; save it as Maya ASCII (.ma): @/scene.ma"},
        Refused{"BinaryOfLargeFiles", "scene.ma", "FOR8\0\0\0\0\0\0\1\0MayaHEAD"s,
                "File is a Maya Binary scene, which cannot be read; save it as Maya ASCII (.ma): @/scene.ma"},
        Refused{"Picture", "scene.ma", "\x89PNG\r\n\x1a\n"s,
                "@/scene.ma:1:1: expected a command, found unexpected character"},
        Refused{"OpenString", "scene.ma", sceneOf("createNode transform -n \"a"),
                "@/scene.ma:5:25: expected a text, found unterminated string"}),
    [](const auto& row) { return row.param.name; });

TEST(EmptyScene, IsNamedAndLeavesNoFile) {
    const FinishedProgram program;
    program.write("empty.ma", "");
    const ProgramRun run = program.run({"empty.ma"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: File is empty: " + program.path("empty.ma") + "\n");
    EXPECT_THAT(program.names(), ElementsAre("empty.ma"));
}

/// Opens many files in one run, each whether or not those before it could be opened.
class ManyScenes {
public:
    void add(const std::string& name, const std::string& bytes) {
        program.write(name, bytes);
        script += "print(\"" + name + " \" + catch(`file -f -o \"" + name + "\"`) + \"\\n\");\n";
        ++count;
    }

    /// Checks that each was opened, or else refused in one line that tells the place. Returns the opened ones.
    std::vector<std::string> open() const {
        program.write("open.mel", script);
        FinishedProgram::Surroundings patient;
        patient.limitSeconds = 280;
        const ProgramRun run = program.run({"--script", "open.mel"}, patient);
        EXPECT_EQ(run.status, 0) << run.error.substr(0, 2000);
        const std::vector<std::string> told = refusals(run);
        std::vector<std::string> opened;
        std::size_t refused = 0;
        std::istringstream in(run.out);
        for (std::string name, failed; in >> name >> failed;) {
            if (failed == "0") {
                opened.push_back(name);
            } else if (refused < told.size()) {
                EXPECT_THAT(told[refused++], MatchesRegex("Error: " + name + ":[0-9]+:[0-9]+: expected .+, found .+"));
            }
        }
        EXPECT_EQ(refused, told.size());
        EXPECT_EQ(opened.size() + told.size(), count);
        return opened;
    }

    const FinishedProgram program;

private:
    static std::vector<std::string> refusals(const ProgramRun& run) {
        std::vector<std::string> lines = run.errorLines();
        const auto isNoError = [](const std::string& line) { return line.rfind("Error: ", 0) != 0; };
        lines.erase(std::remove_if(lines.begin(), lines.end(), isNoError), lines.end());
        return lines;
    }

    std::string script;
    std::size_t count = 0;
};

TEST(RandomBytes, AreRefusedWithTheirPlace) {
    std::mt19937 random(2024);
    ManyScenes scenes;
    for (int i = 0; i < 500; ++i) {
        std::string bytes(1 + random() % 3000, ' ');
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
        bytes[0] = static_cast<char>(0x80 + random() % 0x80); // nothing that a comment begins with
        scenes.add("random" + std::to_string(i) + ".ma", bytes);
    }
    EXPECT_THAT(scenes.open(), IsEmpty());
}

TEST(RandomBytes, WithinAScene) {
    std::mt19937 random(5);
    const std::string whole = realScene("euler-flip-ik/UsdExportEulerFilterTest.ma");
    ManyScenes scenes;
    for (int i = 0; i < 300; ++i) {
        std::string bytes = whole;
        for (int j = 0; j < 4; ++j) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        scenes.add("damaged" + std::to_string(i) + ".ma", bytes);
    }
    EXPECT_LT(scenes.open().size(), 300U) << "no byte hit anything";
}

/// Where a scene may end so that every statement before is whole, and nothing has begun behind it but a comment.
bool isBetweenStatements(const std::string& text) {
    std::istringstream in(text);
    std::string last;
    for (std::string line; std::getline(in, line);) {
        const bool isComment = line.rfind("//", 0) == 0;
        const bool isBlank = line.find_first_not_of(" \t\r") == std::string::npos;
        last = isBlank || isComment ? last : line;
    }
    return last.empty() || last.back() == ';';
}

TEST(TruncatedScene, OpensBetweenStatementsAndIsRefusedElsewhere) {
    const std::string whole = realScene("euler-flip-ik/UsdExportEulerFilterTest.ma");
    ManyScenes scenes;
    std::vector<std::string> expected;
    for (std::size_t length = 1; length < whole.size();) {
        const std::string name = "cut" + std::to_string(length) + ".ma";
        const std::string text = whole.substr(0, length);
        scenes.add(name, text);
        if (isBetweenStatements(text)) {
            expected.push_back(name);
        }
        const bool isDense = length < 1024 || length + 1024 >= whole.size();
        length += isDense ? 1 : 37;
    }
    EXPECT_GT(expected.size(), 10U);
    EXPECT_THAT(scenes.open(), testing::ContainerEq(expected));
}

TEST(TruncatedScene, IsExportedWholeOrNotAtAll) {
    const std::string whole = realScene("skin-one-joint/UsdExportSkeletonWithIdentityBindPose.ma");
    const FinishedProgram program;
    int exported = 0;
    for (std::size_t length = 1; length < whole.size(); length += 601) {
        program.write("cut.ma", whole.substr(0, length));
        const ProgramRun run = program.run({"cut.ma", "-q"});
        const std::vector<std::string> errors = run.errorLines();
        ASSERT_TRUE(run.status == 0 || run.status == 1) << length;
        if (run.status == 0) {
            ++exported;
            EXPECT_THAT(program.names(), ElementsAre("cut.imd", "cut.ma")) << length;
            std::filesystem::remove(program.path("cut.imd"));
        } else {
            ASSERT_FALSE(errors.empty()) << length;
            EXPECT_THAT(errors.back(), MatchesRegex("Error: (No effective node|No polygon in mesh node: .+|"
                                                    "No shading group: .+|.+:[0-9]+:[0-9]+: expected .+)"));
            EXPECT_THAT(program.names(), ElementsAre("cut.ma")) << length;
        }
    }
    EXPECT_LT(exported, 24);
}

} // namespace
} // namespace tvk
