#include "host/graph/numberConversion.h"

#include <cmath>
#include <limits>

namespace host {

namespace {

struct WholeRange {
    double lowest, highest;
};

/// A byte is written both as a signed and as an unsigned number by different nodes, so both fit.
WholeRange rangeOf(AttrKind kind) {
    switch (kind) {
    case AttrKind::kByte:
        return {-128.0, 255.0};
    case AttrKind::kChar:
        return {-128.0, 127.0};
    case AttrKind::kShort:
        return {-32768.0, 32767.0};
    default:
        return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    }
}

} // namespace

bool isWholeNumberKind(AttrKind kind) {
    switch (kind) {
    case AttrKind::kBool:
    case AttrKind::kByte:
    case AttrKind::kChar:
    case AttrKind::kShort:
    case AttrKind::kInt:
    case AttrKind::kEnum:
        return true;
    default:
        return false;
    }
}

double convertNumber(double value, AttrKind kind) {
    if (!isWholeNumberKind(kind)) {
        return value;
    }
    if (kind == AttrKind::kBool) {
        return value != 0.0 ? 1.0 : 0.0;
    }
    if (std::isnan(value)) {
        return 0.0;
    }
    const WholeRange range = rangeOf(kind);
    if (value <= range.lowest) {
        return range.lowest;
    }
    if (value >= range.highest) {
        return range.highest;
    }
    return std::trunc(value) + 0.0; // no negative zero: a whole number has none
}

} // namespace host
