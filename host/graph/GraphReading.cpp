#include "host/graph/Evaluation.h"
#include "host/graph/Graph.h"
#include "host/graph/GraphImpl.h"
#include "host/graph/evaluationOrder.h"
#include "host/graph/numberConversion.h"
#include "host/graph/plugSteps.h"
#include "host/graph/storedValues.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

/// Compute functions that call each other through plugs use the stack. From the first depth on, what a plug needs is
/// computed ahead in order, so that calls nest no deeper; where that does not help (a node read what it is not
/// connected to), the second depth ends it. Frames under a sanitizer take a few kilobytes each; 400 fit well into 8 MB.
constexpr int kDepthToPrepare = 300;
constexpr int kDepthToGiveUp = 400;

/// Marks an output as being computed.
class Nesting {
public:
    Nesting(PlugSet& computing, int& depth, const Plug& output)
        : computing_(computing), depth_(depth), output_(output) {
        computing_.insert(output_);
        ++depth_;
    }
    ~Nesting() {
        computing_.erase(output_);
        --depth_;
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    PlugSet& computing_;
    int& depth_;
    Plug output_;
};

/// Where the connections that drive a plug begin, and which kinds the number passes on the way, the plug asked for
/// first.
struct Chain {
    Plug end;
    std::vector<AttrKind> wholeKinds;
    bool cycle = false; // `end` is the first plug that came a second time

    void pass(const Plug& plug) {
        const AttrKind kind = plug.node->attribute(plug.at.attr).kind;
        if (isWholeNumberKind(kind) && (wholeKinds.empty() || wholeKinds.back() != kind)) {
            wholeKinds.push_back(kind);
        }
    }
};

Chain followCycle(const Graph& graph, const Plug& plug) {
    Chain chain{plug, {}, true};
    PlugSet seen;
    while (seen.insert(chain.end).second) {
        chain.pass(chain.end);
        chain.end = graph.valueSource(chain.end);
    }
    return chain;
}

Chain followSources(const Graph& graph, const Plug& plug) {
    Chain chain{plug, {}, false};
    // Brent's way to see a cycle without remembering every plug: a mark that moves on at doubling distances.
    Plug mark = plug;
    std::size_t steps = 0;
    std::size_t limit = 1;
    for (Plug source = graph.valueSource(plug); source; source = graph.valueSource(source)) {
        if (source == mark) {
            return followCycle(graph, plug);
        }
        chain.pass(chain.end);
        chain.end = source;
        if (++steps == limit) {
            mark = source;
            limit *= 2;
            steps = 0;
        }
    }
    return chain;
}

} // namespace

/// What stands at the end of a chain of connections, computed if need be; empty when the default holds.
StoredPlace Graph::placeNow(const Plug& end) {
    const Node& node = *end.node;
    const Attribute& attribute = node.attribute(end.at.attr);
    if (attribute.kind == AttrKind::kCompound || !isOneValue(node, end.at)) {
        return {};
    }
    if (attribute.computed && node.type().compute != nullptr && node.incoming_.count(end.at) == 0) {
        if (const Value* computed = computedValue(end)) {
            StoredPlace place;
            place.value = computed;
            return place;
        }
    }
    return findStored(node, node.values_, end.at);
}

/// Null when it cannot be computed now: within a cycle, or too deep.
const Value* Graph::computedValue(const Plug& output) {
    Node& node = *output.node;
    if (const auto found = node.cache_.find(output.at); found != node.cache_.end()) {
        return &found->second;
    }
    if (impl_->computing.count(output) != 0) {
        warn("Cycle in the graph at " + messageName(*this, output) + " (its stored value is used)");
        return nullptr;
    }
    if (!makeRoom(output)) {
        return nullptr;
    }
    {
        const Nesting nesting(impl_->computing, impl_->depth, output);
        Evaluation evaluation(*this);
        ++impl_->computeCount;
        node.type().compute(evaluation, node, output.at);
    }
    auto found = node.cache_.find(output.at);
    if (found == node.cache_.end()) {
        putCached(node, output.at, {}); // the default, and not to be asked for again
        found = node.cache_.find(output.at);
    }
    return &found->second;
}

/// Whether there is stack for one more computation; computes ahead what it needs when there soon is not.
bool Graph::makeRoom(const Plug& output) {
    if (impl_->depth < kDepthToPrepare) {
        return true;
    }
    if (impl_->depth >= kDepthToGiveUp) {
        impl_->everGaveUp = true;
        warn("Too many nodes depend on each other at " + messageName(*this, output) + " (its stored value is used)");
        return false;
    }
    if (!impl_->preparing) {
        impl_->preparing = true;
        for (const Plug& needed : evaluationOrder(*this, output)) {
            if (impl_->computing.count(needed) == 0) {
                computedValue(needed);
            }
        }
        impl_->preparing = false;
    }
    return true;
}

void Graph::putCached(Node& node, const PlugAddress& at, Value value) {
    const auto [entry, added] = node.cache_.insert_or_assign(at, std::move(value));
    impl_->cachedCount += added ? 1 : 0;
    const std::vector<AttrIndex>& placed = node.type().worldOutputs();
    AttrIndex top = at.attr;
    while (node.attribute(top).parent != kNoAttr && node.attribute(node.attribute(top).parent).computed) {
        top = node.attribute(top).parent;
    }
    if (node.worldDropped_ && std::find(placed.begin(), placed.end(), top) != placed.end()) {
        forgetWorldDropped(node);
    }
}

/// A world-space output of this node is cached: it is not dropped any more, nor is everything below its ancestors.
void Graph::forgetWorldDropped(Node& node) {
    std::vector<Node*> open{&node};
    while (!open.empty()) {
        Node& next = *open.back();
        open.pop_back();
        if (next.worldDropped_) {
            next.worldDropped_ = false;
            open.insert(open.end(), next.parents_.begin(), next.parents_.end());
        }
    }
}

double Graph::numberAt(const Plug& end) {
    const NodeType& type = end.node->type();
    if (type.timeDriven && end.at.attr == type.timeInput && !drivingSource(end)) {
        return static_cast<double>(time_);
    }
    const StoredPlace place = placeNow(end);
    if (place.rows != nullptr) {
        return place.rows->value(place.row, place.column);
    }
    const Attribute& attribute = end.node->attribute(end.at.attr);
    if (place.value == nullptr || std::holds_alternative<std::monostate>(*place.value)) {
        return isNumeric(attribute.kind) && isOneValue(*end.node, end.at) ? attribute.defaultNumber : 0.0;
    }
    const double* number = std::get_if<double>(place.value);
    return number != nullptr ? *number : 0.0;
}

/// The value that drives the plug, or its own; null when the default holds.
const Value* Graph::valueNow(const Plug& plug) {
    if (!plug) {
        return nullptr;
    }
    const Chain chain = followSources(*this, plug);
    warnOfCycle(chain.end, chain.cycle);
    return placeNow(chain.end).value;
}

void Graph::warnOfCycle(const Plug& plug, bool isCycle) {
    if (isCycle) {
        warn("Cycle in the graph at " + messageName(*this, plug) + " (its stored value is used)");
    }
}

double Graph::number(const Plug& plug) {
    if (!plug) {
        return 0.0;
    }
    const AttrKind kind = plug.node->attribute(plug.at.attr).kind;
    if (!isNumeric(kind) && kind != AttrKind::kGeneric) {
        return 0.0;
    }
    const Chain chain = followSources(*this, plug);
    warnOfCycle(chain.end, chain.cycle);
    double value = numberAt(chain.end);
    for (auto passed = chain.wholeKinds.rbegin(); passed != chain.wholeKinds.rend(); ++passed) {
        value = convertNumber(value, *passed);
    }
    return value;
}

std::string Graph::string(const Plug& plug) {
    const Value* value = valueNow(plug);
    const std::string* text = value != nullptr ? std::get_if<std::string>(value) : nullptr;
    return text != nullptr ? *text : std::string();
}

Matrix44 Graph::matrix(const Plug& plug) {
    const Value* value = valueNow(plug);
    const auto* held = value != nullptr ? std::get_if<std::shared_ptr<const Matrix44>>(value) : nullptr;
    return held != nullptr && *held != nullptr ? **held : Matrix44();
}

DataPtr Graph::data(const Plug& plug) {
    const Value* value = valueNow(plug);
    const DataPtr* held = value != nullptr ? std::get_if<DataPtr>(value) : nullptr;
    return held != nullptr ? *held : nullptr;
}

} // namespace host
