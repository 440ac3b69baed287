#include <maya/MTime.h>

#include "host/api/values/TimeTicks.h"
#include "host/api/values/UiUnits.h"

#include <cmath>
#include <limits>

using host::api::TimeTicks;

namespace {

constexpr MInt64 kFewest = std::numeric_limits<MInt64>::min();
constexpr MInt64 kMost = std::numeric_limits<MInt64>::max();

constexpr MInt64 kSecond = TimeTicks::kPerSecond;

struct UnitRow {
    MTime::Unit unit;
    MInt64 seconds; // of so many units …
    MInt64 units;   // … in so many seconds
};

// In the order of the enumeration.
constexpr UnitRow kUnits[] = {
    {MTime::kHours, 3600, 1},
    {MTime::kMinutes, 60, 1},
    {MTime::kSeconds, 1, 1},
    {MTime::kMilliseconds, 1, 1000},
    {MTime::kGames, 1, 15},
    {MTime::kFilm, 1, 24},
    {MTime::kPALFrame, 1, 25},
    {MTime::kNTSCFrame, 1, 30},
    {MTime::kShowScan, 1, 48},
    {MTime::kPALField, 1, 50},
    {MTime::kNTSCField, 1, 60},
    {MTime::k2FPS, 1, 2},
    {MTime::k3FPS, 1, 3},
    {MTime::k4FPS, 1, 4},
    {MTime::k5FPS, 1, 5},
    {MTime::k6FPS, 1, 6},
    {MTime::k8FPS, 1, 8},
    {MTime::k10FPS, 1, 10},
    {MTime::k12FPS, 1, 12},
    {MTime::k16FPS, 1, 16},
    {MTime::k20FPS, 1, 20},
    {MTime::k40FPS, 1, 40},
    {MTime::k75FPS, 1, 75},
    {MTime::k80FPS, 1, 80},
    {MTime::k100FPS, 1, 100},
    {MTime::k120FPS, 1, 120},
    {MTime::k125FPS, 1, 125},
    {MTime::k150FPS, 1, 150},
    {MTime::k200FPS, 1, 200},
    {MTime::k240FPS, 1, 240},
    {MTime::k250FPS, 1, 250},
    {MTime::k300FPS, 1, 300},
    {MTime::k375FPS, 1, 375},
    {MTime::k400FPS, 1, 400},
    {MTime::k500FPS, 1, 500},
    {MTime::k600FPS, 1, 600},
    {MTime::k750FPS, 1, 750},
    {MTime::k1200FPS, 1, 1200},
    {MTime::k1500FPS, 1, 1500},
    {MTime::k2000FPS, 1, 2000},
    {MTime::k3000FPS, 1, 3000},
    {MTime::k6000FPS, 1, 6000},
    {MTime::k23_976FPS, 1001, 24000},
    {MTime::k29_97FPS, 1001, 30000},
    {MTime::k29_97DF, 1001, 30000},
    {MTime::k47_952FPS, 1001, 48000},
    {MTime::k59_94FPS, 1001, 60000},
    {MTime::k44100FPS, 1, 44100},
    {MTime::k48000FPS, 1, 48000},
};

constexpr bool unitsAreWholeTicksInOrder() {
    int number = MTime::kHours;
    for (const UnitRow& row : kUnits) {
        if (row.unit != number || kSecond * row.seconds % row.units != 0) {
            return false;
        }
        ++number;
    }
    return number == MTime::kUserDef;
}
static_assert(unitsAreWholeTicksInOrder(), "the table finds a unit by its number, and ticks express all of them");

MInt64 roundTicks(double ticks) {
    constexpr double kEnd = 9223372036854775808.0; // one beyond the most
    if (std::isnan(ticks)) {
        return 0;
    }
    return ticks >= kEnd ? kMost : ticks < -kEnd ? kFewest : static_cast<MInt64>(std::llround(ticks));
}

MInt64 addTicks(MInt64 left, MInt64 right) {
    if (right > 0 && left > kMost - right) {
        return kMost;
    }
    if (right < 0 && left < kFewest - right) {
        return kFewest;
    }
    return left + right;
}

MInt64 negateTicks(MInt64 ticks) {
    return ticks == kFewest ? kMost : -ticks;
}

} // namespace

namespace host::api {

MTime TimeTicks::time(MInt64 ticks, MTime::Unit unit) {
    MTime made(0.0, unit);
    made.ticks_ = ticks;
    return made;
}

MInt64 TimeTicks::perUnit(MTime::Unit unit) {
    if (unit <= MTime::kInvalid || unit >= MTime::kUserDef) {
        return 0;
    }
    const UnitRow& row = kUnits[unit - MTime::kHours];
    return kSecond * row.seconds / row.units;
}

} // namespace host::api

MTime::MTime(double value, Unit unit) {
    if (setUnit(unit)) {
        setValue(value);
    }
}

double MTime::as(Unit unit) const {
    const MInt64 perUnit = TimeTicks::perUnit(unit);
    return perUnit == 0 ? 0.0 : static_cast<double>(ticks_) / static_cast<double>(perUnit);
}

MStatus MTime::setUnit(Unit unit) {
    if (TimeTicks::perUnit(unit) == 0) {
        return MStatus::kInvalidParameter;
    }
    unit_ = unit;
    return MStatus::kSuccess;
}

MStatus MTime::setValue(double value) {
    ticks_ = roundTicks(value * static_cast<double>(TimeTicks::perUnit(unit_)));
    return MStatus::kSuccess;
}

MTime& MTime::operator=(double value) {
    setValue(value);
    return *this;
}

MTime::Unit MTime::uiUnit() {
    return host::api::uiUnits().time;
}

MStatus MTime::setUIUnit(Unit unit) {
    if (TimeTicks::perUnit(unit) == 0) {
        return MStatus::kInvalidParameter;
    }
    host::api::uiUnits().time = unit;
    return MStatus::kSuccess;
}

MTime MTime::operator+(const MTime& other) const {
    return TimeTicks::time(addTicks(ticks_, other.ticks_), unit_);
}

MTime MTime::operator-(const MTime& other) const {
    return TimeTicks::time(addTicks(ticks_, negateTicks(other.ticks_)), unit_);
}

MTime MTime::operator+(double value) const {
    return *this + MTime(value, unit_);
}

MTime MTime::operator-(double value) const {
    return *this - MTime(value, unit_);
}

MTime MTime::operator-() const {
    return TimeTicks::time(negateTicks(ticks_), unit_);
}

MTime MTime::operator*(double factor) const {
    return TimeTicks::time(roundTicks(static_cast<double>(ticks_) * factor), unit_);
}

MTime MTime::operator/(double divisor) const {
    return TimeTicks::time(roundTicks(static_cast<double>(ticks_) / divisor), unit_);
}

MTime operator*(double factor, const MTime& time) {
    return time * factor;
}

double MTime::operator/(const MTime& other) const {
    return static_cast<double>(ticks_) / static_cast<double>(other.ticks_);
}

MTime& MTime::operator+=(const MTime& other) {
    return *this = *this + other;
}

MTime& MTime::operator-=(const MTime& other) {
    return *this = *this - other;
}

MTime& MTime::operator+=(double value) {
    return *this = *this + value;
}

MTime& MTime::operator-=(double value) {
    return *this = *this - value;
}

MTime& MTime::operator*=(double factor) {
    return *this = *this * factor;
}

MTime& MTime::operator/=(double divisor) {
    return *this = *this / divisor;
}

MTime& MTime::operator++() {
    return *this += 1.0;
}

MTime MTime::operator++(int) {
    const MTime before = *this;
    ++*this;
    return before;
}

MTime& MTime::operator--() {
    return *this -= 1.0;
}

MTime MTime::operator--(int) {
    const MTime before = *this;
    --*this;
    return before;
}
