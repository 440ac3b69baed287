// What a reader of the exported gallery sees, held against what was painted for it.

#include "sampleTextures/sampleTextures.h"

#include "ExportSession.h"
#include "decode/ModelTextures.h"
#include "shownPictures.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

// As the tests of the exporter know pictures.
Picture shown(const samples::Picture& painted) {
    Picture picture(static_cast<std::size_t>(painted.width), static_cast<std::size_t>(painted.height));
    for (std::size_t at = 0; at < painted.pixels.size(); ++at) {
        const samples::Pixel& pixel = painted.pixels[at];
        picture.pixels[at] = {pixel.red, pixel.green, pixel.blue, pixel.alpha};
    }
    return picture;
}

class SampleExport : public testing::TestWithParam<const char*> {};

TEST_P(SampleExport, ShowsEveryPictureInItsFormat) {
    ExportSession session;
    const std::string folder = std::string(TVK_SOURCE_DIR) + "/samples/";
    session.mel("workspace -o \"" + folder + "\"; file -f -o \"" + folder + GetParam() + ".ma\"");
    ASSERT_TRUE(session.exportAll());
    const decode::ModelTextures textures =
        decode::readModelTextures(decode::readIntermediateFile(session.fileText("model.imd")));
    std::size_t shownHere = 0;
    for (const samples::SampleTexture& sample : samples::sampleTextures()) {
        if (sample.scene != GetParam()) {
            continue;
        }
        ++shownHere;
        const std::string fileName(sample.fileName);
        const decode::ModelTexture& image = textures.image(fileName.substr(0, fileName.rfind('.')));
        const Picture picture = shown(sample.paint());
        EXPECT_EQ(image.format, sample.format) << fileName;
        EXPECT_EQ(image.path, folder + "sourceimages/" + fileName);
        expectShows(image, picture, fileName.find("_cmp2") != std::string::npos ? 2 : 4);
        EXPECT_GT(peakSignalToNoise(image, picture), 30.0) << fileName;
    }
    EXPECT_EQ(textures.images.size(), shownHere);
}

INSTANTIATE_TEST_SUITE_P(Scenes, SampleExport, testing::Values("materials", "walk"));

} // namespace
} // namespace tvk
