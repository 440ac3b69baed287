#pragma once

#include <maya/MAngle.h>
#include <maya/MDGContext.h>
#include <maya/MDistance.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <array>
#include <cstdint>

class MPlugArray;

/// A place of one node that holds or computes a value: an attribute, an element of an array attribute, or a child of a
/// compound. Numbers come in internal units: radians, centimetres; read times as MTime.
///
/// Every question to a null plug, or to a plug of a node that is gone, fails with a status and answers nothing (false,
/// 0,
/// "", a null plug).
class MPlug {
public:
    enum FreeToChangeState { kFreeToChange = 0, kNotFreeToChange, kChildrenNotFreeToChange };

    MPlug();
    MPlug(const MPlug& other);
    /// Fails when the node has no such attribute. An attribute below an array gives a plug without indices, see
    /// selectAncestorLogicalIndex.
    MPlug(const MObject& node, const MObject& attribute, MStatus* ReturnStatus = nullptr);
    ~MPlug();
    MPlug& operator=(const MPlug& other);

    bool isNull(MStatus* ReturnStatus = nullptr) const;
    MObject node(MStatus* ReturnStatus = nullptr) const;
    MObject attribute(MStatus* ReturnStatus = nullptr) const;

    /// "node.longName", with indices and, below compounds and arrays of them, the attributes on the way.
    MString name(MStatus* ReturnStatus = nullptr) const;
    /// "node:a.b[3]" in long names.
    MString info(MStatus* ReturnStatus = nullptr) const;
    /// Short names, from the outermost array above on, by default. useFullAttributePath adds the compounds above it;
    /// the element of a world-space array has an index with includeInstancedIndices or includeNonMandatoryIndices only;
    /// useAlias gives the alias instead when the plug has one.
    MString partialName(bool includeNodeName = false, bool includeNonMandatoryIndices = false,
                        bool includeInstancedIndices = false, bool useAlias = false, bool useFullAttributePath = false,
                        bool useLongNames = false, MStatus* ReturnStatus = nullptr) const;

    bool isArray(MStatus* ReturnStatus = nullptr) const;
    bool isElement(MStatus* ReturnStatus = nullptr) const;
    bool isCompound(MStatus* ReturnStatus = nullptr) const;
    bool isChild(MStatus* ReturnStatus = nullptr) const;
    bool isNetworked(MStatus* ReturnStatus = nullptr) const;
    bool isConnected(MStatus* ReturnStatus = nullptr) const;
    bool isSource(MStatus* ReturnStatus = nullptr) const;
    bool isDestination(MStatus* ReturnStatus = nullptr) const;
    bool isKeyable(MStatus* ReturnStatus = nullptr) const;
    bool isChannelBoxFlag(MStatus* ReturnStatus = nullptr) const;
    bool isLocked(MStatus* ReturnStatus = nullptr) const;
    bool isCaching(MStatus* ReturnStatus = nullptr) const;
    bool isConnectable(MStatus* ReturnStatus = nullptr) const;
    bool isDynamic(MStatus* ReturnStatus = nullptr) const;
    /// Whether setValue would be taken: not locked, not a destination, not computed. The flags add the compounds and
    /// arrays above and the children of a compound.
    FreeToChangeState isFreeToChange(bool checkParents = true, bool checkChildren = true,
                                     MStatus* ReturnStatus = nullptr) const;
    bool isDefaultValue(MStatus* ReturnStatus = nullptr) const;

    MPlug child(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MPlug child(const MObject& attribute, MStatus* ReturnStatus = nullptr) const;
    unsigned int numChildren(MStatus* ReturnStatus = nullptr) const;
    MPlug parent(MStatus* ReturnStatus = nullptr) const;
    MPlug array(MStatus* ReturnStatus = nullptr) const;
    unsigned int logicalIndex(MStatus* ReturnStatus = nullptr) const;
    unsigned int numElements(MStatus* ReturnStatus = nullptr) const;
    unsigned int evaluateNumElements(MStatus* ReturnStatus = nullptr);
    unsigned int numConnectedElements(MStatus* ReturnStatus = nullptr) const;
    unsigned int numConnectedChildren(MStatus* ReturnStatus = nullptr) const;
    /// Physical: the n-th of the elements that exist. Fails with a null plug when out of range.
    MPlug elementByPhysicalIndex(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    /// Logical: the number that scenes and MEL write. The element need not exist; reading it gives the default.
    MPlug elementByLogicalIndex(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MPlug connectionByPhysicalIndex(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MPlug operator[](unsigned int physicalIndex) const;
    /// Logical indices of the elements that exist, ascending; returns their number.
    unsigned int getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus = nullptr) const;
    /// Sets the index of an array above this plug (the nearest one, or that of `attribute`).
    MStatus selectAncestorLogicalIndex(unsigned int index, const MObject& attribute = MObject::kNullObj);

    /// The plugs at the other ends of this plug's own connections: its source (asDst), what it drives (asSrc).
    /// Replaces `array`; true when there are any. Connections of parents, children and elements do not count.
    bool connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus = nullptr) const;
    /// The source without unit conversions on the way; a null plug when there is none, which is no failure.
    MPlug source(MStatus* ReturnStatus = nullptr) const;
    MPlug sourceWithConversion(MStatus* ReturnStatus = nullptr) const;
    bool destinations(MPlugArray& array, MStatus* ReturnStatus = nullptr) const;

    MStatus getValue(MObject& value) const;
    MStatus getValue(double& value) const;
    MStatus getValue(float& value) const;
    MStatus getValue(MInt64& value) const;
    MStatus getValue(int& value) const;
    MStatus getValue(short& value) const;
    MStatus getValue(bool& value) const;
    MStatus getValue(char& value) const;
    MStatus getValue(MDistance& value) const;
    MStatus getValue(MAngle& value) const;
    MStatus getValue(MTime& value) const;
    MStatus getValue(MString& value) const;

    MStatus getValue(MObject& value, const MDGContext& context) const;
    MStatus getValue(double& value, const MDGContext& context) const;
    MStatus getValue(float& value, const MDGContext& context) const;
    MStatus getValue(MInt64& value, const MDGContext& context) const;
    MStatus getValue(int& value, const MDGContext& context) const;
    MStatus getValue(short& value, const MDGContext& context) const;
    MStatus getValue(bool& value, const MDGContext& context) const;
    MStatus getValue(char& value, const MDGContext& context) const;
    MStatus getValue(MDistance& value, const MDGContext& context) const;
    MStatus getValue(MAngle& value, const MDGContext& context) const;
    MStatus getValue(MTime& value, const MDGContext& context) const;
    MStatus getValue(MString& value, const MDGContext& context) const;

    MObject asMObject(MStatus* ReturnStatus = nullptr) const;
    double asDouble(MStatus* ReturnStatus = nullptr) const;
    float asFloat(MStatus* ReturnStatus = nullptr) const;
    MInt64 asInt64(MStatus* ReturnStatus = nullptr) const;
    int asInt(MStatus* ReturnStatus = nullptr) const;
    short asShort(MStatus* ReturnStatus = nullptr) const;
    bool asBool(MStatus* ReturnStatus = nullptr) const;
    char asChar(MStatus* ReturnStatus = nullptr) const;
    MDistance asMDistance(MStatus* ReturnStatus = nullptr) const;
    MAngle asMAngle(MStatus* ReturnStatus = nullptr) const;
    MTime asMTime(MStatus* ReturnStatus = nullptr) const;
    MString asString(MStatus* ReturnStatus = nullptr) const;

    MObject asMObject(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    double asDouble(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    float asFloat(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    MInt64 asInt64(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    int asInt(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    short asShort(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    bool asBool(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    char asChar(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    MDistance asMDistance(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    MAngle asMAngle(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    MTime asMTime(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;
    MString asString(const MDGContext& context, MStatus* ReturnStatus = nullptr) const;

    /// Fail on locked plugs, destinations of connections, computed attributes, and values of the wrong kind.
    MStatus setValue(const MObject& value);
    MStatus setValue(double value);
    MStatus setValue(float value);
    MStatus setValue(MInt64 value);
    MStatus setValue(int value);
    MStatus setValue(short value);
    MStatus setValue(bool value);
    MStatus setValue(char value);
    MStatus setValue(const MDistance& value);
    MStatus setValue(const MAngle& value);
    MStatus setValue(const MTime& value);
    MStatus setValue(const MString& value);
    MStatus setValue(const char* value);

    MStatus setLocked(bool locked);

    bool operator==(const MPlug& other) const;
    bool operator!=(const MPlug& other) const;
    /// Whether it is a plug of this attribute.
    bool operator==(const MObject& attribute) const;
    bool operator!=(const MObject& attribute) const;

private:
    friend class host::ApiAccess;
    MObject node_;
    std::int32_t attribute_ = -1;
    std::int8_t depth_ = 0;
    std::array<std::int32_t, 4> index_{};
};
