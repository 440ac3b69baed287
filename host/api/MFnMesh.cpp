#include <maya/MFnMesh.h>

#include "host/api/statusResult.h"

using host::report;

MFnMesh::MFnMesh() = default;
MFnMesh::~MFnMesh() = default;

MFnMesh::MFnMesh(const MObject& object, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnMesh::setObject(object));
}

MFnMesh::MFnMesh(const MDagPath& path, MStatus* ReturnStatus) {
    report(ReturnStatus, MFnMesh::setObject(path));
}

MFn::Type MFnMesh::type() const {
    return MFn::kMesh;
}
