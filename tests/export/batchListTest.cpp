#include "export/batchList.h"

#include <gmock/gmock.h>

#include <string>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(BatchList, BeginsWithItsHeader) {
    for (const char* line : {"# TVK_Batch_Export", "# TVK_Batch_Export of the town", "# TVK_Batch_Exports"}) {
        EXPECT_TRUE(isBatchHeader(line)) << line;
    }
    for (const char* line : {"", "#", " # TVK_Batch_Export", "# TVK_Batch_Expor", "# tvk_batch_export",
                             "# Log of TVK_Batch_Export", "# TVK_Export settings"}) {
        EXPECT_FALSE(isBatchHeader(line)) << line;
    }
}

struct LineCase {
    const char* line;
    BatchKeyword keyword;
    const char* value;
};

TEST(BatchList, ALineHasAKeywordAndAValue) {
    const LineCase cases[] = {
        {"", BatchKeyword::kNone, ""},
        {"# scene \"a.ma\"", BatchKeyword::kNone, ""},
        {" # scene \"a.ma\"", BatchKeyword::kNone, ""},
        {"nonsense \"a\"", BatchKeyword::kNone, ""},
        {"Scene \"a\"", BatchKeyword::kNone, ""},
        {"scene\"a\"", BatchKeyword::kNone, ""},
        {"scenes \"a\"", BatchKeyword::kNone, ""},
        {"log=\"a\"", BatchKeyword::kNone, ""},
        {"log \"a\"", BatchKeyword::kLog, "a"},
        {"input_folder \"a b\"", BatchKeyword::kInputFolder, "a b"},
        {"output_folder\t\"a\"", BatchKeyword::kOutputFolder, "a"},
        {"z3es_folder \t \"a\"", BatchKeyword::kSettingsFolder, "a"},
        {" \t z3es \"a\"", BatchKeyword::kSettings, "a"},
        {"scene \"a.ma\" whatever", BatchKeyword::kScene, "a.ma"},
        {"log", BatchKeyword::kLog, ""},
        {"log a", BatchKeyword::kLog, ""},
        {"log a \"b\"", BatchKeyword::kLog, ""},
        {"log \"a", BatchKeyword::kLog, ""},
        {"log \"\"", BatchKeyword::kLog, ""},
        {"log = \"a\"", BatchKeyword::kLog, ""},
    };
    for (const LineCase& c : cases) {
        const BatchLine line = parseBatchLine(c.line);
        EXPECT_EQ(line.keyword, c.keyword) << c.line;
        EXPECT_EQ(line.value, c.value) << c.line;
        EXPECT_EQ(line.name + line.roots, "") << c.line;
    }
}

struct SceneCase {
    const char* options;
    const char* name;
    const char* roots;
};

TEST(BatchList, ASceneHasOptions) {
    const SceneCase cases[] = {
        {"", "", ""},
        {" -name \"n\"", "n", ""},
        {" -root \"a, b\"", "", "a, b"},
        {" -root \"a\" -name \"n\"", "n", "a"},
        {"-name \"n\"", "n", ""},
        {"\t-name\t\"n\"\t-root\t\"a\"\t", "n", "a"},
        {" -name \"n\" -name \"m\"", "m", ""},
        {" -root \"a\" -root \"b\"", "", "b"},
        {" -root \"a\" -root \"\"", "", ""},
        {" -name \"n\" -name \"\"", "n", ""},
        {" -name -root \"a\"", "", "a"},
        {" -other \"x\" -name \"n\"", "n", ""},
        {" other -name \"n\"", "n", ""},
        {" \"stray\" -name \"n\"", "n", ""},
        {" -Name \"n\" -names \"n\"", "", ""},
        {" -name \"n", "", ""},
        {" -name n", "", ""},
    };
    for (const SceneCase& c : cases) {
        const BatchLine line = parseBatchLine(std::string("scene \"a.ma\"") + c.options);
        EXPECT_EQ(line.value, "a.ma") << c.options;
        EXPECT_EQ(line.name, c.name) << c.options;
        EXPECT_EQ(line.roots, c.roots) << c.options;
    }
    EXPECT_EQ(parseBatchLine("z3es \"a\" -name \"n\"").name, "") << "of scenes only";
}

TEST(BatchList, KnowsItsWords) {
    for (const char* word : {"log", "input_folder", "output_folder", "z3es_folder", "z3es", "scene"}) {
        EXPECT_EQ(wordOf(parseBatchLine(word).keyword), word);
    }
    EXPECT_EQ(wordOf(BatchKeyword::kNone), "");
}

TEST(BatchList, RootsStandBetweenCommas) {
    EXPECT_THAT(splitRoots(""), IsEmpty());
    EXPECT_THAT(splitRoots(" , \t,"), IsEmpty());
    EXPECT_THAT(splitRoots("a, b"), ElementsAre("a", "b"));
    EXPECT_THAT(splitRoots("\t|a|b c ,,d"), ElementsAre("|a|b c", "d"));
}

TEST(BatchList, FoldersLoseTheirFinalSlashes) {
    const char* const cases[][2] = {{"", ""},   {"a", "a"},  {"a/", "a"},    {"/a//", "/a"},
                                    {"/", "/"}, {"//", "/"}, {"a\\", "a\\"}, {"c:/", "c:"}};
    for (const auto& c : cases) {
        EXPECT_EQ(withoutFinalSlashes(c[0]), c[1]) << c[0];
    }
}

// "so" and "po" have 0x5C and 0x7C as their second bytes in Shift_JIS.
TEST(BatchList, HalvesOfCharactersAreNoForbiddenCharacters) {
    const std::string_view forbidden = "\\|*";
    for (const char* text : {"", "plain", "\xE3\x82\xBD", "\x83\x5C", "\x83\x7C", "a\x83\x5C\x62", "\x95\x5C.txt"}) {
        EXPECT_FALSE(holdsAnyOf(text, forbidden)) << text;
    }
    for (const char* text :
         {"\\", "a|b", "\x83\x5C\x5C", "\xE3\x82\xBD\\", "\xE3\x82\xBD*", "\xB1\\" /* half-width */}) {
        EXPECT_TRUE(holdsAnyOf(text, forbidden)) << text;
    }
}

} // namespace
} // namespace tvk
