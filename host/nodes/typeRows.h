#pragma once

#include "host/graph/NodeType.h"

#include <cstddef>
#include <string_view>

namespace host {

/// Default of every number of an attribute, in the unit in which people write it: degrees for angles, else as stored.
struct RowDefault {
    constexpr RowDefault(double all = 0.0) : value{all, all, all, all} {} // a row says just 0.5
    constexpr RowDefault(double a, double b, double c, double d = 0.0) : value{a, b, c, d} {}

    double value[4];
};

/// What is special about an attribute; combined with |.
namespace row {
constexpr unsigned kArray = 1U << 0U;
constexpr unsigned kComputed = 1U << 1U; // an output of the type's compute function
constexpr unsigned kWorld = 1U << 2U;    // an array with an element per DAG path; implies kArray
constexpr unsigned kKeyable = 1U << 3U;
constexpr unsigned kChannelBox = 1U << 4U;
constexpr unsigned kHidden = 1U << 5U;
constexpr unsigned kUnordered = 1U << 6U; // an array whose indices mean nothing (connectAttr -nextAvailable)
constexpr unsigned kColor = 1U << 7U;
constexpr unsigned kFileName = 1U << 8U;
} // namespace row

/// One attribute of a node type, as the tables of this room write it.
///
/// longName   a leading '.' per level makes it a child of the last row with one '.' less, which must be "compound"
/// kind       bool byte char short long enum float double distance floatLinear angle time string matrix message
///            compound any geometry, a data kind (mesh componentList …), or a number kind with a count: float3
///            distance3 bool3 …
/// children   of a counted kind, how its numbers are named (short names are lower case unless given):
///              "XYZ", "RGB", "UV", "012"    those letters after the names of the row; also "XYZW", "RGBA", "UVW"
///              "RGB=ac"                      likewise, but the short names start with "ac"
///              "shearXY shxy shearXZ shxz"   long and short name of each
/// labels     of an enum: "None:Linear:Quadratic=5:Cubic"; numbers go on by one
struct AttributeRow {
    std::string_view longName;
    std::string_view shortName;
    std::string_view kind;
    std::string_view children{};
    RowDefault value{};
    unsigned flags = 0;
    std::string_view labels{};
};

struct TypeBehaviour {
    DagRole dagRole = DagRole::kNone;  // kNone: the parent's
    ComputeFunction compute = nullptr; // null: the parent's
    std::string_view timeInput{};      // this input means the current time while it is unconnected
    bool notEvaluated = false;         // outputs are not computed as the real host computes them, but left or passed on
    int family = 0;                    // an API type that it answers to beside those of its ancestors
};

/// One node type. Its ancestors' API types are its families.
struct TypeRow {
    constexpr TypeRow(std::string_view typeName, std::string_view parentName, int api, TypeBehaviour how = {})
        : name(typeName), parent(parentName), apiType(api), behaviour(how) {}
    template <std::size_t Count>
    constexpr TypeRow(std::string_view typeName, std::string_view parentName, int api,
                      const AttributeRow (&rows)[Count], TypeBehaviour how = {})
        : name(typeName), parent(parentName), apiType(api), attributes(rows), attributeCount(Count), behaviour(how) {}

    std::string_view name;
    std::string_view parent; // registered before; "" for the root
    int apiType;
    const AttributeRow* attributes = nullptr;
    std::size_t attributeCount = 0;
    TypeBehaviour behaviour;
};

/// Adds the types to the registry, in order. Rows that contradict themselves or each other (an unknown kind or parent,
/// a name taken within the type) are a mistake of this program and throw std::logic_error with type and attribute.
void registerRows(NodeTypeRegistry& types, const TypeRow* rows, std::size_t count);

template <std::size_t Count>
void registerRows(NodeTypeRegistry& types, const TypeRow (&rows)[Count]) {
    registerRows(types, rows, Count);
}

} // namespace host
