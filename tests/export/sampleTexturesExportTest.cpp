// The samples' textures, from the exported model back to the pictures that were painted.

#include "ExportSession.h"
#include "decode/ModelTextures.h"
#include "shownPictures.h"

#include "sampleTextures/paintSurfaces.h"
#include "sampleTextures/paintThings.h"

#include <gmock/gmock.h>

#include <map>

namespace tvk {
namespace {

Picture converted(const samples::Picture& painted) {
    Picture picture(static_cast<std::size_t>(painted.width), static_cast<std::size_t>(painted.height));
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const samples::Pixel& pixel = painted.pixels[i];
        picture.pixels[i] = {pixel.red, pixel.green, pixel.blue, pixel.alpha};
    }
    return picture;
}

struct PaintedTexture {
    samples::Picture picture;
    int exactColors = 0; // of tex4x4: blocks of so many colours lose nothing
};

std::map<std::string, PaintedTexture> paintedTextures() {
    using namespace samples;
    return {
        {"bricks", {paintBricks()}},
        {"checker", {paintChecker()}},
        {"glow", {paintGlow()}},
        {"lamp_off", {pictureOf(paintLamp(false))}},
        {"lamp_on", {pictureOf(paintLamp(true))}},
        {"leaf", {paintLeaf()}},
        {"meadow_cmp4", {paintMeadow(), 4}},
        {"sign", {pictureOf(paintSign())}},
        {"sky", {paintSky()}},
        {"smoke", {paintSmoke()}},
        {"torch.1", {paintTorch(1)}},
        {"torch.2", {paintTorch(2)}},
        {"torch.3", {paintTorch(3)}},
        {"window_cmp2", {paintWindow(), 2}},
    };
}

decode::ModelTextures exportedSample() {
    ExportSession session;
    session.mel("workspace -o \"" TVK_SOURCE_DIR "/samples\"; file -f -o \"" TVK_SOURCE_DIR "/samples/materials.ma\"");
    EXPECT_TRUE(session.exportAll()) << session.takeMessages();
    return decode::readModelTextures(decode::readIntermediateFile(session.fileText("model.imd")));
}

TEST(SampleTextures, ShowWhatWasPainted) {
    const std::map<std::string, PaintedTexture> painted = paintedTextures();
    const decode::ModelTextures textures = exportedSample();
    EXPECT_EQ(textures.images.size(), painted.size());
    for (const auto& [name, texture] : painted) {
        expectShows(textures.image(name), converted(texture.picture), texture.exactColors);
    }
}

TEST(SampleTextures, InBlocksAreBetterThanPlainBlocks) {
    const decode::ModelTextures textures = exportedSample();
    for (const auto& [name, texture] : paintedTextures()) {
        if (texture.exactColors > 0) {
            const Picture picture = converted(texture.picture);
            EXPECT_GE(peakSignalToNoise(textures.image(name), picture), plainBlocksSignalToNoise(picture) + 1.0)
                << name;
        }
    }
}

TEST(SampleTextures, OfTheTwoLampsShareTheirPalette) {
    const decode::ModelTextures textures = exportedSample();
    EXPECT_EQ(textures.image("lamp_off").paletteName, "lamps");
    EXPECT_EQ(textures.image("lamp_on").paletteName, "lamps");
}

} // namespace
} // namespace tvk
