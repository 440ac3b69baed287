#include <maya/MDistance.h>

#include "host/api/values/UiUnits.h"

#include <gtest/gtest.h>

namespace {

class MDistanceUi : public testing::Test {
protected:
    void TearDown() override { host::api::uiUnits() = before_; }

private:
    host::api::UiUnits before_ = host::api::uiUnits();
};

struct UnitCase {
    MDistance::Unit unit;
    int number;
    double centimetres;
};

constexpr UnitCase kUnits[] = {
    {MDistance::kInches, 1, 2.54},         {MDistance::kFeet, 2, 30.48},      {MDistance::kYards, 3, 91.44},
    {MDistance::kMiles, 4, 160934.4},      {MDistance::kMillimeters, 5, 0.1}, {MDistance::kCentimeters, 6, 1.0},
    {MDistance::kKilometers, 7, 100000.0}, {MDistance::kMeters, 8, 100.0},
};

TEST_F(MDistanceUi, RefusesUnitsThatAreNone) {
    MDistance distance(1.0);
    for (const MDistance::Unit unit : {MDistance::kInvalid, MDistance::kLast}) {
        EXPECT_EQ(distance.setUnit(unit), MS::kInvalidParameter);
        EXPECT_EQ(MDistance::setUIUnit(unit), MS::kInvalidParameter);
        EXPECT_EQ(distance.as(unit), 0.0);
        EXPECT_EQ(MDistance(1.0, unit).asMeters(), 0.0);
    }
    EXPECT_EQ(distance.unit(), MDistance::kCentimeters);
    EXPECT_EQ(MDistance::uiUnit(), MDistance::kCentimeters);
}

TEST(MDistance, ConvertsBetweenUnits) {
    for (const UnitCase& example : kUnits) {
        EXPECT_EQ(example.unit, example.number);
        EXPECT_DOUBLE_EQ(MDistance(2.0, example.unit).asCentimeters(), 2.0 * example.centimetres);
        EXPECT_DOUBLE_EQ(MDistance(2.0 * example.centimetres).as(example.unit), 2.0);
    }
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kMiles).asYards(), 1760.0);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kYards).asFeet(), 3.0);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kFeet).asInches(), 12.0);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kKilometers).asMeters(), 1000.0);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kMeters).asMillimeters(), 1000.0);
    EXPECT_DOUBLE_EQ(MDistance(1000.0, MDistance::kMeters).asKilometers(), 1.0);
    EXPECT_DOUBLE_EQ(MDistance(1760.0, MDistance::kYards).asMiles(), 1.0);
}

TEST_F(MDistanceUi, ConvertsBetweenTheUserAndTheInside) {
    EXPECT_EQ(MDistance::uiToInternal(3.0), 3.0);
    EXPECT_TRUE(MDistance::setUIUnit(MDistance::kMeters));
    EXPECT_DOUBLE_EQ(MDistance::uiToInternal(3.0), 300.0);
    EXPECT_DOUBLE_EQ(MDistance::internalToUI(50.0), 0.5);
    EXPECT_EQ(MDistance::internalUnit(), MDistance::kCentimeters);
}

TEST(MDistance, KeepsItsNumberWhenTheUnitChanges) {
    MDistance distance(5.0);
    EXPECT_TRUE(distance.setUnit(MDistance::kMeters));
    EXPECT_EQ(distance.asCentimeters(), 500.0);
    EXPECT_TRUE(distance.setValue(2.0));
    distance = 3.0;
    EXPECT_EQ(distance.value(), 3.0);
}

} // namespace
