#include "host/nodes/clipTiming.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

/// What the clip adds to the channel's value at its start.
double changeOf(const PlayedClip& clip, const ClipChannel& channel, double time) {
    const ClipTiming& timing = clip.timing;
    const ClipMoment moment = clipMomentAt(timing, time);
    const double first = channel.curve->value(timing.sourceStart);
    double change = channel.curve->value(moment.sourceTime) - first;
    if (!channel.isAbsolute) {
        change += moment.cycle * (channel.curve->value(timing.sourceEnd) - first);
    }
    return change * clip.weight;
}

double firstValueOf(const PlayedClip& clip, const ClipChannel& channel) {
    const double first = channel.curve->value(clip.timing.sourceStart);
    return clip.weightStyle == ClipWeightStyle::kFromZero ? first * clip.weight : first;
}

} // namespace

double ClipTiming::length() const {
    return std::max(sourceEnd - sourceStart, 0.0) * scale;
}

double ClipTiming::firstTime() const {
    return start - preCycle * length();
}

double ClipTiming::lastTime() const {
    return start + (1.0 + postCycle) * length();
}

double ClipTiming::lastTimeHeld() const {
    return lastTime() + hold;
}

ClipMoment clipMomentAt(const ClipTiming& timing, double time) {
    const double length = timing.length();
    if (!(length > 0.0)) {
        return {timing.sourceStart, 0.0};
    }
    const double runs = (std::clamp(time, timing.firstTime(), timing.lastTime()) - timing.start) / length;
    double cycle = std::floor(runs);
    // The end of the last run belongs to it, not to one more that does not come.
    if (runs == cycle && runs > 0.0 && time >= timing.lastTime()) {
        cycle -= 1.0;
    }
    return {timing.sourceStart + (runs - cycle) * (timing.sourceEnd - timing.sourceStart), cycle};
}

std::optional<double> playedValue(const std::vector<PlayedClip>& clips, std::size_t channel, double time) {
    std::vector<const PlayedClip*> begun;
    for (const PlayedClip& clip : clips) {
        const bool moves = channel < clip.channels.size() && clip.channels[channel].curve != nullptr;
        if (moves && clip.timing.firstTime() <= time) {
            begun.push_back(&clip);
        }
    }
    // Those that are over come first, the last to end last; then those that play, the last to start last.
    std::stable_sort(begun.begin(), begun.end(), [time](const PlayedClip* a, const PlayedClip* b) {
        const bool playsA = a->timing.isActive(time);
        const bool playsB = b->timing.isActive(time);
        if (playsA != playsB) {
            return playsB;
        }
        return playsA ? a->timing.firstTime() < b->timing.firstTime()
                      : a->timing.lastTimeHeld() < b->timing.lastTimeHeld();
    });
    std::optional<double> value;
    for (const PlayedClip* clip : begun) {
        const ClipChannel& own = clip->channels[channel];
        const double from = own.isAbsolute ? firstValueOf(*clip, own) : value.value_or(firstValueOf(*clip, own));
        value = from + changeOf(*clip, own, time);
    }
    return value;
}

} // namespace host
