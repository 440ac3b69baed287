#pragma once

#include "host/graph/Graph.h"

#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace host {

/// Values of plugs in the API's terms. A false plug, a plug without all its indices, and a value of another kind fail
/// with kFailure and leave the value alone; so does setting what is locked, connected or computed.

/// Numbers, in radians, centimetres and seconds.
MStatus readNumber(const Plug& plug, double& value);
MStatus writeNumber(const Plug& plug, double value);
/// The same in the graph's own units: times in ticks.
MStatus readStoredNumber(const Plug& plug, double& value);
MStatus writeStoredNumber(const Plug& plug, double value);

MStatus readString(const Plug& plug, MString& value);
MStatus writeString(const Plug& plug, const MString& value);

/// Strings, matrices, data, and compounds of two to four numbers.
MStatus readObject(const Plug& plug, MObject& value);
MStatus writeObject(const Plug& plug, const MObject& value);

/// A number as another type: cut towards zero, held within the type's range, 0 for what is not a number; true for
/// everything but 0 and not-a-number.
template <class T>
T numberAs(double number) {
    if constexpr (std::is_same_v<T, bool>) {
        return number != 0.0 && !std::isnan(number);
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(number);
    } else {
        if (std::isnan(number)) {
            return 0;
        }
        // The upper limit of 64 bits is no double; the next one above it is.
        if (number >= static_cast<double>(std::numeric_limits<T>::max())) {
            return std::numeric_limits<T>::max();
        }
        return number <= static_cast<double>(std::numeric_limits<T>::min()) ? std::numeric_limits<T>::min()
                                                                            : static_cast<T>(number);
    }
}

} // namespace host
