#pragma once

#include <maya/MFloatArray.h>
#include <maya/MFnGeometryFilter.h>

/// Deformers with one weight per point: clusters and joint clusters.
class MFnWeightGeometryFilter : public MFnGeometryFilter {
public:
    MFnWeightGeometryFilter();
    explicit MFnWeightGeometryFilter(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnWeightGeometryFilter() override;

    MFn::Type type() const override;

    /// One per vertex of the component (a null component: all vertices of the shape), 1 where nothing is stored.
    /// Fails on a shape that is not deformed by this and on components other than vertices.
    MStatus getWeights(const MDagPath& path, const MObject& components, MFloatArray& weights) const;
    MStatus getWeights(unsigned int index, const MObject& components, MFloatArray& weights) const;
};
