#include "host/api/values/writeNumbers.h"

#include "host/api/values/numberText.h"

#include <maya/MColor.h>
#include <maya/MFloatMatrix.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include <ostream>

namespace host::api {

void writeNumbers(std::ostream& stream, std::initializer_list<double> numbers) {
    const char* separator = "[";
    for (const double number : numbers) {
        stream << separator << numberText(number);
        separator = ", ";
    }
    stream << ']';
}

} // namespace host::api

using host::api::writeNumbers;

std::ostream& operator<<(std::ostream& stream, const MVector& vector) {
    writeNumbers(stream, {vector.x, vector.y, vector.z});
    return stream;
}

std::ostream& operator<<(std::ostream& stream, const MFloatVector& vector) {
    return stream << MVector(vector);
}

std::ostream& operator<<(std::ostream& stream, const MPoint& point) {
    writeNumbers(stream, {point.x, point.y, point.z, point.w});
    return stream;
}

std::ostream& operator<<(std::ostream& stream, const MFloatPoint& point) {
    return stream << MPoint(point);
}

std::ostream& operator<<(std::ostream& stream, const MQuaternion& quaternion) {
    writeNumbers(stream, {quaternion.x, quaternion.y, quaternion.z, quaternion.w});
    return stream;
}

std::ostream& operator<<(std::ostream& stream, const MColor& color) {
    writeNumbers(stream, {static_cast<double>(color.r), static_cast<double>(color.g), static_cast<double>(color.b),
                          static_cast<double>(color.a)});
    return stream;
}

std::ostream& operator<<(std::ostream& stream, const MMatrix& matrix) {
    stream << '[';
    for (const double(&row)[4] : matrix.matrix) {
        writeNumbers(stream, {row[0], row[1], row[2], row[3]});
    }
    return stream << ']';
}

std::ostream& operator<<(std::ostream& stream, const MFloatMatrix& matrix) {
    return stream << MMatrix(matrix);
}
