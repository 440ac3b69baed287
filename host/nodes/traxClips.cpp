#include "host/nodes/traxClips.h"

#include "host/nodes/address.h"

#include "host/geometry/ArrayData.h"

#include <algorithm>
#include <map>
#include <optional>

namespace host {

namespace {

std::int32_t lastIndex(const PlugAddress& at) {
    return at.depth > 0 ? at.index[static_cast<std::size_t>(at.depth) - 1] : -1;
}

/// The first node of a type among those that drive something here.
Node* driverOfType(const Node& node, std::string_view type) {
    for (const auto& [at, source] : node.incoming()) {
        if (source.node->type().isKindOf(type)) {
            return source.node;
        }
    }
    return nullptr;
}

bool isClip(const Node& node) {
    return node.type().isKindOf("animClip");
}

/// One end of a connection between a clip and another node, whichever way it goes.
struct ClipLink {
    Node* clip;
    PlugAddress at; // of the other node
};

std::vector<ClipLink> clipLinks(const Node& node) {
    std::vector<ClipLink> links;
    for (const auto& [at, source] : node.incoming()) {
        if (isClip(*source.node)) {
            links.push_back({source.node, at});
        }
    }
    for (const auto& [at, destination] : node.outgoing()) {
        if (isClip(*destination.node)) {
            links.push_back({destination.node, at});
        }
    }
    return links;
}

/// Source clips of a library by their number, which is that of their curves.
std::map<std::int32_t, Node*> sourcesOf(const Node& library) {
    std::map<std::int32_t, Node*> sources;
    const AttrIndex sourceClip = library.type().find("sourceClip");
    for (const ClipLink& link : clipLinks(library)) {
        if (link.at.attr == sourceClip) {
            sources.emplace(lastIndex(link.at), link.clip);
        }
    }
    return sources;
}

/// The host calls the source of a clip "walk" "walkSource", and further clips of it "walk1", "walk2".
bool isNamedAfter(std::string_view clip, std::string_view source) {
    constexpr std::string_view kEnding = "Source";
    constexpr std::string_view kDigits = "0123456789";
    if (source.size() <= kEnding.size() || source.substr(source.size() - kEnding.size()) != kEnding) {
        return false;
    }
    const std::string_view base = source.substr(0, source.size() - kEnding.size());
    return clip.substr(0, base.size()) == base && clip.find_first_not_of(kDigits, base.size()) == clip.npos;
}

/// Fills what the clip plays; false when nothing tells it.
bool findSource(const std::map<std::int32_t, Node*>& sources, std::int32_t element, ScheduledClip& clip) {
    const auto take = [&](const auto& source) {
        clip.curveList = source.first;
        clip.source = source.second;
        return true;
    };
    for (const ClipLink& link : clipLinks(*clip.clip)) {
        const auto own = std::find_if(sources.begin(), sources.end(),
                                      [&](const auto& source) { return source.second == link.clip; });
        if (own != sources.end()) {
            return take(*own);
        }
    }
    if (sources.empty()) {
        clip.curveList = element; // libraries of old files have no sources: each clip has curves of its own
        return element >= 0;
    }
    if (sources.size() == 1) {
        return take(*sources.begin());
    }
    const auto isNamed = [&](const auto& source) { return isNamedAfter(clip.clip->name(), source.second->name()); };
    clip.isByName = std::count_if(sources.begin(), sources.end(), isNamed) == 1;
    return clip.isByName && take(*std::find_if(sources.begin(), sources.end(), isNamed));
}

void addClips(ClipTimeline& timeline) {
    const std::map<std::int32_t, Node*> sources = sourcesOf(*timeline.library);
    const auto isSource = [&](const Node* clip) {
        return std::any_of(sources.begin(), sources.end(), [clip](const auto& row) { return row.second == clip; });
    };
    std::map<Node*, ScheduledClip> found; // in any order: they are sorted by their place below
    std::vector<Node*> order;
    for (const Node* owner : {timeline.scheduler, timeline.library}) {
        for (const ClipLink& link : clipLinks(*owner)) {
            if (isSource(link.clip)) {
                continue;
            }
            ScheduledClip& clip = found[link.clip];
            if (clip.clip == nullptr) {
                order.push_back(link.clip);
                clip.clip = link.clip;
                clip.curveList = lastIndex(link.at);
            }
            if (owner == timeline.scheduler) {
                clip.element = lastIndex(link.at);
            }
        }
    }
    for (Node* node : order) {
        ScheduledClip& clip = found[node];
        if (findSource(sources, clip.curveList, clip)) {
            timeline.clips.push_back(clip);
        } else {
            timeline.lost.push_back(node);
        }
    }
}

std::optional<ClipCharacter> characterBehind(Graph& graph, Node& node) {
    const DataPtr mapping = graph.data({&node, address(node.type().find("animationMapping"))});
    auto read = std::dynamic_pointer_cast<const CharacterMapping>(mapping);
    if (read == nullptr) {
        return std::nullopt;
    }
    ClipCharacter result{&node, std::move(read), {}};
    const DataPtr numbers = graph.data({&node, address(node.type().find("clipIndexMap"))});
    const auto* map = arrayDataOf<IntArrayData>(numbers);
    for (std::size_t i = 0; i < result.mapping->channels.size(); ++i) {
        const bool isMapped = map != nullptr && i < map->values.size();
        result.curves.push_back(isMapped ? map->values[i] : static_cast<std::int32_t>(i));
    }
    return result;
}

} // namespace

ClipTimeline findTimeline(Graph& graph, Node& scheduler) {
    ClipTimeline timeline;
    timeline.scheduler = &scheduler;
    timeline.library = driverOfType(scheduler, "clipLibrary");
    if (timeline.library == nullptr) {
        return timeline;
    }
    std::vector<const Node*> seen;
    for (const auto& [at, source] : timeline.library->incoming()) {
        const bool isNew = std::find(seen.begin(), seen.end(), source.node) == seen.end();
        if (!isNew || !source.node->type().isKindOf("character")) {
            continue;
        }
        seen.push_back(source.node);
        if (std::optional<ClipCharacter> character = characterBehind(graph, *source.node)) {
            timeline.characters.push_back(std::move(*character));
        }
    }
    addClips(timeline);
    return timeline;
}

Node* schedulerOf(const Node& character) {
    if (Node* own = driverOfType(character, "clipScheduler")) {
        return own;
    }
    for (const auto& [at, library] : character.outgoing()) {
        if (!library.node->type().isKindOf("clipLibrary")) {
            continue;
        }
        for (const auto& [from, scheduler] : library.node->outgoing()) {
            if (scheduler.node->type().isKindOf("clipScheduler")) {
                return scheduler.node;
            }
        }
    }
    return nullptr;
}

Node* clipCurve(const ClipTimeline& timeline, std::int32_t list, std::int32_t curve) {
    const PlugAddress raw = address(timeline.library->type().find("clipEval_Raw")).element(list).element(curve);
    const auto found = timeline.library->incoming().find(raw);
    return found != timeline.library->incoming().end() ? found->second.node : nullptr;
}

} // namespace host
