#include "export/quotedValue.h"

#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

struct Case {
    const char* text;
    const char* value;
    const char* rest;
};

TEST(QuotedValue, IsTakenWithItsQuotes) {
    const Case cases[] = {
        {"", "", ""},
        {"\"a\"", "a", ""},
        {" \t \"a b\" c", "a b", " c"},
        {"\"\"x", "", "x"},
        {"a \"b\"", "", "a \"b\""},
        {"  a", "", "a"},
        {"\"never closed", "", ""},
        {"\"", "", ""},
        {"'a'", "", "'a'"},
        {"\"a\"\"b\"", "a", "\"b\""},
        {"\v\"a\"", "", "\v\"a\""},
    };
    for (const Case& c : cases) {
        std::string_view text = c.text;
        EXPECT_EQ(takeQuotedValue(text), c.value) << c.text;
        EXPECT_EQ(text, c.rest) << c.text;
    }
}

TEST(QuotedValue, AWordEndsAtABlankOrTab) {
    std::string_view text = "one two\tthree";
    EXPECT_EQ(takeWord(text), "one");
    skipBlanks(text);
    EXPECT_EQ(takeWord(text), "two");
    skipBlanks(text);
    EXPECT_EQ(takeWord(text), "three");
    EXPECT_EQ(takeWord(text), "");
}

} // namespace
} // namespace tvk
