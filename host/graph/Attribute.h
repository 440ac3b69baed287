#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// Position of an attribute in its node's list: the attributes of the node's type first (inherited ones leading),
/// then the node's own dynamic ones in the order in which they were added.
using AttrIndex = std::int32_t;
constexpr AttrIndex kNoAttr = -1;

/// What one value of an attribute is. Numbers of every kind are held as double in internal units:
/// centimetres, radians, ticks of time; booleans as 0 and 1; enums and integers as whole numbers.
enum class AttrKind : std::uint8_t {
    kBool,
    kByte,
    kChar,
    kShort,
    kInt,
    kEnum,
    kFloat,
    kDouble,
    kDistance,
    kAngle,
    kTime,
    kString,
    kMatrix,
    kMessage,
    kCompound,
    kData,    // an immutable Data object whose DataKind is `dataKind`
    kGeneric, // holds whatever was set last
};

constexpr bool isNumeric(AttrKind kind) {
    return kind <= AttrKind::kTime;
}

enum class DataKind : std::uint8_t {
    kNone,
    kStringArray,
    kDoubleArray,
    kFloatArray,
    kIntArray,
    kPointArray,
    kVectorArray,
    kMatrixArray,
    kComponentList,
    kAttributeAlias,
    kPolyFaces,
    kMesh,
    kNurbsCurve,
    kNurbsSurface,
    kLattice,
    kOther, // accepted and kept as nothing: the value is not needed by anything that evaluates
};

struct EnumLabel {
    std::string label;
    int value = 0;
};

/// One attribute of a node type, or one dynamic attribute of a node.
struct Attribute {
    std::string longName;
    std::string shortName;
    std::string niceName;
    std::string fileType; // the word of the scene file for it: "double3", "bool", "string" …
    AttrKind kind = AttrKind::kGeneric;
    DataKind dataKind = DataKind::kNone;

    bool array = false;    // a multi: its elements have sparse logical indices from 0 on
    bool computed = false; // an output of the node's compute function; cannot be set, what a file has for it is ignored
    bool worldSpace = false; // an array with one element per DAG path of the node
    bool readable = true;    // may be the source of a connection
    bool writable = true;    // may be set, or be the destination of a connection
    bool keyable = false;
    bool channelBox = false;
    bool storable = true;
    bool hidden = false;
    bool dynamic = false;
    bool indexMatters = true;
    bool usedAsColor = false;
    bool usedAsFilename = false;

    double defaultNumber = 0.0;                                       // internal units
    std::optional<double> minimum, maximum, softMinimum, softMaximum; // as the file gives them
    std::vector<EnumLabel> labels;

    AttrIndex parent = kNoAttr;      // the compound it is a child of
    std::vector<AttrIndex> children; // of a compound, in declared order
    int arrayDepth = 0;              // arrays on the way from the top attribute down to and including this one
    bool rows = false; // an array whose elements are plain numbers, or compounds of plain numbers: held as NumberRows
};

} // namespace host
