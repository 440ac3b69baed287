#include "export/LimitedLines.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

namespace tvk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream in(text);
    LimitedLines lines(in);
    std::vector<std::string> all;
    for (std::string line; lines.next(line);) {
        all.push_back(line);
    }
    return all;
}

TEST(LimitedLines, NothingHasNoLines) {
    EXPECT_THAT(linesOf(""), IsEmpty());
    EXPECT_THAT(linesOf("\xEF\xBB\xBF"), ElementsAre(""));
}

TEST(LimitedLines, ALineEndsAtALineFeedOrTheEnd) {
    EXPECT_THAT(linesOf("\n"), ElementsAre(""));
    EXPECT_THAT(linesOf("a\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(linesOf("a\n\nb\n"), ElementsAre("a", "", "b"));
}

TEST(LimitedLines, ACarriageReturnBeforeTheEndIsNoPartOfIt) {
    EXPECT_THAT(linesOf("a\r\n\r\nb\r"), ElementsAre("a", "", "b"));
    EXPECT_THAT(linesOf("a\rb\r\r\n"), ElementsAre("a\rb\r"));
}

TEST(LimitedLines, AByteOrderMarkIsPassedOverAtTheStartOnly) {
    EXPECT_THAT(linesOf("\xEF\xBB\xBF"
                        "a\n\xEF\xBB\xBF"
                        "b"),
                ElementsAre("a", "\xEF\xBB\xBF"
                                 "b"));
}

TEST(LimitedLines, ANulEndsWhatCounts) {
    EXPECT_THAT(linesOf(std::string("a\0b\nc", 5)), ElementsAre("a", "c"));
}

// Of lines around the limit all that fits counts, and the next line is where it was.
TEST(LimitedLines, BytesBeyondTheLimitArePassedOver) {
    for (const std::size_t length : {2046U, 2047U, 2048U, 2049U, 100000U}) {
        for (const char* end : {"\n", "\r\n"}) {
            for (const char* start : {"", "\xEF\xBB\xBF"}) {
                const std::vector<std::string> lines = linesOf(start + std::string(length, 'x') + end + "next");
                ASSERT_EQ(lines.size(), 2U) << length;
                EXPECT_EQ(lines[0], std::string(std::min<std::size_t>(length, 2047), 'x')) << length;
                EXPECT_EQ(lines[1], "next") << length;
            }
        }
    }
}

} // namespace
} // namespace tvk
