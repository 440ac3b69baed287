#pragma once

#include <maya/MStatus.h>
#include <maya/MTime.h>

/// The current time and the animation and playback ranges. Times come in the unit of the user interface.
class MAnimControl {
public:
    MAnimControl() = delete;

    static MTime currentTime();
    /// Everything that depends on time is evaluated anew when it is read next.
    static MStatus setCurrentTime(const MTime& time);

    /// The playback range.
    static MTime minTime();
    static MTime maxTime();
    static MStatus setMinTime(const MTime& time);
    static MStatus setMaxTime(const MTime& time);
    static MStatus setMinMaxTime(const MTime& minTime, const MTime& maxTime);

    /// The animation range.
    static MTime animationStartTime();
    static MTime animationEndTime();
    static MStatus setAnimationStartTime(const MTime& time);
    static MStatus setAnimationEndTime(const MTime& time);
    static MStatus setAnimationStartEndTime(const MTime& start, const MTime& end);

    /// Nothing ever plays without a user interface.
    static bool isPlaying();
};
