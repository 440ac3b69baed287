#pragma once

#include <maya/MFn.h>
#include <maya/MTypes.h>

#include <cstdint>
#include <memory>

namespace host {
class ApiAccess;
struct ObjectPayload;
} // namespace host

/// Handle to a node, an attribute, a data value, a component or a plug-in. It keeps no node alive: a handle to a
/// deleted node, or to a node of a scene that is no longer open, is null from then on. Data and components live as long
/// as the handle.
class MObject {
public:
    MObject();
    MObject(const MObject& other);
    ~MObject();
    MObject& operator=(const MObject& other);

    /// Whether a function set of this type may be attached. True for kBase on everything that is not null.
    bool hasFn(MFn::Type type) const;
    bool isNull() const;
    /// kInvalid when null.
    MFn::Type apiType() const;
    /// "kTransform", "kMesh" …; "kInvalid" when null.
    const char* apiTypeStr() const;

    /// Same node, same attribute, same data value, or equal components. All null objects are equal.
    bool operator==(const MObject& other) const;
    bool operator!=(const MObject& other) const;
    /// True when null.
    bool operator!() const;

    static MObject kNullObj;

private:
    friend class host::ApiAccess;
    std::shared_ptr<host::ObjectPayload> payload_; // empty for nodes
    std::uint32_t slot_ = 0, generation_ = 0;
};
