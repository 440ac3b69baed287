#pragma once

#include "host/api/ObjectPayload.h"
#include "host/graph/DagPath.h"
#include "host/mel/Value.h"
#include "host/scene/Selection.h"

#include <maya/MArgParser.h>
#include <maya/MCommandResult.h>
#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>
#include <maya/MSyntax.h>

#include <memory>
#include <optional>
#include <string>

namespace host {

struct CommandSyntax;
struct ParsedArguments;

/// The door between the classes of the API and the host behind them. Everything that reads a handle finds nothing
/// (null, nullopt, a false Plug) when the handle is empty or its node is gone.
class ApiAccess {
public:
    // --- nodes
    static MObject object(const Node& node);
    static MObject object(const Node* node); // null gives a null object
    static Node* node(const MObject& object);

    // --- everything else that an object may be
    static MObject object(ObjectPayload payload);
    static const AttributeObject* attribute(const MObject& object);
    static DataObject* data(const MObject& object);
    static ComponentObject* component(const MObject& object);
    static PluginObject* plugin(const MObject& object);

    // --- attributes
    static MObject attributeObject(const Node& node, AttrIndex attr);
    /// The attribute's index in this node; kNoAttr when the node has no such attribute.
    static AttrIndex attributeOn(const Node& node, const MObject& attribute);
    /// Null when the object is no attribute, or one of a node that is gone.
    static const Attribute* attributeRow(const MObject& attribute);

    // --- plugs and paths
    static MPlug plug(const Plug& plug);
    static Plug plug(const MPlug& plug);
    static MDagPath path(const DagPath& path);
    /// Nothing when the path is not set, a node on it is gone, or is no child of the one before any longer.
    static std::optional<DagPath> path(const MDagPath& path);
    /// The node at its end, which may be the world. Null when there is no such path, as above; unlike it, this costs
    /// the same for deep paths once one of them was looked at.
    static Node* end(const MDagPath& path);

    // --- selection
    /// One entry per kind of component.
    static void append(MSelectionList& list, const SelectionItem& item);
    /// Nothing for entries whose node is gone.
    static std::vector<SelectionItem> items(const MSelectionList& list);

    // --- commands
    static CommandSyntax& syntax(MSyntax& syntax) { return *syntax.syntax_; }
    static const CommandSyntax& syntax(const MSyntax& syntax) { return *syntax.syntax_; }
    static void setSyntax(MPxCommand& command, const MSyntax& syntax) { command.syntax_ = syntax; }
    static void setValue(MCommandResult& result, mel::Value value);
    static const mel::Value& value(const MCommandResult& result) { return *result.value_; }
};

} // namespace host
