#include "host/scene/Placeholders.h"

#include "host/graph/plugSteps.h"
#include "host/scene/connectionStatements.h"
#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <cstddef>

namespace host {

namespace {

bool isPlaceholder(std::string_view name) {
    return name.find(".placeHolderList[") != std::string_view::npos || name.find(".phl[") != std::string_view::npos;
}

} // namespace

std::string placedName(const Scene& scene, const std::string& name) {
    const std::size_t end = std::min(name.find('.'), name.size());
    const std::string node = name.substr(0, end);
    const std::size_t bar = node.rfind('|');
    if (bar == std::string::npos || scene.find(node).ok()) {
        return name;
    }
    const std::string own = node.substr(bar + 1);
    return scene.find(own).ok() ? own + name.substr(end) : name;
}

Outcome Placeholders::connect(const std::vector<std::string>& texts) {
    if (!isPlaceholder(texts[2])) {
        return connectBoth(texts);
    }
    PlugTarget real = findConnectionEnd(context_, placedName(context_.scene, texts[1]));
    PlugTarget holder = findConnectionEnd(context_, texts[2]);
    if (!real.ok() || !holder.ok()) {
        return real.ok() ? std::move(holder.failure) : std::move(real.failure);
    }
    places_.push_back({holder.plug(), real.plug()});
    reals_[{holder.node, holder.plug().at}] = real.plug();
    return Outcome::done();
}

Outcome Placeholders::connectBoth(const std::vector<std::string>& texts) {
    PlugTarget source = findConnectionEnd(context_, placedName(context_.scene, texts[1]));
    PlugTarget destination = findConnectionEnd(context_, placedName(context_.scene, texts[2]));
    if (!source.ok() || !destination.ok()) {
        return source.ok() ? std::move(destination.failure) : std::move(source.failure);
    }
    Outcome outcome = join(source.plug(), destination.plug());
    for (std::size_t at = 3; at < texts.size() && isPlaceholder(texts[at]); ++at) {
        const PlugTarget holder = findConnectionEnd(context_, texts[at]);
        const Plug from = holder.ok() ? context_.scene.graph().sourceOf(holder.plug()) : Plug();
        if (from) {
            (void)context_.scene.graph().disconnect(from, holder.plug());
        }
    }
    return outcome;
}

Plug Placeholders::realOf(const Plug& plug) const {
    const auto found = reals_.find({plug.node, plug.at});
    return found == reals_.end() ? plug : found->second;
}

// The scene's own connection takes the place of the one that the reference has.
Outcome Placeholders::join(const Plug& source, Plug destination) {
    Graph& graph = context_.scene.graph();
    if (isWholeArray(*destination.node, destination.at) && !isWholeArray(*source.node, source.at)) {
        destination.at = destination.at.element(graph.nextAvailableIndex(destination));
    }
    GraphResult result = graph.connect(source, destination, true);
    return result.ok() ? Outcome::done() : Outcome::skipped(std::move(result.error));
}

void Placeholders::replace() {
    Graph& graph = context_.scene.graph();
    std::vector<std::pair<Plug, Plug>> links;
    for (const Place& place : places_) {
        if (const Plug source = graph.sourceOf(place.holder)) {
            links.emplace_back(source, place.holder);
        }
        for (const Plug& destination : graph.destinationsOf(place.holder)) {
            links.emplace_back(place.holder, destination);
        }
    }
    for (const auto& [source, destination] : links) {
        // Between two references a link is met at both of its ends.
        if (graph.disconnect(source, destination).ok()) {
            const Outcome outcome = join(realOf(source), realOf(destination));
            if (!outcome.ok()) {
                context_.warn(outcome.text);
            }
        }
    }
}

} // namespace host
