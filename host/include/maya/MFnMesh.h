#pragma once

#include <maya/MFnDagNode.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>

/// Polygon meshes.
class MFnMesh : public MFnDagNode {
public:
    MFnMesh();
    explicit MFnMesh(const MObject& object, MStatus* ReturnStatus = nullptr);
    explicit MFnMesh(const MDagPath& path, MStatus* ReturnStatus = nullptr);
    ~MFnMesh() override;

    MFn::Type type() const override;

    /// Replaces both arrays with an entry per set that has this instance, or some of its components: the set, and the
    /// components; a null object when the instance itself is a member, else as many elements as there are, also none.
    /// Sets that have it whole come first, then in the order of the instance's groups; a set stands once for each kind
    /// of component. `renderableSetsOnly`: shading groups only. Fails on an instance that does not exist.
    MStatus getConnectedSetsAndMembers(unsigned int instanceNumber, MObjectArray& sets, MObjectArray& components,
                                       bool renderableSetsOnly) const;
    /// The shading groups of an instance, and per face the place of its group among them, -1 for a face in none. A
    /// group that has the face itself counts before one that has the whole instance, the later before the earlier.
    MStatus getConnectedShaders(unsigned int instanceNumber, MObjectArray& shaders, MIntArray& indices) const;
};
