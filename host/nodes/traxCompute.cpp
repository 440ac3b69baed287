#include "host/nodes/traxCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/clipTiming.h"
#include "host/nodes/curveCompute.h"
#include "host/nodes/traxClips.h"

#include "host/graph/Evaluation.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace host {

namespace {

/// A character's elements and what the clips make of them, by kind.
struct ChannelArrays {
    const char* held;
    const char* played;
};
constexpr std::array<ChannelArrays, 4> kChannelArrays{{{"unitlessValues", "unitlessPlayed"},
                                                       {"linearValues", "linearPlayed"},
                                                       {"angularValues", "angularPlayed"},
                                                       {"timeValues", "timePlayed"}}};

PlugAddress channelPlace(const Node& character, const CharacterChannel& channel, const char* ChannelArrays::*array) {
    const auto kind = static_cast<std::size_t>(channel.kind);
    return kind < kChannelArrays.size() && channel.element >= 0
               ? address(character.type().find(kChannelArrays[kind].*array)).element(channel.element)
               : PlugAddress{};
}

/// What a clip's timing is made of: an element of the scheduler's array when it has one, else the clip's attribute.
struct ClipNumber {
    const char* ofClip;
    const char* ofScheduler;
};
constexpr ClipNumber kStart{"startFrame", "start"};
constexpr ClipNumber kSourceStart{"sourceStart", "sourceStart"};
constexpr ClipNumber kSourceEnd{"sourceEnd", "sourceEnd"};
constexpr ClipNumber kScale{"scale", "scale"};
constexpr ClipNumber kHold{"hold", "hold"};
constexpr ClipNumber kPreCycle{"preCycle", "preCycle"};
constexpr ClipNumber kPostCycle{"postCycle", "postCycle"};
constexpr ClipNumber kWeight{"weight", "weight"};
constexpr ClipNumber kWeightStyle{"weightStyle", "weightStyle"};
constexpr ClipNumber kEnable{"enable", "enable"};
constexpr ClipNumber kClipNumbers[] = {kStart,    kSourceStart, kSourceEnd, kScale,       kHold,
                                       kPreCycle, kPostCycle,   kWeight,    kWeightStyle, kEnable};

Plug clipPlug(const Graph& graph, const ClipTimeline& timeline, const ScheduledClip& clip, const ClipNumber& number) {
    const Plug scheduled{timeline.scheduler,
                         address(timeline.scheduler->type().find(number.ofScheduler)).element(clip.element)};
    const bool isScheduled = clip.element >= 0 && (graph.hasStored(scheduled) || graph.isDriven(scheduled));
    return isScheduled ? scheduled : Plug{clip.clip, address(clip.clip->type().find(number.ofClip))};
}

/// Which channels of the clip are absolute, by curve: as it says, else as its source says, else all.
bool isAbsolute(Graph& graph, const ScheduledClip& clip, std::int32_t curve) {
    for (Node* node : {clip.clip, clip.source}) {
        if (node == nullptr) {
            continue;
        }
        const Plug plug{node, address(node->type().find("absoluteChannel")).element(curve)};
        if (graph.hasStored(plug) || graph.isDriven(plug)) {
            return graph.number(plug) != 0.0;
        }
    }
    return true;
}

class TimelinePlayer {
public:
    TimelinePlayer(Graph& graph, const ClipTimeline& timeline) : graph_(graph), timeline_(timeline) {}

    bool isPlayed(const ScheduledClip& clip) { return number(clip, kEnable) != 0.0 && number(clip, kScale) > 0.0; }

    ClipTiming timing(const ScheduledClip& clip) {
        return {number(clip, kStart), number(clip, kSourceStart), number(clip, kSourceEnd), number(clip, kScale),
                number(clip, kHold),  number(clip, kPreCycle),    number(clip, kPostCycle)};
    }
    double weight(const ScheduledClip& clip) { return number(clip, kWeight); }

    /// The clips as they move the channels of one character.
    std::vector<PlayedClip> clipsFor(const ClipCharacter& character) {
        std::vector<PlayedClip> clips;
        for (const ScheduledClip& clip : timeline_.clips) {
            if (!isPlayed(clip)) {
                continue;
            }
            PlayedClip played{timing(clip), weight(clip), ClipWeightStyle::kFromStart, {}};
            if (number(clip, kWeightStyle) == static_cast<double>(ClipWeightStyle::kFromZero)) {
                played.weightStyle = ClipWeightStyle::kFromZero;
            }
            for (const std::int32_t curve : character.curves) {
                played.channels.push_back({curveOf(clip, curve), isAbsolute(graph_, clip, curve)});
            }
            clips.push_back(std::move(played));
        }
        return clips;
    }

private:
    double number(const ScheduledClip& clip, const ClipNumber& what) {
        return graph_.number(clipPlug(graph_, timeline_, clip, what));
    }

    const AnimCurve* curveOf(const ScheduledClip& clip, std::int32_t curve) {
        Node* node = clipCurve(timeline_, clip.curveList, curve);
        curves_.push_back(node != nullptr ? animCurveOf(graph_, *node) : nullptr);
        return curves_.back().get();
    }

    Graph& graph_;
    const ClipTimeline& timeline_;
    std::vector<std::shared_ptr<const AnimCurve>> curves_; // kept while clips point to them
};

// --- what the user must know

void warnOfOverlaps(Graph& graph, const ClipTimeline& timeline, TimelinePlayer& player) {
    for (std::size_t i = 0; i < timeline.clips.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const ScheduledClip& first = timeline.clips[j];
            const ScheduledClip& second = timeline.clips[i];
            const ClipTiming a = player.timing(first);
            const ClipTiming b = player.timing(second);
            const bool overlap = player.isPlayed(first) && player.isPlayed(second) &&
                                 std::max(a.firstTime(), b.firstTime()) < std::min(a.lastTimeHeld(), b.lastTimeHeld());
            if (overlap) {
                graph.warn("clips " + first.clip->name() + " and " + second.clip->name() +
                           " overlap: they are not blended; the later one's absolute channels win, its relative ones "
                           "are added");
                return;
            }
        }
    }
}

bool isUsed(const Graph& graph, Node& node, const char* attribute) {
    const Plug plug{&node, address(node.type().find(attribute))};
    return graph.isDriven(plug) || graph.hasStored(plug) || !graph.elementIndices(plug).empty();
}

bool hasTrackState(Graph& graph, Node& scheduler) {
    const Plug states{&scheduler, address(scheduler.type().find("trackState"))};
    const std::vector<std::int32_t> tracks = graph.elementIndices(states);
    return std::any_of(tracks.begin(), tracks.end(), [&](std::int32_t track) {
        return graph.number({&scheduler, states.at.element(track)}) != 0.0;
    });
}

void warnOfClip(Graph& graph, const ScheduledClip& clip, double weight, const ClipTiming& timing) {
    const std::string& name = clip.clip->name();
    if (clip.isByName) {
        graph.warn("clip " + name + " is taken to play " + clip.source->name() + ", by its name");
    }
    if (graph.number({clip.clip, address(clip.clip->type().find("timeWarpEnable"))}) != 0.0) {
        graph.warn("clip " + name + ": its time warp is not evaluated; it plays at an even pace");
    }
    if (weight != 1.0) {
        graph.warn("clip " + name + ": its weight counts for what has changed since the clip began");
    }
    if (!(timing.scale > 0.0)) {
        graph.warn("clip " + name + ": its scale is not positive; it is not played");
    }
}

void warnOfTimeline(Graph& graph, const ClipTimeline& timeline) {
    Node& scheduler = *timeline.scheduler;
    TimelinePlayer player(graph, timeline);
    for (const Node* clip : timeline.lost) {
        graph.warn("clip " + clip->name() +
                   " is not played: the scene does not tell its source; its channels keep their stored values");
    }
    if (timeline.clips.empty()) {
        return;
    }
    for (const ScheduledClip& clip : timeline.clips) {
        warnOfClip(graph, clip, player.weight(clip), player.timing(clip));
    }
    if (isUsed(graph, scheduler, "blendList")) {
        graph.warn("the blends of " + scheduler.name() + " are not evaluated: each clip begins at once");
    }
    if (hasTrackState(graph, scheduler)) {
        graph.warn("tracks of " + scheduler.name() + " are muted or alone: all are played");
    }
    if (timeline.characters.empty()) {
        graph.warn("the clips of " + scheduler.name() +
                   " are not played: no character tells which channels are theirs");
    }
    warnOfOverlaps(graph, timeline, player);
}

// --- ties

class CharacterTies {
public:
    CharacterTies(Graph& graph, const ClipTimeline& timeline, const ClipCharacter& character)
        : graph_(graph), timeline_(timeline), character_(*character.character), about_(character) {}

    void tie() {
        for (const ScheduledClip& clip : timeline_.clips) {
            tieClip(clip);
        }
        for (const CharacterChannel& channel : about_.mapping->channels) {
            tieChannel(channel);
        }
    }

private:
    void tieClip(const ScheduledClip& clip) {
        for (const ClipNumber& number : kClipNumbers) {
            follow({clip.clip, address(clip.clip->type().find(number.ofClip))});
            if (clip.element >= 0) {
                const AttrIndex array = timeline_.scheduler->type().find(number.ofScheduler);
                follow({timeline_.scheduler, address(array).element(clip.element)});
            }
        }
        for (Node* node : {clip.clip, clip.source}) {
            if (node != nullptr) {
                follow({node, address(node->type().find("absoluteChannel"))});
            }
        }
        for (const std::int32_t curve : about_.curves) {
            if (Node* node = clipCurve(timeline_, clip.curveList, curve)) {
                follow({node, address(node->type().find("animationCurve"))});
            }
        }
    }

    void tieChannel(const CharacterChannel& channel) {
        const Plug held{&character_, channelPlace(character_, channel, &ChannelArrays::held)};
        const Plug played{&character_, channelPlace(character_, channel, &ChannelArrays::played)};
        if (!held || graph_.isDriven(held)) {
            return;
        }
        graph_.overrideValue(played, held);
    }

    void follow(const Plug& cause) {
        if (cause) {
            const PlugAddress input = address(character_.type().find("clipInput"));
            graph_.tie(cause, {&character_, input.element(count_++)});
        }
    }

    Graph& graph_;
    const ClipTimeline& timeline_;
    Node& character_;
    const ClipCharacter& about_;
    std::int32_t count_ = 0;
};

} // namespace

void computeCharacter(Evaluation& evaluation, Node& node, const PlugAddress&) {
    Graph& graph = evaluation.graph();
    Node* scheduler = schedulerOf(node);
    if (scheduler == nullptr) {
        return;
    }
    const ClipTimeline timeline = findTimeline(graph, *scheduler);
    const auto own = std::find_if(timeline.characters.begin(), timeline.characters.end(),
                                  [&](const ClipCharacter& each) { return each.character == &node; });
    if (own == timeline.characters.end()) {
        return;
    }
    TimelinePlayer player(graph, timeline);
    const std::vector<PlayedClip> clips = player.clipsFor(*own);
    const double time = evaluation.number(node, node.type().find("clipTime"));
    for (std::size_t i = 0; i < own->mapping->channels.size(); ++i) {
        const CharacterChannel& channel = own->mapping->channels[i];
        const Plug held{&node, channelPlace(node, channel, &ChannelArrays::held)};
        if (held) {
            const std::optional<double> value = playedValue(clips, i, time);
            evaluation.putNumber(node, channelPlace(node, channel, &ChannelArrays::played),
                                 value ? *value : graph.numberBeneath(held));
        }
    }
}

void tieClips(Graph& graph) {
    const std::vector<Node*> nodes = graph.nodes();
    for (Node* node : nodes) {
        if (!node->type().isKindOf("clipScheduler")) {
            continue;
        }
        const ClipTimeline timeline = findTimeline(graph, *node);
        warnOfTimeline(graph, timeline);
        if (timeline.clips.empty()) {
            continue;
        }
        for (const ClipCharacter& character : timeline.characters) {
            CharacterTies(graph, timeline, character).tie();
        }
    }
}

} // namespace host
