#pragma once

#include <maya/MFnComponent.h>
#include <maya/MIntArray.h>

/// Components with one number each: mesh vertices, edges, faces and texture coordinates, control points of curves.
/// Elements are ascending and stand once each, in whatever order they were added.
class MFnSingleIndexedComponent : public MFnComponent {
public:
    MFnSingleIndexedComponent();
    explicit MFnSingleIndexedComponent(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnSingleIndexedComponent() override;

    MFn::Type type() const override;

    /// An empty one of that kind, to which the function set is attached. Fails for kinds that are no such components.
    MObject create(MFn::Type componentType, MStatus* ReturnStatus = nullptr);

    /// Negative numbers fail, and nothing is added then. A complete component takes no elements.
    MStatus addElement(int element);
    MStatus addElements(const MIntArray& elements);
    int element(int index, MStatus* ReturnStatus = nullptr) const;
    MStatus getElements(MIntArray& elements) const;
    int elementMax(MStatus* ReturnStatus = nullptr) const;

    /// Makes it stand for all of `numElements` components.
    MStatus setCompleteData(int numElements);
    /// Fails unless it is complete.
    MStatus getCompleteData(int& numElements) const;
};
