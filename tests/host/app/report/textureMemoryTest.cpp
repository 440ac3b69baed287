#include "host/app/report/textureMemory.h"

#include "SmallFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace host::app::report {
namespace {

TEST(TextureMemory, TexelsTakeTheBitsOfTheirFormat) {
    struct Row {
        const char* format;
        int bytes; // of 32 by 16
    };
    static constexpr Row kRows[] = {
        {"a3i5", 512},   {"palette4", 128}, {"palette16", 256}, {"palette256", 512},
        {"tex4x4", 128}, {"a5i3", 512},     {"direct", 1024},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(texelBytes(row.format, 32, 16), row.bytes) << row.format;
    }
    EXPECT_EQ(texelBytes("direct", 1024, 1024), 2097152);
    EXPECT_THROW(texelBytes("palette8", 8, 8), std::invalid_argument);
}

TEST(TextureMemory, ImagesAreListedByTheirBytes) {
    const SmallFolder folder;
    folder.write("imd", smallModel());
    const TextureMemory memory = memoryOf(folder.read().textures);
    struct Row {
        const char* name;
        const char* palette;
        int texels, indices, paletteBytes, bytes;
    };
    static constexpr Row kRows[] = {
        {"sky", "", 128, 0, 0, 128},
        {"grass", "grass", 32, 0, 32, 64},
        {"tiles", "shared", 16, 8, 16, 40},
        {"leaf", "shared", 16, 0, 16, 32},
    };
    ASSERT_EQ(memory.images.size(), std::size(kRows));
    for (std::size_t i = 0; i < memory.images.size(); ++i) {
        const TextureCosts& image = memory.images[i];
        EXPECT_EQ(image.name, kRows[i].name);
        EXPECT_EQ(image.palette, kRows[i].palette) << image.name;
        EXPECT_EQ(image.texelBytes, kRows[i].texels) << image.name;
        EXPECT_EQ(image.indexBytes, kRows[i].indices) << image.name;
        EXPECT_EQ(image.paletteBytes, kRows[i].paletteBytes) << image.name;
        EXPECT_EQ(image.bytes(), kRows[i].bytes) << image.name;
    }
}

TEST(TextureMemory, InAllAPaletteCountsOnce) {
    const SmallFolder folder;
    folder.write("imd", smallModel());
    const TextureMemory memory = memoryOf(folder.read().textures);
    EXPECT_EQ(memory.texelBytes, 128 + 32 + 16 + 16);
    EXPECT_EQ(memory.indexBytes, 8);
    EXPECT_EQ(memory.paletteBytes, 32 + 16);
    EXPECT_EQ(memory.bytes(), 192 + 8 + 48);
    ASSERT_EQ(memory.palettes.size(), 2U);
    EXPECT_EQ(memory.palettes[0].images, 1);
    EXPECT_EQ(memory.palettes[1].name, "shared");
    EXPECT_EQ(memory.palettes[1].colors, 8);
    EXPECT_EQ(memory.palettes[1].bytes, 16);
    EXPECT_EQ(memory.palettes[1].images, 2);
}

} // namespace
} // namespace host::app::report
