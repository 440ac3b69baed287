#include "geometry/mixedStrips.h"

#include "stripMeshChecks.h"

#include <gtest/gtest.h>

#include <vector>

namespace tvk::test {
namespace {

using Strips = std::vector<std::vector<int32_t>>;

TEST(MixedStrips, NothingIsJoinedWithoutAllowance) {
    StripSet set{{{2, 3, 4}}, {{0, 1, 2, 3}}};
    EXPECT_EQ(joinMixedStrips(set, 0), 0);
    EXPECT_EQ(vertexCount(set), 7u);
}

TEST(MixedStrips, StripsThatDoNotMeetStay) {
    StripSet set{{{7, 8, 9}}, {{0, 1, 2, 3}}};
    EXPECT_EQ(joinMixedStrips(set, 10), 0);
    EXPECT_EQ(set.quadStrips.size(), 1u);
}

TEST(MixedStrips, TriangleAtAnySideOfASingleQuadJoins) {
    // Quad 0 1 3 2, as pairs 0 1, 2 3.
    for (const std::vector<int32_t>& triangle : Strips{{1, 0, 9}, {3, 1, 9}, {2, 3, 9}, {0, 2, 9}}) {
        for (std::size_t turn = 0; turn < 3; ++turn) {
            const std::vector<int32_t> turned{triangle[turn], triangle[(turn + 1) % 3], triangle[(turn + 2) % 3]};
            StripSet set{{turned}, {{0, 1, 2, 3}}};
            EXPECT_EQ(joinMixedStrips(set, 1), 1);
            ASSERT_EQ(set.triangleStrips.size(), 1u);
            EXPECT_EQ(set.triangleStrips[0].size(), 5u);
            const auto shown = sortedTriangles(set.triangleStrips);
            EXPECT_EQ(shown.size(), 3u);
            // Either diagonal of the quad.
            const auto one = sortedTriangles(Strips{triangle, {0, 1, 3}, {0, 3, 2}});
            const auto other = sortedTriangles(Strips{triangle, {0, 1, 2}, {1, 3, 2}});
            EXPECT_TRUE(shown == one || shown == other);
        }
    }
}

TEST(MixedStrips, TwoTriangleStripsJoinThroughAQuadStrip) {
    // Two quads in a row with a triangle at either end.
    StripSet set{{{1, 0, 8}, {4, 5, 9}}, {{0, 1, 2, 3, 4, 5}}};
    EXPECT_EQ(joinMixedStrips(set, 2), 2);
    EXPECT_EQ(set.triangleStrips.size(), 1u);
    EXPECT_EQ(vertexCount(set), 8u);
    EXPECT_TRUE(set.quadStrips.empty());
}

TEST(MixedStrips, ShortQuadStripsGoFirstWhenTheAllowanceIsSmall) {
    StripSet set{{{1, 0, 20}, {11, 10, 21}}, {{0, 1, 2, 3, 4, 5}, {10, 11, 12, 13}}};
    EXPECT_EQ(joinMixedStrips(set, 1), 1);
    EXPECT_EQ(set.quadStrips, (Strips{{0, 1, 2, 3, 4, 5}}));
}

} // namespace
} // namespace tvk::test
