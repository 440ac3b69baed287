#pragma once

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

/// Base of the function sets: operations on an object of a certain type. A function set may be attached to another
/// object at any time; it keeps no node alive, and each operation on a node that is gone fails.
class MFnBase {
public:
    virtual ~MFnBase();

    virtual MFn::Type type() const;
    bool hasObj(MFn::Type type) const;
    bool hasObj(const MObject& object) const;
    /// A null object, and a failing status, when nothing is attached.
    MObject object(MStatus* ReturnStatus = nullptr) const;
    /// Fails with kInvalidParameter on an object of the wrong type and on null objects, and stays as it was.
    virtual MStatus setObject(const MObject& object);

protected:
    MFnBase();
    MFnBase(const MFnBase&) = delete;
    MFnBase& operator=(const MFnBase&) = delete;

    MObject object_;
};
