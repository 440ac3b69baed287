#include "sampleTextures/sampleTextures.h"

#include "sampleTextures/paintSurfaces.h"
#include "sampleTextures/paintThings.h"
#include "sampleTextures/picFile.h"
#include "sampleTextures/textureBlock.h"

namespace tvk::samples {

namespace {

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

} // namespace

const std::vector<SampleTexture>& sampleTextures() {
    static const std::vector<SampleTexture> textures = {
        {"checker.tga", "palette4", paintChecker, [] { return writeTga(paintChecker(), TgaKind::kPlain24); }},
        {"leaf.tga", "palette16", paintLeaf, [] { return writeTga(paintLeaf(), TgaKind::kRuns32); }},
        {"bricks.tga", "palette256", paintBricks, [] { return writeTga(paintBricks(), TgaKind::kColorMapped); }},
        {"sky.tga", "direct", paintSky, [] { return writeTga(paintSky(), TgaKind::kRuns24); }},
        {"glow.tga", "a5i3", paintGlow, [] { return writeTga(paintGlow(), TgaKind::kPlain32); }},
        {"smoke.pic", "a3i5", paintSmoke, [] { return writePic(paintSmoke()); }},
        {"meadow_cmp4.tga", "tex4x4", paintMeadow, [] { return writeTga(paintMeadow(), TgaKind::kRuns24); }},
        {"window_cmp2.pic", "tex4x4", paintWindow, [] { return writePic(paintWindow()); }},
        {"lamp_off.tga", "palette16", [] { return lampPicture(false); }, [] { return lampFile(false); }},
        {"lamp_on.tga", "palette16", [] { return lampPicture(true); }, [] { return lampFile(true); }},
        {"sign.pic", "palette4", signPicture, signFile},
        {"torch.1.tga", "palette16", [] { return paintTorch(1); }, [] { return torchFile(1); }},
        {"torch.2.tga", "palette16", [] { return paintTorch(2); }, [] { return torchFile(2); }},
        {"torch.3.tga", "palette16", [] { return paintTorch(3); }, [] { return torchFile(3); }},
    };
    return textures;
}

} // namespace tvk::samples
