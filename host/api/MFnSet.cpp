#include <maya/MFnSet.h>

#include "host/api/ApiAccess.h"
#include "host/api/dagQueries.h"
#include "host/api/setMembers.h"
#include "host/api/statusResult.h"

#include <array>

using host::ApiAccess;
using host::fail;
using host::Node;
using host::succeed;

MFnSet::MFnSet() = default;
MFnSet::~MFnSet() = default;

MFnSet::MFnSet(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnSet::setObject(object));
}

MFn::Type MFnSet::type() const {
    return MFn::kSet;
}

MStatus MFnSet::getMembers(MSelectionList& members, bool flatten) const {
    Node* set = ApiAccess::node(object_);
    if (set == nullptr) {
        return MStatus::kFailure;
    }
    members.clear();
    for (const host::SelectionItem& item : host::membersOf(*set, flatten)) {
        ApiAccess::append(members, item);
    }
    return MStatus::kSuccess;
}

bool MFnSet::isMember(const MObject& node, MStatus* ReturnStatus) const {
    MSelectionList members;
    const MStatus status = getMembers(members, false);
    if (status != MStatus::kSuccess || node.isNull()) {
        return fail<bool>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, members.hasItem(node));
}

bool MFnSet::isMember(const MDagPath& path, const MObject& component, MStatus* ReturnStatus) const {
    MSelectionList members;
    const MStatus status = getMembers(members, false);
    if (status != MStatus::kSuccess || !path.isValid()) {
        return fail<bool>(ReturnStatus, MStatus::kFailure);
    }
    return succeed(ReturnStatus, members.hasItem(path, component));
}

MFnSet::Restriction MFnSet::restriction(MStatus* ReturnStatus) const {
    struct Row {
        const char* attribute;
        Restriction restriction;
    };
    static constexpr std::array<Row, 5> kRows = {{
        {"verticesOnlySet", kVerticesOnly},
        {"edgesOnlySet", kEdgesOnly},
        {"facetsOnlySet", kFacetsOnly},
        {"editPointsOnlySet", kEditPointsOnly},
        {"renderableOnlySet", kRenderableOnly},
    }};
    Node* set = ApiAccess::node(object_);
    if (set == nullptr) {
        return fail(ReturnStatus, MStatus::kFailure, kNone);
    }
    for (const Row& row : kRows) {
        if (host::numberOf(*set, row.attribute).value_or(0.0) != 0.0) {
            return succeed(ReturnStatus, row.restriction);
        }
    }
    return succeed(ReturnStatus, kNone);
}
