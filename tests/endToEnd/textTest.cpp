// Scenes of all systems and languages, and users of all countries.

#include "FinishedProgram.h"
#include "decode/ModelFile.h"
#include "sceneText.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Kanji "table" and katakana "so": the second byte of both is that of a backslash in Shift_JIS.
const std::string kTable = "\xE8\xA1\xA8";
const std::string kTableWritten = "\x95\x5C";
const std::string kSo = "\xE3\x82\xBD";
const std::string kSoWritten = "\x83\x5C";

std::string withLineEnds(const std::string& text, const std::string& end) {
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? end : std::string(1, c);
    }
    return result;
}

TEST(SceneText, OfEverySystemGivesTheSameModel) {
    const std::string text = sceneOf(nodeText("transform", "a", "", set3("t", 1.5, 2, 3)) +
                                     nodeText("joint", "b", "a", "setAttr \".ro\" 2;"));
    const FinishedProgram program;
    std::string expected;
    for (const std::string& variant :
         {text, withLineEnds(text, "\r\n"), "\xEF\xBB\xBF" + text, "\xEF\xBB\xBF" + withLineEnds(text, "\r\n")}) {
        program.write("scene.ma", variant);
        const ProgramRun run = program.run({"scene.ma", "-q"});
        ASSERT_EQ(run.status, 0) << run.error;
        EXPECT_THAT(run.errorLines(), IsEmpty());
        const std::string model = withoutMaker(program.bytes("scene.imd"));
        expected = expected.empty() ? model : expected;
        EXPECT_EQ(model, expected);
    }
    EXPECT_THAT(decode::readModelFile(program.bytes("scene.imd")).names(), ElementsAre("a", "b"));
}

struct CodesetRow {
    const char* name;
    std::string codeset; // line of the heading
    std::string node;    // as the scene has it
    std::string written; // as the file has it
};

void PrintTo(const CodesetRow& row, std::ostream* out) {
    *out << row.name;
}

class Codeset : public testing::TestWithParam<CodesetRow> {};

TEST_P(Codeset, NamesAreWrittenInShiftJis) {
    const FinishedProgram program;
    program.write("scene.ma", "//Maya ASCII 2008 scene\n" + GetParam().codeset + "requires maya \"2008\";\n" +
                                  nodeText("transform", GetParam().node));
    const ProgramRun run = program.run({"scene.ma", "-q"});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_THAT(run.errorLines(), IsEmpty());
    EXPECT_THAT(decode::readModelFile(program.bytes("scene.imd")).names(), ElementsAre(GetParam().written));
}

INSTANTIATE_TEST_SUITE_P(
    All, Codeset,
    testing::Values(CodesetRow{"Japanese", "//Codeset: 932\n", kTableWritten + "_" + kSoWritten,
                               kTableWritten + "_" + kSoWritten},
                    CodesetRow{"Utf8", "//Codeset: UTF-8\n", kTable + "_" + kSo, kTableWritten + "_" + kSoWritten},
                    CodesetRow{"Western", "//Codeset: 1252\n", "side_\xB1\xD7", "side_\x81\x7D\x81\x7E"}, // ± ×
                    CodesetRow{"Untold", "", kTable, kTableWritten}),
    [](const auto& row) { return row.param.name; });

TEST(FileNames, MayBeJapanese) {
    const FinishedProgram program;
    std::filesystem::create_directory(program.path(kSo + ".d"));
    const std::string scene = kSo + ".d/" + kTable + ".ma";
    program.write(scene, sceneOf(nodeText("transform", "a")));
    const ProgramRun run = program.run({scene, "-o", kSo + ".d/" + kSo});
    ASSERT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.error, "");
    EXPECT_THAT(run.out, HasSubstr("========== TVK_Export : " + kSo + " ========== imd \n"));
    EXPECT_THAT(run.out, HasSubstr("\nWritten: " + kSo + ".d/" + kSo + ".imd ("));
    const std::string model = program.bytes(kSo + ".d/" + kSo + ".imd");
    EXPECT_THAT(model, HasSubstr(" source=\"" + kTableWritten + ".ma\"/>\n"));
    EXPECT_THAT(decode::readModelFile(model).names(), ElementsAre("a"));
}

TEST(FileNames, ThatCannotBeReadAreShownAsTheyWereTyped) {
    const FinishedProgram program;
    const ProgramRun run = program.run({kTable + ".ma"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.error, "Error: the scene does not exist: " + kTable + ".ma\n");
}

// MEL has its own meaning for quotes, backslashes and dollars; a file's name has none.
TEST(FileNames, MayHoldWhatScriptsTakeForSigns) {
    const FinishedProgram program;
    for (const std::string name : {"a b", "a\"b", "a'b", "a$b", "a;b", "a`b", "a%sb", "-a"}) {
        program.write(name + ".ma", sceneOf(nodeText("transform", "a")));
        const ProgramRun run = program.run({"-o", "./" + name, "./" + name + ".ma"});
        EXPECT_EQ(run.status, 0) << name << ": " << run.error;
        EXPECT_THAT(program.bytes(name + ".imd"), HasSubstr(" source=\"" + name + ".ma\"/>\n"));
    }
}

/// Without the line that tells how long it took.
std::string withoutTime(const std::string& words) {
    const std::size_t line = words.find("Finished ");
    EXPECT_NE(line, std::string::npos) << words;
    return line == std::string::npos ? words : words.substr(0, line) + words.substr(words.find('\n', line));
}

TEST(Locales, ChangeNothingInTheFilesOrTheWords) {
    const std::string text =
        sceneOf(nodeText("transform", kTable, "", set3("t", 1234.5, -0.125, 1e-3) + set3("r", 10.5, 20.25, 1500)) +
                nodeText("joint", "b", kTable, set3("s", 1.5, 1, 1)) + visibilityKeys("b", "1 1 5.5 0 2000 1", 3) +
                playback(1, 3000));
    const FinishedProgram program;
    program.write("scene.ma", text);
    std::string model, visibility, words;
    for (const char* locale :
         {"C", "POSIX", "C.UTF-8", "de_DE.UTF-8", "de_DE", "ja_JP.UTF-8", "ja_JP.SJIS", "nonsense"}) {
        FinishedProgram::Surroundings there;
        there.environment = {{"LC_ALL", locale}, {"LANG", locale}, {"LC_NUMERIC", locale}};
        const ProgramRun run =
            program.run({"scene.ma", "--kinds", "imd,iva", "--set", "magnify=2.5", "--no-progress"}, there);
        ASSERT_EQ(run.status, 0) << locale << ": " << run.error;
        if (model.empty()) {
            model = withoutMaker(program.bytes("scene.imd"));
            visibility = withoutMaker(program.bytes("scene.iva"));
            words = withoutTime(run.out) + run.error;
        }
        EXPECT_EQ(withoutMaker(program.bytes("scene.imd")), model) << locale;
        EXPECT_EQ(withoutMaker(program.bytes("scene.iva")), visibility) << locale;
        EXPECT_EQ(withoutTime(run.out) + run.error, words) << locale;
    }
    EXPECT_THAT(model, HasSubstr("translate=\"3086.250000 -0.312500 0.002441\""));
}

TEST(WorkingFolder, ChangesNothingInTheFiles) {
    const FinishedProgram program;
    std::filesystem::create_directory(program.path("elsewhere"));
    program.write("scene.ma", sceneOf(nodeText("transform", "a")));
    ASSERT_EQ(program.run({"scene.ma", "-o", "one"}).status, 0);
    ASSERT_EQ(program.run({program.path("scene.ma"), "-o", "two"}, {{}, "", "elsewhere"}).status, 0);
    ASSERT_EQ(program.run({"../scene.ma", "-o", program.path("three")}, {{}, "", "elsewhere"}).status, 0);
    const std::string expected = withoutMaker(program.bytes("one.imd"));
    EXPECT_EQ(withoutMaker(program.bytes("elsewhere/two.imd")), expected);
    EXPECT_EQ(withoutMaker(program.bytes("three.imd")), expected);
    EXPECT_THAT(program.bytes("three.imd"), HasSubstr(" source=\"scene.ma\"/>\n"));
}

} // namespace
} // namespace tvk
