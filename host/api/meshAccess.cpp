#include "host/api/meshAccess.h"

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/dagQueries.h"
#include "host/nodes/meshQueries.h"

#include <optional>

namespace host {

MeshPtr attachedMesh(const MObject& object) {
    if (Node* node = ApiAccess::node(object)) {
        return node->type().isKindOf("mesh") ? evaluatedMesh(Host::instance().graph(), *node) : nullptr;
    }
    const DataObject* data = ApiAccess::data(object);
    const DataPtr* value = data != nullptr ? std::get_if<DataPtr>(&data->value) : nullptr;
    return value != nullptr ? meshOf(*value) : nullptr;
}

MStatus MeshFrame::set(const MDagPath& path, MSpace::Space space) {
    switch (space) {
    case MSpace::kObject:
    case MSpace::kTransform:
        isObject_ = true;
        return MStatus::kSuccess;
    case MSpace::kPostTransform:
    case MSpace::kWorld:
        break;
    default:
        return MStatus::kInvalidParameter;
    }
    const std::optional<DagPath> dagPath = ApiAccess::path(path);
    if (!dagPath) {
        return MStatus::kFailure;
    }
    isObject_ = false;
    toSpace_ = worldMatrix(*dagPath);
    normalsToSpace_ = toSpace_.inverse().transposed();
    return MStatus::kSuccess;
}

MPoint MeshFrame::point(const Imath::V3f& position) const {
    if (isObject_) {
        return MPoint(position.x, position.y, position.z);
    }
    const Imath::V3d moved = Imath::V3d(position) * toSpace_;
    return MPoint(moved.x, moved.y, moved.z);
}

MVector MeshFrame::normal(const Imath::V3f& normal) const {
    if (isObject_) {
        return MVector(normal.x, normal.y, normal.z);
    }
    Imath::V3d turned;
    normalsToSpace_.multDirMatrix(Imath::V3d(normal), turned);
    turned.normalize();
    return MVector(turned.x, turned.y, turned.z);
}

const UvSet* uvSetOf(const MeshData& mesh, const MString* name) {
    return mesh.findUvSet(name != nullptr ? name->asChar() : "");
}

const ColorSet* colorSetOf(const MeshData& mesh, const MString* name) {
    return mesh.findColorSet(name != nullptr ? name->asChar() : "");
}

const std::int32_t* uvIdsOf(const MeshData& mesh, const UvSet& set, std::int32_t face) {
    std::int32_t count = 0;
    const std::int32_t* ids = set.ids->find(face, count);
    return count == mesh.topology->cornerCount(face) ? ids : nullptr;
}

std::int32_t colorIdOf(const ColorSet& set, std::int32_t face, std::int32_t corner) {
    std::int32_t count = 0;
    const std::int32_t* ids = set.ids->find(face, count);
    return corner < count ? ids[corner] : -1;
}

MColor colorOf(const ColorSet& set, std::int32_t colorId) {
    if (colorId < 0) {
        return MColor(-1, -1, -1, -1);
    }
    const Imath::V4f& color = (*set.colors)[static_cast<std::size_t>(colorId)];
    return MColor(color.x, color.y, color.z, color.w);
}

void ColorMean::add(const ColorSet& set, std::int32_t colorId) {
    if (colorId >= 0) {
        sum_ += Imath::V4d((*set.colors)[static_cast<std::size_t>(colorId)]);
        ++count_;
    }
}

MColor ColorMean::mean() const {
    const Imath::V4d mean = count_ == 0 ? sum_ : sum_ / count_;
    return MColor(static_cast<float>(mean.x), static_cast<float>(mean.y), static_cast<float>(mean.z),
                  static_cast<float>(mean.w));
}

} // namespace host
