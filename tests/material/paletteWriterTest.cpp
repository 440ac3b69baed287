#include "material/paletteWriter.h"

#include "FreshRun.h"

#include <gmock/gmock.h>

namespace tvk {
namespace {

using testing::ElementsAre;

void addPalette(const std::string& name, const std::vector<uint16_t>& colors) {
    PaletteRecord palette;
    palette.name = name;
    palette.colors = colors;
    run().scene.palettes.push_back(palette);
}

std::string written() {
    std::ostringstream out;
    EXPECT_TRUE(writeTexPaletteArray(out));
    return out.str();
}

TEST(PaletteWriter, WritesNothingWithoutPalettes) {
    const FreshRun fresh;
    sortPalettes();
    EXPECT_EQ(written(), "");
}

TEST(PaletteWriter, WritesColorsAsHexadecimalWordsEightToALine) {
    const FreshRun fresh;
    addPalette("grass", {0xFFFF, 0x001F, 0x7FFF, 0, 1, 0xABC, 0x8000, 7, 0x1234, 9});
    addPalette("ash", {1, 2, 3, 4, 5, 6, 7, 8});
    sortPalettes();
    EXPECT_EQ(written(), "<tex_palette_array size=\"2\">\n"
                         "\t<tex_palette index=\"0\" name=\"ash\" color_size=\"8\">\n"
                         "\t\t0001 0002 0003 0004 0005 0006 0007 0008\n"
                         "\t</tex_palette>\n"
                         "\t<tex_palette index=\"1\" name=\"grass\" color_size=\"10\">\n"
                         "\t\tffff 001f 7fff 0000 0001 0abc 8000 0007\n"
                         "\t\t1234 0009\n"
                         "\t</tex_palette>\n"
                         "</tex_palette_array>\n\n");
}

TEST(PaletteWriter, SortsByTheBytesOfTheNamesWithAMissingNameFirst) {
    const FreshRun fresh;
    for (const char* name : {"b", "", "a1", "B", "a", "\xC3\xBC"}) {
        addPalette(name, {1});
    }
    sortPalettes();
    // The umlaut has no code and is written as '?', which stands before all letters.
    EXPECT_THAT(run().scene.paletteOrder, ElementsAre(1, 5, 3, 4, 2, 0));
    EXPECT_EQ(run().scene.palettes[0].index, 5);
    EXPECT_EQ(run().scene.palettes[1].index, 0);
}

TEST(PaletteWriter, WritesNamesInShiftJis) {
    const FreshRun fresh;
    addPalette("\xE3\x82\xBD", {1, 2, 3, 4});
    sortPalettes();
    EXPECT_NE(written().find("name=\"\x83\x5C\" color_size=\"4\""), std::string::npos);
}

} // namespace
} // namespace tvk
