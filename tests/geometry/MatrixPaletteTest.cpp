#include "geometry/MatrixPalette.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

class Palette : public testing::Test {
protected:
    EnvelopeEntry entry(NodeRecord& node, int32_t weight) { return {weight, &node, -1}; }

    NodeRecord a, b, c;
    std::vector<MatrixRecord> matrices;
    std::vector<EnvelopeEntry> envelope;
    MatrixPalette palette{matrices, envelope};
};

TEST_F(Palette, NumbersMatricesInTheOrderOfTheirFirstVertex) {
    EXPECT_EQ(palette.findOrAddMatrix(b), 0);
    EXPECT_EQ(palette.findOrAddMatrix(a), 1);
    EXPECT_EQ(palette.findOrAddMatrix(b), 0);
    ASSERT_EQ(matrices.size(), 2U);
    EXPECT_EQ(matrices[0].node, &b);
    EXPECT_FALSE(matrices[0].isBlend());
    EXPECT_EQ(matrices[0].envelopeHead, -1);
}

TEST_F(Palette, GivesVerticesWithTheSameInfluencesAndPercentagesOneMatrixAndOneRun) {
    EXPECT_EQ(palette.findOrAdd({entry(a, 33), entry(b, 67)}), 0);
    EXPECT_EQ(palette.findOrAdd({entry(a, 33), entry(b, 67)}), 0);
    ASSERT_EQ(matrices.size(), 1U);
    EXPECT_EQ(matrices[0].weightCount, 2);
    EXPECT_EQ(matrices[0].envelopeHead, 0);
    EXPECT_EQ(matrices[0].node, nullptr);
    ASSERT_EQ(envelope.size(), 2U);
    EXPECT_EQ(envelope[0].node, &a);
    EXPECT_EQ(envelope[0].weight, 33);
    EXPECT_EQ(envelope[1].node, &b);
    EXPECT_EQ(envelope[1].weight, 67);
}

TEST_F(Palette, TellsBlendsApartByNodesWeightsAndOrder) {
    EXPECT_EQ(palette.findOrAdd({entry(a, 50), entry(b, 50)}), 0);
    EXPECT_EQ(palette.findOrAdd({entry(b, 50), entry(a, 50)}), 1);
    EXPECT_EQ(palette.findOrAdd({entry(a, 50), entry(c, 50)}), 2);
    EXPECT_EQ(palette.findOrAdd({entry(a, 49), entry(b, 50)}), 3);
    EXPECT_EQ(matrices[3].envelopeHead, 6);
}

TEST_F(Palette, NeverTakesARunInsideAnother) {
    palette.findOrAdd({entry(a, 30), entry(b, 30), entry(c, 40)});
    EXPECT_EQ(palette.findOrAdd({entry(a, 30), entry(b, 30)}), 1);
    EXPECT_EQ(matrices[1].envelopeHead, 3);
    EXPECT_EQ(envelope.size(), 5U);
}

TEST_F(Palette, BlendsNothingWithOneInfluence) {
    EXPECT_EQ(palette.findOrAdd({entry(a, 99)}), 0);
    EXPECT_EQ(palette.findOrAddMatrix(a), 0);
    EXPECT_TRUE(envelope.empty());
}

} // namespace
} // namespace tvk
