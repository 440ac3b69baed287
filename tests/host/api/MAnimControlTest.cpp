#include <maya/MAnimControl.h>

#include "HostTest.h"

namespace host {
namespace {

class MAnimControlTest : public HostTest {};

TEST_F(MAnimControlTest, theCurrentTimeIsTheScenes) {
    run("currentUnit -t pal; currentTime 7");
    EXPECT_EQ(MAnimControl::currentTime(), MTime(7.0, MTime::kPALFrame));
    EXPECT_EQ(MAnimControl::setCurrentTime(MTime(2.0, MTime::kSeconds)), MStatus::kSuccess);
    EXPECT_EQ(run("currentTime -q").toFloat(), 50.0);
}

TEST_F(MAnimControlTest, rangesAreTheScenes) {
    run("playbackOptions -ast 2 -min 3 -max 20 -aet 30");
    EXPECT_EQ(MAnimControl::animationStartTime(), MTime(2.0));
    EXPECT_EQ(MAnimControl::minTime(), MTime(3.0));
    EXPECT_EQ(MAnimControl::maxTime(), MTime(20.0));
    EXPECT_EQ(MAnimControl::animationEndTime(), MTime(30.0));
    EXPECT_EQ(MAnimControl::setAnimationStartEndTime(MTime(1.0), MTime(100.0)), MStatus::kSuccess);
    EXPECT_EQ(MAnimControl::setMinMaxTime(MTime(10.0), MTime(0.5, MTime::kSeconds)), MStatus::kSuccess);
    EXPECT_EQ(run("playbackOptions -q -aet").toFloat(), 100.0);
    EXPECT_EQ(run("playbackOptions -q -min").toFloat(), 10.0);
    EXPECT_EQ(run("playbackOptions -q -max").toFloat(), 12.0);
    EXPECT_FALSE(MAnimControl::isPlaying());
}

} // namespace
} // namespace host
