#include "material/textureReferences.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

TEST(TextureReferences, AreOnePerImageAndTiling) {
    const FreshRun fresh;
    int32_t next = 0;
    for (int32_t image = 0; image < 2; ++image) {
        for (const TextureTiling s : {kTilingClamp, kTilingRepeat, kTilingFlip}) {
            for (const TextureTiling t : {kTilingClamp, kTilingRepeat, kTilingFlip}) {
                EXPECT_EQ(referTo(image, s, t), next);
                EXPECT_EQ(referTo(image, s, t), next);
                const MaterialTextureRef& ref = run().scene.textureRefs.back();
                EXPECT_EQ(ref.position, next);
                EXPECT_EQ(ref.imageIndex, image);
                EXPECT_EQ(ref.tilingS, s);
                EXPECT_EQ(ref.tilingT, t);
                EXPECT_EQ(ref.paletteIndex, -1);
                ++next;
            }
        }
    }
    EXPECT_EQ(run().scene.textureRefs.size(), 18U);
}

} // namespace
} // namespace tvk
