// Our readers beside decoders that others wrote, over files that our test writers made: a mistake that a writer and a
// reader share would show here.
//   stb (libstb-dev)      Truevision: every type, colour maps, run lengths, both vertical origins; PIC: every packing
//                         and grouping of channels. It knows no right-to-left rows and no interleave.
//   tgatoppm (netpbm)     Truevision: interleave, and 5-bit colours by its own rounding. It takes no notice of
//                         right-to-left, so that its rows are ours mirrored.
//   ppmtotga (netpbm)     Truevision files that our writers had no hand in: true-colour, colour-mapped and grey, plain
//                         and run-length encoded.

#include "TemporaryFolder.h"
#include "readInMemory.h"
#include "writers/ByteList.h"
#include "writers/picWriter.h"
#include "writers/tgaWriter.h"

#include <stb/stb_image.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace tvk {
namespace {

using File = std::vector<std::uint8_t>;
using Values = std::initializer_list<std::uint8_t>;

File decodeWithStb(const File& file) {
    int width = 0, height = 0, channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height, &channels, 4),
        stbi_image_free);
    EXPECT_NE(pixels, nullptr) << stbi_failure_reason();
    return pixels == nullptr ? File{} : File(pixels.get(), pixels.get() + width * height * 4);
}

// Both pictures, channel by channel; 5-bit colours may be rounded in another way.
void expectNear(const File& ours, const File& theirs, int tolerance, const std::string& what) {
    ASSERT_EQ(ours.size(), theirs.size()) << what;
    for (std::size_t i = 0; i < ours.size(); ++i) {
        ASSERT_NEAR(ours[i], theirs[i], tolerance) << what << ", byte " << i;
    }
}

TEST(OtherDecoders, StbReadsEveryTruevisionTypeAsWeDo) {
    struct Row {
        std::uint8_t type, bits, mapBits;
        int tolerance;
    };
    for (const Row& row : {Row{2, 15, 24, 1}, Row{2, 16, 24, 1}, Row{2, 24, 24, 0}, Row{2, 32, 24, 0}, Row{3, 8, 24, 0},
                           Row{10, 16, 24, 1}, Row{10, 24, 24, 0}, Row{10, 32, 24, 0}, Row{11, 8, 24, 0},
                           Row{1, 8, 16, 1}, Row{1, 8, 24, 0}, Row{1, 8, 32, 0}, Row{1, 16, 24, 0}, Row{9, 8, 15, 1},
                           Row{9, 8, 24, 0}, Row{9, 8, 32, 0}, Row{9, 16, 32, 0}}) {
        for (const bool topToBottom : {false, true}) {
            TgaOptions options;
            options.type = row.type;
            options.bits = row.bits;
            options.mapBits = row.mapBits;
            options.mapType = row.type % 8 == 1 ? 1 : 0;
            options.alphaBits = row.bits == 32 ? 8 : 0;
            options.topToBottom = topToBottom;
            options.id = "an identification field";
            const File file = writeTga(makeRunPicture(37, 21), options);
            expectNear(readTga(file).record.pixels, decodeWithStb(file), row.tolerance,
                       "type " + std::to_string(row.type) + ", bits " + std::to_string(row.bits));
        }
    }
}

TEST(OtherDecoders, StbReadsEveryPicPackingAsWeDo) {
    const std::vector<std::vector<std::uint8_t>> groupings{{0xE0}, {0xF0}, {0xE0, 0x10}, {0x80, 0x40, 0x20, 0x10}};
    for (const std::vector<std::uint8_t>& groups : groupings) {
        for (const std::uint8_t packing : Values{0, 1, 2}) {
            PicOptions options;
            options.packets.clear();
            for (const std::uint8_t channels : groups) {
                options.packets.push_back({packing, channels, 8});
            }
            for (const Picture& picture : {makeRunPicture(400, 12), makeScatteredPicture(33, 17)}) {
                const File file = writePic(picture, options);
                expectNear(readPic(file).record.pixels, decodeWithStb(file), 0, "packing " + std::to_string(packing));
            }
        }
    }
}

// A binary pixmap of 8 or fewer bits a channel, brought to 8.
File readPixmap(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string magic;
    int width = 0, height = 0, largest = 0;
    in >> magic >> width >> height >> largest;
    in.get();
    const std::string rest{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    EXPECT_EQ(magic, "P6");
    EXPECT_EQ(rest.size(), static_cast<std::size_t>(width * height * 3));
    File rgb;
    for (const char value : rest) {
        rgb.push_back(static_cast<std::uint8_t>((static_cast<std::uint8_t>(value) * 255 + largest / 2) / largest));
    }
    return rgb;
}

void writeFile(const std::string& path, const File& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

File readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void run(const std::string& command) {
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

File decodeWithNetpbm(const TemporaryFolder& folder, const File& file) {
    writeFile(folder.path("a.tga"), file);
    run(std::string(TVK_TGATOPPM) + " -quiet " + folder.path("a.tga") + " >" + folder.path("a.ppm"));
    return readPixmap(folder.path("a.ppm"));
}

File withoutAlpha(const File& pixels) {
    File rgb;
    for (std::size_t i = 0; i < pixels.size(); i += 4) {
        rgb.insert(rgb.end(), {pixels[i], pixels[i + 1], pixels[i + 2]});
    }
    return rgb;
}

TEST(OtherDecoders, NetpbmReadsInterleavesAndFiveBitColoursAsWeDo) {
    const TemporaryFolder folder;
    for (const std::uint8_t bits : Values{16, 24}) {
        for (const std::uint8_t interleave : Values{0, 1, 2}) {
            for (const bool topToBottom : {false, true}) {
                TgaOptions options;
                options.bits = bits;
                options.interleave = interleave;
                options.topToBottom = topToBottom;
                const File file = writeTga(makeScatteredPicture(13, 11), options);
                expectNear(withoutAlpha(readTga(file).record.pixels), decodeWithNetpbm(folder, file),
                           bits == 16 ? 1 : 0,
                           "bits " + std::to_string(bits) + ", interleave " + std::to_string(interleave));
            }
        }
    }
}

TEST(OtherDecoders, NetpbmReadsRowsFromRightToLeftAsOursMirrored) {
    const TemporaryFolder folder;
    for (const std::uint8_t type : Values{2, 10}) {
        for (const bool topToBottom : {false, true}) {
            TgaOptions options;
            options.type = type;
            options.rightToLeft = true;
            options.topToBottom = topToBottom;
            const File file = writeTga(makeScatteredPicture(13, 11), options);
            File theirs = decodeWithNetpbm(folder, file);
            ASSERT_EQ(theirs.size(), 13U * 11U * 3U);
            for (auto row = theirs.begin(); row != theirs.end(); row += 39) {
                std::reverse(row, row + 39); // the channels too
                for (auto pixel = row; pixel != row + 39; pixel += 3) {
                    std::swap(pixel[0], pixel[2]);
                }
            }
            expectNear(withoutAlpha(readTga(file).record.pixels), theirs, 0, "type " + std::to_string(type));
        }
    }
}

TEST(OtherDecoders, WeReadWhatNetpbmWrites) {
    const TemporaryFolder folder;
    const Picture picture = makeRunPicture(37, 21);
    ByteList pixmap, greymap;
    pixmap.text("P6 37 21 255\n");
    greymap.text("P5 37 21 255\n");
    File colors, greys;
    for (const Rgba& pixel : picture.pixels) {
        colors.insert(colors.end(), {pixel.r, pixel.g, pixel.b});
        greys.insert(greys.end(), 3, pixel.r);
        greymap.byte(pixel.r);
    }
    writeFile(folder.path("color.ppm"), pixmap.all(colors).bytes);
    writeFile(folder.path("grey.ppm"), greymap.bytes);
    struct Row {
        std::string options, source;
        unsigned int imageType;
        const File& expected;
    };
    for (const Row& row : {Row{"-rgb", "color", 10, colors}, Row{"-rgb -norle", "color", 2, colors},
                           Row{"-cmap", "color", 9, colors}, Row{"-cmap -norle", "color", 1, colors},
                           Row{"-mono", "grey", 11, greys}, Row{"-mono -norle", "grey", 3, greys}}) {
        run(std::string(TVK_PPMTOTGA) + " -quiet " + row.options + " " + folder.path(row.source + ".ppm") + " >" +
            folder.path("b.tga"));
        const File file = readFile(folder.path("b.tga"));
        ASSERT_GT(file.size(), 18U) << row.options;
        EXPECT_EQ(unsigned{file[2]}, row.imageType) << row.options;
        const ReadImage read = readTga(file);
        EXPECT_EQ(read.result.error, "") << row.options;
        expectNear(withoutAlpha(read.record.pixels), row.expected, 0, row.options);
    }
}

} // namespace
} // namespace tvk
