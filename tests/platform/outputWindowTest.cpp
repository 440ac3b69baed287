#include "platform/outputWindow.h"

#include <gtest/gtest.h>

namespace tvk {
namespace {

TEST(OutputWindow, WithoutSuchAWindowNothingHappens) {
    EXPECT_NO_FATAL_FAILURE(showOutputWindow());
}

} // namespace
} // namespace tvk
