#include "host/nodes/apiTypes.h"
#include "host/nodes/typeRows.h"
#include "host/nodes/typeTables.h"

namespace host {

namespace {

constexpr AttributeRow kDependNode[] = {
    {"message", "msg", "message"},
    {"caching", "cch", "bool", {}, 0, row::kHidden},
    {"frozen", "fzn", "bool"},
    {"isHistoricallyInteresting", "ihi", "byte", {}, 2, row::kHidden},
    {"nodeState",
     "nds",
     "enum",
     {},
     0,
     0,
     "Normal:HasNoEffect:Blocking:Waiting-Normal:Waiting-HasNoEffect:Waiting-Blocking"},
    {"binMembership", "bnm", "string"},
};

constexpr TypeRow kTypes[] = {
    {"dependNode", "", api::kDependencyNode, kDependNode},
};

} // namespace

void registerBaseTypes(NodeTypeRegistry& types) {
    registerRows(types, kTypes);
}

} // namespace host
