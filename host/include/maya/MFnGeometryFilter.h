#pragma once

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MObjectArray.h>

/// Deformers. What they deform is told apart by the logical index of their inputs and outputs. An index without a
/// shape, and a shape that the deformer does not have, fail with kInvalidParameter.
class MFnGeometryFilter : public MFnDependencyNode {
public:
    MFnGeometryFilter();
    explicit MFnGeometryFilter(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnGeometryFilter() override;

    MFn::Type type() const override;

    float envelope(MStatus* ReturnStatus = nullptr) const;
    MStatus setEnvelope(float envelope);

    /// Replace the array with the shapes where the deformed geometry begins, and where it ends up; by index.
    MStatus getInputGeometry(MObjectArray& shapes) const;
    MStatus getOutputGeometry(MObjectArray& shapes) const;
    MObject inputShapeAtIndex(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MObject outputShapeAtIndex(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    unsigned int indexForOutputShape(const MObject& shape, MStatus* ReturnStatus = nullptr) const;
    /// Outputs that are connected, and the index of the n-th of them.
    unsigned int numOutputConnections(MStatus* ReturnStatus = nullptr) const;
    unsigned int indexForOutputConnection(unsigned int connection, MStatus* ReturnStatus = nullptr) const;
    /// The first path to the output shape.
    MStatus getPathAtIndex(unsigned int index, MDagPath& path) const;
    unsigned int groupIdAtIndex(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    unsigned int indexForGroupId(unsigned int groupId, MStatus* ReturnStatus = nullptr) const;

    /// The set of what is deformed; a null object, and kFailure, when the deformer has none.
    MObject deformerSet(MStatus* ReturnStatus = nullptr) const;
};
