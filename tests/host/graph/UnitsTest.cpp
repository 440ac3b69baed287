#include "host/graph/Units.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace host;

namespace {

using UnitFunction = std::optional<double> (*)(std::string_view, std::string_view&);

struct WordCase {
    UnitFunction unit;
    const char* word;
    double size;
    const char* shortName;
};

const double kDegree = std::acos(-1.0) / 180.0;

const WordCase kWords[] = {
    {linearUnit, "mm", 0.1, "mm"},
    {linearUnit, "millimeter", 0.1, "mm"},
    {linearUnit, "cm", 1.0, "cm"},
    {linearUnit, "centimeter", 1.0, "cm"},
    {linearUnit, "m", 100.0, "m"},
    {linearUnit, "meter", 100.0, "m"},
    {linearUnit, "km", 100000.0, "km"},
    {linearUnit, "in", 2.54, "in"},
    {linearUnit, "inch", 2.54, "in"},
    {linearUnit, "ft", 30.48, "ft"},
    {linearUnit, "foot", 30.48, "ft"},
    {linearUnit, "yd", 91.44, "yd"},
    {linearUnit, "yard", 91.44, "yd"},
    {linearUnit, "mi", 160934.4, "mi"},
    {linearUnit, "mile", 160934.4, "mi"},
    {angularUnit, "deg", kDegree, "deg"},
    {angularUnit, "degree", kDegree, "deg"},
    {angularUnit, "rad", 1.0, "rad"},
    {angularUnit, "radian", 1.0, "rad"},
    {angularUnit, "min", kDegree / 60.0, "min"},
    {angularUnit, "sec", kDegree / 3600.0, "sec"},
    {timeUnit, "game", 15.0, "game"},
    {timeUnit, "film", 24.0, "film"},
    {timeUnit, "pal", 25.0, "pal"},
    {timeUnit, "ntsc", 30.0, "ntsc"},
    {timeUnit, "show", 48.0, "show"},
    {timeUnit, "palf", 50.0, "palf"},
    {timeUnit, "ntscf", 60.0, "ntscf"},
    {timeUnit, "sec", 1.0, "sec"},
    {timeUnit, "min", 1.0 / 60.0, "min"},
    {timeUnit, "hour", 1.0 / 3600.0, "hour"},
    {timeUnit, "millisec", 1000.0, "millisec"},
    {timeUnit, "24fps", 24.0, "film"},
    {timeUnit, "2fps", 2.0, "2fps"},
    {timeUnit, "100fps", 100.0, "100fps"},
    {timeUnit, "33fps", 33.0, "33fps"},
    {timeUnit, "6000fps", 6000.0, "6000fps"},
    {timeUnit, "48000fps", 48000.0, "48000fps"},
    {timeUnit, "23.976fps", 24000.0 / 1001.0, "23.976fps"},
    {timeUnit, "29.97fps", 30000.0 / 1001.0, "29.97fps"},
    {timeUnit, "59.94fps", 60000.0 / 1001.0, "59.94fps"},
};

struct TickCase {
    const char* word;
    double frames;
    Ticks ticks;
};

/// One second is 141120000 ticks.
constexpr TickCase kTicks[] = {
    {"film", 1.0, 5880000},      {"film", -10.0, -58800000},
    {"film", 0.5, 2940000},      {"ntsc", 30.0, 141120000},
    {"pal", 1.0, 5644800},       {"game", 1.0, 9408000},
    {"6000fps", 1.0, 23520},     {"48000fps", 1.0, 2940},
    {"sec", 2.0, 282240000},     {"min", 1.0, 8467200000},
    {"hour", 1.0, 508032000000}, {"millisec", 1.0, 141120},
    {"23.976fps", 1.0, 5885880}, {"23.976fps", 24000.0, 141261120000},
    {"29.97fps", 1.0, 4708704},  {"59.94fps", 1.0, 2354352},
    {"47.952fps", 1.0, 2942940},
};

Units unitsOf(const char* word) {
    Units units;
    units.framesPerSecond = timeUnit(word, units.timeName).value();
    return units;
}

} // namespace

TEST(Units, RefusesUnknownWords) {
    std::string_view name = "kept";
    for (const char* word : {"", "parsec", "CM", "0fps", "fps", "6001fps", "-5fps", "007fps", "24 fps", "1e3fps"}) {
        EXPECT_FALSE(timeUnit(word, name)) << word;
        EXPECT_FALSE(linearUnit(word, name)) << word;
        EXPECT_FALSE(angularUnit(word, name)) << word;
    }
    EXPECT_EQ(name, "kept");
}

TEST(Units, KnowsTheWordsOfFiles) {
    for (const WordCase& each : kWords) {
        SCOPED_TRACE(each.word);
        std::string_view name;
        const auto size = each.unit(each.word, name);
        ASSERT_TRUE(size);
        EXPECT_DOUBLE_EQ(*size, each.size);
        EXPECT_EQ(name, each.shortName);
    }
}

TEST(Units, ShortNamesOutliveTheWordAskedAbout) {
    std::string_view name;
    {
        const std::string word = "77fps";
        ASSERT_TRUE(timeUnit(word, name));
        EXPECT_NE(name.data(), word.data());
    }
    EXPECT_EQ(name, "77fps");
}

TEST(Units, FramesAreExactTicks) {
    for (const TickCase& each : kTicks) {
        SCOPED_TRACE(testing::Message() << each.frames << " " << each.word);
        const Units units = unitsOf(each.word);
        EXPECT_EQ(units.ticks(each.frames), each.ticks);
        EXPECT_DOUBLE_EQ(units.frames(each.ticks), each.frames);
    }
}

TEST(Units, EveryWholeFrameOfEveryRateComesBack) {
    for (const char* word : {"film", "ntsc", "23.976fps", "29.97fps", "7fps", "11fps"}) {
        const Units units = unitsOf(word);
        for (int frame = -2000; frame <= 2000; ++frame) {
            EXPECT_NEAR(units.frames(units.ticks(frame)), frame, 1e-6) << word;
        }
    }
}

TEST(Units, HugeTimesStopAtTheEnds) {
    const Units units;
    EXPECT_EQ(units.ticks(1e300), std::numeric_limits<Ticks>::max());
    EXPECT_EQ(units.ticks(-1e300), std::numeric_limits<Ticks>::min());
    EXPECT_EQ(units.ticks(std::numeric_limits<double>::infinity()), std::numeric_limits<Ticks>::max());
    EXPECT_EQ(units.ticks(std::numeric_limits<double>::quiet_NaN()), 0);
}
