#include "sampleTextures/sampleTextures.h"

#include "sampleTextures/paintSurfaces.h"
#include "sampleTextures/paintThings.h"
#include "sampleTextures/picFile.h"
#include "sampleTextures/textureBlock.h"

namespace tvk::samples {

namespace {

template <bool isOn>
Picture lampPicture() {
    return pictureOf(paintLamp(isOn));
}

template <bool isOn>
FileBytes lampFile() {
    return writeTga(lampPicture<isOn>(), TgaKind::kPlain24, textureBlock(paintLamp(isOn), "lamps"));
}

Picture signPicture() {
    return pictureOf(paintSign());
}

FileBytes signFile() {
    return writePic(signPicture(), textureBlock(paintSign(), "sign"));
}

template <int frame>
Picture torchPicture() {
    return paintTorch(frame);
}

template <Picture (*paint)(), TgaKind kind>
FileBytes tgaFile() {
    return writeTga(paint(), kind);
}

template <Picture (*paint)()>
FileBytes picFile() {
    return writePic(paint());
}

} // namespace

const std::vector<SampleTexture>& sampleTextures() {
    static const std::vector<SampleTexture> textures = {
        {"checker.tga", "palette4", paintChecker, tgaFile<paintChecker, TgaKind::kPlain24>},
        {"leaf.tga", "palette16", paintLeaf, tgaFile<paintLeaf, TgaKind::kRuns32>},
        {"bricks.tga", "palette256", paintBricks, tgaFile<paintBricks, TgaKind::kColorMapped>},
        {"sky.tga", "direct", paintSky, tgaFile<paintSky, TgaKind::kRuns24>},
        {"glow.tga", "a5i3", paintGlow, tgaFile<paintGlow, TgaKind::kPlain32>},
        {"smoke.pic", "a3i5", paintSmoke, picFile<paintSmoke>},
        {"meadow_cmp4.tga", "tex4x4", paintMeadow, tgaFile<paintMeadow, TgaKind::kRuns24>},
        {"window_cmp2.pic", "tex4x4", paintWindow, picFile<paintWindow>},
        {"lamp_off.tga", "palette16", lampPicture<false>, lampFile<false>},
        {"lamp_on.tga", "palette16", lampPicture<true>, lampFile<true>},
        {"sign.pic", "palette4", signPicture, signFile},
        {"torch.1.tga", "palette16", torchPicture<1>, tgaFile<torchPicture<1>, TgaKind::kRuns32>},
        {"torch.2.tga", "palette16", torchPicture<2>, tgaFile<torchPicture<2>, TgaKind::kRuns32>},
        {"torch.3.tga", "palette16", torchPicture<3>, tgaFile<torchPicture<3>, TgaKind::kRuns32>},
    };
    return textures;
}

} // namespace tvk::samples
