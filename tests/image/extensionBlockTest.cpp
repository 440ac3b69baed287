#include "image/extensionBlock.h"

#include "readInMemory.h"
#include "writers/ByteList.h"
#include "writers/extensionWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

using Block = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kInvalid = "Invalid additional information: a.tga";

struct ReadBlock {
    ImageResult result;
    TextureData data;
};

ReadBlock readBlock(const Block& block, ExtensionReading reading) {
    ImageRecord record;
    record.fileName = "a.tga";
    ReadBlock read;
    read.result = readExtension(viewOf(block), reading, record);
    read.data = record.extension;
    return read;
}

ReadBlock readFull(const std::vector<Block>& chunks) {
    return readBlock(joined(chunks), ExtensionReading::kFull);
}

ReadBlock readPartial(const std::vector<Block>& chunks) {
    return readBlock(joined(chunks), ExtensionReading::kPartial);
}

const Block kFormat = chunk("tvk_frmt", "palette16");
const Block kTexels = chunk("tvk_txel", Block{0x10, 0x32});
const Block kIndices = chunk("tvk_pidx", wordBytes({0x8001, 2}));
const Block kName = chunk("tvk_pnam", "wood");
const Block kPalette = chunk("tvk_pcol", wordBytes({0x7FFF, 0x001F, 0xFFFF}));
const Block kEnd = chunk("tvk_endb", "");

// ---- refusals

TEST(ExtensionBlock, FullReadingRefusesWhatIsIncomplete) {
    EXPECT_EQ(readFull({}).result.error, kInvalid);
    EXPECT_EQ(readFull({kEnd}).result.error, kInvalid);
    EXPECT_EQ(readFull({kTexels}).result.error, kInvalid) << "no format";
    EXPECT_EQ(readFull({kFormat}).result.error, kInvalid) << "no texels";
    EXPECT_EQ(readFull({kFormat, chunk("tvk_txel", "")}).result.error, kInvalid) << "empty texels";
    EXPECT_EQ(readFull({kFormat, kTexels, kName}).result.error, kInvalid) << "a palette without colours";
    EXPECT_EQ(readFull({kFormat, kTexels, chunk("tvk_pcol", "")}).result.error, kInvalid) << "an empty palette";
}

TEST(ExtensionBlock, Tex4x4WithTexelsButWithoutPaletteIndicesIsRefused) {
    const Block format = chunk("tvk_frmt", "tex4x4");
    EXPECT_EQ(readFull({format, kTexels}).result.error, kInvalid);
    EXPECT_EQ(readFull({format, kTexels, chunk("tvk_pidx", "x")}).result.error, kInvalid) << "half an index";
    EXPECT_EQ(readFull({format, kTexels, kIndices}).result.error, "");
}

TEST(ExtensionBlock, UnknownFormatsAreRefusedByTheirNameInBothReadings) {
    for (const std::string name :
         {"", "palette", "palette1", "palette166", "Palette16", "palette16 ", "err", "direct\n"}) {
        const std::string error = "Invalid texture format: " + name;
        EXPECT_EQ(readFull({chunk("tvk_frmt", name), kTexels}).result.error, error);
        EXPECT_EQ(readPartial({chunk("tvk_frmt", name)}).result.error, error);
    }
    EXPECT_EQ(readFull({chunk("tvk_frmt", std::string_view("direct\0", 7))}).result.error,
              std::string("Invalid texture format: direct\0", 31));
}

TEST(ExtensionBlock, ChunkSizesBelowTheHeadAreRefusedButZero) {
    for (std::uint32_t size = 1; size < 12; ++size) {
        for (const char* tag : {"tvk_frmt", "tvk_none"}) {
            const Block block = joined({kFormat, kTexels, chunkOfSize(tag, size), kEnd});
            EXPECT_EQ(readBlock(block, ExtensionReading::kFull).result.error, kInvalid) << tag << ' ' << size;
            EXPECT_EQ(readBlock(block, ExtensionReading::kPartial).result.error, kInvalid) << tag << ' ' << size;
        }
    }
}

TEST(ExtensionBlock, EveryTagOfEverySizeIsRefusedOrTakenAsItStands) {
    struct Row {
        const char* tag;
        std::string atTwelve, atThirteen; // what full reading says of an empty payload, and of one byte
    };
    const std::string noFormat = "Invalid texture format: ";
    for (const Row& row : {Row{"tvk_frmt", noFormat, noFormat + "x"}, Row{"tvk_c0xp", "", ""},
                           Row{"tvk_txel", kInvalid, ""}, Row{"tvk_pidx", "", ""}, Row{"tvk_pnam", kInvalid, kInvalid},
                           Row{"tvk_pcol", kInvalid, kInvalid}, Row{"tvk_none", "", ""}}) {
        for (std::uint32_t size = 0; size <= 13; ++size) {
            const Block payload(size == 13 ? 1 : 0, 'x');
            const Block block = joined({kFormat, kTexels, chunkOfSize(row.tag, size, payload)});
            const std::string error = size == 0    ? ""
                                      : size < 12  ? kInvalid
                                      : size == 12 ? row.atTwelve
                                                   : row.atThirteen;
            EXPECT_EQ(readBlock(block, ExtensionReading::kFull).result.error, error) << row.tag << ' ' << size;
        }
        const Block endless = joined({kFormat, kTexels, chunkOfSize(row.tag, 0xFFFFFFFFU, {1})});
        EXPECT_EQ(readBlock(endless, ExtensionReading::kFull).result.error, "") << row.tag << ": as if it ended before";
    }
}

TEST(ExtensionBlock, APayloadBehindTheEndOfTheFileIsRefused) {
    const Block tail = chunkOfSize("tvk_pcol", 14, {1}); // one byte short
    EXPECT_EQ(readFull({kFormat, kTexels, tail}).result.error, kInvalid);
    EXPECT_EQ(readPartial({kFormat, tail}).result.error, kInvalid);
}

// ---- where reading ends

TEST(ExtensionBlock, ChunkOfSizeZeroEndsTheBlockWithoutError) {
    const ReadBlock read = readFull({kFormat, kTexels, chunkOfSize("tvk_pnam", 0), kName});
    EXPECT_EQ(read.result.error, "");
    EXPECT_FALSE(read.data.hasPalette);
    EXPECT_EQ(readFull({kFormat, chunkOfSize("tvk_txel", 0), kTexels}).result.error, kInvalid) << "and is incomplete";
}

TEST(ExtensionBlock, ChunkLargerThanTheBlockEndsIt) {
    for (const std::uint32_t size : {1000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(readFull({kFormat, kTexels, chunkOfSize("tvk_pnam", size), kName}).result.error, "") << size;
        EXPECT_EQ(readFull({kFormat, chunkOfSize("tvk_txel", size), kTexels}).result.error, kInvalid) << size;
        EXPECT_EQ(readPartial({kFormat, chunkOfSize("tvk_txel", size)}).result.error, "") << size;
    }
}

TEST(ExtensionBlock, EndTagEndsTheBlockWhateverItsSize) {
    for (const std::uint32_t size : {0U, 5U, 12U, 13U, 0xFFFFFFFFU}) {
        const ReadBlock read = readFull({kFormat, kTexels, chunkOfSize("tvk_endb", size), kName});
        EXPECT_EQ(read.result.error, "") << size;
        EXPECT_FALSE(read.data.hasPalette) << size;
    }
}

TEST(ExtensionBlock, AChunkHeadNeedsTwelveBytes) {
    for (std::size_t rest = 0; rest < 12; ++rest) {
        Block block = joined({kFormat, kTexels});
        block.insert(block.end(), rest, 0xFF);
        EXPECT_EQ(readBlock(block, ExtensionReading::kFull).result.error, "") << rest;
    }
}

TEST(ExtensionBlock, CutAnywhereItIsRefusedOrComplete) {
    const Block whole = joined({kFormat, kTexels, kName, kPalette, kEnd});
    const std::size_t texelsEnd = kFormat.size() + kTexels.size();
    const std::size_t paletteEnd = whole.size() - kEnd.size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ReadBlock read =
            readBlock({whole.begin(), whole.begin() + static_cast<long>(length)}, ExtensionReading::kFull);
        // A chunk's head says more than what is left of the block: that ends the block, and all before it must do.
        const bool isComplete = length >= paletteEnd || (length >= texelsEnd && length < texelsEnd + 12);
        EXPECT_EQ(read.result.ok(), isComplete) << length << ": " << read.result.error;
    }
}

// ---- what is read

TEST(ExtensionBlock, FullReadingTakesAllSixChunks) {
    const ReadBlock read =
        readFull({chunk("tvk_frmt", "tex4x4"), chunk("tvk_c0xp", ""), kTexels, kIndices, kName, kPalette, kEnd});
    ASSERT_EQ(read.result.error, "");
    EXPECT_TRUE(read.data.hasFormat);
    EXPECT_EQ(read.data.format, TextureFormat::kTex4x4);
    EXPECT_TRUE(read.data.color0Transparent);
    EXPECT_THAT(read.data.texels, ElementsAre(0x10, 0x32));
    EXPECT_THAT(read.data.paletteIndices, ElementsAre(0x8001, 2));
    EXPECT_TRUE(read.data.hasPalette);
    EXPECT_EQ(read.data.paletteName, "wood");
    EXPECT_THAT(read.data.palette, ElementsAre(0x7FFF, 0x001F, 0xFFFF));
}

TEST(ExtensionBlock, PartialReadingTakesFormatTransparencyAndPaletteName) {
    const ReadBlock read = readPartial({kPalette, kTexels, kIndices, kFormat, chunk("tvk_c0xp", "x"), kName});
    ASSERT_EQ(read.result.error, "");
    EXPECT_EQ(read.data.format, TextureFormat::kPalette16);
    EXPECT_TRUE(read.data.color0Transparent);
    EXPECT_TRUE(read.data.hasPalette);
    EXPECT_EQ(read.data.paletteName, "wood");
    EXPECT_THAT(read.data.texels, IsEmpty());
    EXPECT_THAT(read.data.paletteIndices, IsEmpty());
    EXPECT_THAT(read.data.palette, IsEmpty());
}

TEST(ExtensionBlock, PartialReadingAsksForNothing) {
    EXPECT_EQ(readPartial({}).result.error, "");
    EXPECT_EQ(readPartial({kEnd}).result.error, "");
    EXPECT_FALSE(readPartial({kEnd}).data.hasFormat);
}

TEST(ExtensionBlock, EveryFormatIsKnownByItsName) {
    for (std::size_t i = 0; i < kTextureFormats.size(); ++i) {
        const ReadBlock read = readPartial({chunk("tvk_frmt", kTextureFormats[i].name)});
        EXPECT_EQ(read.result.error, "");
        EXPECT_EQ(static_cast<std::size_t>(read.data.format), i);
    }
}

TEST(ExtensionBlock, UnknownTagsAreSkipped) {
    const Block junk = joined({chunk("tvk_frmT", "junk"), chunk("12345678", "junk"), chunk("tvk_pcom", "")});
    EXPECT_EQ(readFull({junk, kFormat, junk, kTexels, junk}).result.error, "");
}

TEST(ExtensionBlock, OfRepeatedChunksTheLastWins) {
    const ReadBlock read = readFull({kFormat, chunk("tvk_frmt", "direct"), kTexels, chunk("tvk_txel", Block{7}), kName,
                                     chunk("tvk_pnam", "oak"), kPalette, chunk("tvk_pcol", wordBytes({5}))});
    ASSERT_EQ(read.result.error, "");
    EXPECT_EQ(read.data.format, TextureFormat::kDirect);
    EXPECT_THAT(read.data.texels, ElementsAre(7));
    EXPECT_EQ(read.data.paletteName, "oak");
    EXPECT_THAT(read.data.palette, ElementsAre(5));
}

TEST(ExtensionBlock, TheLastByteOfAnOddPayloadOfWordsIsIgnored) {
    const ReadBlock read =
        readFull({kFormat, kTexels, chunk("tvk_pcol", Block{1, 2, 3}), chunk("tvk_pidx", Block{4, 5, 6})});
    EXPECT_THAT(read.data.palette, ElementsAre(0x0201));
    EXPECT_THAT(read.data.paletteIndices, ElementsAre(0x0504));
}

TEST(ExtensionBlock, PaletteColoursWithoutANameMakeANamelessPalette) {
    const ReadBlock read = readFull({kFormat, kTexels, kPalette});
    ASSERT_EQ(read.result.error, "");
    EXPECT_TRUE(read.data.hasPalette);
    EXPECT_EQ(read.data.paletteName, "");
}

TEST(ExtensionBlock, ReadingAgainForgetsWhatWasRead) {
    ImageRecord record;
    const Block first = joined({chunk("tvk_c0xp", ""), kName, kPalette, kFormat, kTexels});
    const Block second = joined({chunk("tvk_frmt", "direct"), kTexels});
    EXPECT_TRUE(readExtension(viewOf(first), ExtensionReading::kFull, record).ok());
    EXPECT_TRUE(readExtension(viewOf(second), ExtensionReading::kFull, record).ok());
    EXPECT_FALSE(record.extension.color0Transparent);
    EXPECT_FALSE(record.extension.hasPalette);
    EXPECT_THAT(record.extension.palette, IsEmpty());
}

} // namespace
} // namespace tvk
