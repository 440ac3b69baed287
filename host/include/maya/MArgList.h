#pragma once

#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <string>
#include <vector>

/// The arguments of a command as they were written, flags included.
class MArgList {
public:
    static constexpr unsigned int kInvalidArgIndex = 0xffffffffU;

    MArgList();
    MArgList(const MArgList& other);
    ~MArgList();
    MArgList& operator=(const MArgList& other);

    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    /// Fail when out of range or, numbers and booleans, when the text is none.
    bool asBool(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    int asInt(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    double asDouble(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MString asString(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    /// From the index to the first argument that is no number or to the end; string arrays to the end.
    MIntArray asIntArray(unsigned int& index, MStatus* ReturnStatus = nullptr) const;
    MDoubleArray asDoubleArray(unsigned int& index, MStatus* ReturnStatus = nullptr) const;
    MStringArray asStringArray(unsigned int& index, MStatus* ReturnStatus = nullptr) const;

    MStatus get(unsigned int index, bool& value) const;
    MStatus get(unsigned int index, int& value) const;
    MStatus get(unsigned int index, double& value) const;
    MStatus get(unsigned int index, MString& value) const;

    /// Position of a flag, names with or without '-'; kInvalidArgIndex when it is not there.
    unsigned int flagIndex(const char* shortFlag, const char* longFlag = nullptr) const;

    MStatus addArg(bool value);
    MStatus addArg(int value);
    MStatus addArg(double value);
    MStatus addArg(const MString& value);

private:
    std::vector<MString> arguments_;
};
