#include "host/api/iteratorFilter.h"

#include <algorithm>

namespace host {

std::vector<MFn::Type> filterOf(MFn::Type type) {
    return type == MFn::kInvalid ? std::vector<MFn::Type>() : std::vector<MFn::Type>{type};
}

std::vector<MFn::Type> filterOf(const MIteratorType& info) {
    if (!info.filterListEnabled()) {
        return filterOf(info.filterType());
    }
    MIntArray numbers;
    info.getFilterList(numbers);
    std::vector<MFn::Type> types;
    for (unsigned int i = 0; i < numbers.length(); ++i) {
        types.push_back(static_cast<MFn::Type>(numbers[i]));
    }
    return types;
}

bool passes(const std::vector<MFn::Type>& filter, const MObject& object) {
    return !object.isNull() &&
           (filter.empty() || std::any_of(filter.begin(), filter.end(), [&](MFn::Type t) { return object.hasFn(t); }));
}

} // namespace host
