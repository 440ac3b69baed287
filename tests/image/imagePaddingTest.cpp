#include "image/imagePadding.h"

#include "writers/Picture.h"

#include <gtest/gtest.h>

#include <utility>

namespace tvk {
namespace {

ImageRecord imageOf(const Picture& picture) {
    ImageRecord image;
    image.width = static_cast<uint16_t>(picture.width);
    image.height = static_cast<uint16_t>(picture.height);
    image.pixels = picture.bytes();
    return image;
}

TEST(ImagePadding, SidesAreThePowersOfTwoFrom8On) {
    for (const auto& [texels, side] : {std::pair(0, 8U),
                                       {1, 8U},
                                       {7, 8U},
                                       {8, 8U},
                                       {9, 16U},
                                       {16, 16U},
                                       {17, 32U},
                                       {100, 128U},
                                       {513, 1024U},
                                       {1024, 1024U},
                                       {1025, 2048U},
                                       {32769, 65536U},
                                       {65535, 65536U}}) {
        EXPECT_EQ(textureSide(static_cast<uint16_t>(texels)), side) << texels;
    }
}

TEST(ImagePadding, ColumnsAndRowsBehindThePictureRepeatItsLastOnesAlphaIncluded) {
    const Picture picture = makeScatteredPicture(11, 5);
    ImageRecord image = imageOf(picture);
    padToTextureSize(image);
    ASSERT_EQ(image.width, 16);
    ASSERT_EQ(image.height, 8);
    Picture expected(16, 8);
    for (std::size_t row = 0; row < 8; ++row) {
        for (std::size_t column = 0; column < 16; ++column) {
            expected.at(column, row) = picture.at(column < 11 ? column : 10, row < 5 ? row : 4);
        }
    }
    EXPECT_EQ(image.pixels, expected.bytes());
}

TEST(ImagePadding, OnePixelFillsTheSmallestTexture) {
    ImageRecord image = imageOf(Picture(1, 1, {1, 2, 3, 4}));
    padToTextureSize(image);
    EXPECT_EQ(image.pixels, Picture(8, 8, {1, 2, 3, 4}).bytes());
}

TEST(ImagePadding, TextureSizesStayAsTheyAre) {
    for (const auto& [width, height] : {std::pair(8, 8), {16, 8}, {1024, 8}, {32, 1024}}) {
        const Picture picture = makeScatteredPicture(static_cast<std::size_t>(width), static_cast<std::size_t>(height));
        ImageRecord image = imageOf(picture);
        padToTextureSize(image);
        EXPECT_EQ(image.width, width);
        EXPECT_EQ(image.height, height);
        EXPECT_EQ(image.pixels, picture.bytes());
    }
}

} // namespace
} // namespace tvk
