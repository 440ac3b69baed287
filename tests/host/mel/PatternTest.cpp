#include "host/mel/Pattern.h"

#include <string>

#include <gtest/gtest.h>

namespace host::mel {
namespace {

std::string matched(std::string_view expression, std::string_view text) {
    const auto pattern = Pattern::compile(expression);
    if (!pattern.has_value()) {
        return "broken";
    }
    const auto range = pattern->find(text, [](std::size_t) {});
    return range.has_value() ? "'" + std::string(text.substr(range->offset, range->length)) + "'" : "none";
}

TEST(Pattern, refusesBrokenExpressions) {
    for (std::string_view expression : {"(", ")", "(a", "a)", "[", "[a", "[^", "*", "+", "?", "(*)", "a**"}) {
        EXPECT_EQ(matched(expression, "a"), "broken") << expression;
    }
    EXPECT_EQ(matched(std::string(5000, 'a'), "a"), "broken");
}

TEST(Pattern, findsTheLeftmostLongestMatch) {
    struct Case {
        std::string_view expression;
        std::string_view text;
        std::string_view match;
    };
    const Case cases[] = {
        {"", "abc", "''"},
        {"b", "abc", "'b'"},
        {"x", "abc", "none"},
        {"[0-9]+", "abc123def45", "'123'"},
        {"[^0-9]+", "12ab3", "'ab'"},
        {"[]a]+", "x]a]", "']a]'"},
        {"[a-]+", "b-a-", "'-a-'"},
        {"a.c", "abcaxc", "'abc'"},
        {"^b", "ab", "none"},
        {"^a", "ab", "'a'"},
        {"b$", "ab", "'b'"},
        {"a$", "ab", "none"},
        {"^$", "", "''"},
        {"ab*", "xabbbc", "'abbb'"},
        {"ab?c", "ac", "'ac'"},
        {"(ab)+", "xababa", "'abab'"},
        {"(a*b)*c", "aabbc", "'aabbc'"},
        {"(a*)*", "aaa", "'aaa'"},
        {"((a)(b)?)+", "aababx", "'aabab'"},
        {"\\.[^.]*$", "file.tar.gz", "'.gz'"},
        {"^.*/", "a/b/c", "'a/b/'"},
        {"a\\*", "aa*", "'a*'"},
        {"\\", "\\", "'\\'"},
        {"[\\]]", "]", "']'"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(matched(row.expression, row.text), row.match) << row.expression << " in " << row.text;
    }
}

TEST(Pattern, hostileExpressionsStayCheap) {
    std::string expression;
    for (int index = 0; index < 30; ++index) {
        expression += "(a*)*";
    }
    const auto pattern = Pattern::compile(expression + "b");
    ASSERT_TRUE(pattern.has_value());
    const std::string text(200, 'a');
    std::size_t work = 0;
    EXPECT_FALSE(pattern->find(text, [&work](std::size_t count) { work += count; }).has_value());
    EXPECT_LT(work, 200U * 200U * 500U);
}

TEST(matchesWildcard, fitsWholeTexts) {
    struct Case {
        std::string_view text;
        std::string_view pattern;
        bool fits;
    };
    const Case cases[] = {
        {"", "", true},
        {"", "*", true},
        {"a", "", false},
        {"abc", "a*c", true},
        {"abc", "a*b", false},
        {"abc", "?b?", true},
        {"ab", "???", false},
        {"pCube12", "pCube[0-9]*", true},
        {"pCubeA", "pCube[0-9]*", false},
        {"a*b", "a\\*b", true},
        {"axb", "a\\*b", false},
        {"aXbXc", "*X*", true},
        {"aaaab", "*a*a*b", true},
        {"b", "[^a]", true},
        {"a", "[a", false},
        {"abcabc", "*abc", true},
        {"ab", "**", true},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(matchesWildcard(row.text, row.pattern), row.fits) << row.text << " ~ " << row.pattern;
    }
}

} // namespace
} // namespace host::mel
