#pragma once

#include <maya/MDagPathArray.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnGeometryFilter.h>
#include <maya/MIntArray.h>

/// Smooth skins.
class MFnSkinCluster : public MFnGeometryFilter {
public:
    MFnSkinCluster();
    explicit MFnSkinCluster(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnSkinCluster() override;

    MFn::Type type() const override;

    /// The influences, in ascending order of the index at which they are connected; returns their number.
    unsigned int influenceObjects(MDagPathArray& paths, MStatus* ReturnStatus = nullptr) const;
    /// The index at which an influence is connected, also that of its bind matrix and weights. kInvalidParameter for a
    /// path that is none.
    unsigned int indexForInfluenceObject(const MDagPath& path, MStatus* ReturnStatus = nullptr) const;

    /// Weights of all influences of the component's first vertex, in the order of influenceObjects, then of the next; 0
    /// where nothing is stored. A null component means all vertices. `path` is the deformed shape; kFailure for another
    /// one, and for components other than vertices.
    MStatus getWeights(const MDagPath& path, const MObject& components, MDoubleArray& weights,
                       unsigned int& influenceCount) const;
    MStatus getWeights(const MDagPath& path, const MObject& components, MFloatArray& weights,
                       unsigned int& influenceCount) const;
    /// Those of one influence, which counts in influenceObjects.
    MStatus getWeights(const MDagPath& path, const MObject& components, unsigned int influenceIndex,
                       MDoubleArray& weights) const;
    MStatus getWeights(const MDagPath& path, const MObject& components, unsigned int influenceIndex,
                       MFloatArray& weights) const;
    /// The same for several influences, vertex by vertex.
    MStatus getWeights(const MDagPath& path, const MObject& components, const MIntArray& influenceIndices,
                       MDoubleArray& weights) const;
};
