#pragma once

#include <maya/MFnData.h>

/// Two, three or four numbers as data: the value of a compound of numbers.
class MFnNumericData : public MFnData {
public:
    enum Type {
        kInvalid = 0,
        kBoolean,
        kByte,
        kChar,
        kShort,
        k2Short,
        k3Short,
        kInt = 7,
        kLong = 7,
        k2Int = 8,
        k2Long = 8,
        k3Int = 9,
        k3Long = 9,
        kFloat = 10,
        k2Float,
        k3Float,
        kDouble = 13,
        k2Double,
        k3Double,
        k4Double,
        kAddr,
        kLast,
    };

    MFnNumericData();
    explicit MFnNumericData(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnNumericData() override;

    MFn::Type type() const override;

    Type numericType(MStatus* ReturnStatus = nullptr) const;

    /// Fail unless the data has that many numbers of that type.
    MStatus getData(short& a, short& b) const;
    MStatus getData(int& a, int& b) const;
    MStatus getData(float& a, float& b) const;
    MStatus getData(double& a, double& b) const;
    MStatus getData(short& a, short& b, short& c) const;
    MStatus getData(int& a, int& b, int& c) const;
    MStatus getData(float& a, float& b, float& c) const;
    MStatus getData(double& a, double& b, double& c) const;
    MStatus getData(double& a, double& b, double& c, double& d) const;

    MStatus setData(short a, short b);
    MStatus setData(int a, int b);
    MStatus setData(float a, float b);
    MStatus setData(double a, double b);
    MStatus setData(short a, short b, short c);
    MStatus setData(int a, int b, int c);
    MStatus setData(float a, float b, float c);
    MStatus setData(double a, double b, double c);
    MStatus setData(double a, double b, double c, double d);

    /// All numbers 0. Fails for types of one number.
    MObject create(Type type, MStatus* ReturnStatus = nullptr);
};
