#include "decode/ModelTextures.h"

#include "fileTexts.h"

#include <gtest/gtest.h>

namespace decode {
namespace {

std::string repeated(const std::string& words, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += words;
    }
    return text;
}

// An image of two colours whose first row reads 1 0 0 0 …, and one of four blocks that mix two colours.
std::string pictures() {
    return kDeclarationLine + R"(<imd><body>
<tex_image_array size="2">
<tex_image index="0" name="a" width="8" height="8" original_width="8" original_height="8" format="palette4" color0_mode="transparency" palette_name="p" path="a.tga">
<bitmap size="8">0001 )" +
           repeated("0000 ", 7) + R"(</bitmap></tex_image>
<tex_image index="1" name="b" width="8" height="8" original_width="8" original_height="8" format="tex4x4" palette_name="p" path="b.tga">
<bitmap size="4">)" +
           repeated("000000e4 ", 4) + R"(</bitmap>
<tex4x4_palette_idx size="4">)" +
           repeated("c000 ", 4) + R"(</tex4x4_palette_idx></tex_image></tex_image_array>
<tex_palette_array size="1">
<tex_palette index="0" name="p" color_size="2">0000 7fff</tex_palette></tex_palette_array>
<material_array size="1">
<material index="0" name="m" tex_image_idx="0" tex_palette_idx="0" tex_tiling="repeat repeat"/></material_array>
</body></imd>)";
}

std::string complaint(const std::string& text) {
    return complaintOf([](const std::string& whole) { readModelTextures(readIntermediateFile(whole)); }, text);
}

TEST(ModelTextures, RefusesWhatAReaderWouldStumbleOver) {
    ASSERT_EQ(complaint(pictures()), "");
    for (const Damage& row : {
             Damage{"width=\"8\"", "width=\"65536\"", "line 4: tex_image: a side of 65536 texels"},
             {"width=\"8\"", "width=\"-8\"", "line 4: tex_image: a side of -8 texels"},
             {"width=\"8\"", "width=\"16\"", "line 4: tex_image: 8 words instead of 16"},
             {"0001 ", "001 ", "line 5: bitmap: no word of 4 digits: 001"},
             {"0001 ", "", "line 5: bitmap: size is 8, but there are 7 words"},
             {"0001 ", "0003 ", "line 4: tex_image: shows colour 3, which its palette does not have"},
             {"palette_name=\"p\"", "palette_name=\"q\"", "line 4: tex_image: there is no palette of its name"},
             {"palette4", "palette3", "line 4: tex_image: is of unknown format palette3"},
             {"color0_mode=\"transparency\" ", "", "line 4: tex_image: has not the lines of its format"},
             {"name=\"a\"", "name=\"c\"", "line 6: tex_image: stands behind c"},
             {"c000 ", "c001 ", "line 6: tex_image: shows colour 2, which its palette does not have"},
             {"tex_image_idx=\"0\"", "tex_image_idx=\"2\"", "line 12: material: there is no texture 2"},
             {"tex_palette_idx=\"0\"", "tex_palette_idx=\"1\"",
              "line 12: material: palette 1 is not that of its texture"},
             {" tex_tiling=\"repeat repeat\"", "",
              "line 12: material: has the lines of a texture and none, or the reverse"},
         }) {
        EXPECT_EQ(complaint(damaged(pictures(), row)), row.message) << row.with;
    }
}

TEST(ModelTextures, ShowsTexelsAsTheConsoleDoes) {
    const ModelTextures textures = readModelTextures(readIntermediateFile(pictures()));
    EXPECT_EQ(textures.image("a").at(0, 0), (ShownTexel{31, 31, 31, 31}));
    EXPECT_EQ(textures.image("a").at(1, 0), (ShownTexel{0, 0, 0, 0}));
    // 0xe4 is 0 1 2 3 from the low end: both colours, five and three eighths of the first.
    EXPECT_EQ(textures.image("b").at(0, 0), (ShownTexel{0, 0, 0, 31}));
    EXPECT_EQ(textures.image("b").at(1, 0), (ShownTexel{31, 31, 31, 31}));
    EXPECT_EQ(textures.image("b").at(2, 4), (ShownTexel{11, 11, 11, 31}));
    EXPECT_EQ(textures.image("b").at(7, 0), (ShownTexel{19, 19, 19, 31}));
    EXPECT_THROW(textures.image("c"), FileError);
}

} // namespace
} // namespace decode
