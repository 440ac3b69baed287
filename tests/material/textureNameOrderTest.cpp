#include "material/textureNameOrder.h"

#include <gmock/gmock.h>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NameOrder, OfNothingIsEmpty) {
    EXPECT_THAT(orderOf({}), IsEmpty());
}

TEST(NameOrder, IsThatOfUnsignedBytes) {
    EXPECT_THAT(orderOf({{"b", ""}, {"\x83\x5C", ""}, {"ab", ""}, {"a", ""}, {"", ""}, {"~", ""}}),
                ElementsAre(4, 3, 2, 0, 5, 1));
}

TEST(NameOrder, OfEqualNamesIsThatOfTheTieBreakThenOfThePlaces) {
    EXPECT_THAT(orderOf({{"a", "z"}, {"a", "y"}, {"a", "z"}, {"a", ""}}), ElementsAre(3, 1, 0, 2));
}

TEST(WrittenBytes, AreShiftJis) {
    EXPECT_EQ(writtenBytes("abc"), "abc");
    EXPECT_EQ(writtenBytes("\xE3\x82\xBD"), "\x83\x5C");
}

} // namespace
} // namespace tvk
