#pragma once

#include "host/nodes/animCurve.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace host {

/// When a clip of the timeline plays, and which times of its source. Times in ticks.
struct ClipTiming {
    double start = 0.0;       // where the source's start lies on the timeline
    double sourceStart = 0.0; // the part of the source that plays
    double sourceEnd = 0.0;
    double scale = 1.0;     // above 1: slower; must be positive
    double hold = 0.0;      // how long the last values stay in force after the end
    double preCycle = 0.0;  // repetitions before the start, whole or not
    double postCycle = 0.0; // likewise after the first run

    double firstTime() const;    // of the repetitions before the start
    double lastTime() const;     // of the repetitions after the end
    double lastTimeHeld() const; // of the hold
    double length() const;       // of one run on the timeline
    bool isActive(double time) const { return time >= firstTime() && time <= lastTimeHeld(); }
};

/// Where a clip is at a time of the timeline. Before its first and after its last time it stays there.
struct ClipMoment {
    double sourceTime = 0.0;
    double cycle = 0.0; // whole runs since the start; negative in repetitions before it
};

ClipMoment clipMomentAt(const ClipTiming& timing, double time);

/// What a clip's weight weighs: what has changed since the clip began, or the values themselves.
enum class ClipWeightStyle : int { kFromStart, kFromZero };

struct ClipChannel {
    const AnimCurve* curve = nullptr; // null: the clip does not move this channel
    bool isAbsolute = true;           // false: goes on from where the clips before left the channel
};

struct PlayedClip {
    ClipTiming timing;
    double weight = 1.0;
    ClipWeightStyle weightStyle = ClipWeightStyle::kFromStart;
    std::vector<ClipChannel> channels;
};

/// What the clips make of a channel at a time; nothing before the first of them begins. A clip that is over leaves the
/// channel as it was at its end. Of clips that overlap, the one that starts later has the last word: with an absolute
/// channel it replaces what the others say, with a relative one it adds its own change to it. In repetitions, a
/// relative channel goes on from where the run before ended.
std::optional<double> playedValue(const std::vector<PlayedClip>& clips, std::size_t channel, double time);

} // namespace host
