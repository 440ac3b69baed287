#include "host/app/process.h"

#include <gtest/gtest.h>

namespace host::app {
namespace {

#ifndef _WIN32
TEST(process, programsTellTheirStatusAndErrors) {
    EXPECT_EQ(runProgram({"/nowhere/at/all"}).status, -1);
    EXPECT_EQ(runProgram({"/bin/sh", "-c", "kill -9 $$"}).status, -1);
    const EndedProcess ended = runProgram({"/bin/sh", "-c", "cat; echo out; echo \"$0\" >&2; exit 3", "it's"});
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.error, "it's\n");
}
#endif

} // namespace
} // namespace host::app
