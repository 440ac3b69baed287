// Our readers beside decoders that others wrote, over files that our test writers made: a mistake that a writer and a
// reader share would show here.
//   stb (libstb-dev)      Truevision: every type, colour maps, run lengths, both vertical origins; PIC: every packing
//                         and grouping of channels. It knows no right-to-left rows and no interleave.
//   tgatoppm (netpbm)     Truevision: interleave, and 5-bit colours by its own rounding.

#include "TemporaryFolder.h"
#include "readInMemory.h"
#include "writers/picWriter.h"
#include "writers/tgaWriter.h"

#include <stb/stb_image.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
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
                std::ofstream(folder.path("a.tga"), std::ios::binary)
                    .write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
                const std::string command =
                    std::string(TVK_TGATOPPM) + " -quiet " + folder.path("a.tga") + " >" + folder.path("a.ppm");
                ASSERT_EQ(std::system(command.c_str()), 0) << command;
                File ours;
                const File pixels = readTga(file).record.pixels;
                for (std::size_t i = 0; i < pixels.size(); i += 4) {
                    ours.insert(ours.end(), {pixels[i], pixels[i + 1], pixels[i + 2]});
                }
                expectNear(ours, readPixmap(folder.path("a.ppm")), bits == 16 ? 1 : 0,
                           "bits " + std::to_string(bits) + ", interleave " + std::to_string(interleave));
            }
        }
    }
}

} // namespace
} // namespace tvk
