#include <maya/MColor.h>

#include <gtest/gtest.h>

namespace {

TEST(MColor, IsOpaqueBlackAtFirst) {
    EXPECT_EQ(MColor(), MColor(0.0f, 0.0f, 0.0f, 1.0f));
    EXPECT_EQ(MColor(0.1f, 0.2f, 0.3f).a, 1.0f);
    EXPECT_EQ(MColor::kRGB, 0);
    EXPECT_EQ(MColor::kHSV, 1);
    EXPECT_EQ(MColor::kCMY, 2);
    EXPECT_EQ(MColor::kCMYK, 3);
}

TEST(MColor, ComparesAllFourComponents) {
    EXPECT_TRUE(MColor(1, 1, 1, 1) != MColor(1, 1, 1, 0));
    EXPECT_TRUE(MColor(-1, -1, -1, -1) == MColor(-1, -1, -1, -1));
}

TEST(MColor, TakesThreeOrFourNumbers) {
    const float three[3] = {0.1f, 0.2f, 0.3f};
    const float four[4] = {0.1f, 0.2f, 0.3f, 0.4f};
    EXPECT_EQ(MColor(three), MColor(0.1f, 0.2f, 0.3f, 1.0f));
    EXPECT_EQ(MColor(four).a, 0.4f);
    float out3[3], out4[4];
    EXPECT_TRUE(MColor(four).get(out3));
    EXPECT_TRUE(MColor(four).get(out4));
    EXPECT_EQ(out3[2], 0.3f);
    EXPECT_EQ(out4[3], 0.4f);
    EXPECT_EQ(MColor(four)[3], 0.4f);
    EXPECT_EQ(MColor(four)(0), 0.1f);
}

TEST(MColor, ArithmeticKeepsTheLeftAlpha) {
    MColor color(1, 2, 3, 0.5f);
    EXPECT_EQ(color + MColor(1, 1, 1), MColor(2, 3, 4, 0.5f));
    EXPECT_EQ(color - MColor(1, 1, 1), MColor(0, 1, 2, 0.5f));
    EXPECT_EQ(color * MColor(2, 2, 2), MColor(2, 4, 6, 0.5f));
    EXPECT_EQ(color * 2.0f, 2.0f * color);
    EXPECT_EQ(color / 2.0f, MColor(0.5f, 1, 1.5f, 0.5f));
    color += MColor(1, 1, 1);
    color -= MColor(1, 1, 1);
    color *= MColor(2, 2, 2);
    color *= 2.0f;
    color /= 4.0f;
    EXPECT_EQ(color, MColor(1, 2, 3, 0.5f));
    EXPECT_EQ(-color, MColor(-1, -2, -3, 0.5f));
}

struct ModelCase {
    MColor::MColorType model;
    float c1, c2, c3;
    MColor color;
};

const ModelCase kModels[] = {
    {MColor::kRGB, 0.25f, 0.5f, 0.75f, MColor(0.25f, 0.5f, 0.75f)},
    {MColor::kHSV, 0.0f, 1.0f, 1.0f, MColor(1, 0, 0)},
    {MColor::kHSV, 120.0f, 1.0f, 0.5f, MColor(0, 0.5f, 0)},
    {MColor::kHSV, 240.0f, 0.5f, 1.0f, MColor(0.5f, 0.5f, 1)},
    {MColor::kHSV, 60.0f, 1.0f, 1.0f, MColor(1, 1, 0)},
    {MColor::kHSV, 180.0f, 0.25f, 0.8f, MColor(0.6f, 0.8f, 0.8f)},
    {MColor::kHSV, 330.0f, 1.0f, 1.0f, MColor(1, 0, 0.5f)},
    {MColor::kHSV, 0.0f, 0.0f, 0.0f, MColor(0, 0, 0)},
    {MColor::kHSV, 0.0f, 0.0f, 0.7f, MColor(0.7f, 0.7f, 0.7f)},
    {MColor::kCMY, 1.0f, 0.25f, 0.0f, MColor(0, 0.75f, 1)},
};

TEST(MColor, ConvertsBetweenModels) {
    for (const ModelCase& example : kModels) {
        const MColor color(example.model, example.c1, example.c2, example.c3);
        for (unsigned int i = 0; i < 4; ++i) {
            EXPECT_NEAR(color[i], example.color[i], 1e-6f) << example.color;
        }
        float c1 = 0, c2 = 0, c3 = 0;
        EXPECT_TRUE(color.get(example.model, c1, c2, c3));
        EXPECT_NEAR(c1, example.c1, 1e-4f) << example.color;
        EXPECT_NEAR(c2, example.c2, 1e-6f) << example.color;
        EXPECT_NEAR(c3, example.c3, 1e-6f) << example.color;
    }
}

TEST(MColor, HuesGoRound) {
    EXPECT_EQ(MColor(MColor::kHSV, 480.0f, 1.0f, 1.0f), MColor(MColor::kHSV, 120.0f, 1.0f, 1.0f));
    EXPECT_EQ(MColor(MColor::kHSV, -240.0f, 1.0f, 1.0f), MColor(MColor::kHSV, 120.0f, 1.0f, 1.0f));
    EXPECT_EQ(MColor(MColor::kHSV, 360.0f, 1.0f, 1.0f), MColor(1, 0, 0));
}

TEST(MColor, FourthComponentOfCmykIsBlack) {
    const MColor color(MColor::kCMYK, 0.0f, 0.5f, 1.0f, 0.5f);
    EXPECT_EQ(color, MColor(0.5f, 0.25f, 0.0f, 1.0f));
    float c = 9, m = 9, y = 9, k = 9;
    EXPECT_TRUE(color.get(MColor::kCMYK, c, m, y, k));
    EXPECT_EQ(c, 0.0f);
    EXPECT_EQ(m, 0.5f);
    EXPECT_EQ(y, 1.0f);
    EXPECT_EQ(k, 0.5f);
    EXPECT_TRUE(MColor().get(MColor::kCMYK, c, m, y, k));
    EXPECT_EQ(k, 1.0f);
    EXPECT_EQ(m, 0.0f);
}

TEST(MColor, AlphaPassesThroughTheOtherModels) {
    const MColor color(MColor::kHSV, 120.0f, 1.0f, 1.0f, 0.25f);
    EXPECT_EQ(color.a, 0.25f);
    float h = 0, s = 0, v = 0, alpha = 0;
    EXPECT_TRUE(color.get(MColor::kHSV, h, s, v, alpha));
    EXPECT_EQ(alpha, 0.25f);
}

} // namespace
