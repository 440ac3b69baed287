#include <maya/MFnNumericData.h>

#include "host/api/ApiAccess.h"
#include "host/api/statusResult.h"

#include <array>

using host::ApiAccess;
using host::fail;
using host::NumericValue;
using host::succeed;

MFnNumericData::MFnNumericData() = default;
MFnNumericData::~MFnNumericData() = default;

MFnNumericData::MFnNumericData(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnNumericData::setObject(object));
}

namespace {

NumericValue* tupleOf(const MObject& object) {
    host::DataObject* data = ApiAccess::data(object);
    return data != nullptr ? std::get_if<NumericValue>(&data->value) : nullptr;
}

template <class T, std::size_t Count>
MStatus get(const MObject& object, MFnNumericData::Type type, const std::array<T*, Count>& out) {
    const NumericValue* tuple = tupleOf(object);
    if (tuple == nullptr || tuple->type != type) {
        return MStatus::kFailure;
    }
    for (std::size_t i = 0; i < Count; ++i) {
        *out[i] = static_cast<T>(tuple->numbers[i]);
    }
    return MStatus::kSuccess;
}

MStatus set(const MObject& object, MFnNumericData::Type type, const std::array<double, 4>& numbers) {
    NumericValue* tuple = tupleOf(object);
    if (tuple == nullptr || tuple->type != type) {
        return MStatus::kFailure;
    }
    tuple->numbers = numbers;
    return MStatus::kSuccess;
}

} // namespace

MFn::Type MFnNumericData::type() const {
    return MFn::kNumericData;
}

MFnNumericData::Type MFnNumericData::numericType(MStatus* ReturnStatus) const {
    const NumericValue* tuple = tupleOf(object_);
    return tuple != nullptr ? succeed(ReturnStatus, tuple->type) : fail(ReturnStatus, MStatus::kFailure, kInvalid);
}

MStatus MFnNumericData::getData(short& a, short& b) const {
    return get<short, 2>(object_, k2Short, {&a, &b});
}
MStatus MFnNumericData::getData(int& a, int& b) const {
    return get<int, 2>(object_, k2Int, {&a, &b});
}
MStatus MFnNumericData::getData(float& a, float& b) const {
    return get<float, 2>(object_, k2Float, {&a, &b});
}
MStatus MFnNumericData::getData(double& a, double& b) const {
    return get<double, 2>(object_, k2Double, {&a, &b});
}
MStatus MFnNumericData::getData(short& a, short& b, short& c) const {
    return get<short, 3>(object_, k3Short, {&a, &b, &c});
}
MStatus MFnNumericData::getData(int& a, int& b, int& c) const {
    return get<int, 3>(object_, k3Int, {&a, &b, &c});
}
MStatus MFnNumericData::getData(float& a, float& b, float& c) const {
    return get<float, 3>(object_, k3Float, {&a, &b, &c});
}
MStatus MFnNumericData::getData(double& a, double& b, double& c) const {
    return get<double, 3>(object_, k3Double, {&a, &b, &c});
}
MStatus MFnNumericData::getData(double& a, double& b, double& c, double& d) const {
    return get<double, 4>(object_, k4Double, {&a, &b, &c, &d});
}

MStatus MFnNumericData::setData(short a, short b) {
    return set(object_, k2Short, {double(a), double(b)});
}
MStatus MFnNumericData::setData(int a, int b) {
    return set(object_, k2Int, {double(a), double(b)});
}
MStatus MFnNumericData::setData(float a, float b) {
    return set(object_, k2Float, {double(a), double(b)});
}
MStatus MFnNumericData::setData(double a, double b) {
    return set(object_, k2Double, {a, b});
}
MStatus MFnNumericData::setData(short a, short b, short c) {
    return set(object_, k3Short, {double(a), double(b), double(c)});
}
MStatus MFnNumericData::setData(int a, int b, int c) {
    return set(object_, k3Int, {double(a), double(b), double(c)});
}
MStatus MFnNumericData::setData(float a, float b, float c) {
    return set(object_, k3Float, {double(a), double(b), double(c)});
}
MStatus MFnNumericData::setData(double a, double b, double c) {
    return set(object_, k3Double, {a, b, c});
}
MStatus MFnNumericData::setData(double a, double b, double c, double d) {
    return set(object_, k4Double, {a, b, c, d});
}

MObject MFnNumericData::create(Type type, MStatus* ReturnStatus) {
    const MObject made = ApiAccess::object(host::ObjectPayload{host::DataObject{NumericValue{type, {}}}});
    if (made.apiType() == MFn::kNumericData) {
        return fail<MObject>(ReturnStatus, MStatus::kInvalidParameter); // no type of several numbers
    }
    object_ = made;
    return succeed(ReturnStatus, made);
}
