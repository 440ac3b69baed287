#include "host/mel/Interpreter.h"
#include "host/scene/addAttrStatement.h"
#include "host/scene/attributeValueResult.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/setAttrStatement.h"

#include <utility>

namespace host {

namespace {

using mel::CommandResult;
using mel::FlagArgument;
using mel::FlagSyntax;
using mel::ParsedFlags;

/// Whatever the time is set to within its scope, it is as before afterwards.
class OtherTime {
public:
    explicit OtherTime(Scene& scene) : scene_(scene), before_(scene.graph().time()) {}
    ~OtherTime() { scene_.graph().setTime(before_); }
    OtherTime(const OtherTime&) = delete;
    OtherTime& operator=(const OtherTime&) = delete;

private:
    Scene& scene_;
    Ticks before_;
};

bool flagOf(const Plug& plug, std::optional<bool> PlugFlags::*changed, bool Attribute::*own) {
    const PlugFlags* flags = plug.node->flags(plug.at);
    return flags != nullptr && flags->*changed ? *(flags->*changed) : plug.node->attribute(plug.at.attr).*own;
}

CommandResult getAttrCommand(Scene& scene, const ParsedFlags& flags) {
    const std::vector<std::string> names = flags.objectNames();
    if (names.size() != 1) {
        return failure(messages::kNeedsObjects, {"getAttr", "the name of one attribute"});
    }
    StatementContext context(scene, false);
    PlugTarget target = findTarget(context, names[0]);
    if (!target.ok()) {
        return CommandResult::failure(std::move(target.failure.text));
    }
    const Plug plug = scene.findPlug(names[0]).plug;
    const Plug named = plug ? plug : target.plug();
    Graph& graph = scene.graph();
    if (flags.has("type")) {
        return CommandResult(attributeTypeName(*named.node, named.at.attr));
    }
    if (flags.has("size")) {
        return CommandResult(graph.elementIndices(target.plug()).size());
    }
    if (flags.has("multiIndices")) {
        const std::vector<std::int32_t> indices = graph.elementIndices(target.plug());
        return CommandResult(mel::IntArray(indices.begin(), indices.end()));
    }
    if (flags.has("lock")) {
        return CommandResult(graph.isLocked(named));
    }
    if (flags.has("settable")) {
        return CommandResult(graph.isFreeToChange(named).ok());
    }
    if (flags.has("keyable")) {
        return CommandResult(flagOf(named, &PlugFlags::keyable, &Attribute::keyable));
    }
    if (flags.has("channelBox")) {
        return CommandResult(flagOf(named, &PlugFlags::channelBox, &Attribute::channelBox));
    }
    const OtherTime time(scene);
    if (flags.has("time")) {
        scene.setCurrentFrame(flags.value("time").toFloat());
    }
    if (!target.range.isRange) {
        return CommandResult(attributeValue(scene, named));
    }
    mel::FloatArray numbers;
    for (const std::int32_t index : graph.elementIndices(target.plug())) {
        if (index >= target.range.first && index <= target.range.last) {
            const mel::Value value = attributeValue(scene, {target.node, target.range.at.element(index)});
            numbers.insert(numbers.end(), value.floats().begin(), value.floats().end());
            if (value.isNumber()) {
                numbers.push_back(value.toFloat());
            }
        }
    }
    return CommandResult(std::move(numbers));
}

} // namespace

void registerAttributeCommands(mel::CommandTable& commands, Scene& scene) {
    addStatement(commands, scene, "setAttr", setAttrStatement);
    addStatement(commands, scene, "addAttr", addAttrStatement);
    addCommand(commands, scene, "getAttr",
               FlagSyntax({{"typ", "type"},
                           {"s", "size"},
                           {"mi", "multiIndices"},
                           {"l", "lock"},
                           {"se", "settable"},
                           {"k", "keyable"},
                           {"cb", "channelBox"},
                           {"t", "time", {FlagArgument::kFloat}}}),
               getAttrCommand);
}

} // namespace host
