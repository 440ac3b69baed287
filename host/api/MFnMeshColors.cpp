#include <maya/MFnMesh.h>

#include "host/api/meshAccess.h"
#include "host/api/statusResult.h"

#include <maya/MStringArray.h>

#include <vector>

using host::attachedMesh;
using host::ColorSet;
using host::fail;
using host::isIndex;
using host::MeshPtr;
using host::succeed;

namespace {

/// A mesh and one of its sets, which is null when there is no such set (or no mesh).
struct View {
    View(const MObject& object, const MString* name)
        : mesh(attachedMesh(object)), set(mesh ? host::colorSetOf(*mesh, name) : nullptr) {}

    MeshPtr mesh;
    const ColorSet* set;
};

MColor unsetColor(const MColor* defaultUnsetColor) {
    return defaultUnsetColor != nullptr ? *defaultUnsetColor : MColor(-1, -1, -1, -1);
}

} // namespace

int MFnMesh::numColors(MStatus* ReturnStatus) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return fail<int>(ReturnStatus, MStatus::kFailure);
    }
    const ColorSet* set = host::colorSetOf(*mesh, nullptr);
    return succeed(ReturnStatus, set != nullptr ? static_cast<int>(set->colors->size()) : 0);
}

int MFnMesh::numColors(const MString& colorSet, MStatus* ReturnStatus) const {
    const View view(object_, &colorSet);
    return view.set != nullptr ? succeed(ReturnStatus, static_cast<int>(view.set->colors->size()))
                               : fail<int>(ReturnStatus, MStatus::kFailure);
}

MStatus MFnMesh::getColors(MColorArray& colors, const MString* colorSet, const MColor*) const {
    const View view(object_, colorSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    colors.setLength(static_cast<unsigned int>(view.set->colors->size()));
    for (unsigned int i = 0; i < colors.length(); ++i) {
        colors[i] = host::colorOf(*view.set, static_cast<std::int32_t>(i));
    }
    return MStatus::kSuccess;
}

MStatus MFnMesh::getColor(int colorId, MColor& color, const MString* colorSet) const {
    const View view(object_, colorSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    if (!isIndex(colorId, static_cast<std::int32_t>(view.set->colors->size()))) {
        return MStatus::kInvalidParameter;
    }
    color = host::colorOf(*view.set, colorId);
    return MStatus::kSuccess;
}

MStatus MFnMesh::getFaceVertexColors(MColorArray& colors, const MString* colorSet,
                                     const MColor* defaultUnsetColor) const {
    const View view(object_, colorSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    const host::MeshTopology& topology = *view.mesh->topology;
    colors = MColorArray(static_cast<unsigned int>(topology.cornerCount()), unsetColor(defaultUnsetColor));
    unsigned int place = 0;
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        for (std::int32_t corner = 0; corner < topology.cornerCount(face); ++corner, ++place) {
            const std::int32_t id = host::colorIdOf(*view.set, face, corner);
            if (id >= 0) {
                colors[place] = host::colorOf(*view.set, id);
            }
        }
    }
    return MStatus::kSuccess;
}

MStatus MFnMesh::getVertexColors(MColorArray& colors, const MString* colorSet, const MColor* defaultUnsetColor) const {
    const View view(object_, colorSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    const host::MeshTopology& topology = *view.mesh->topology;
    std::vector<host::ColorMean> means(static_cast<std::size_t>(topology.vertexCount()));
    for (std::int32_t face = 0; face < topology.faceCount(); ++face) {
        for (std::int32_t corner = 0; corner < topology.cornerCount(face); ++corner) {
            const auto vertex = static_cast<std::size_t>(topology.verticesOf(face)[corner]);
            means[vertex].add(*view.set, host::colorIdOf(*view.set, face, corner));
        }
    }
    colors.setLength(static_cast<unsigned int>(means.size()));
    for (unsigned int i = 0; i < colors.length(); ++i) {
        colors[i] = means[i].isEmpty() ? unsetColor(defaultUnsetColor) : means[i].mean();
    }
    return MStatus::kSuccess;
}

MStatus MFnMesh::getColorIndex(int polygonId, int vertexIndex, int& colorId, const MString* colorSet) const {
    const View view(object_, colorSet);
    if (view.set == nullptr) {
        return MStatus::kFailure;
    }
    const host::MeshTopology& topology = *view.mesh->topology;
    if (!isIndex(polygonId, topology.faceCount()) || !isIndex(vertexIndex, topology.cornerCount(polygonId))) {
        return MStatus::kInvalidParameter;
    }
    colorId = host::colorIdOf(*view.set, polygonId, vertexIndex);
    return MStatus::kSuccess;
}

MStatus MFnMesh::getColorSetNames(MStringArray& names) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    names.clear();
    for (const ColorSet& set : mesh->colorSets) {
        names.append(set.name.c_str());
    }
    return MStatus::kSuccess;
}

MString MFnMesh::currentColorSetName(MStatus* ReturnStatus, int instance) const {
    MString name;
    host::report(ReturnStatus, getCurrentColorSetName(name, instance));
    return name;
}

MStatus MFnMesh::getCurrentColorSetName(MString& name, int) const {
    const MeshPtr mesh = attachedMesh(object_);
    if (!mesh) {
        return MStatus::kFailure;
    }
    const ColorSet* set = host::colorSetOf(*mesh, nullptr);
    name = set != nullptr ? set->name.c_str() : "";
    return MStatus::kSuccess;
}

MFnMesh::MColorRepresentation MFnMesh::getColorRepresentation(const MString& colorSet, MStatus* ReturnStatus) const {
    const View view(object_, &colorSet);
    // Both number a representation by its components.
    return view.set != nullptr
               ? succeed(ReturnStatus, static_cast<MColorRepresentation>(static_cast<int>(view.set->representation)))
               : fail(ReturnStatus, MStatus::kFailure, kRGBA);
}

bool MFnMesh::isColorClamped(const MString& colorSet, MStatus* ReturnStatus) const {
    const View view(object_, &colorSet);
    return view.set != nullptr ? succeed(ReturnStatus, view.set->clamped) : fail<bool>(ReturnStatus, MStatus::kFailure);
}
