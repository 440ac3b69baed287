#include "host/api/uiUnitNames.h"

#include "host/api/values/TimeTicks.h"

#include <string>
#include <string_view>

namespace host {

namespace {

template <class Unit>
struct UnitWord {
    Unit unit;
    std::string_view word;
};

// Times whose word is not their rate with "fps" behind it.
constexpr UnitWord<MTime::Unit> kTimeWords[] = {
    {MTime::kHours, "hour"},          {MTime::kMinutes, "min"},
    {MTime::kSeconds, "sec"},         {MTime::kMilliseconds, "millisec"},
    {MTime::k23_976FPS, "23.976fps"}, {MTime::k29_97FPS, "29.97fps"},
    {MTime::k29_97DF, "29.97df"},     {MTime::k47_952FPS, "47.952fps"},
    {MTime::k59_94FPS, "59.94fps"},
};

constexpr UnitWord<MAngle::Unit> kAngleWords[] = {
    {MAngle::kRadians, "rad"},
    {MAngle::kDegrees, "deg"},
    {MAngle::kAngMinutes, "min"},
    {MAngle::kAngSeconds, "sec"},
};

constexpr UnitWord<MDistance::Unit> kDistanceWords[] = {
    {MDistance::kInches, "in"},     {MDistance::kFeet, "ft"},        {MDistance::kYards, "yd"},
    {MDistance::kMiles, "mi"},      {MDistance::kMillimeters, "mm"}, {MDistance::kCentimeters, "cm"},
    {MDistance::kKilometers, "km"}, {MDistance::kMeters, "m"},
};

template <class Unit, std::size_t Count>
std::string_view wordOf(const UnitWord<Unit> (&rows)[Count], Unit unit) {
    for (const UnitWord<Unit>& row : rows) {
        if (row.unit == unit) {
            return row.word;
        }
    }
    return {};
}

template <class Unit, std::size_t Count>
Unit unitOf(const UnitWord<Unit> (&rows)[Count], std::string_view word, Unit otherwise) {
    for (const UnitWord<Unit>& row : rows) {
        if (row.word == word) {
            return row.unit;
        }
    }
    return otherwise;
}

/// "" for units that are no times.
std::string timeWord(MTime::Unit unit) {
    const std::string_view word = wordOf(kTimeWords, unit);
    const MInt64 ticks = api::TimeTicks::perUnit(unit);
    if (!word.empty() || ticks == 0) {
        return std::string(word);
    }
    return std::to_string(api::TimeTicks::kPerSecond / ticks) + "fps";
}

MTime::Unit timeUnitOf(std::string_view name) {
    for (int unit = MTime::kHours; unit < MTime::kUserDef; ++unit) {
        std::string_view shortName;
        const auto candidate = static_cast<MTime::Unit>(unit);
        if (timeUnit(timeWord(candidate), shortName) && shortName == name) {
            return candidate;
        }
    }
    return MTime::kFilm;
}

} // namespace

api::UiUnits uiUnitsOf(const Units& units) {
    api::UiUnits result;
    result.time = timeUnitOf(units.timeName);
    result.angle = unitOf(kAngleWords, units.angularName, MAngle::kDegrees);
    result.distance = unitOf(kDistanceWords, units.linearName, MDistance::kCentimeters);
    return result;
}

Units unitsOf(const api::UiUnits& uiUnits) {
    Units units;
    units.framesPerSecond = timeUnit(timeWord(uiUnits.time), units.timeName).value_or(units.framesPerSecond);
    units.radiansPerAngular =
        angularUnit(wordOf(kAngleWords, uiUnits.angle), units.angularName).value_or(units.radiansPerAngular);
    units.centimetresPerLinear =
        linearUnit(wordOf(kDistanceWords, uiUnits.distance), units.linearName).value_or(units.centimetresPerLinear);
    return units;
}

bool sameUnits(const api::UiUnits& a, const api::UiUnits& b) {
    return a.time == b.time && a.angle == b.angle && a.distance == b.distance;
}

} // namespace host
