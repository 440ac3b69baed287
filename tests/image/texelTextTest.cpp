#include "image/texelText.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

namespace tvk {
namespace {

struct Written {
    ImageResult result;
    std::string text;
};

Written write(const TextureData& data, int32_t width, int32_t height) {
    std::ostringstream out;
    Written written;
    written.result = writeTexels(out, data, width, height, "wood");
    written.text = out.str();
    return written;
}

TextureData dataOf(TextureFormat format, std::size_t texelBytes) {
    TextureData data;
    data.format = format;
    for (std::size_t i = 0; i < texelBytes; ++i) {
        data.texels.push_back(static_cast<uint8_t>(i));
    }
    return data;
}

// ---- refusals: nothing is written

TEST(TexelText, TexturesWithoutTexelsAreRefused) {
    for (const TextureFormatRow& row : kTextureFormats) {
        const Written written = write(dataOf(row.format, 0), 8, 8);
        EXPECT_EQ(written.result.error, "No texel data: wood") << row.name;
        EXPECT_EQ(written.text, "") << row.name;
    }
}

TEST(TexelText, Tex4x4WithoutPaletteIndicesIsRefused) {
    const Written written = write(dataOf(TextureFormat::kTex4x4, 16), 8, 8);
    EXPECT_EQ(written.result.error, "No palette index data: wood");
    EXPECT_EQ(written.text, "");
}

TEST(TexelText, Tex4x4OfFewerBlocksThanItsSizeIsRefused) {
    TextureData data = dataOf(TextureFormat::kTex4x4, 31);
    data.paletteIndices.resize(8);
    EXPECT_EQ(write(data, 16, 8).result.error, "No texel data: wood");
    data = dataOf(TextureFormat::kTex4x4, 32);
    data.paletteIndices.resize(7);
    EXPECT_EQ(write(data, 16, 8).result.error, "No palette index data: wood");
}

// ---- layout

TEST(TexelText, WordsStandEightToALineLowByteFirst) {
    const Written written = write(dataOf(TextureFormat::kDirect, 20), 5, 2);
    EXPECT_EQ(written.result.error, "");
    EXPECT_EQ(written.text, "\t\t<bitmap size=\"10\">\n"
                            "\t\t\t0100 0302 0504 0706 0908 0b0a 0d0c 0f0e\n"
                            "\t\t\t1110 1312\n"
                            "\t\t</bitmap>\n");
}

TEST(TexelText, AFullLastLineHasOneLineBreak) {
    EXPECT_EQ(write(dataOf(TextureFormat::kPalette4, 16), 8, 8).text, "\t\t<bitmap size=\"8\">\n"
                                                                      "\t\t\t0100 0302 0504 0706 0908 0b0a 0d0c 0f0e\n"
                                                                      "\t\t</bitmap>\n");
}

TEST(TexelText, WordsArePaddedWithZeros) {
    TextureData data;
    data.texels = {0x1F, 0x00, 0x00, 0x00, 0xCD, 0xAB};
    EXPECT_EQ(write(data, 3, 1).text, "\t\t<bitmap size=\"3\">\n\t\t\t001f 0000 abcd\n\t\t</bitmap>\n");
}

TEST(TexelText, Tex4x4OfSixteenByEightPrintsEightBlockWordsAndEightIndexWords) {
    TextureData data = dataOf(TextureFormat::kTex4x4, 32);
    data.paletteIndices = {0x8000, 1, 0xC002, 3, 4, 5, 0x7FFF, 0x1F};
    EXPECT_EQ(write(data, 16, 8).text, "\t\t<bitmap size=\"8\">\n"
                                       "\t\t\t03020100 07060504 0b0a0908 0f0e0d0c\n"
                                       "\t\t\t13121110 17161514 1b1a1918 1f1e1d1c\n"
                                       "\t\t</bitmap>\n"
                                       "\t\t<tex4x4_palette_idx size=\"8\">\n"
                                       "\t\t\t8000 0001 c002 0003 0004 0005 7fff 001f\n"
                                       "\t\t</tex4x4_palette_idx>\n");
}

TEST(TexelText, Tex4x4OfSixBlocksEndsItsLinesEarly) {
    TextureData data = dataOf(TextureFormat::kTex4x4, 24);
    data.paletteIndices.assign(6, 0);
    EXPECT_EQ(write(data, 24, 4).text, "\t\t<bitmap size=\"6\">\n"
                                       "\t\t\t03020100 07060504 0b0a0908 0f0e0d0c\n"
                                       "\t\t\t13121110 17161514\n"
                                       "\t\t</bitmap>\n"
                                       "\t\t<tex4x4_palette_idx size=\"6\">\n"
                                       "\t\t\t0000 0000 0000 0000 0000 0000\n"
                                       "\t\t</tex4x4_palette_idx>\n");
}

TEST(TexelText, PaletteColoursStandEightToALineBehindTheirTabs) {
    std::ostringstream out;
    writeHexWords(out, {0xFFFF, 0x1F, 0, 1, 2, 3, 4, 5, 0x7FFF}, 2);
    EXPECT_EQ(out.str(), "\t\tffff 001f 0000 0001 0002 0003 0004 0005\n\t\t7fff\n");
}

TEST(TexelText, TheStreamsFormatIsAsBeforeAndDoesNotMatter) {
    std::ostringstream out;
    out << std::setfill('*') << std::left << std::showbase << std::dec;
    const auto flags = out.flags();
    ASSERT_TRUE(writeTexels(out, dataOf(TextureFormat::kDirect, 2), 1, 1, "wood").ok());
    EXPECT_EQ(out.str(), "\t\t<bitmap size=\"1\">\n\t\t\t0100\n\t\t</bitmap>\n");
    EXPECT_EQ(out.flags(), flags);
    EXPECT_EQ(out.fill(), '*');
    out << 16;
    EXPECT_EQ(out.str().substr(out.str().size() - 2), "16");
}

} // namespace
} // namespace tvk
