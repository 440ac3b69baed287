#include <maya/MFnMatrixData.h>

#include "host/api/ApiAccess.h"
#include "host/api/statusResult.h"
#include "host/api/values/imathConversions.h"

using host::ApiAccess;
using host::fail;
using host::Matrix44;
using host::succeed;

MFnMatrixData::MFnMatrixData() = default;
MFnMatrixData::~MFnMatrixData() = default;

MFnMatrixData::MFnMatrixData(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnMatrixData::setObject(object));
}

namespace {

Matrix44* matrixOf(const MObject& object) {
    host::DataObject* data = ApiAccess::data(object);
    return data != nullptr ? std::get_if<Matrix44>(&data->value) : nullptr;
}

} // namespace

MFn::Type MFnMatrixData::type() const {
    return MFn::kMatrixData;
}

const MMatrix& MFnMatrixData::matrix(MStatus* ReturnStatus) const {
    const Matrix44* value = matrixOf(object_);
    matrix_ = value != nullptr ? host::api::fromImath(*value) : MMatrix();
    host::report(ReturnStatus, value != nullptr ? MStatus::kSuccess : MStatus::kFailure);
    return matrix_;
}

bool MFnMatrixData::isTransformation(MStatus* ReturnStatus) const {
    return matrixOf(object_) != nullptr ? succeed(ReturnStatus, false) : fail<bool>(ReturnStatus, MStatus::kFailure);
}

MTransformationMatrix MFnMatrixData::transformation(MStatus* ReturnStatus) const {
    return MTransformationMatrix(matrix(ReturnStatus));
}

MStatus MFnMatrixData::set(const MMatrix& matrix) {
    Matrix44* value = matrixOf(object_);
    if (value == nullptr) {
        return MStatus::kFailure;
    }
    *value = host::api::toImath(matrix);
    return MStatus::kSuccess;
}

MObject MFnMatrixData::create(MStatus* ReturnStatus) {
    return create(MMatrix(), ReturnStatus);
}

MObject MFnMatrixData::create(const MMatrix& matrix, MStatus* ReturnStatus) {
    object_ = ApiAccess::object(host::ObjectPayload{host::DataObject{host::api::toImath(matrix)}});
    return succeed(ReturnStatus, object_);
}
