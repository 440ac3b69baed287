#include "host/api/IndexSet.h"

#include <gmock/gmock.h>

namespace host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(IndexSet, EmptyHasNothing) {
    const IndexSet none;
    EXPECT_EQ(none.count(), 0);
    EXPECT_THAT(none.all(), IsEmpty());
    EXPECT_FALSE(none.contains(0));
    EXPECT_FALSE(none.isComplete());
}

TEST(IndexSet, SortsAndJoinsWhatOverlapsOrTouches) {
    IndexSet set;
    for (const IndexRange range : {IndexRange{7, 9}, {2, 3}, {0, 0}, {8, 12}, {4, 4}, {3, 3}}) {
        set.add(range);
    }
    EXPECT_THAT(set.ranges(), ElementsAre(IndexRange{0, 0}, IndexRange{2, 4}, IndexRange{7, 12}));
    EXPECT_EQ(set.count(), 10);
    EXPECT_THAT(set.all(), ElementsAre(0, 2, 3, 4, 7, 8, 9, 10, 11, 12));
    EXPECT_EQ(set, IndexSet({{0, 0}, {2, 4}, {7, 12}}));
}

TEST(IndexSet, FindsByPlaceAndByNumber) {
    const IndexSet set({{10, 12}, {3, 3}, {20, 21}});
    const std::vector<std::int32_t> all = set.all();
    for (std::int32_t n = 0; n < set.count(); ++n) {
        EXPECT_EQ(set.at(n), all[static_cast<std::size_t>(n)]);
    }
    EXPECT_TRUE(set.contains(3) && set.contains(11) && set.contains(21));
    EXPECT_FALSE(set.contains(2) || set.contains(4) || set.contains(13) || set.contains(22));
}

TEST(IndexSet, TakesMoreAfterItWasRead) {
    IndexSet set;
    set.add({5, 5});
    EXPECT_EQ(set.count(), 1);
    set.add({6, 6});
    EXPECT_EQ(set.count(), 2);
    set.add({0, 0});
    EXPECT_THAT(set.all(), ElementsAre(0, 5, 6));
}

TEST(IndexSet, CompleteStandsForAll) {
    IndexSet set;
    set.setComplete(3);
    EXPECT_TRUE(set.isComplete());
    EXPECT_THAT(set.all(), ElementsAre(0, 1, 2));
    EXPECT_FALSE(set == IndexSet({{0, 2}})) << "one grows with its shape";
    set.setComplete(0);
    EXPECT_EQ(set.count(), 0);
}

} // namespace
} // namespace host
