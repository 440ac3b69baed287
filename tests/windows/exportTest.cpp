// Whole exports by the program that Windows users run.

#include "StartedProgram.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <algorithm>
#include <filesystem>

namespace tvk {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// Kanji "table" and katakana "so": the second byte of both is that of a backslash in Shift_JIS, and neither is in the
// code page of Western Windows.
const std::string kTable = "\xE8\xA1\xA8";
const std::string kSo = "\xE3\x82\xBD";

class Export : public testing::Test {
protected:
    ProgramRun run(const std::vector<std::string>& arguments) const {
        return runExporter(arguments, {{}, folder.path()});
    }
    std::string written(const std::string& name) const { return withoutCarriageReturns(fileBytes(folder.path(name))); }

    const TemporaryFolder folder;
};

// --- what cannot be exported

struct BadScene {
    const char* name;
    const char* argument;
    const char* error;
};

TEST_F(Export, WhatIsNoSceneIsTold) {
    fs::create_directory(folder.path("folder"));
    writeFile(folder.path("empty.ma"), "");
    writeFile(folder.path("broken.ma"), "//Maya ASCII 2020 scene\ncreateNode {\n");
    // Somebody holds it for himself.
    writeFile(folder.path("held.ma"), sceneOf(nodeText("transform", "a")));
    const HANDLE held = CreateFileW(fs::u8path(folder.path("held.ma")).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    const BadScene scenes[] = {
        {"missing", "none.ma", "Error: the scene does not exist: none.ma\n"},
        {"on a drive that is not there", "Q:\\none.ma", "Error: the scene does not exist: Q:\\none.ma\n"},
        {"a folder", "folder", "Error: the scene is a folder: folder\n"},
        {"a device", "NUL", "Error: the scene does not exist: NUL\n"},
        {"empty", "empty.ma", "empty.ma"},
        {"broken", "broken.ma", "broken.ma:2"},
        {"held", "held.ma", "held.ma (system error 32)"},
    };
    for (const BadScene& scene : scenes) {
        const ProgramRun result = run({scene.argument, "-o", "out"});
        EXPECT_EQ(result.status, 1) << scene.name;
        EXPECT_THAT(result.error, AllOf(StartsWith("Error: "), HasSubstr(scene.error))) << scene.name;
        EXPECT_FALSE(fs::exists(fs::u8path(folder.path("out.imd")))) << scene.name;
    }
    CloseHandle(held);
}

TEST_F(Export, AnOutputFolderThatIsNotThereIsTold) {
    writeFile(folder.path("a.ma"), sceneOf(nodeText("transform", "a")));
    const ProgramRun result = run({"a.ma", "-o", "no\\where\\base"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "Error: the output folder does not exist: " + folder.path("no/where") + "\n");
}

TEST_F(Export, AFileThatSomebodyHoldsIsTold) {
    writeFile(folder.path("a.ma"), sceneOf(nodeText("transform", "a")));
    const std::wstring path = fs::u8path(folder.path("a.imd")).wstring();
    const HANDLE held =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    const ProgramRun result = run({"a.ma"});
    CloseHandle(held);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error, HasSubstr("Error: Can't open file: " + folder.path("a.imd") + "\n"));
}

// --- the files of other systems, but for their line ends

struct Sample {
    const char* name;
    std::vector<std::string> kinds;
    std::vector<std::string> settings;
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.name;
}

class Samples : public Export, public testing::WithParamInterface<Sample> {};

/// The samples' files name images from the folder of the sources on, wherever that lies.
std::string withoutPlace(std::string text) {
    const std::string place = fs::absolute(fs::u8path(TVK_SOURCE_DIR)).generic_u8string() + "/";
    for (std::size_t at = text.find(place); at != std::string::npos; at = text.find(place, at)) {
        text.erase(at, place.size());
    }
    return text;
}

TEST_P(Samples, AreTheFilesOfOtherSystems) {
    std::string kinds;
    for (const std::string& kind : GetParam().kinds) {
        kinds += (kinds.empty() ? "" : ",") + kind;
    }
    const std::string name = GetParam().name;
    const std::string scene = fs::absolute(TVK_SOURCE_DIR "/samples/" + name + ".ma").u8string();
    std::vector<std::string> arguments = {scene, "-o", name, "--kinds", kinds};
    for (const std::string& setting : GetParam().settings) {
        arguments.insert(arguments.end(), {"--set", setting});
    }
    const ProgramRun result = run(arguments);
    ASSERT_EQ(result.status, 0) << result.error;
    for (const std::string& kind : GetParam().kinds) {
        const std::string expected = fileBytes(TVK_SOURCE_DIR "/samples/" + name + "." + kind);
        EXPECT_TRUE(withoutMaker(withoutPlace(written(name + "." + kind))) == withoutMaker(expected))
            << name << "." << kind << " is another file than on Linux";
        EXPECT_GT(expected.size(), 500U);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Golden, Samples,
    testing::Values(Sample{"character", {"imd", "iva"}, {}}, Sample{"materials", {"imd"}, {"compress_material=1"}},
                    Sample{"walk", {"imd", "ica", "ima", "itp", "iva", "ita"}, {"anime_interp=1", "frame_step_mode=0"}},
                    Sample{"golem", {"imd"}, {}}),
    [](const auto& sample) { return sample.param.name; });

// --- who made it, and when

std::string valueOf(const std::string& text, const std::string& attribute) {
    const std::size_t begin = text.find(" " + attribute + "=\"") + attribute.size() + 3;
    return text.substr(begin, text.find('"', begin) - begin);
}

std::string timeText() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char text[32] = {};
    wsprintfA(text, "%d-%02d-%02dT%02d:%02d:%02d", now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute,
              now.wSecond);
    return text;
}

TEST_F(Export, NamesTheUserTheComputerAndTheTime) {
    writeFile(folder.path("a.ma"), sceneOf(nodeText("transform", "a")));
    char user[256] = {}, computer[16] = {};
    DWORD userSize = sizeof user, computerSize = sizeof computer;
    ASSERT_TRUE(GetUserNameA(user, &userSize));
    ASSERT_TRUE(GetComputerNameA(computer, &computerSize));
    const std::string before = timeText();
    ASSERT_EQ(run({"a.ma"}).status, 0);
    const std::string after = timeText();
    const std::string text = written("a.imd");
    EXPECT_EQ(valueOf(text, "user"), user);
    EXPECT_EQ(valueOf(text, "host"), computer);
    EXPECT_THAT(valueOf(text, "date"), testing::AllOf(testing::Ge(before), testing::Le(after)));
    EXPECT_EQ(valueOf(text, "source"), "a.ma");
}

// --- paths and letters

TEST_F(Export, PathsMayBeWrittenEitherWay) {
    fs::create_directories(folder.path("scenes/new"));
    writeFile(folder.path("scenes/a.ma"), sceneOf(nodeText("transform", "a")));
    std::string whole = folder.path("scenes/a.ma");
    ASSERT_EQ(whole[1], ':') << "the drive";
    std::string back = whole;
    std::replace(back.begin(), back.end(), '/', '\\');
    const std::string withoutDrive = back.substr(2);
    for (const std::string& scene : {whole, back, withoutDrive, std::string("scenes\\a.ma"), std::string("scenes/a.ma"),
                                     std::string(".\\scenes\\new\\..\\a.ma")}) {
        const ProgramRun result = run({scene, "-o", "scenes\\new\\b"});
        EXPECT_EQ(result.status, 0) << scene << ": " << result.error;
        EXPECT_THAT(written("scenes/new/b.imd"), HasSubstr(" source=\"a.ma\"/>\n")) << scene;
        fs::remove(folder.path("scenes/new/b.imd"));
    }
}

TEST_F(Export, FilesAndNodesMayBeJapanese) {
    const std::string scene = kTable + ".ma";
    writeFile(folder.path(scene), "//Maya ASCII 2008 scene\n//Codeset: 932\nrequires maya \"2008\";\n" +
                                      nodeText("transform", "\x83\x5C_\x95\x5C"));
    fs::create_directory(fs::u8path(folder.path(kSo)));
    const ProgramRun result = run({scene, "-o", kSo + "\\" + kSo});
    ASSERT_EQ(result.status, 0) << result.error;
    EXPECT_THAT(result.out, HasSubstr("========== TVK_Export : " + kSo + " ========== imd \n"));
    const std::string text = written(kSo + "/" + kSo + ".imd");
    EXPECT_THAT(text, HasSubstr(" source=\"\x95\x5C.ma\"/>\n"));
    EXPECT_THAT(text, HasSubstr("name=\"\x83\x5C_\x95\x5C\""));
}

TEST_F(Export, ScenesInOtherCodesets) {
    const struct {
        std::string codeset, node, written;
    } cases[] = {{"1252", "side_\xB1\xD7", "side_\x81\x7D\x81\x7E"},
                 {"UTF-8", kTable, "\x95\x5C"},
                 {"EUC-JP", "\xC9\xBD", "\x95\x5C"},
                 {"SJIS", "\x95\x5C", "\x95\x5C"}};
    for (const auto& c : cases) {
        writeFile(folder.path("a.ma"), "//Maya ASCII 2008 scene\n//Codeset: " + c.codeset +
                                           "\nrequires maya \"2008\";\n" + nodeText("transform", c.node));
        const ProgramRun result = run({"a.ma", "-q"});
        EXPECT_EQ(result.status, 0) << c.codeset;
        EXPECT_EQ(result.error, "") << c.codeset;
        EXPECT_THAT(written("a.imd"), HasSubstr("name=\"" + c.written + "\"")) << c.codeset;
    }
}

// Its text is passed on; what in it names files is looked for all the same.
TEST_F(Export, ACodesetThatNobodyKnowsIsNoObstacle) {
    writeFile(folder.path("a.ma"), "//Maya ASCII 2008 scene\n//Codeset: nobodys\nrequires maya \"2008\";\n" +
                                       nodeText("transform", "\x93\xFA") +
                                       "createNode file -n \"image\";\nsetAttr \".ftn\" -type \"string\" "
                                       "\"textures/\x93\xFA.tga\";\n");
    const ProgramRun result = run({"a.ma", "-q", "--set", "out_all_tex=1"});
    EXPECT_THAT(result.error, HasSubstr("nobodys"));
    EXPECT_THAT(result.error, HasSubstr("\x93\xFA.tga"));
    EXPECT_THAT(result.error, Not(HasSubstr("exception")));
    EXPECT_THAT(result.error, Not(HasSubstr("filesystem")));
}

TEST_F(Export, SceneFilesOfBothLineEndsGiveTheSameModel) {
    const std::string text = sceneOf(nodeText("transform", "a", "", set3("t", 1.5, 2, 3)));
    std::string ended;
    for (const char c : text) {
        ended += c == '\n' ? "\r\n" : std::string(1, c);
    }
    writeFile(folder.path("a.ma"), text);
    ASSERT_EQ(run({"a.ma", "-o", "one"}).status, 0);
    writeFile(folder.path("a.ma"), ended);
    ASSERT_EQ(run({"a.ma", "-o", "two"}).status, 0);
    EXPECT_EQ(withoutMaker(written("one.imd")), withoutMaker(written("two.imd")));
}

TEST_F(Export, ThePlugInIsAnMll) {
    writeFile(folder.path("a.ma"), sceneOf(nodeText("transform", "a")));
    const ProgramRun missing = run({"a.ma", "--plugin", folder.path("none.mll")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.error, HasSubstr("none.mll"));
    const std::string library = TVK_PLUGIN;
    EXPECT_THAT(library, testing::EndsWith("/tvk_export.mll"));
    EXPECT_EQ(run({"a.ma", "--plugin", library}).status, 0);
}

// --- scripts and checks

TEST_F(Export, LongNamesAreFound) {
    writeFile(folder.path("a.ma"), sceneOf(nodeText("transform", "a2345678901234567")));
    const ProgramRun result = run({"--check", "a.ma", "--strict"});
    EXPECT_EQ(result.status, 2) << result.error;
    EXPECT_THAT(result.out, HasSubstr("a2345678901234567"));
}

TEST_F(Export, ScriptsSeeTheScene) {
    writeFile(folder.path("a.ma"), sceneOf(nodeText("transform", "a")));
    writeFile(folder.path("move.mel"), "setAttr a.tx 5;\r\nfile -f -ea -typ \"KALDERA_ZEPHRA_System\" "
                                       "-op \"magnify=2;\" \"mine\";\r\n");
    const ProgramRun result =
        runExporter({"a.ma", "--script", "move.mel", "--command", "print `getenv \"TVK_TEST_NAME\"`"},
                    {{{"TVK_TEST_NAME", kSo}}, folder.path()});
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_THAT(result.out, testing::EndsWith(kSo));
    EXPECT_THAT(written("mine.imd"), HasSubstr("translate=\"10.000000 0.000000 0.000000\""));
}

} // namespace
} // namespace tvk
