#include <maya/MIteratorType.h>

#include "host/api/statusResult.h"

using host::succeed;

MIteratorType::MIteratorType() = default;
MIteratorType::~MIteratorType() = default;

MStatus MIteratorType::setFilterType(MFn::Type type) {
    filter_ = type;
    listEnabled_ = false;
    return MStatus::kSuccess;
}

MStatus MIteratorType::setFilterList(const MIntArray& types) {
    filters_ = types;
    listEnabled_ = true;
    return MStatus::kSuccess;
}

MStatus MIteratorType::setObjectType(objFilterType type) {
    objects_ = type;
    return MStatus::kSuccess;
}

MFn::Type MIteratorType::filterType(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, filter_);
}

MStatus MIteratorType::getFilterList(MIntArray& types) const {
    types = filters_;
    return listEnabled_ ? MStatus::kSuccess : MStatus::kFailure;
}

MIteratorType::objFilterType MIteratorType::objectType(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, objects_);
}

bool MIteratorType::filterListEnabled(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, listEnabled_);
}
