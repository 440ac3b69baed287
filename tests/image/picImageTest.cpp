#include "image/picImage.h"

#include "readInMemory.h"
#include "writers/ByteList.h"
#include "writers/extensionWriter.h"
#include "writers/picWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tvk {
namespace {

using File = std::vector<std::uint8_t>;
using Values = std::initializer_list<std::uint8_t>;

const std::string kInvalid = "Invalid PIC file: a.pic";

// The ways in which channels are spread over packets.
const std::vector<std::vector<std::uint8_t>> kChannelGroups{
    {0xE0},       {0xF0},       {0xE0, 0x10}, {0x10, 0xE0}, {0x80, 0x40, 0x20}, {0x80, 0x40, 0x20, 0x10},
    {0x20, 0xC0}, {0xA0, 0x50},
};

PicOptions optionsOf(const std::vector<std::uint8_t>& groups, std::uint8_t packing) {
    PicOptions options;
    options.packets.clear();
    for (const std::uint8_t channels : groups) {
        options.packets.push_back({packing, channels, 8});
    }
    return options;
}

std::string nameOf(const std::vector<std::uint8_t>& groups, unsigned int packing) {
    std::string name = "packing " + std::to_string(packing) + ", channels";
    for (const std::uint8_t channels : groups) {
        name += ' ' + std::to_string(channels);
    }
    return name;
}

// What must come out: opaque without an alpha packet, 0 for a colour channel that no packet brings.
File expectedPixels(const Picture& picture, const std::vector<std::uint8_t>& groups) {
    unsigned int channels = 0;
    for (const std::uint8_t group : groups) {
        channels |= group;
    }
    Picture expected = picture;
    for (Rgba& pixel : expected.pixels) {
        pixel.r = (channels & 0x80U) != 0 ? pixel.r : std::uint8_t{0};
        pixel.g = (channels & 0x40U) != 0 ? pixel.g : std::uint8_t{0};
        pixel.b = (channels & 0x20U) != 0 ? pixel.b : std::uint8_t{0};
        pixel.a = (channels & 0x10U) != 0 ? pixel.a : std::uint8_t{255};
    }
    return expected.bytes();
}

File withSize(File file, unsigned int width, unsigned int height) {
    const File size = ByteList().big16(width).big16(height).bytes;
    std::copy(size.begin(), size.end(), file.begin() + 92);
    return file;
}

// One row of one packet in one packing, its data given.
File fileOf(unsigned int width, std::uint8_t packing, std::uint8_t channels, const File& data) {
    PicOptions options;
    options.packets = {{packing, channels, 8}};
    return ByteList().all(withSize(writePic(Picture(0, 0), options), width, 1)).all(data).bytes;
}

File redsOf(const ReadImage& read) {
    File reds;
    for (std::size_t i = 0; i < read.record.pixels.size(); i += 4) {
        reds.push_back(read.record.pixels[i]);
    }
    return reds;
}

// ---- refusals

TEST(PicImage, RefusesWhatIsShorterThanAHeader) {
    const File whole = writePic(Picture(1, 1), {});
    for (std::size_t length = 0; length < 104; ++length) {
        EXPECT_EQ(readPic({whole.begin(), whole.begin() + static_cast<long>(length)}).result.error, kInvalid) << length;
    }
}

TEST(PicImage, RefusesWrongMagicBytesAtTheStartAndAt88) {
    for (const std::size_t at : {0U, 1U, 2U, 3U, 88U, 89U, 90U, 91U}) {
        File file = writePic(Picture(1, 1), {});
        file[at] ^= 0x20U;
        EXPECT_EQ(readPic(file).result.error, kInvalid) << at;
    }
}

TEST(PicImage, RefusesSizesOfZero) {
    const File file = writePic(Picture(4, 4), {});
    EXPECT_EQ(readPic(withSize(file, 0, 4)).result.error, kInvalid);
    EXPECT_EQ(readPic(withSize(file, 4, 0)).result.error, kInvalid);
}

TEST(PicImage, RefusesSizesOver1024WithoutMakingRoomForPixels) {
    const File file = writePic(Picture(4, 4), {});
    for (const unsigned int side : {1025U, 65535U}) {
        for (const File& large : {withSize(file, side, 1), withSize(file, 1, side)}) {
            const ReadImage read = readPic(large);
            EXPECT_EQ(read.result.error, kInvalid) << side;
            EXPECT_EQ(read.record.pixels.capacity(), 0U) << side;
        }
    }
}

TEST(PicImage, HeaderTellsSizesThatPixelsWouldBeRefusedFor) {
    const File file = withSize(writePic(Picture(4, 4), {}), 65535, 1025);
    ImageRecord record;
    PicHeader header;
    EXPECT_TRUE(readPicHeader(viewOf(file).first(kPicHeaderBytes), header, record).ok());
    EXPECT_EQ(record.width, 65535);
    EXPECT_EQ(record.height, 1025);
}

TEST(PicImage, RefusesAShortFileOfALargeImageWithoutMakingRoomForPixels) {
    for (const std::uint8_t packing : Values{0, 1, 2}) {
        const ReadImage read =
            readPic(withSize(writePic(makeScatteredPicture(8, 8), optionsOf({0xE0}, packing)), 1024, 1024));
        EXPECT_EQ(read.result.error, kInvalid) << unsigned{packing};
        EXPECT_EQ(read.record.pixels.capacity(), 0U) << unsigned{packing};
    }
}

TEST(PicImage, RefusesChannelsOfOtherThan8BitsAndUnknownPackings) {
    for (const std::uint8_t bits : Values{0, 1, 7, 9, 16, 255}) {
        PicOptions options;
        options.packets = {{0, 0xE0, bits}};
        EXPECT_EQ(readPic(writePic(Picture(4, 4), options)).result.error, kInvalid) << unsigned{bits};
    }
    for (const std::uint8_t packing : Values{3, 4, 15}) {
        EXPECT_EQ(readPic(writePic(Picture(4, 4), optionsOf({0xE0}, packing))).result.error, kInvalid)
            << unsigned{packing};
    }
}

TEST(PicImage, RefusesAFileWithoutPackets) {
    PicOptions options;
    options.packets.clear();
    EXPECT_EQ(readPic(writePic(Picture(4, 4), options)).result.error, kInvalid);
}

TEST(PicImage, RefusesPacketsWithoutAnyChannelWithoutMakingRoomForPixels) {
    for (const std::uint8_t packing : Values{0, 1, 2}) {
        for (const std::vector<std::uint8_t>& groups : std::vector<std::vector<std::uint8_t>>{{0x00}, {0x00, 0x0F}}) {
            File file = withSize(writePic(Picture(0, 0), optionsOf(groups, packing)), 1024, 1024);
            file.resize(65536);
            const ReadImage read = readPic(file);
            EXPECT_EQ(read.result.error, kInvalid) << nameOf(groups, packing);
            EXPECT_EQ(read.record.pixels.capacity(), 0U) << nameOf(groups, packing);
        }
    }
}

TEST(PicImage, RefusesAChainOfPacketsThatDoesNotEnd) {
    File endless = writePic(Picture(4, 4), {});
    endless.resize(104);
    endless.resize(4096, 1);
    EXPECT_EQ(readPic(endless).result.error, kInvalid);
}

TEST(PicImage, RefusesEveryKindCutAnywhere) {
    for (const std::vector<std::uint8_t>& groups : kChannelGroups) {
        for (const std::uint8_t packing : Values{0, 1, 2}) {
            const File whole = writePic(makeRunPicture(9, 3), optionsOf(groups, packing));
            ASSERT_TRUE(readPic(whole).result.ok()) << nameOf(groups, packing);
            for (std::size_t length = 0; length < whole.size(); ++length) {
                const File cut(whole.begin(), whole.begin() + static_cast<long>(length));
                EXPECT_EQ(readPic(cut).result.error, kInvalid) << nameOf(groups, packing) << ", " << length << " bytes";
            }
        }
    }
}

TEST(PicImage, APixelIsNotReadFromAPacketThatTheEndOfTheFileCuts) {
    File file = withSize(writePic(Picture(0, 0), {}), 1, 1);
    file[104] = 1;                      // one more packet follows
    file.insert(file.end(), {0, 8, 0}); // and lacks its last byte; three bytes could pass for a pixel
    EXPECT_EQ(readPic(file).result.error, kInvalid);
}

// ---- packings

TEST(PicImage, ReadsEveryPackingOfEveryGroupingOfChannels) {
    for (const std::vector<std::uint8_t>& groups : kChannelGroups) {
        for (const std::uint8_t packing : Values{0, 1, 2}) {
            for (const Picture& picture : {makeScatteredPicture(7, 5), makeRunPicture(300, 11), Picture(1, 1)}) {
                const ReadImage read = readPic(writePic(picture, optionsOf(groups, packing)));
                ASSERT_TRUE(read.result.ok()) << nameOf(groups, packing);
                EXPECT_EQ(read.record.pixels, expectedPixels(picture, groups)) << nameOf(groups, packing);
            }
        }
    }
}

TEST(PicImage, PacketsOfOneFileCanHaveDifferentPackings) {
    const Picture picture = makeRunPicture(200, 9);
    PicOptions options;
    options.packets = {{2, 0xC0, 8}, {0, 0x20, 8}, {1, 0x10, 8}};
    EXPECT_EQ(readPic(writePic(picture, options)).record.pixels, picture.bytes());
}

TEST(PicImage, ColourChannelsThatNoPacketBringsAreZero) {
    const Picture picture = makeScatteredPicture(4, 4);
    for (const std::vector<std::uint8_t>& groups :
         std::vector<std::vector<std::uint8_t>>{{0x80}, {0x50}, {0x10}, {0x00, 0x80}}) {
        EXPECT_EQ(readPic(writePic(picture, optionsOf(groups, 0))).record.pixels, expectedPixels(picture, groups));
    }
}

TEST(PicImage, MixedRunsCountAsTheFormatSays) {
    // 0 to 127: one to 128 pixels of their own. 129 to 255: 2 to 128 times. 128: a count of 16 bits follows.
    EXPECT_EQ(redsOf(readPic(fileOf(2, 2, 0x80, {1, 5, 6}))), (File{5, 6}));
    EXPECT_EQ(redsOf(readPic(fileOf(2, 2, 0x80, {129, 7}))), (File{7, 7}));
    EXPECT_EQ(redsOf(readPic(fileOf(128, 2, 0x80, {255, 9}))), File(128, 9));
    EXPECT_EQ(redsOf(readPic(fileOf(300, 2, 0x80, {128, 1, 44, 3}))), File(300, 3));
    EXPECT_EQ(redsOf(readPic(fileOf(3, 2, 0x80, {128, 0, 1, 3, 0, 4, 0, 5}))), (File{3, 4, 5}));
}

TEST(PicImage, PureRunsCountAsTheFormatSays) {
    EXPECT_EQ(redsOf(readPic(fileOf(4, 1, 0x80, {1, 5, 3, 6}))), (File{5, 6, 6, 6}));
    EXPECT_EQ(redsOf(readPic(fileOf(2, 1, 0x80, {0, 5, 2, 6}))), (File{6, 6}));
}

TEST(PicImage, WhatARunHoldsBehindItsScanLineIsIgnored) {
    EXPECT_EQ(redsOf(readPic(fileOf(3, 1, 0x80, {255, 5}))), (File{5, 5, 5}));
    EXPECT_EQ(redsOf(readPic(fileOf(3, 2, 0x80, {255, 5}))), (File{5, 5, 5}));
    EXPECT_EQ(redsOf(readPic(fileOf(3, 2, 0x80, {128, 255, 255, 5}))), (File{5, 5, 5}));
    EXPECT_EQ(redsOf(readPic(fileOf(3, 2, 0x80, {127, 1, 2, 3}))), (File{1, 2, 3}));
}

TEST(PicImage, RunsOfNothingEndWithTheFile) {
    EXPECT_EQ(readPic(fileOf(8, 1, 0x80, File(64, 0))).result.error, kInvalid);
    File empties;
    for (int i = 0; i < 16; ++i) {
        empties.insert(empties.end(), {128, 0, 0, 9});
    }
    EXPECT_EQ(readPic(fileOf(8, 2, 0x80, empties)).result.error, kInvalid);
    EXPECT_EQ(readPic(fileOf(8, 1, 0x00, File(64, 0))).result.error, kInvalid);
}

TEST(PicImage, LongestSidesAreRead) {
    for (const std::uint8_t packing : Values{0, 1, 2}) {
        for (const bool wide : {true, false}) {
            const Picture picture(wide ? 1024 : 1, wide ? 1 : 1024, {1, 2, 3});
            EXPECT_EQ(readPic(writePic(picture, optionsOf({0xE0}, packing))).record.pixels, picture.bytes());
        }
    }
}

TEST(PicImage, TheLargestImageIsReadFromTheFewestBytes) {
    const Picture picture(1024, 1024, {7, 0, 0});
    const File file = writePic(picture, optionsOf({0x80}, 2));
    EXPECT_EQ(file.size(), 108U + 1024U * 4U) << "a long run of one channel in every scan line";
    EXPECT_EQ(readPic(file).record.pixels, picture.bytes());
}

// ---- header

TEST(PicImage, PacketsTellAlphaAndThePackings) {
    PicOptions options;
    options.packets = {{2, 0xE0, 8}, {0x21, 0x10, 8}};
    const File file = writePic(Picture(4, 4), options);
    ImageRecord record;
    PicHeader header;
    ASSERT_TRUE(readPicHeader(viewOf(file).first(kPicHeaderBytes), header, record).ok());
    EXPECT_TRUE(record.hasAlpha);
    EXPECT_EQ(header.colorPacking, 2);
    EXPECT_EQ(header.alphaPacking, 1); // the low four bits
    EXPECT_EQ(header.pixelOffset, 112U);

    const File opaque = writePic(Picture(4, 4), {});
    ASSERT_TRUE(readPicHeader(viewOf(opaque).first(kPicHeaderBytes), header, record).ok());
    EXPECT_FALSE(record.hasAlpha);
    EXPECT_EQ(header.pixelOffset, 108U);
}

TEST(PicImage, HeaderOfAChainThatTheEndOfTheFileCutsIsRead) {
    File file = writePic(Picture(4, 4), {});
    file[104] = 1;
    file.resize(108);
    ImageRecord record;
    PicHeader header;
    EXPECT_TRUE(readPicHeader(viewOf(file), header, record).ok());
    EXPECT_EQ(record.width, 4);
}

TEST(PicImage, ExtensionNeedsItsMarkAndAnOffsetWithinTheFile) {
    struct Row {
        std::string comment;
        bool isMarked;
    };
    for (const Row& row : {Row{picMark(104), true}, Row{picMark(103), false}, Row{picMark(199), true},
                           Row{picMark(200), false}, Row{picMark(0xFFFFFFFFU), false}, Row{"x" + picMark(104), false},
                           Row{"TVK_pic Ver 1.0" + picMark(104).substr(15), false},
                           Row{"TVK_Pic Ver 1.0+" + picMark(104).substr(16), true}}) {
        PicOptions options;
        options.comment = row.comment;
        File file = writePic(Picture(4, 4), options);
        file.resize(200);
        ImageRecord record;
        record.fileSize = file.size();
        PicHeader header;
        ASSERT_TRUE(readPicHeader(viewOf(file), header, record).ok());
        EXPECT_EQ(record.hasExtension, row.isMarked) << row.comment;
    }
}

} // namespace
} // namespace tvk
