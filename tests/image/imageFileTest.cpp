#include "image/imageFile.h"

#include "TemporaryFolder.h"
#include "platform/fileSystem.h"
#include "writers/ByteList.h"
#include "writers/extensionWriter.h"
#include "writers/picWriter.h"
#include "writers/tgaWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tvk {
namespace {

using File = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;

class ImageFile : public testing::Test {
protected:
    std::string write(const std::string& name, const File& bytes) {
        const std::string path = folder.path(name);
        std::ofstream out(systemPath(path), std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path;
    }

    std::string errorOf(const std::string& path, ImageReading reading = ImageReading::kTexture) {
        return openImage(path, reading, record).error;
    }

    TemporaryFolder folder;
    ImageRecord record;
};

const File kBlock =
    joined({chunk("tvk_frmt", "palette4"), chunk("tvk_txel", wordBytes({1, 2, 3, 4, 5, 6, 7, 8})),
            chunk("tvk_pnam", "wood"), chunk("tvk_pcol", wordBytes({1, 2, 3, 4})), chunk("tvk_endb", "")});

TEST_F(ImageFile, RefusesOtherTypesByTheExtensionOfTheName) {
    for (const std::string name : {"a.png", "a", "a.", "a.tga.bak", "tga", "a.tgax", "a.iff", "a.tga/b", ""}) {
        EXPECT_EQ(errorOf(name), "Image type is not supported: " + name);
    }
}

TEST_F(ImageFile, RefusesWhatCannotBeOpened) {
    for (const std::string name : {"no.tga", "no.pic", "none/no.tga"}) {
        for (const ImageReading reading :
             {ImageReading::kHeader, ImageReading::kPartialBlock, ImageReading::kTexture}) {
            EXPECT_EQ(errorOf(folder.path(name), reading), "Can't open file: " + folder.path(name));
        }
    }
    ASSERT_TRUE(createFolder(folder.path("folder.tga")));
    EXPECT_EQ(errorOf(folder.path("folder.tga")), "Can't open file: " + folder.path("folder.tga"));
}

TEST_F(ImageFile, EmptyFilesAreInvalid) {
    const std::string tga = write("a.tga", {}), pic = write("a.pic", {});
    EXPECT_EQ(errorOf(tga), "Invalid TGA file (unexpected end of file): " + tga);
    EXPECT_EQ(errorOf(pic), "Invalid PIC file: " + pic);
}

TEST_F(ImageFile, FilesAreReadByTheirNameNotByTheirContents) {
    const std::string tga = write("a.tga", writePic(Picture(4, 4), {}));
    EXPECT_EQ(errorOf(tga), "Invalid TGA file (invalid image type): " + tga);
    const std::string pic = write("a.pic", writeTga(Picture(4, 4), {}));
    EXPECT_EQ(errorOf(pic), "Invalid PIC file: " + pic);
}

TEST_F(ImageFile, ExtensionsOfNamesAreComparedWithoutCase) {
    const Picture picture = makeScatteredPicture(5, 3);
    TgaOptions options;
    options.bits = 32;
    options.alphaBits = 8;
    PicOptions picOptions;
    picOptions.packets = {{0, 0xF0, 8}};
    for (const std::string name : {"a.tga", "b.TGA", "c.Tga", "d.pic", "e.PIC", ".tga", "f.png.tga"}) {
        const bool isTga = name.find('t') != std::string::npos || name.find('T') != std::string::npos;
        const std::string path = write(name, isTga ? writeTga(picture, options) : writePic(picture, picOptions));
        EXPECT_EQ(errorOf(path), "") << name;
        EXPECT_EQ(record.pixels, picture.bytes()) << name;
        EXPECT_EQ(record.fileName, path);
        EXPECT_TRUE(record.hasAlpha) << name;
    }
}

TEST_F(ImageFile, NamesAreUtf8) {
    EXPECT_EQ(errorOf(write("木目ソ.tga", writeTga(Picture(4, 4), {}))), "");
}

TEST_F(ImageFile, HeaderReadingTouchesNoPixelsAndNoBlock) {
    const File broken = tgaWithBlock(4, 4, chunk("tvk_frmt", "nonsense"));
    EXPECT_EQ(errorOf(write("a.tga", broken), ImageReading::kHeader), "");
    EXPECT_TRUE(record.hasExtension);
    EXPECT_EQ(record.extensionOffset, 18U + 20U + 16U);
    const File plain = writeTga(Picture(60, 50), {});
    EXPECT_EQ(errorOf(write("b.tga", {plain.begin(), plain.begin() + 18}), ImageReading::kHeader), "");
    EXPECT_EQ(record.width, 60);
    EXPECT_EQ(record.height, 50);
    EXPECT_EQ(record.pixels.capacity(), 0U);
    const File pic = writePic(Picture(30, 20), {});
    EXPECT_EQ(errorOf(write("c.pic", {pic.begin(), pic.begin() + 104}), ImageReading::kHeader), "");
    EXPECT_EQ(record.width, 30);
    EXPECT_EQ(record.height, 20);
    EXPECT_FALSE(record.hasExtension) << "nothing is left of the file before";
}

TEST_F(ImageFile, PartialReadingTakesNamesFromABlockAndIsContentWithoutOne) {
    for (const std::string& path :
         {write("a.tga", tgaWithBlock(8, 8, kBlock)), write("a.pic", picWithBlock(8, 8, kBlock))}) {
        EXPECT_EQ(errorOf(path, ImageReading::kPartialBlock), "");
        EXPECT_EQ(record.extension.format, TextureFormat::kPalette4);
        EXPECT_EQ(record.extension.paletteName, "wood");
        EXPECT_THAT(record.extension.texels, IsEmpty());
    }
    EXPECT_EQ(errorOf(write("b.tga", writeTga(Picture(4, 4), {})), ImageReading::kPartialBlock), "");
    EXPECT_FALSE(record.hasExtension);
    EXPECT_EQ(record.pixels.capacity(), 0U);
}

TEST_F(ImageFile, TextureReadingTakesTheBlockInsteadOfThePixels) {
    for (const std::string& path :
         {write("a.tga", tgaWithBlock(8, 8, kBlock)), write("a.pic", picWithBlock(8, 8, kBlock))}) {
        EXPECT_EQ(errorOf(path), "");
        EXPECT_EQ(record.width, 8);
        EXPECT_EQ(record.extension.texels.size(), 16U);
        EXPECT_THAT(record.extension.palette, ElementsAre(1, 2, 3, 4));
        EXPECT_EQ(record.pixels.capacity(), 0U);
    }
}

TEST_F(ImageFile, ErrorsOfABlockNameTheFile) {
    const std::string tga = write("a.tga", tgaWithBlock(8, 8, chunk("tvk_frmt", "direct")));
    EXPECT_EQ(errorOf(tga), "Invalid additional information: " + tga);
    const std::string pic = write("a.pic", picWithBlock(8, 8, chunk("tvk_frmt", "indirect")));
    EXPECT_EQ(errorOf(pic), "Invalid texture format: indirect");
    EXPECT_EQ(errorOf(pic, ImageReading::kPartialBlock), "Invalid texture format: indirect");
}

TEST_F(ImageFile, ErrorsOfPixelsNameTheFile) {
    const std::string wide = write("a.tga", writeTga(Picture(1025, 1), {}));
    EXPECT_EQ(errorOf(wide), "Invalid TGA file (invalid size): " + wide);
    const std::string high = write("a.pic", writePic(Picture(1, 1025), {}));
    EXPECT_EQ(errorOf(high), "Invalid PIC file: " + high);
    File depth = writeTga(Picture(4, 4), {});
    depth[16] = 12;
    const std::string odd = write("b.tga", depth);
    EXPECT_EQ(errorOf(odd), "Invalid TGA file (invalid bit per pixel): " + odd);
}

TEST_F(ImageFile, ExtensionOffsetsAnywhereAreABlockOrAPlainFile) {
    const File tga = tgaWithBlock(8, 8, kBlock), pic = picWithBlock(8, 8, kBlock);
    struct Row {
        File file;
        std::string name;
        std::size_t offsetAt, least;
    };
    for (const Row& row : {Row{tga, "a.tga", 34, 38}, Row{pic, "a.pic", 24, 104}}) {
        const std::size_t blockAt = row.file.size() - kBlock.size();
        for (std::size_t offset = 0; offset <= row.file.size() + 1; ++offset) {
            File file = row.file;
            const File bytes = ByteList().little32(static_cast<std::uint32_t>(offset)).bytes;
            std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<long>(row.offsetAt));
            const std::string path = write(row.name, file), error = errorOf(path);
            const bool isBlock = offset >= row.least && offset < file.size();
            ASSERT_EQ(record.hasExtension, isBlock) << row.name << ' ' << offset;
            const bool isPlain = !isBlock && record.pixels.size() == 8U * 8U * 4U;
            ASSERT_EQ(error, isPlain || offset == blockAt ? "" : "Invalid additional information: " + path)
                << row.name << ' ' << offset;
        }
    }
}

TEST_F(ImageFile, CutAnywhereAFileWithABlockIsRefusedOrPlainOrComplete) {
    const File whole = tgaWithBlock(8, 8, kBlock);
    const std::size_t blockAt = whole.size() - kBlock.size();
    const std::string path = folder.path("a.tga");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        write("a.tga", {whole.begin(), whole.begin() + static_cast<long>(length)});
        const std::string error = errorOf(path);
        if (length < blockAt) {
            ASSERT_EQ(error, "Invalid TGA file (unexpected end of file): " + path) << length;
        } else if (length == blockAt) {
            ASSERT_EQ(error, "") << "nothing is left of the block, all of the pixels";
            ASSERT_EQ(record.pixels.size(), 256U);
        } else {
            // All but the chunk that says it ends; or format and texels, and less than the head of a chunk behind them.
            const std::size_t texelsEnd = blockAt + 12 + 8 + 12 + 16;
            const bool isWhole = length + 12 >= whole.size() || (length >= texelsEnd && length < texelsEnd + 12);
            ASSERT_EQ(error, isWhole ? "" : "Invalid additional information: " + path) << length;
        }
    }
}

// A file of a terabyte takes no disk: all but its first bytes are a hole.
TEST_F(ImageFile, FilesOfAbsurdSizeAskForNoMemoryOfThatSize) {
    const std::string path = write("a.tga", writeTga(makeScatteredPicture(4, 4), {}));
    std::error_code refused;
    std::filesystem::resize_file(systemPath(path), std::uintmax_t{1} << 40U, refused);
    if (refused) {
        std::filesystem::resize_file(systemPath(path), std::uintmax_t{1} << 33U);
    }
    EXPECT_EQ(errorOf(path), "");
    EXPECT_EQ(record.width, 4);
    EXPECT_EQ(record.pixels.size(), 64U);
}

} // namespace
} // namespace tvk
