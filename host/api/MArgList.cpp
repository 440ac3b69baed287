#include <maya/MArgList.h>

#include "host/api/commandSyntax.h"
#include "host/api/statusResult.h"

#include <optional>

using host::fail;
using host::succeed;

MArgList::MArgList() = default;
MArgList::MArgList(const MArgList& other) = default;
MArgList::~MArgList() = default;
MArgList& MArgList::operator=(const MArgList& other) = default;

namespace {

template <class T>
T valueOr(MStatus* status, const std::optional<T>& value) {
    return value ? succeed(status, *value) : fail<T>(status, MStatus::kFailure);
}

template <class T>
MStatus take(T& value, const MStatus& status, const T& read) {
    if (status == MStatus::kSuccess) {
        value = read;
    }
    return status;
}

bool isNamed(const MString& argument, const char* flag) {
    const std::string name = flag == nullptr ? "" : flag;
    const std::string dashed = !name.empty() && name.front() == '-' ? name : "-" + name;
    return dashed.size() > 1 && argument == dashed.c_str();
}

} // namespace

unsigned int MArgList::length(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, static_cast<unsigned int>(arguments_.size()));
}

bool MArgList::asBool(unsigned int index, MStatus* ReturnStatus) const {
    return valueOr(ReturnStatus, host::booleanOf(asString(index)));
}

int MArgList::asInt(unsigned int index, MStatus* ReturnStatus) const {
    return valueOr(ReturnStatus, host::intOf(asString(index)));
}

double MArgList::asDouble(unsigned int index, MStatus* ReturnStatus) const {
    return valueOr(ReturnStatus, host::doubleOf(asString(index)));
}

MString MArgList::asString(unsigned int index, MStatus* ReturnStatus) const {
    return index < arguments_.size() ? succeed(ReturnStatus, arguments_[index])
                                     : fail<MString>(ReturnStatus, MStatus::kInvalidParameter);
}

MIntArray MArgList::asIntArray(unsigned int& index, MStatus* ReturnStatus) const {
    MIntArray values;
    while (index < arguments_.size() && host::intOf(arguments_[index])) {
        values.append(*host::intOf(arguments_[index++]));
    }
    return values.length() != 0 ? succeed(ReturnStatus, values) : fail<MIntArray>(ReturnStatus, MStatus::kFailure);
}

MDoubleArray MArgList::asDoubleArray(unsigned int& index, MStatus* ReturnStatus) const {
    MDoubleArray values;
    while (index < arguments_.size() && host::doubleOf(arguments_[index])) {
        values.append(*host::doubleOf(arguments_[index++]));
    }
    return values.length() != 0 ? succeed(ReturnStatus, values) : fail<MDoubleArray>(ReturnStatus, MStatus::kFailure);
}

MStringArray MArgList::asStringArray(unsigned int& index, MStatus* ReturnStatus) const {
    MStringArray values;
    while (index < arguments_.size()) {
        values.append(arguments_[index++]);
    }
    return values.length() != 0 ? succeed(ReturnStatus, values) : fail<MStringArray>(ReturnStatus, MStatus::kFailure);
}

MStatus MArgList::get(unsigned int index, bool& value) const {
    MStatus status;
    const bool read = asBool(index, &status);
    return take(value, status, read);
}

MStatus MArgList::get(unsigned int index, int& value) const {
    MStatus status;
    const int read = asInt(index, &status);
    return take(value, status, read);
}

MStatus MArgList::get(unsigned int index, double& value) const {
    MStatus status;
    const double read = asDouble(index, &status);
    return take(value, status, read);
}

MStatus MArgList::get(unsigned int index, MString& value) const {
    MStatus status;
    const MString read = asString(index, &status);
    return take(value, status, read);
}

unsigned int MArgList::flagIndex(const char* shortFlag, const char* longFlag) const {
    for (unsigned int i = 0; i < arguments_.size(); ++i) {
        if (isNamed(arguments_[i], shortFlag) || isNamed(arguments_[i], longFlag)) {
            return i;
        }
    }
    return kInvalidArgIndex;
}

MStatus MArgList::addArg(bool value) {
    return addArg(MString(value ? "1" : "0"));
}

MStatus MArgList::addArg(int value) {
    return addArg(MString(std::to_string(value).c_str()));
}

MStatus MArgList::addArg(double value) {
    return addArg(MString() + value);
}

MStatus MArgList::addArg(const MString& value) {
    arguments_.push_back(value);
    return MStatus::kSuccess;
}
