#include <maya/MTime.h>

#include "host/api/values/TimeTicks.h"
#include "host/api/values/UiUnits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using host::api::TimeTicks;

struct UnitCase {
    MTime::Unit unit;
    int number;
    double perSecond;
};

// Frames per second by the numbers of the enumeration.
const UnitCase kUnits[] = {
    {MTime::kHours, 1, 1.0 / 3600},
    {MTime::kMinutes, 2, 1.0 / 60},
    {MTime::kSeconds, 3, 1},
    {MTime::kMilliseconds, 4, 1000},
    {MTime::kGames, 5, 15},
    {MTime::kFilm, 6, 24},
    {MTime::kPALFrame, 7, 25},
    {MTime::kNTSCFrame, 8, 30},
    {MTime::kShowScan, 9, 48},
    {MTime::kPALField, 10, 50},
    {MTime::kNTSCField, 11, 60},
    {MTime::k2FPS, 12, 2},
    {MTime::k3FPS, 13, 3},
    {MTime::k4FPS, 14, 4},
    {MTime::k5FPS, 15, 5},
    {MTime::k6FPS, 16, 6},
    {MTime::k8FPS, 17, 8},
    {MTime::k10FPS, 18, 10},
    {MTime::k12FPS, 19, 12},
    {MTime::k16FPS, 20, 16},
    {MTime::k20FPS, 21, 20},
    {MTime::k40FPS, 22, 40},
    {MTime::k75FPS, 23, 75},
    {MTime::k80FPS, 24, 80},
    {MTime::k100FPS, 25, 100},
    {MTime::k120FPS, 26, 120},
    {MTime::k125FPS, 27, 125},
    {MTime::k150FPS, 28, 150},
    {MTime::k200FPS, 29, 200},
    {MTime::k240FPS, 30, 240},
    {MTime::k250FPS, 31, 250},
    {MTime::k300FPS, 32, 300},
    {MTime::k375FPS, 33, 375},
    {MTime::k400FPS, 34, 400},
    {MTime::k500FPS, 35, 500},
    {MTime::k600FPS, 36, 600},
    {MTime::k750FPS, 37, 750},
    {MTime::k1200FPS, 38, 1200},
    {MTime::k1500FPS, 39, 1500},
    {MTime::k2000FPS, 40, 2000},
    {MTime::k3000FPS, 41, 3000},
    {MTime::k6000FPS, 42, 6000},
    {MTime::k23_976FPS, 43, 24000 / 1001.0},
    {MTime::k29_97FPS, 44, 30000 / 1001.0},
    {MTime::k29_97DF, 45, 30000 / 1001.0},
    {MTime::k47_952FPS, 46, 48000 / 1001.0},
    {MTime::k59_94FPS, 47, 60000 / 1001.0},
    {MTime::k44100FPS, 48, 44100},
    {MTime::k48000FPS, 49, 48000},
};

class UiUnitsKept : public testing::Test {
protected:
    void TearDown() override { host::api::uiUnits() = before_; }

private:
    host::api::UiUnits before_ = host::api::uiUnits();
};

using MTimeUi = UiUnitsKept;

TEST_F(MTimeUi, RefusesUnitsThatAreNone) {
    for (const MTime::Unit unit : {MTime::kInvalid, MTime::kUserDef, MTime::kLast}) {
        const MTime made(5.0, unit);
        EXPECT_EQ(made, MTime());
        EXPECT_EQ(made.unit(), MTime::kFilm);
        EXPECT_EQ(MTime(1.0, MTime::kSeconds).as(unit), 0.0);
        MTime time(3.0, MTime::kPALFrame);
        EXPECT_EQ(time.setUnit(unit), MS::kInvalidParameter);
        EXPECT_EQ(time.unit(), MTime::kPALFrame);
        EXPECT_EQ(MTime::setUIUnit(unit), MS::kInvalidParameter);
    }
    EXPECT_EQ(MTime::uiUnit(), MTime::kFilm);
}

TEST(MTime, SaturatesInsteadOfOverflowing) {
    const MTime most(1e300, MTime::kHours), least(-1e300, MTime::kHours);
    EXPECT_EQ(TimeTicks::of(most), std::numeric_limits<MInt64>::max());
    EXPECT_EQ(TimeTicks::of(least), std::numeric_limits<MInt64>::min());
    EXPECT_EQ(most + most, most);
    EXPECT_EQ(least + least, least);
    EXPECT_EQ(most - least, most);
    EXPECT_EQ(least - most - most, least);
    EXPECT_EQ(-least, most);
    EXPECT_EQ(most * 2.0, most);
    EXPECT_EQ(MTime(std::numeric_limits<double>::quiet_NaN()), MTime());
    EXPECT_EQ(MTime(0.0) / 0.0, MTime());
}

TEST(MTime, UnitsHaveTheirNumbersAndRates) {
    for (const UnitCase& example : kUnits) {
        EXPECT_EQ(example.unit, example.number);
        const MTime second(1.0, MTime::kSeconds);
        EXPECT_DOUBLE_EQ(second.as(example.unit), example.perSecond) << example.number;
        EXPECT_EQ(MTime(7.0, example.unit).value(), 7.0) << example.number;
        EXPECT_EQ(static_cast<double>(TimeTicks::perUnit(example.unit)), std::round(141120000.0 / example.perSecond))
            << example.number;
    }
    EXPECT_EQ(MTime::kUserDef, 50);
    EXPECT_EQ(MTime::kLast, 51);
}

TEST(MTime, CountsTicks) {
    EXPECT_EQ(TimeTicks::of(MTime(1.0, MTime::kSeconds)), 141120000);
    EXPECT_EQ(TimeTicks::of(MTime(1.0)), 5880000);
    EXPECT_EQ(TimeTicks::of(MTime(-0.5, MTime::kNTSCFrame)), -2352000);
    EXPECT_EQ(TimeTicks::time(17640000, MTime::kFilm).value(), 3.0);
    EXPECT_EQ(MTime(24.0, MTime::kFilm), MTime(1.0, MTime::kSeconds));
}

TEST(MTime, UnitChangesTheCountAndNotTheMoment) {
    MTime time(2.0, MTime::kSeconds);
    EXPECT_TRUE(time.setUnit(MTime::kPALFrame));
    EXPECT_EQ(time.value(), 50.0);
    EXPECT_TRUE(time.setValue(25.0));
    EXPECT_EQ(time, MTime(1.0, MTime::kSeconds));
    time = 5.0;
    EXPECT_DOUBLE_EQ(time.as(MTime::kSeconds), 0.2);
    EXPECT_EQ(time.asUnits(MTime::kPALFrame), 5.0);
}

TEST(MTime, ArithmeticHasTheUnitOfTheLeftTime) {
    const MTime frame(1.0, MTime::kFilm), second(1.0, MTime::kSeconds);
    EXPECT_EQ((frame + second).value(), 25.0);
    EXPECT_EQ((frame + second).unit(), MTime::kFilm);
    EXPECT_EQ((second - frame * 12.0).value(), 0.5);
    EXPECT_EQ((frame + 2.0).value(), 3.0);
    EXPECT_EQ((frame - 2.0).value(), -1.0);
    EXPECT_EQ(-frame + frame, MTime());
    EXPECT_EQ(2.0 * frame, frame + frame);
    EXPECT_EQ((second / 4.0).value(), 0.25);
    EXPECT_EQ(second / frame, 24.0);
    MTime time = frame;
    time += second;
    time -= frame;
    time += 1.0;
    time -= 0.5;
    time *= 2.0;
    time /= 2.0;
    EXPECT_EQ(time.value(), 24.5);
}

TEST(MTime, StepsByItsUnit) {
    MTime time(1.0, MTime::kNTSCFrame);
    EXPECT_EQ((time++).value(), 1.0);
    EXPECT_EQ((++time).value(), 3.0);
    EXPECT_EQ((time--).value(), 3.0);
    EXPECT_EQ((--time).value(), 1.0);
}

TEST(MTime, ComparesMoments) {
    const MTime early(10.0, MTime::kFilm), late(0.5, MTime::kSeconds);
    EXPECT_TRUE(early < late && early <= late && late > early && late >= early && early != late);
    EXPECT_TRUE(MTime(12.0, MTime::kFilm) == late && MTime(12.0, MTime::kFilm) <= late);
}

TEST_F(MTimeUi, UnitOfTheUserIsTheHosts) {
    EXPECT_EQ(MTime::uiUnit(), MTime::kFilm);
    EXPECT_TRUE(MTime::setUIUnit(MTime::kNTSCFrame));
    EXPECT_EQ(host::api::uiUnits().time, MTime::kNTSCFrame);
    EXPECT_EQ(MTime(1.0, MTime::kSeconds).as(MTime::uiUnit()), 30.0);
}

} // namespace
