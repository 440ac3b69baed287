#include "host/graph/numberConversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace host;

namespace {

constexpr double kHuge = 1e300;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Case {
    double value;
    AttrKind kind;
    double held;
};

constexpr Case kCases[] = {
    {0.0, AttrKind::kBool, 0.0},
    {-0.0, AttrKind::kBool, 0.0},
    {0.1, AttrKind::kBool, 1.0},
    {-3.0, AttrKind::kBool, 1.0},
    {kNan, AttrKind::kBool, 1.0},
    {1.9, AttrKind::kInt, 1.0},
    {-1.9, AttrKind::kInt, -1.0},
    {2.0, AttrKind::kEnum, 2.0},
    {kNan, AttrKind::kInt, 0.0},
    {kHuge, AttrKind::kInt, 2147483647.0},
    {-kInfinity, AttrKind::kInt, -2147483648.0},
    {2147483647.5, AttrKind::kInt, 2147483647.0},
    {40000.0, AttrKind::kShort, 32767.0},
    {-40000.0, AttrKind::kShort, -32768.0},
    {200.0, AttrKind::kByte, 200.0},
    {-100.0, AttrKind::kByte, -100.0},
    {300.0, AttrKind::kByte, 255.0},
    {200.0, AttrKind::kChar, 127.0},
    {0.1, AttrKind::kFloat, 0.1},
    {kHuge, AttrKind::kFloat, kHuge},
    {-1.5, AttrKind::kDouble, -1.5},
    {kInfinity, AttrKind::kDistance, kInfinity},
    {2.5, AttrKind::kTime, 2.5},
    {1e-7, AttrKind::kAngle, 1e-7},
};

} // namespace

TEST(NumberConversion, KeepsWhatTheKindCanHold) {
    for (const Case& each : kCases) {
        SCOPED_TRACE(testing::Message() << each.value << " as kind " << static_cast<int>(each.kind));
        EXPECT_EQ(convertNumber(each.value, each.kind), each.held);
    }
    EXPECT_TRUE(std::isnan(convertNumber(kNan, AttrKind::kDouble)));
}

TEST(NumberConversion, WholeNumbersHaveNoNegativeZero) {
    EXPECT_FALSE(std::signbit(convertNumber(-0.5, AttrKind::kInt)));
    EXPECT_TRUE(std::signbit(convertNumber(-0.0, AttrKind::kDouble)));
}
