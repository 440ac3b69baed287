#include <maya/MFnComponentListData.h>

#include "host/api/ApiAccess.h"
#include "host/api/componentKinds.h"
#include "host/api/statusResult.h"
#include "host/geometry/ComponentList.h"

#include <algorithm>
#include <array>
#include <memory>

using host::ApiAccess;
using host::ComponentKind;
using host::ComponentList;
using host::ComponentObject;
using host::ComponentRange;
using host::DataObject;
using host::fail;
using host::succeed;

MFnComponentListData::MFnComponentListData() = default;
MFnComponentListData::~MFnComponentListData() = default;

MFnComponentListData::MFnComponentListData(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnComponentListData::setObject(object));
}

MFn::Type MFnComponentListData::type() const {
    return MFn::kComponentListData;
}

namespace {

constexpr std::array<std::pair<ComponentKind, MFn::Type>, 5> kTypes = {{
    {ComponentKind::kVertex, MFn::kMeshVertComponent},
    {ComponentKind::kEdge, MFn::kMeshEdgeComponent},
    {ComponentKind::kFace, MFn::kMeshPolygonComponent},
    {ComponentKind::kUv, MFn::kMeshMapComponent},
    {ComponentKind::kFaceVertex, MFn::kMeshFaceVertComponent},
}};

const ComponentList* listOf(const MObject& object) {
    const DataObject* data = ApiAccess::data(object);
    const host::DataPtr* value = data != nullptr ? std::get_if<host::DataPtr>(&data->value) : nullptr;
    return value != nullptr ? dynamic_cast<const ComponentList*>(value->get()) : nullptr;
}

/// The list does not know its mesh, so a complete component has no count.
std::vector<ComponentObject> componentsOf(const ComponentList& list) {
    std::vector<ComponentObject> result;
    for (const ComponentRange& range : list.ranges) {
        const auto* const row =
            std::find_if(kTypes.begin(), kTypes.end(), [&](const auto& one) { return one.first == range.kind; });
        const MFn::Type type = row != kTypes.end() ? row->second : MFn::kComponent;
        auto kind = std::find_if(result.begin(), result.end(), [&](const auto& one) { return one.type == type; });
        if (kind == result.end()) {
            kind = result.insert(result.end(), ComponentObject{type, {}, {}});
        }
        if (!host::isSingleIndexed(type)) {
            kind->texts.push_back(host::componentText(range));
        } else if (range.index[0].isAll()) {
            kind->indices.setComplete(0);
        } else if (!kind->indices.isComplete()) {
            kind->indices.add(range.index[0]);
        }
    }
    return result;
}

void replace(MObject& object, std::shared_ptr<ComponentList> list) {
    ApiAccess::data(object)->value = host::DataPtr(std::move(list));
}

} // namespace

unsigned int MFnComponentListData::length(MStatus* ReturnStatus) const {
    const ComponentList* list = listOf(object_);
    return list != nullptr ? succeed(ReturnStatus, static_cast<unsigned int>(componentsOf(*list).size()))
                           : fail<unsigned int>(ReturnStatus, MStatus::kFailure);
}

MObject MFnComponentListData::operator[](unsigned int index) const {
    const ComponentList* list = listOf(object_);
    const std::vector<ComponentObject> components =
        list != nullptr ? componentsOf(*list) : std::vector<ComponentObject>();
    return index < components.size() ? ApiAccess::object(host::ObjectPayload{components[index]}) : MObject();
}

bool MFnComponentListData::has(const MObject& component, MStatus* ReturnStatus) const {
    const unsigned int count = length(ReturnStatus);
    for (unsigned int i = 0; i < count; ++i) {
        if ((*this)[i] == component) {
            return true;
        }
    }
    return false;
}

MStatus MFnComponentListData::add(const MObject& component) {
    const ComponentList* list = listOf(object_);
    const ComponentObject* added = ApiAccess::component(component);
    const bool isKnown = added != nullptr && std::any_of(kTypes.begin(), kTypes.end(),
                                                         [&](const auto& one) { return one.second == added->type; });
    if (list == nullptr || !isKnown) {
        return list == nullptr ? MStatus::kFailure : MStatus::kInvalidParameter;
    }
    auto changed = std::make_shared<ComponentList>(*list);
    for (const std::string& text : host::componentTexts(*added)) {
        ComponentRange range;
        if (host::parseComponent(text, range)) {
            changed->ranges.push_back(range);
        }
    }
    replace(object_, std::move(changed));
    return MStatus::kSuccess;
}

MStatus MFnComponentListData::clear() {
    if (listOf(object_) == nullptr) {
        return MStatus::kFailure;
    }
    replace(object_, std::make_shared<ComponentList>());
    return MStatus::kSuccess;
}

MObject MFnComponentListData::create(MStatus* ReturnStatus) {
    object_ = ApiAccess::object(host::ObjectPayload{DataObject{host::DataPtr(std::make_shared<ComponentList>())}});
    return succeed(ReturnStatus, object_);
}
