#include "common/byteOrder.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

TEST(ByteOrder, ComparesUnsignedBytes) {
    // ascending
    constexpr std::string_view kNames[] = {
        "",    std::string_view("\0", 1), "A", "Z", "_", "a", "a_1", "aa", "b", "\x7F", "\x80", "\x82\xA0", "\xFC\x4B",
        "\xFF"};
    for (size_t i = 0; i < std::size(kNames); ++i) {
        for (size_t k = 0; k < std::size(kNames); ++k)
            EXPECT_EQ(bytesBefore(kNames[i], kNames[k]), i < k) << kNames[i] << " and " << kNames[k];
    }
}

} // namespace
} // namespace tvk
