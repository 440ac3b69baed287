#include "GraphFixture.h"

#include <gtest/gtest.h>

namespace host {
namespace {

class Shading : public GraphFixture {};

TEST_F(Shading, BumpsHandTheNormalOn) {
    for (const char* const type : {"bump2d", "bump3d"}) {
        Node& bump = make(type, type);
        set3(bump, "normalCamera", 0.25, 0.5, -1);
        EXPECT_EQ(number(bump, "outNormalX"), 0.25) << type;
        EXPECT_EQ(number(bump, "outNormalY"), 0.5) << type;
        EXPECT_EQ(number(bump, "outNormalZ"), -1.0) << type;
    }
}

} // namespace
} // namespace host
