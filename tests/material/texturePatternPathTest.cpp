#include "material/texturePatternPath.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class NoPatternPath : public testing::TestWithParam<const char*> {};

TEST_P(NoPatternPath, IsRefusedAndLeavesThePartsAlone) {
    PatternPath parts{"p", "n", "s"};
    EXPECT_FALSE(splitPatternPath(GetParam(), parts));
    EXPECT_EQ(parts.prefix + parts.number + parts.suffix, "pns");
}

INSTANTIATE_TEST_SUITE_P(DotMissing, NoPatternPath, testing::Values("", "tex", "a/tex", "tex.tga", "a/tex.tga"));
INSTANTIATE_TEST_SUITE_P(DotOnlyInAFolder, NoPatternPath,
                         testing::Values("a.1/tex.tga", "a.1.b/tex", "a.1.b\\tex.tga", "../tex.tga"));
INSTANTIATE_TEST_SUITE_P(DotAtTheBeginning, NoPatternPath, testing::Values(".tga", ".1.tga", "a/.1.tga", "a\\.1.tga"));

struct PathCase {
    const char *path, *prefix, *number, *suffix;
};

class SplitPath : public testing::TestWithParam<PathCase> {};

TEST_P(SplitPath, HasThreePieces) {
    PatternPath parts;
    ASSERT_TRUE(splitPatternPath(GetParam().path, parts));
    EXPECT_EQ(parts.prefix, GetParam().prefix);
    EXPECT_EQ(parts.number, GetParam().number);
    EXPECT_EQ(parts.suffix, GetParam().suffix);
}

INSTANTIATE_TEST_SUITE_P(All, SplitPath,
                         testing::Values(PathCase{"tex.1.tga", "tex.", "1", ".tga"},
                                         PathCase{"C:/a.b/tex.v2.001.pic", "C:/a.b/tex.v2.", "001", ".pic"},
                                         PathCase{"a\\tex.9.tga", "a\\tex.", "9", ".tga"},
                                         PathCase{"tex.x.tga", "tex.", "x", ".tga"},
                                         PathCase{"tex..tga", "tex.", "", ".tga"}, PathCase{"tex.1.", "tex.", "1", "."},
                                         // The second byte of the katakana is that of a backslash in Shift_JIS.
                                         PathCase{"\x83\x5C.1.tga", "\x83\x5C.", "1", ".tga"},
                                         PathCase{"\xE3\x82\xBD.1.tga", "\xE3\x82\xBD.", "1", ".tga"}));

TEST(PatternPathOfFrame, HasThePlainNumber) {
    const PatternPath parts{"a/tex.", "001", ".tga"};
    EXPECT_EQ(patternPathOf(parts, 1), "a/tex.1.tga");
    EXPECT_EQ(patternPathOf(parts, 0), "a/tex.0.tga");
    EXPECT_EQ(patternPathOf(parts, -2), "a/tex.-2.tga");
    EXPECT_EQ(patternPathOf(parts, 99999999999999), "a/tex.99999999999999.tga");
}

TEST(PaddedPatternPath, HasTheWidthOfANumberThatBeginsWithZero) {
    const PatternPath parts{"tex.", "001", ".tga"};
    EXPECT_EQ(paddedPatternPathOf(parts, 1), "tex.001.tga");
    EXPECT_EQ(paddedPatternPathOf(parts, 12), "tex.012.tga");
    EXPECT_EQ(paddedPatternPathOf(parts, 1234), "tex.1234.tga");
    EXPECT_EQ(paddedPatternPathOf(parts, -1), "tex.-1.tga");
}

TEST(PaddedPatternPath, IsThePlainOneForOtherNumbers) {
    for (const char* number : {"", "0", "1", "100", "0x1", "x01"}) {
        EXPECT_EQ(paddedPatternPathOf({"tex.", number, ".tga"}, 1), "tex.1.tga") << number;
    }
}

} // namespace
} // namespace tvk
