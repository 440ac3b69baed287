#include "host/api/uiUnitNames.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(uiUnitNames, everyTimeUnitComesBack) {
    for (int unit = MTime::kHours; unit < MTime::kUserDef; ++unit) {
        api::UiUnits uiUnits;
        uiUnits.time = static_cast<MTime::Unit>(unit);
        EXPECT_EQ(uiUnitsOf(unitsOf(uiUnits)).time, unit) << unitsOf(uiUnits).timeName;
    }
}

TEST(uiUnitNames, everyAngleAndDistanceComesBack) {
    for (int unit = MAngle::kRadians; unit <= MAngle::kAngSeconds; ++unit) {
        api::UiUnits uiUnits;
        uiUnits.angle = static_cast<MAngle::Unit>(unit);
        EXPECT_TRUE(sameUnits(uiUnitsOf(unitsOf(uiUnits)), uiUnits)) << unit;
    }
    for (int unit = MDistance::kInches; unit <= MDistance::kMeters; ++unit) {
        api::UiUnits uiUnits;
        uiUnits.distance = static_cast<MDistance::Unit>(unit);
        EXPECT_TRUE(sameUnits(uiUnitsOf(unitsOf(uiUnits)), uiUnits)) << unit;
    }
}

TEST(uiUnitNames, ratesOfScenesAreFound) {
    Units units;
    units.framesPerSecond = *timeUnit("ntsc", units.timeName);
    EXPECT_EQ(uiUnitsOf(units).time, MTime::kNTSCFrame);
    units.framesPerSecond = *timeUnit("120fps", units.timeName);
    EXPECT_EQ(uiUnitsOf(units).time, MTime::k120FPS);
    units.framesPerSecond = *timeUnit("7fps", units.timeName);
    EXPECT_EQ(uiUnitsOf(units).time, MTime::kFilm) << "the API has no such unit";
}

} // namespace
} // namespace host
