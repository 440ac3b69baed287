#pragma once

#include "host/graph/Attribute.h"

#include <memory>

namespace host {

/// Base of the values that are more than a number, text or matrix. Data is immutable once it is in a plug, so readers
/// share it; what a node does to its input it does to a copy. Subclasses stand in the rooms that understand them.
struct Data {
    explicit Data(DataKind dataKind) : kind(dataKind) {}
    virtual ~Data() = default;
    Data(const Data&) = default;
    Data& operator=(const Data&) = default;

    DataKind kind;
};

using DataPtr = std::shared_ptr<const Data>;

} // namespace host
