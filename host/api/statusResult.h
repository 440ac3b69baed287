#pragma once

#include <maya/MStatus.h>

namespace host {

/// Ends a call of the API that answers through its value and a status pointer, which may be null.
template <class T>
T succeed(MStatus* status, T value) {
    if (status != nullptr) {
        *status = MStatus::kSuccess;
    }
    return value;
}

template <class T>
T fail(MStatus* status, MStatus::MStatusCode code, T value = T()) {
    if (status != nullptr) {
        *status = code;
    }
    return value;
}

/// Ends a constructor.
inline void report(MStatus* status, const MStatus& result) {
    if (status != nullptr) {
        *status = result;
    }
}

} // namespace host
