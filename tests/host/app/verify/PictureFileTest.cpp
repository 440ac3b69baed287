#include "host/app/verify/PictureFile.h"

#include "writers/picWriter.h"
#include "writers/tgaWriter.h"

#include <gtest/gtest.h>

#include <string>

namespace host::app::verify {
namespace {

std::string refusal(const std::string& bytes) {
    try {
        readPicture(bytes);
    } catch (const PictureError& error) {
        return error.what();
    }
    return {};
}

std::string textOf(const std::vector<std::uint8_t>& bytes) {
    return {bytes.begin(), bytes.end()};
}

void expectShows(const PictureFile& read, const tvk::Picture& picture, std::uint8_t tgaBits) {
    ASSERT_EQ(read.width, static_cast<int>(picture.width));
    ASSERT_EQ(read.height, static_cast<int>(picture.height));
    for (int row = 0; row < read.height; ++row) {
        for (int column = 0; column < read.width; ++column) {
            const tvk::Rgba& source = picture.at(static_cast<std::size_t>(column), static_cast<std::size_t>(row));
            const tvk::Rgba expected = tgaBits == 0 ? source : tvk::storedInTga(source, tgaBits);
            const Pixel& pixel = read.at(column, row);
            ASSERT_TRUE((expected == tvk::Rgba{pixel.r, pixel.g, pixel.b, pixel.a})) << column << ' ' << row;
        }
    }
}

TEST(PictureFile, RefusesWhatIsNoPicture) {
    EXPECT_EQ(refusal(""), "it ends too early");
    EXPECT_EQ(refusal(std::string(18, '\0')), "its size is none that a console has");
    std::string huge(18, '\0');
    huge[2] = 2;
    huge[13] = huge[15] = 0x7F;
    huge[16] = 24;
    EXPECT_EQ(refusal(huge), "its size is none that a console has");
    huge[13] = huge[15] = 1;
    EXPECT_EQ(refusal(huge), "it ends too early");
    huge[16] = 12;
    EXPECT_EQ(refusal(huge), "its pixels have a number of bits that no console tool reads");
    EXPECT_EQ(refusal("\x53\x80\xF6\x34"), "it ends too early");
}

TEST(PictureFile, ReadsTruevisionFilesOfEveryType) {
    const tvk::Picture scattered = tvk::makeScatteredPicture(13, 9);
    tvk::TgaOptions options;
    for (const std::uint8_t type : {std::uint8_t{2}, std::uint8_t{10}}) {
        for (const std::uint8_t bits : {std::uint8_t{16}, std::uint8_t{24}, std::uint8_t{32}}) {
            for (const std::uint8_t interleave : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{2}}) {
                options.type = type;
                options.bits = bits;
                options.alphaBits = bits == 32 ? 8 : 0;
                options.interleave = interleave;
                options.topToBottom = type == 10;
                options.rightToLeft = interleave == 1;
                SCOPED_TRACE(std::to_string(type) + " " + std::to_string(bits) + " " + std::to_string(interleave));
                expectShows(readPicture(textOf(tvk::writeTga(scattered, options))), scattered, bits);
            }
        }
    }
}

TEST(PictureFile, ReadsColourMapsAndRuns) {
    tvk::TgaOptions options;
    options.type = 9;
    options.bits = 8;
    options.mapType = 1;
    const tvk::Picture runs = tvk::makeRunPicture(40, 30);
    tvk::Picture opaque = runs;
    for (tvk::Rgba& pixel : opaque.pixels) {
        pixel.a = 255;
    }
    expectShows(readPicture(textOf(tvk::writeTga(opaque, options))), opaque, 24);
}

TEST(PictureFile, ReadsSoftimageFilesOfEveryPacking) {
    const tvk::Picture runs = tvk::makeRunPicture(300, 7);
    for (const std::uint8_t packing : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{2}}) {
        tvk::PicOptions options;
        options.packets = {{packing, 0xE0, 8}, {packing, 0x10, 8}};
        SCOPED_TRACE(static_cast<int>(packing));
        expectShows(readPicture(textOf(tvk::writePic(runs, options))), runs, 0);
    }
}

} // namespace
} // namespace host::app::verify
