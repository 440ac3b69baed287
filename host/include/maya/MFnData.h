#pragma once

#include <maya/MFnBase.h>

/// Base of the function sets for data values.
class MFnData : public MFnBase {
public:
    enum Type {
        kInvalid = 0,
        kNumeric = 1,
        kPlugin,
        kPluginGeometry,
        kString = 4,
        kMatrix = 5,
        kStringArray,
        kDoubleArray,
        kFloatArray,
        kIntArray,
        kPointArray = 10,
        kVectorArray,
        kComponentList = 12,
        kMesh = 13,
        kLattice,
        kNurbsCurve = 15,
        kNurbsSurface,
    };

    ~MFnData() override;

    MFn::Type type() const override;

protected:
    MFnData();
};
