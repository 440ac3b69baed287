#include "host/api/melResults.h"

#include <limits>

namespace host {

namespace {

using mel::Value;
using mel::ValueType;

bool fitsInt(std::int64_t number) {
    return number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

MVector vectorOf(const mel::Vector& vector) {
    return MVector(vector.x, vector.y, vector.z);
}

/// A single value or the elements of an array, each through `takeResult` of the element type.
template <class Element, class Array>
MStatus takeElements(const Value& value, ValueType elementType, ValueType alsoType, Array& result) {
    const ValueType own = value.isArray() ? mel::elementTypeOf(value.type()) : value.type();
    if (own != elementType && own != alsoType) {
        return MStatus::kFailure;
    }
    Array taken;
    for (std::size_t i = 0; i < value.size(); ++i) {
        Element element{};
        const MStatus status = takeResult(value.isArray() ? value.element(i) : value, element);
        if (status != MStatus::kSuccess) {
            return status;
        }
        taken.append(element);
    }
    result = taken;
    return MStatus::kSuccess;
}

} // namespace

MStatus takeResult(const Value& value, int& result) {
    if (value.type() != ValueType::kInt || !fitsInt(value.toInt())) {
        return MStatus::kFailure;
    }
    result = static_cast<int>(value.toInt());
    return MStatus::kSuccess;
}

MStatus takeResult(const Value& value, MIntArray& result) {
    return takeElements<int>(value, ValueType::kInt, ValueType::kInt, result);
}

MStatus takeResult(const Value& value, double& result) {
    if (!value.isNumber()) {
        return MStatus::kFailure;
    }
    result = value.toFloat();
    return MStatus::kSuccess;
}

MStatus takeResult(const Value& value, MDoubleArray& result) {
    return takeElements<double>(value, ValueType::kFloat, ValueType::kInt, result);
}

MStatus takeResult(const Value& value, MString& result) {
    if (!value.isString()) {
        return MStatus::kFailure;
    }
    result = value.text().c_str();
    return MStatus::kSuccess;
}

MStatus takeResult(const Value& value, MStringArray& result) {
    return takeElements<MString>(value, ValueType::kString, ValueType::kString, result);
}

MStatus takeResult(const Value& value, MVector& result) {
    if (value.type() != ValueType::kVector) {
        return MStatus::kFailure;
    }
    result = vectorOf(value.toVector());
    return MStatus::kSuccess;
}

MStatus takeResult(const Value& value, MVectorArray& result) {
    return takeElements<MVector>(value, ValueType::kVector, ValueType::kVector, result);
}

MStatus takeResult(const Value& value, MMatrix& result) {
    const mel::Matrix& matrix = value.matrix();
    if (value.type() != ValueType::kMatrix || matrix.rows != 4 || matrix.columns != 4) {
        return MStatus::kFailure;
    }
    for (unsigned int row = 0; row < 4; ++row) {
        for (unsigned int column = 0; column < 4; ++column) {
            result(row, column) = matrix.cells[row * 4 + column];
        }
    }
    return MStatus::kSuccess;
}

} // namespace host
