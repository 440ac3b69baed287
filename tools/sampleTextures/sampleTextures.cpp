#include "sampleTextures/sampleTextures.h"

#include "sampleTextures/paintCharacter.h"
#include "sampleTextures/paintSurfaces.h"
#include "sampleTextures/paintThings.h"
#include "sampleTextures/picFile.h"
#include "sampleTextures/textureBlock.h"

namespace tvk::samples {

namespace {

constexpr std::string_view kGallery = "materials";
constexpr std::string_view kWalk = "walk";

Picture lampPicture(bool isOn) {
    return pictureOf(paintLamp(isOn));
}

FileBytes lampFile(bool isOn) {
    return writeTga(lampPicture(isOn), TgaKind::kPlain24, textureBlock(paintLamp(isOn), "lamps"));
}

Picture signPicture() {
    return pictureOf(paintSign());
}

FileBytes signFile() {
    return writePic(signPicture(), textureBlock(paintSign(), "sign"));
}

FileBytes torchFile(int frame) {
    return writeTga(paintTorch(frame), TgaKind::kRuns32);
}

FileBytes eyesFile(int frame) {
    return writeTga(paintEyes(frame), TgaKind::kPlain24);
}

} // namespace

const std::vector<SampleTexture>& sampleTextures() {
    static const std::vector<SampleTexture> textures = {
        {"checker.tga", kGallery, "palette4", paintChecker, [] { return writeTga(paintChecker(), TgaKind::kPlain24); }},
        {"leaf.tga", kGallery, "palette16", paintLeaf, [] { return writeTga(paintLeaf(), TgaKind::kRuns32); }},
        {"bricks.tga", kGallery, "palette256", paintBricks,
         [] { return writeTga(paintBricks(), TgaKind::kColorMapped); }},
        {"sky.tga", kGallery, "direct", paintSky, [] { return writeTga(paintSky(), TgaKind::kRuns24); }},
        {"glow.tga", kGallery, "a5i3", paintGlow, [] { return writeTga(paintGlow(), TgaKind::kPlain32); }},
        {"smoke.pic", kGallery, "a3i5", paintSmoke, [] { return writePic(paintSmoke()); }},
        {"meadow_cmp4.tga", kGallery, "tex4x4", paintMeadow, [] { return writeTga(paintMeadow(), TgaKind::kRuns24); }},
        {"window_cmp2.pic", kGallery, "tex4x4", paintWindow, [] { return writePic(paintWindow()); }},
        {"lamp_off.tga", kGallery, "palette16", [] { return lampPicture(false); }, [] { return lampFile(false); }},
        {"lamp_on.tga", kGallery, "palette16", [] { return lampPicture(true); }, [] { return lampFile(true); }},
        {"sign.pic", kGallery, "palette4", signPicture, signFile},
        {"torch.1.tga", kGallery, "palette16", [] { return paintTorch(1); }, [] { return torchFile(1); }},
        {"torch.2.tga", kGallery, "palette16", [] { return paintTorch(2); }, [] { return torchFile(2); }},
        {"torch.3.tga", kGallery, "palette16", [] { return paintTorch(3); }, [] { return torchFile(3); }},
        {"eyes.1.tga", kWalk, "palette4", [] { return paintEyes(1); }, [] { return eyesFile(1); }},
        {"eyes.2.tga", kWalk, "palette4", [] { return paintEyes(2); }, [] { return eyesFile(2); }},
        {"eyes.3.tga", kWalk, "palette4", [] { return paintEyes(3); }, [] { return eyesFile(3); }},
        {"pond.tga", kWalk, "palette16", paintPond, [] { return writeTga(paintPond(), TgaKind::kRuns24); }},
    };
    return textures;
}

} // namespace tvk::samples
