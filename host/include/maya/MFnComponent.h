#pragma once

#include <maya/MFnBase.h>

/// Components: vertices, edges, faces … of some shape, which the object itself does not name.
class MFnComponent : public MFnBase {
public:
    MFnComponent();
    explicit MFnComponent(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnComponent() override;

    MFn::Type type() const override;

    int elementCount(MStatus* ReturnStatus = nullptr) const;
    bool isEmpty(MStatus* ReturnStatus = nullptr) const;
    /// Whether it stands for all components of its kind.
    bool isComplete(MStatus* ReturnStatus = nullptr) const;
    /// kMeshVertComponent, kMeshPolygonComponent …
    MFn::Type componentType(MStatus* ReturnStatus = nullptr) const;
    bool isEqual(MFnComponent& other, MStatus* ReturnStatus = nullptr) const;
};
