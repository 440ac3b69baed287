#include <maya/MAngle.h>

#include "host/api/values/UiUnits.h"

#include <gtest/gtest.h>

namespace {

class MAngleUi : public testing::Test {
protected:
    void TearDown() override { host::api::uiUnits() = before_; }

private:
    host::api::UiUnits before_ = host::api::uiUnits();
};

TEST_F(MAngleUi, RefusesUnitsThatAreNone) {
    MAngle angle(1.0);
    for (const MAngle::Unit unit : {MAngle::kInvalid, MAngle::kLast}) {
        EXPECT_EQ(angle.setUnit(unit), MS::kInvalidParameter);
        EXPECT_EQ(MAngle::setUIUnit(unit), MS::kInvalidParameter);
        EXPECT_EQ(angle.as(unit), 0.0);
        EXPECT_EQ(MAngle(1.0, unit).asRadians(), 0.0);
    }
    EXPECT_EQ(angle.unit(), MAngle::kRadians);
    EXPECT_EQ(MAngle::uiUnit(), MAngle::kDegrees);
}

TEST(MAngle, ConvertsBetweenUnits) {
    const MAngle right(90.0, MAngle::kDegrees);
    EXPECT_DOUBLE_EQ(right.asRadians(), 1.5707963267948966);
    EXPECT_EQ(right.asDegrees(), 90.0);
    EXPECT_DOUBLE_EQ(right.asAngMinutes(), 5400.0);
    EXPECT_DOUBLE_EQ(right.asAngSeconds(), 324000.0);
    EXPECT_DOUBLE_EQ(MAngle(3.14159265358979323846).asDegrees(), 180.0);
    EXPECT_EQ(MAngle::kRadians, 1);
    EXPECT_EQ(MAngle::kDegrees, 2);
    EXPECT_EQ(MAngle::kAngMinutes, 3);
    EXPECT_EQ(MAngle::kAngSeconds, 4);
}

TEST(MAngle, KeepsItsNumberWhenTheUnitChanges) {
    MAngle angle(90.0, MAngle::kDegrees);
    EXPECT_TRUE(angle.setUnit(MAngle::kRadians));
    EXPECT_EQ(angle.value(), 90.0);
    EXPECT_TRUE(angle.setValue(1.0));
    EXPECT_EQ(angle.asRadians(), 1.0);
    angle = 2.0;
    EXPECT_EQ(angle.value(), 2.0);
}

TEST_F(MAngleUi, ConvertsBetweenTheUserAndTheInside) {
    EXPECT_DOUBLE_EQ(MAngle::uiToInternal(180.0), 3.14159265358979323846);
    EXPECT_DOUBLE_EQ(MAngle::internalToUI(1.5707963267948966), 90.0);
    EXPECT_TRUE(MAngle::setUIUnit(MAngle::kRadians));
    EXPECT_EQ(MAngle::uiToInternal(2.0), 2.0);
    EXPECT_EQ(MAngle::internalUnit(), MAngle::kRadians);
}

} // namespace
