#pragma once

#include <maya/MAngle.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MTime.h>

/// Animation curves. Keys are numbered by their input, whatever order a file gave them in. Values are in internal
/// units: radians, centimetres, seconds. A key that does not exist fails with kInvalidParameter; so does asking a curve
/// over time by number and a driven key by time.
class MFnAnimCurve : public MFnDependencyNode {
public:
    /// Over time (T) or over another attribute (U), giving an angle, a distance, a time or a plain number.
    enum AnimCurveType {
        kAnimCurveTA = 0,
        kAnimCurveTL = 1,
        kAnimCurveTT = 2,
        kAnimCurveTU = 3,
        kAnimCurveUA = 4,
        kAnimCurveUL = 5,
        kAnimCurveUT = 6,
        kAnimCurveUU = 7,
        kAnimCurveUnknown = 8,
    };

    enum TangentType {
        kTangentGlobal = 0,
        kTangentFixed = 1,
        kTangentLinear = 2,
        kTangentFlat = 3,
        kTangentSmooth = 4,
        kTangentStep = 5,
        kTangentSlow = 6,
        kTangentFast = 7,
        kTangentClamped = 8,
        kTangentPlateau = 9,
        kTangentStepNext = 10,
        kTangentAuto = 11,
    };

    enum InfinityType { kConstant = 0, kLinear = 1, kCycle = 3, kCycleRelative = 4, kOscillate = 5 };

    MFnAnimCurve();
    explicit MFnAnimCurve(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnAnimCurve() override;

    MFn::Type type() const override;

    AnimCurveType animCurveType(MStatus* ReturnStatus = nullptr) const;
    bool isTimeInput(MStatus* ReturnStatus = nullptr) const;
    bool isUnitlessInput(MStatus* ReturnStatus = nullptr) const;
    bool isWeighted(MStatus* ReturnStatus = nullptr) const;
    /// Whether every key has the same value and every tangent is level. True without keys.
    bool isStatic(MStatus* ReturnStatus = nullptr) const;
    InfinityType preInfinityType(MStatus* ReturnStatus = nullptr) const;
    InfinityType postInfinityType(MStatus* ReturnStatus = nullptr) const;

    unsigned int numKeys(MStatus* ReturnStatus = nullptr) const;
    unsigned int numKeyframes(MStatus* ReturnStatus = nullptr) const;
    MTime time(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    double unitlessInput(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    double value(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    bool isBreakdown(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    bool tangentsLocked(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    bool weightsLocked(unsigned int index, MStatus* ReturnStatus = nullptr) const;

    TangentType inTangentType(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    TangentType outTangentType(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    /// The tangent as a vector, worked out for the types that are computed: x along the input in seconds (driven keys:
    /// plain), y along the value in internal units. Of length 1 on curves without weights.
    MStatus getTangent(unsigned int index, double& x, double& y, bool inTangent) const;
    MStatus getTangent(unsigned int index, float& x, float& y, bool inTangent) const;
    /// Its direction against the input axis, and its length.
    MStatus getTangent(unsigned int index, MAngle& angle, double& weight, bool inTangent) const;

    /// The key at a time; false (no failure) when there is none there.
    bool find(const MTime& time, unsigned int& index, MStatus* ReturnStatus = nullptr) const;
    /// The key whose input is nearest, the earlier of two. Fails without keys.
    unsigned int findClosest(const MTime& time, MStatus* ReturnStatus = nullptr) const;
    unsigned int findClosest(double unitlessInput, MStatus* ReturnStatus = nullptr) const;

    double evaluate(const MTime& time, MStatus* ReturnStatus = nullptr) const;
    MStatus evaluate(const MTime& time, double& value) const;
    /// Of curves that give times only.
    MStatus evaluate(const MTime& time, MTime& value) const;
    MStatus evaluate(double unitlessInput, double& value) const;
    MStatus evaluate(double unitlessInput, MTime& value) const;
};
