#include "host/api/values/numberText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct Case {
    double number;
    const char* text;
};

constexpr Case kCases[] = {
    {0.0, "0"},
    {-0.0, "-0"},
    {1.0, "1"},
    {50.0, "50"},
    {12.5, "12.5"},
    {-3.25, "-3.25"},
    {0.1, "0.1"},
    {1.0 / 3.0, "0.3333333333"},
    {2.0 / 3.0, "0.6666666667"},
    {123456789.0625, "123456789.1"},
    {1e10, "10000000000"},
    {9007199254740992.0, "9007199254740992"},
    {-9007199254740992.0, "-9007199254740992"},
    {1e16, "1e+16"},
    {1e-5, "1e-05"},
    {1e100, "1e+100"},
    {std::numeric_limits<double>::infinity(), "inf"},
    {-std::numeric_limits<double>::infinity(), "-inf"},
    {std::numeric_limits<double>::quiet_NaN(), "nan"},
};

TEST(NumberText, IsPlainForWholeNumbersAndHasTenDigitsElse) {
    for (const Case& example : kCases) {
        EXPECT_EQ(host::api::numberText(example.number), example.text);
    }
}

} // namespace
