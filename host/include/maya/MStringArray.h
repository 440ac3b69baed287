#pragma once

#include <maya/MString.h>
#include <maya/detail/ValueArray.h>

/// An array of texts.
class MStringArray : public host::api::ValueArray<MString> {
public:
    using ValueArray::ValueArray;
    MStringArray(const char* const source[], unsigned int count) {
        for (unsigned int i = 0; i < count; ++i) {
            append(source[i]);
        }
    }

    using ValueArray::append;
    /// All texts of the other array behind the own ones; the two may be the same.
    MStatus append(const MStringArray& other) {
        const unsigned int count = other.length();
        for (unsigned int i = 0; i < count; ++i) {
            append(MString(other[i]));
        }
        return MStatus::kSuccess;
    }
};
