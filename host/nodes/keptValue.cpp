#include "host/nodes/keptValue.h"

namespace host {

namespace {

/// The channel that an output drives, by itself or as a part of what its compound drives; null when none.
Plug drivenChannel(const Graph& graph, const Plug& output) {
    const std::vector<Plug> own = graph.destinationsOf(output);
    if (!own.empty()) {
        return own.front();
    }
    const AttrIndex compound = output.node->attribute(output.at.attr).parent;
    if (compound == kNoAttr) {
        return {};
    }
    PlugAddress whole = output.at;
    whole.attr = compound;
    for (Plug channel : graph.destinationsOf({output.node, whole})) {
        const std::vector<AttrIndex>& parts = output.node->attribute(compound).children;
        const auto part = static_cast<std::size_t>(output.at.attr - parts.front());
        const std::vector<AttrIndex>& channels = channel.node->attribute(channel.at.attr).children;
        if (part < channels.size()) {
            channel.at.attr = channels[part];
            return channel;
        }
    }
    return {};
}

double storedNumber(const Graph& graph, const Plug& plug) {
    const double otherwise = plug.node->attribute(plug.at.attr).defaultNumber;
    const Value* value = graph.stored(plug);
    const double* number = value != nullptr ? std::get_if<double>(value) : nullptr;
    return number != nullptr ? *number : otherwise;
}

} // namespace

double keptValue(const Graph& graph, const Plug& output) {
    const Plug channel = drivenChannel(graph, output);
    if (!channel) {
        return output.node->attribute(output.at.attr).defaultNumber;
    }
    if (channel.node->type().name() == "unitConversion") {
        Node& conversion = *channel.node;
        const Plug converted = drivenChannel(graph, {&conversion, graph.findPlug(conversion, "output")});
        const double factor = storedNumber(graph, {&conversion, graph.findPlug(conversion, "conversionFactor")});
        return converted && factor != 0.0 ? storedNumber(graph, converted) / factor : storedNumber(graph, channel);
    }
    return storedNumber(graph, channel);
}

} // namespace host
