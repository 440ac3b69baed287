#pragma once

#include <maya/MFn.h>
#include <maya/MIntArray.h>
#include <maya/MStatus.h>

/// What an iterator returns: objects of one type or of any of several.
class MIteratorType {
public:
    enum objFilterType { kMObject = 0, kMDagPathObject, kMPlugObject };

    MIteratorType();
    ~MIteratorType();

    MStatus setFilterType(MFn::Type type);
    MStatus setFilterList(const MIntArray& types);
    MStatus setObjectType(objFilterType type);

    MFn::Type filterType(MStatus* ReturnStatus = nullptr) const;
    MStatus getFilterList(MIntArray& types) const;
    objFilterType objectType(MStatus* ReturnStatus = nullptr) const;
    bool filterListEnabled(MStatus* ReturnStatus = nullptr) const;

private:
    MFn::Type filter_ = MFn::kInvalid;
    MIntArray filters_;
    bool listEnabled_ = false;
    objFilterType objects_ = kMObject;
};
