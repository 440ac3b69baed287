#include "image/tgaImage.h"

#include "readInMemory.h"
#include "writers/ByteList.h"
#include "writers/extensionWriter.h"
#include "writers/tgaWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tvk {
namespace {

using File = std::vector<std::uint8_t>;
using Values = std::initializer_list<std::uint8_t>;

const std::string kEnd = "Invalid TGA file (unexpected end of file): a.tga";
const std::string kImageType = "Invalid TGA file (invalid image type): a.tga";
const std::string kDepth = "Invalid TGA file (invalid bit per pixel): a.tga";
const std::string kSize = "Invalid TGA file (invalid size): a.tga";

// Image type and depth of everything that can be read, with a depth for the entries of the map.
struct Kind {
    std::uint8_t type, bits, mapBits;

    bool isMapped() const { return type % 8 == 1; }
};

std::vector<Kind> allKinds() {
    std::vector<Kind> kinds;
    for (const std::uint8_t type : Values{2, 3, 10, 11}) {
        for (const std::uint8_t bits : Values{8, 15, 16, 24, 32}) {
            kinds.push_back({type, bits, 24});
        }
    }
    for (const std::uint8_t type : Values{1, 9}) {
        for (const std::uint8_t mapBits : Values{8, 15, 16, 24, 32}) {
            kinds.push_back({type, 8, mapBits});
            kinds.push_back({type, 16, mapBits});
        }
    }
    return kinds;
}

std::string nameOf(const Kind& kind) {
    return "type " + std::to_string(kind.type) + ", " + std::to_string(kind.bits) + " bits" +
           (kind.isMapped() ? ", entries of " + std::to_string(kind.mapBits) : "");
}

TgaOptions optionsFor(const Kind& kind) {
    TgaOptions options;
    options.type = kind.type;
    options.bits = kind.bits;
    options.mapType = kind.isMapped() ? 1 : 0;
    options.mapBits = kind.mapBits;
    options.alphaBits = kind.bits == 32 ? 8 : 0;
    return options;
}

// What must come out of a picture that was written in a kind.
File expectedPixels(const Picture& picture, const Kind& kind) {
    Picture stored = picture;
    for (Rgba& pixel : stored.pixels) {
        pixel = storedInTga(pixel, kind.isMapped() ? kind.mapBits : kind.bits);
    }
    return stored.bytes();
}

File withSize(File file, unsigned int width, unsigned int height) {
    const File size = ByteList().little16(width).little16(height).bytes;
    std::copy(size.begin(), size.end(), file.begin() + 12);
    return file;
}

// ---- refusals

TEST(TgaImage, RefusesWhatIsShorterThanAHeader) {
    const File whole = writeTga(Picture(1, 1), {});
    for (std::size_t length = 0; length < 18; ++length) {
        EXPECT_EQ(readTga({whole.begin(), whole.begin() + static_cast<long>(length)}).result.error, kEnd) << length;
    }
}

TEST(TgaImage, RefusesUnknownImageTypes) {
    for (const std::uint8_t type : Values{0, 4, 7, 8, 12, 32, 33, 255}) {
        TgaOptions options;
        options.type = type;
        EXPECT_EQ(readTga(writeTga(Picture(4, 4), options)).result.error, kImageType) << unsigned{type};
    }
}

TEST(TgaImage, RefusesAColourMappedFileWithoutAMap) {
    for (const std::uint8_t type : Values{1, 9}) {
        TgaOptions options = optionsFor({type, 8, 24});
        options.mapType = 0;
        EXPECT_EQ(readTga(writeTga(Picture(4, 4), options)).result.error, kImageType) << unsigned{type};
    }
}

TEST(TgaImage, RefusesUnknownDepths) {
    for (const unsigned int bits : {0, 1, 4, 7, 9, 12, 17, 23, 25, 31, 33, 64, 255}) {
        File file = writeTga(Picture(4, 4), {});
        file[16] = static_cast<std::uint8_t>(bits);
        EXPECT_EQ(readTga(file).result.error, kDepth) << bits;
    }
}

TEST(TgaImage, RefusesUnknownDepthsOfTheEntriesOfAColourMap) {
    for (const unsigned int bits : {0, 4, 12, 48}) {
        File file = writeTga(Picture(4, 4), optionsFor({1, 8, 24}));
        file[7] = static_cast<std::uint8_t>(bits);
        EXPECT_EQ(readTga(file).result.error, kDepth) << bits;
    }
}

TEST(TgaImage, RefusesSizesOfZero) {
    const File file = writeTga(Picture(4, 4), {});
    EXPECT_EQ(readTga(withSize(file, 0, 4)).result.error, kSize);
    EXPECT_EQ(readTga(withSize(file, 4, 0)).result.error, kSize);
    EXPECT_EQ(readTga(withSize(file, 0, 0)).result.error, kSize);
}

TEST(TgaImage, RefusesSizesOver1024WithoutMakingRoomForPixels) {
    const File file = writeTga(Picture(4, 4), {});
    for (const unsigned int side : {1025U, 2048U, 65535U}) {
        for (const File& large : {withSize(file, side, 1), withSize(file, 1, side), withSize(file, side, side)}) {
            const ReadImage read = readTga(large);
            EXPECT_EQ(read.result.error, kSize) << side;
            EXPECT_EQ(read.record.pixels.capacity(), 0U) << side;
        }
    }
}

TEST(TgaImage, HeaderTellsSizesThatPixelsWouldBeRefusedFor) {
    const File file = withSize(writeTga(Picture(4, 4), {}), 65535, 1025);
    ImageRecord record;
    TgaHeader header;
    EXPECT_TRUE(readTgaHeader(viewOf(file), header, record).ok());
    EXPECT_EQ(record.width, 65535);
    EXPECT_EQ(record.height, 1025);
}

TEST(TgaImage, RefusesAShortFileOfALargeImageWithoutMakingRoomForPixels) {
    for (const std::uint8_t type : Values{2, 10}) {
        TgaOptions options;
        options.type = type;
        const ReadImage read = readTga(withSize(writeTga(makeScatteredPicture(8, 8), options), 1024, 1024));
        EXPECT_EQ(read.result.error, kEnd) << unsigned{type};
        EXPECT_EQ(read.record.pixels.capacity(), 0U) << unsigned{type};
    }
}

TEST(TgaImage, RefusesAColourMapThatReachesBehindTheFile) {
    File file = writeTga(Picture(4, 4), optionsFor({1, 8, 32}));
    file[5] = 0xFF;
    file[6] = 0xFF;
    EXPECT_EQ(readTga(file).result.error, kEnd);
}

TEST(TgaImage, RefusesEveryKindCutAnywhere) {
    for (const Kind& kind : allKinds()) {
        TgaOptions options = optionsFor(kind);
        options.id = "who made it";
        const File whole = writeTga(makeRunPicture(5, 6), options);
        ASSERT_TRUE(readTga(whole).result.ok()) << nameOf(kind);
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const File cut(whole.begin(), whole.begin() + static_cast<long>(length));
            EXPECT_EQ(readTga(cut).result.error, kEnd) << nameOf(kind) << ", " << length << " bytes";
        }
    }
}

// ---- layout of the file

TEST(TgaImage, ReadsEveryTypeAndDepth) {
    for (const Kind& kind : allKinds()) {
        for (const Picture& picture : {makeScatteredPicture(13, 7), makeRunPicture(37, 21)}) {
            const ReadImage read = readTga(writeTga(picture, optionsFor(kind)));
            ASSERT_TRUE(read.result.ok()) << nameOf(kind) << ": " << read.result.error;
            EXPECT_EQ(read.record.width, picture.width);
            EXPECT_EQ(read.record.height, picture.height);
            EXPECT_EQ(read.record.pixels, expectedPixels(picture, kind)) << nameOf(kind);
        }
    }
}

TEST(TgaImage, ReadsEveryOriginAndInterleaveOfEveryType) {
    for (const std::uint8_t type : Values{1, 2, 3, 9, 10, 11}) {
        for (const std::size_t height : {1U, 2U, 3U, 7U, 8U}) {
            for (unsigned int bits = 0; bits < 16; ++bits) {
                const Kind kind{type, 8, 24};
                TgaOptions options = optionsFor(kind);
                options.rightToLeft = (bits & 1U) != 0;
                options.topToBottom = (bits & 2U) != 0;
                options.interleave = static_cast<std::uint8_t>(bits / 4);
                const Picture picture = makeScatteredPicture(5, height);
                const ReadImage read = readTga(writeTga(picture, options));
                EXPECT_EQ(read.record.pixels, expectedPixels(picture, kind))
                    << nameOf(kind) << ", height " << height << ", descriptor " << bits;
            }
        }
    }
}

TEST(TgaImage, BottomUp24BitFileGivesItsLastRowAsTheTopRow) {
    const File pixels{3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10};
    const File file =
        ByteList().byte(0).byte(0).byte(2).zeros(9).little16(2).little16(2).byte(24).byte(0).all(pixels).bytes;
    EXPECT_EQ(readTga(file).record.pixels, (File{7, 8, 9, 255, 10, 11, 12, 255, 1, 2, 3, 255, 4, 5, 6, 255}));
}

TEST(TgaImage, InterleaveThreeReadsAsNone) {
    const Picture picture = makeScatteredPicture(3, 8);
    File file = writeTga(picture, {});
    file[17] |= 0xC0U;
    EXPECT_EQ(readTga(file).record.pixels, expectedPixels(picture, {2, 24, 0}));
}

TEST(TgaImage, FiveBitComponentsBecomeEightByRepeatingTheirTopBits) {
    const File file = ByteList()
                          .byte(0)
                          .byte(0)
                          .byte(2)
                          .zeros(9)
                          .little16(2)
                          .little16(1)
                          .byte(16)
                          .byte(0)
                          .little16(0U << 10U | 1U << 5U | 16U)
                          .little16(31U << 10U | 30U << 5U | 15U)
                          .bytes;
    EXPECT_EQ(readTga(file).record.pixels, (File{0, 8, 132, 255, 255, 247, 123, 255}));
}

TEST(TgaImage, GreyWith16BitsIsAColourOfFiveBitsEach) {
    const File file =
        ByteList().byte(0).byte(0).byte(3).zeros(9).little16(1).little16(1).byte(16).byte(0).little16(0x7C00).bytes;
    EXPECT_EQ(readTga(file).record.pixels, (File{255, 0, 0, 255}));
}

TEST(TgaImage, LongestSidesAreRead) {
    for (const bool wide : {true, false}) {
        const Picture picture = makeRunPicture(wide ? 1024 : 1, wide ? 1 : 1024);
        for (const std::uint8_t type : Values{2, 10}) {
            TgaOptions options;
            options.type = type;
            EXPECT_EQ(readTga(writeTga(picture, options)).record.pixels, expectedPixels(picture, {type, 24, 0}));
        }
    }
}

TEST(TgaImage, TheLargestImageIsReadFromTheFewestBytes) {
    const Picture picture(1024, 1024, {7, 7, 7});
    const File file = writeTga(picture, optionsFor({11, 8, 24}));
    EXPECT_EQ(file.size(), 18U + 1024U * 1024U / 128U * 2U) << "packets of 128 equal pixels";
    EXPECT_EQ(readTga(file).record.pixels, picture.bytes());
}

TEST(TgaImage, IdentificationFieldIsSkipped) {
    const Picture picture = makeScatteredPicture(4, 4);
    for (const std::size_t length : {1U, 19U, 20U, 255U}) {
        TgaOptions options;
        options.id = std::string(length, 'x');
        const ReadImage read = readTga(writeTga(picture, options));
        EXPECT_EQ(read.record.pixels, expectedPixels(picture, {2, 24, 0})) << length;
        EXPECT_FALSE(read.record.hasExtension) << length;
    }
}

// ---- run lengths

File flatHeader(unsigned int width, unsigned int height) {
    return ByteList().byte(0).byte(0).byte(11).zeros(9).little16(width).little16(height).byte(8).byte(0x20).bytes;
}

File greysOf(const File& pixels) {
    File greys;
    for (std::size_t i = 0; i < pixels.size(); i += 4) {
        greys.push_back(pixels[i]);
    }
    return greys;
}

TEST(TgaImage, PacketsContinueAcrossTheEndsOfRows) {
    const File repeated = ByteList().all(flatHeader(3, 2)).byte(0x83).byte(9).byte(0x81).byte(7).bytes;
    EXPECT_EQ(greysOf(readTga(repeated).record.pixels), (File{9, 9, 9, 9, 7, 7}));
    const File literal = ByteList().all(flatHeader(3, 2)).byte(0x04).all({1, 2, 3, 4, 5}).byte(0x80).byte(6).bytes;
    EXPECT_EQ(greysOf(readTga(literal).record.pixels), (File{1, 2, 3, 4, 5, 6}));
}

TEST(TgaImage, PixelsOfAPacketBehindTheEndOfTheImageAreIgnored) {
    const File repeated = ByteList().all(flatHeader(3, 1)).byte(0xFF).byte(9).bytes;
    EXPECT_EQ(greysOf(readTga(repeated).record.pixels), (File{9, 9, 9}));
    const File literal = ByteList().all(flatHeader(3, 1)).byte(0x7F).all({1, 2, 3}).bytes;
    EXPECT_EQ(greysOf(readTga(literal).record.pixels), (File{1, 2, 3}));
}

TEST(TgaImage, APacketOf128PixelsAndThePacketOfOneAreRead) {
    const File file = ByteList().all(flatHeader(129, 1)).byte(0xFF).byte(5).byte(0x00).byte(6).bytes;
    File expected(128, 5);
    expected.push_back(6);
    EXPECT_EQ(greysOf(readTga(file).record.pixels), expected);
}

// ---- colour maps

TEST(TgaImage, ColourMapFromIndex4GivesOpaqueBlackFor0To3) {
    TgaOptions options = optionsFor({1, 8, 32});
    options.firstMapEntry = 4;
    options.map = {{10, 20, 30, 40}, {50, 60, 70, 80}};
    File file = writeTga(Picture(6, 1, {10, 20, 30, 40}), options);
    const std::size_t pixelsAt = file.size() - 6;
    for (std::size_t i = 0; i < 6; ++i) {
        file[pixelsAt + i] = static_cast<std::uint8_t>(i);
    }
    const File black{0, 0, 0, 255};
    const File expected = joined({black, black, black, black, {10, 20, 30, 40}, {50, 60, 70, 80}});
    EXPECT_EQ(readTga(file).record.pixels, expected);
}

TEST(TgaImage, IndicesOutsideOfTheMapAreOpaqueBlack) {
    for (const std::uint8_t bits : Values{8, 16}) {
        TgaOptions options = optionsFor({1, bits, 24});
        options.map = {{10, 20, 30}, {50, 60, 70}};
        options.firstMapEntry = bits == 16 ? 65534 : 254;
        File file = writeTga(Picture(3, 1, {50, 60, 70}), options);
        const File pixels = bits == 16 ? wordBytes({65533, 65535, 0}) : File{253, 255, 0};
        std::copy(pixels.begin(), pixels.end(), file.end() - static_cast<long>(pixels.size()));
        EXPECT_EQ(readTga(file).record.pixels, (File{0, 0, 0, 255, 50, 60, 70, 255, 0, 0, 0, 255})) << unsigned{bits};
    }
}

TEST(TgaImage, AnEmptyMapGivesOpaqueBlack) {
    File file = writeTga(Picture(2, 1), optionsFor({1, 8, 24}));
    file[5] = 0;                                      // no entry any more
    file.erase(file.begin() + 18, file.begin() + 21); // nor its bytes
    EXPECT_EQ(readTga(file).record.pixels, (File{0, 0, 0, 255, 0, 0, 0, 255}));
}

TEST(TgaImage, IndicesOfMoreThan8BitsHaveTwoBytes) {
    const Picture picture = makeScatteredPicture(6, 5);
    for (const std::uint8_t type : Values{1, 9}) {
        for (const std::uint8_t bits : Values{15, 16, 24, 32}) {
            EXPECT_EQ(readTga(writeTga(picture, optionsFor({type, bits, 24}))).record.pixels,
                      expectedPixels(picture, {type, bits, 24}))
                << nameOf({type, bits, 24});
        }
    }
}

TEST(TgaImage, AMapThatNoPixelNeedsIsSkipped) {
    const Picture picture = makeScatteredPicture(4, 3);
    for (const std::uint8_t mapBits : Values{8, 15, 16, 24, 32}) {
        TgaOptions options = optionsFor({2, 24, mapBits});
        options.mapType = 1;
        options.map = std::vector<Rgba>(7);
        EXPECT_EQ(readTga(writeTga(picture, options)).record.pixels, expectedPixels(picture, {2, 24, 0}))
            << unsigned{mapBits};
    }
}

// ---- alpha

TEST(TgaImage, AlphaIsDeclaredByTheMapsEntriesOrTheDescriptor) {
    struct Row {
        std::uint8_t type, bits, mapBits, alphaBits;
        bool hasAlpha;
    };
    for (const Row& row : {Row{1, 8, 32, 0, true}, Row{1, 8, 24, 8, false}, Row{9, 16, 32, 0, true},
                           Row{2, 32, 24, 8, true}, Row{2, 32, 24, 0, false}, Row{2, 24, 32, 0, false},
                           Row{2, 16, 24, 1, true}, Row{2, 24, 24, 15, true}, Row{3, 8, 24, 0, false}}) {
        TgaOptions options = optionsFor({row.type, row.bits, row.mapBits});
        options.alphaBits = row.alphaBits;
        EXPECT_EQ(readTga(writeTga(Picture(4, 4), options)).record.hasAlpha, row.hasAlpha)
            << nameOf({row.type, row.bits, row.mapBits}) << ", alpha bits " << unsigned{row.alphaBits};
    }
}

TEST(TgaImage, AlphaOfAFileWithoutAlphaBitsIsOpaque) {
    TgaOptions options = optionsFor({2, 32, 24});
    options.alphaBits = 0;
    EXPECT_EQ(readTga(writeTga(Picture(1, 1, {1, 2, 3, 0}), options)).record.pixels, (File{1, 2, 3, 255}));
    options.alphaBits = 8;
    EXPECT_EQ(readTga(writeTga(Picture(1, 1, {1, 2, 3, 0}), options)).record.pixels, (File{1, 2, 3, 0}));
}

// ---- marker of the extension block

struct MarkerRow {
    const char* what;
    std::string id;
    std::size_t fileBytes;
    bool isMarked;
};

TEST(TgaImage, ExtensionNeedsItsMarkAndAnOffsetWithinTheFile) {
    const std::string mark = tgaMark(38);
    std::string unended = mark;
    unended[15] = '1';
    std::string otherCase = mark;
    otherCase[4] = 't';
    const std::vector<MarkerRow> rows{
        {"offset 38", tgaMark(38), 100, true},
        {"offset 37", tgaMark(37), 100, false},
        {"offset 0", tgaMark(0), 100, false},
        {"last byte", tgaMark(99), 100, true},
        {"end of the file", tgaMark(100), 100, false},
        {"behind the file", tgaMark(0xFFFFFFFFU), 100, false},
        {"longer field", mark + "and more", 100, true},
        {"field of 19 bytes", mark.substr(0, 19), 100, false},
        {"no zero behind the text", unended, 100, false},
        {"another case", otherCase, 100, false},
        {"text further on", "x" + mark, 100, false},
    };
    for (const MarkerRow& row : rows) {
        TgaOptions options;
        options.id = row.id;
        File file = writeTga(Picture(4, 4), options);
        file.resize(row.fileBytes);
        ImageRecord record;
        record.fileSize = file.size();
        TgaHeader header;
        ASSERT_TRUE(readTgaHeader(viewOf(file).first(kTgaHeadBytes), header, record).ok()) << row.what;
        EXPECT_EQ(record.hasExtension, row.isMarked) << row.what;
    }
}

TEST(TgaImage, ExtensionOffset37IsReadAsAPlainFile) {
    const Picture picture = makeScatteredPicture(4, 4);
    for (const std::uint32_t offset : {37U, 5000U}) {
        TgaOptions options;
        options.id = tgaMark(offset);
        const ReadImage read = readTga(writeTga(picture, options));
        EXPECT_FALSE(read.record.hasExtension);
        EXPECT_EQ(read.record.pixels, expectedPixels(picture, {2, 24, 0}));
    }
}

TEST(TgaImage, MarkCutByTheEndOfTheFileIsNone) {
    TgaOptions options;
    options.id = tgaMark(38);
    File file = writeTga(Picture(4, 4), options);
    file.resize(37);
    ImageRecord record;
    record.fileSize = file.size();
    TgaHeader header;
    EXPECT_TRUE(readTgaHeader(viewOf(file), header, record).ok());
    EXPECT_FALSE(record.hasExtension);
}

} // namespace
} // namespace tvk
