#pragma once

#include <maya/MFnData.h>

/// A list of components as data, one component per kind.
class MFnComponentListData : public MFnData {
public:
    MFnComponentListData();
    explicit MFnComponentListData(const MObject& object, MStatus* ReturnStatus = nullptr);
    ~MFnComponentListData() override;

    MFn::Type type() const override;

    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    /// A null object when there is no such component.
    MObject operator[](unsigned int index) const;
    bool has(const MObject& component, MStatus* ReturnStatus = nullptr) const;
    /// Fails for what is no mesh component.
    MStatus add(const MObject& component);
    MStatus clear();

    MObject create(MStatus* ReturnStatus = nullptr);
};
