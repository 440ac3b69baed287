#pragma once

#include <maya/MTypes.h>

/// The types of the objects that an MObject can stand for. The names are what source code uses; for the numbers see
/// detail/fnTypes.inc.
class MFn {
public:
    enum Type {
#define HOST_FN_TYPE(name, code) name = code,
#include <maya/detail/fnTypes.inc>
#undef HOST_FN_TYPE
    };
};
