#include <maya/MAnimControl.h>

#include "host/api/Host.h"
#include "host/api/values/TimeTicks.h"

using host::Host;
using host::api::TimeTicks;

namespace {

using Frames = double host::PlaybackRange::*;

MTime timeOf(Frames end) {
    host::Scene& scene = Host::instance().scene();
    return TimeTicks::time(scene.units().ticks(scene.playback().*end), MTime::uiUnit());
}

MStatus setTime(Frames end, const MTime& time) {
    host::Scene& scene = Host::instance().scene();
    scene.playback().*end = scene.units().frames(TimeTicks::of(time));
    return MStatus::kSuccess;
}

} // namespace

MTime MAnimControl::currentTime() {
    return TimeTicks::time(Host::instance().currentTime(), MTime::uiUnit());
}

MStatus MAnimControl::setCurrentTime(const MTime& time) {
    Host::instance().setCurrentTime(TimeTicks::of(time));
    return MStatus::kSuccess;
}

MTime MAnimControl::minTime() {
    return timeOf(&host::PlaybackRange::minimum);
}

MTime MAnimControl::maxTime() {
    return timeOf(&host::PlaybackRange::maximum);
}

MStatus MAnimControl::setMinTime(const MTime& time) {
    return setTime(&host::PlaybackRange::minimum, time);
}

MStatus MAnimControl::setMaxTime(const MTime& time) {
    return setTime(&host::PlaybackRange::maximum, time);
}

MStatus MAnimControl::setMinMaxTime(const MTime& minTime, const MTime& maxTime) {
    setMinTime(minTime);
    return setMaxTime(maxTime);
}

MTime MAnimControl::animationStartTime() {
    return timeOf(&host::PlaybackRange::animationStart);
}

MTime MAnimControl::animationEndTime() {
    return timeOf(&host::PlaybackRange::animationEnd);
}

MStatus MAnimControl::setAnimationStartTime(const MTime& time) {
    return setTime(&host::PlaybackRange::animationStart, time);
}

MStatus MAnimControl::setAnimationEndTime(const MTime& time) {
    return setTime(&host::PlaybackRange::animationEnd, time);
}

MStatus MAnimControl::setAnimationStartEndTime(const MTime& start, const MTime& end) {
    setAnimationStartTime(start);
    return setAnimationEndTime(end);
}

bool MAnimControl::isPlaying() {
    return false;
}
