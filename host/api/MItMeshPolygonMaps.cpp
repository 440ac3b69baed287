// Texture coordinates and colours of a face.

#include <maya/MItMeshPolygon.h>

#include "host/api/meshWalks.h"
#include "host/api/statusResult.h"

#include <vector>

using host::askWalk;
using host::ColorSet;
using host::succeed;
using host::UvSet;
using host::api::MeshWalk;

namespace {

/// The ids of the current face in a set of texture coordinates.
struct FaceUvs {
    const UvSet* set = nullptr;
    const std::int32_t* ids = nullptr; // null when the face has none
    std::int32_t count = 0;

    MStatus find(const MeshWalk& walk, const MString* name) {
        set = walk.isDone() ? nullptr : host::uvSetOf(*walk.mesh, name);
        if (set == nullptr) {
            return MStatus::kFailure;
        }
        count = walk.mesh->topology->cornerCount(walk.current());
        ids = host::uvIdsOf(*walk.mesh, *set, walk.current());
        return ids != nullptr ? MStatus::kSuccess : MStatus::kFailure;
    }
};

bool hasIds(const MeshWalk& walk, const MString* name, MStatus* status) {
    FaceUvs uvs;
    const MStatus found = uvs.find(walk, name);
    host::report(status, askWalk(walk));
    return found == MStatus::kSuccess;
}

/// The set of colours of the current face; null when there is none, or no face.
const ColorSet* colorsOf(const MeshWalk& walk, const MString* name) {
    return walk.isDone() ? nullptr : host::colorSetOf(*walk.mesh, name);
}

host::ColorMean meanColor(const MeshWalk& walk, const ColorSet& set) {
    host::ColorMean mean;
    for (std::int32_t corner = 0; corner < walk.mesh->topology->cornerCount(walk.current()); ++corner) {
        mean.add(set, host::colorIdOf(set, walk.current(), corner));
    }
    return mean;
}

} // namespace

bool MItMeshPolygon::hasUVs(MStatus* ReturnStatus) const {
    return hasIds(walk_, nullptr, ReturnStatus);
}

bool MItMeshPolygon::hasUVs(const MString& uvSet, MStatus* ReturnStatus) const {
    return hasIds(walk_, &uvSet, ReturnStatus);
}

MStatus MItMeshPolygon::getUV(int index, float2& uv, const MString* uvSet) const {
    int uvIndex = 0;
    return getUVIndex(index, uvIndex, uv[0], uv[1], uvSet);
}

MStatus MItMeshPolygon::getUVIndex(int index, int& uvIndex, const MString* uvSet) const {
    FaceUvs uvs;
    const MStatus status = uvs.find(walk_, uvSet);
    if (status == MStatus::kSuccess && !host::isIndex(index, uvs.count)) {
        return MStatus::kInvalidParameter;
    }
    if (status == MStatus::kSuccess) {
        uvIndex = uvs.ids[index];
    }
    return status;
}

MStatus MItMeshPolygon::getUVIndex(int index, int& uvIndex, float& u, float& v, const MString* uvSet) const {
    const MStatus status = getUVIndex(index, uvIndex, uvSet);
    if (status == MStatus::kSuccess) {
        const Imath::V2f& point = (*host::uvSetOf(*walk_.mesh, uvSet)->points)[static_cast<std::size_t>(uvIndex)];
        u = point.x;
        v = point.y;
    }
    return status;
}

MStatus MItMeshPolygon::getUVs(MFloatArray& u, MFloatArray& v, const MString* uvSet) const {
    FaceUvs uvs;
    const MStatus status = uvs.find(walk_, uvSet);
    if (status == MStatus::kSuccess) {
        u.setLength(static_cast<unsigned int>(uvs.count));
        v.setLength(static_cast<unsigned int>(uvs.count));
        for (unsigned int i = 0; i < u.length(); ++i) {
            const Imath::V2f& point = (*uvs.set->points)[static_cast<std::size_t>(uvs.ids[i])];
            u[i] = point.x;
            v[i] = point.y;
        }
    }
    return status;
}

MStatus MItMeshPolygon::getUVSetNames(MStringArray& names) const {
    const MStatus status = askWalk(walk_);
    if (status == MStatus::kSuccess) {
        names.clear();
        for (const UvSet& set : walk_.mesh->uvSets) {
            if (host::uvIdsOf(*walk_.mesh, set, walk_.current()) != nullptr) {
                names.append(set.name.c_str());
            }
        }
    }
    return status;
}

bool MItMeshPolygon::hasColor(MStatus* ReturnStatus) const {
    const ColorSet* set = colorsOf(walk_, nullptr);
    host::report(ReturnStatus, askWalk(walk_));
    return set != nullptr && !meanColor(walk_, *set).isEmpty();
}

bool MItMeshPolygon::hasColor(int index, MStatus* ReturnStatus) const {
    int colorIndex = -1;
    const MStatus status = getColorIndex(index, colorIndex);
    // A mesh without colours is no mistake of the caller's.
    const bool isAsked = status == MStatus::kSuccess || (!walk_.isDone() && status == MStatus::kFailure);
    host::report(ReturnStatus, isAsked ? MStatus(MStatus::kSuccess) : status);
    return colorIndex >= 0;
}

MStatus MItMeshPolygon::getColor(MColor& color, int index) const {
    int colorIndex = -1;
    const MStatus status = getColorIndex(index, colorIndex);
    if (status == MStatus::kSuccess) {
        color = host::colorOf(*colorsOf(walk_, nullptr), colorIndex);
    }
    return status;
}

MStatus MItMeshPolygon::getColor(MColor& color, const MString* colorSet) const {
    const ColorSet* set = colorsOf(walk_, colorSet);
    const host::ColorMean mean = set != nullptr ? meanColor(walk_, *set) : host::ColorMean();
    if (mean.isEmpty()) {
        return MStatus::kFailure;
    }
    color = mean.mean();
    return MStatus::kSuccess;
}

MStatus MItMeshPolygon::getColors(MColorArray& colors, const MString* colorSet) const {
    const ColorSet* set = colorsOf(walk_, colorSet);
    if (set == nullptr) {
        return MStatus::kFailure;
    }
    colors.setLength(polygonVertexCount());
    for (unsigned int i = 0; i < colors.length(); ++i) {
        colors[i] = host::colorOf(*set, host::colorIdOf(*set, walk_.current(), static_cast<std::int32_t>(i)));
    }
    return MStatus::kSuccess;
}

MStatus MItMeshPolygon::getColorIndex(int index, int& colorIndex, const MString* colorSet) const {
    const ColorSet* set = colorsOf(walk_, colorSet);
    if (set == nullptr) {
        return MStatus::kFailure;
    }
    if (!host::isIndex(index, walk_.mesh->topology->cornerCount(walk_.current()))) {
        return MStatus::kInvalidParameter;
    }
    colorIndex = host::colorIdOf(*set, walk_.current(), index);
    return MStatus::kSuccess;
}
