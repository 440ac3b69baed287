#include "scene/guarded.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace tvk {
namespace {

TEST(Guarded, HandsTheStatusOnAndReportsNothing) {
    std::string told;
    const auto report = [&](const char* what) { told += what; };
    EXPECT_EQ(guarded([] { return MStatus(MS::kSuccess); }, report), MS::kSuccess);
    EXPECT_EQ(guarded([] { return MStatus(MS::kInvalidParameter); }, report), MS::kInvalidParameter);
    EXPECT_EQ(told, "");
}

TEST(Guarded, TurnsExceptionsIntoOneReportAndAFailure) {
    std::string told;
    const auto report = [&](const char* what) { told += std::string(what) + "\n"; };
    EXPECT_EQ(guarded([]() -> MStatus { throw std::runtime_error("the reason"); }, report), MS::kFailure);
    EXPECT_EQ(guarded([]() -> MStatus { throw 42; }, report), MS::kFailure);
    EXPECT_EQ(told, "the reason\nunknown reason\n");
}

} // namespace
} // namespace tvk
