#include "sampleTextures/sampleTextures.h"

#include "sampleTextures/paintSurfaces.h"
#include "sampleTextures/paintThings.h"
#include "sampleTextures/picFile.h"
#include "sampleTextures/textureBlock.h"

namespace tvk::samples {

namespace {

FileBytes lampFile(bool isOn) {
    const IndexedPicture lamp = paintLamp(isOn);
    return writeTga(pictureOf(lamp), TgaKind::kPlain24, textureBlock(lamp, "lamps"));
}

FileBytes signFile() {
    const IndexedPicture sign = paintSign();
    return writePic(pictureOf(sign), textureBlock(sign, "sign"));
}

FileBytes torchFile(int frame) {
    return writeTga(paintTorch(frame), TgaKind::kRuns32);
}

} // namespace

const std::vector<SampleTexture>& sampleTextures() {
    static const std::vector<SampleTexture> textures = {
        {"checker.tga", "palette4", [] { return writeTga(paintChecker(), TgaKind::kPlain24); }},
        {"leaf.tga", "palette16", [] { return writeTga(paintLeaf(), TgaKind::kRuns32); }},
        {"bricks.tga", "palette256", [] { return writeTga(paintBricks(), TgaKind::kColorMapped); }},
        {"sky.tga", "direct", [] { return writeTga(paintSky(), TgaKind::kRuns24); }},
        {"glow.tga", "a5i3", [] { return writeTga(paintGlow(), TgaKind::kPlain32); }},
        {"smoke.pic", "a3i5", [] { return writePic(paintSmoke()); }},
        {"meadow_cmp4.tga", "tex4x4", [] { return writeTga(paintMeadow(), TgaKind::kRuns24); }},
        {"window_cmp2.pic", "tex4x4", [] { return writePic(paintWindow()); }},
        {"lamp_off.tga", "palette16", [] { return lampFile(false); }},
        {"lamp_on.tga", "palette16", [] { return lampFile(true); }},
        {"sign.pic", "palette4", signFile},
        {"torch.1.tga", "palette16", [] { return torchFile(1); }},
        {"torch.2.tga", "palette16", [] { return torchFile(2); }},
        {"torch.3.tga", "palette16", [] { return torchFile(3); }},
    };
    return textures;
}

} // namespace tvk::samples
