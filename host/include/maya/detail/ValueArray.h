#pragma once

// What all arrays of the API have in common. Plug-ins use the classes made from it, never this header.

#include <maya/MStatus.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace host::api {

/// An array of values, copied when the array is copied. Access by [] is not checked, as in the real host; changing
/// members refuse bad indices with kInvalidParameter and then change nothing.
template <class T>
class ValueArray {
public:
    ValueArray() = default;
    ValueArray(unsigned int initialSize, const T& initialValue = T()) : values_(initialSize, initialValue) {}
    ValueArray(const T source[], unsigned int count) : values_(source, source + count) {}

    T& operator[](unsigned int index) { return values_[index]; }
    const T& operator[](unsigned int index) const { return values_[index]; }

    unsigned int length() const { return static_cast<unsigned int>(values_.size()); }
    /// Keeps the front elements; new ones are T().
    MStatus setLength(unsigned int length) {
        values_.resize(length);
        return MStatus::kSuccess;
    }
    MStatus clear() {
        values_.clear();
        return MStatus::kSuccess;
    }
    MStatus append(const T& element) {
        values_.push_back(element);
        return MStatus::kSuccess;
    }
    /// Before the element `index`; index == length() appends.
    MStatus insert(const T& element, unsigned int index) {
        if (index > length()) {
            return MStatus::kInvalidParameter;
        }
        values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(index), element);
        return MStatus::kSuccess;
    }
    MStatus remove(unsigned int index) {
        if (index >= length()) {
            return MStatus::kInvalidParameter;
        }
        values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(index));
        return MStatus::kSuccess;
    }
    MStatus set(const T& element, unsigned int index) {
        if (index >= length()) {
            return MStatus::kInvalidParameter;
        }
        values_[index] = element;
        return MStatus::kSuccess;
    }
    MStatus copy(const ValueArray& source) {
        values_ = source.values_;
        return MStatus::kSuccess;
    }
    /// Copies all elements into `out`, which has room for length() of them.
    MStatus get(T out[]) const {
        std::copy(values_.begin(), values_.end(), out);
        return MStatus::kSuccess;
    }

    /// A hint only: growth is geometric whatever it says.
    void setSizeIncrement(unsigned int increment) { sizeIncrement_ = increment; }
    unsigned int sizeIncrement() const { return sizeIncrement_; }

    /// For the host's own side: hands all elements over at once, or takes them.
    friend const std::vector<T>& storedValues(const ValueArray& array) { return array.values_; }
    friend void storeValues(ValueArray& array, std::vector<T> values) { array.values_ = std::move(values); }

private:
    std::vector<T> values_;
    unsigned int sizeIncrement_ = 1;
};

/// The same for elements that are rows of numbers in C arrays: appends count rows of N numbers, each as T(row).
template <class T, class Number, std::size_t N>
void appendRows(ValueArray<T>& array, const Number (*rows)[N], unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) {
        array.append(T(rows[i]));
    }
}

/// Writes every element through its own get() into rows of N numbers.
template <class T, class Number, std::size_t N>
void copyRows(const ValueArray<T>& array, Number (*rows)[N]) {
    for (unsigned int i = 0; i < array.length(); ++i) {
        array[i].get(rows[i]);
    }
}

} // namespace host::api
