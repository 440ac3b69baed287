#include "host/app/batchJobs.h"

#include <gmock/gmock.h>

namespace host::app {
namespace {

TEST(batchJobs, wordsAreQuotedForTheShell) {
    const std::string so = "\xE3\x82\xBD";
    EXPECT_EQ(shellQuoted(""), "''");
    EXPECT_EQ(shellQuoted("/a/b-c_d.ma"), "/a/b-c_d.ma");
    EXPECT_EQ(shellQuoted("--select=a,ns:b"), "--select=a,ns:b");
    EXPECT_EQ(shellQuoted("two words"), "'two words'");
    EXPECT_EQ(shellQuoted("it's"), "'it'\\''s'");
    EXPECT_EQ(shellQuoted("$(x);`y`\"\\"), "'$(x);`y`\"\\'");
    EXPECT_EQ(shellQuoted("~"), "'~'");
    EXPECT_EQ(shellQuoted(so), "'" + so + "'");
}

} // namespace
} // namespace host::app
