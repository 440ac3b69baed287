#pragma once

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

namespace host {

/// The elements of an array attribute whose elements are plain numbers (width 1) or compounds of numbers (width =
/// number of children): one flat block instead of a value per element, since scenes hold millions of them. Floats stay
/// floats and integers integers (4 bytes each); everything else is double. Values are in internal units.
class NumberRows {
public:
    enum class Storage : std::uint8_t { kFloat, kInt, kDouble };

    NumberRows(int width, Storage storage);

    int width() const { return width_; }
    std::size_t rowCount() const { return rowCount_; }
    bool isDense() const { return logical_.empty(); } // row r is element r

    /// Row of a logical index, or -1. Constant time when dense, else logarithmic.
    std::ptrdiff_t findRow(std::int32_t logical) const;
    std::int32_t logicalIndex(std::size_t row) const;
    double value(std::size_t row, int column) const;
    void setValue(std::size_t row, int column, double value);

    /// The row of a logical index (0 or more), made (with `fill`, one value per column) when it does not exist.
    /// Appending in ascending order is constant time; elsewhere the rows behind it move.
    std::size_t makeRow(std::int32_t logical, const double* fill);

    /// Makes room for rows first … last and returns where row `first` begins, when they can be written in place: the
    /// rows continue or lie within a dense block. Returns npos when they do not; then write them one by one.
    /// The place is an index into `floats()`, `ints()` or `doubles()` (first * width). Memory is taken for `count`
    /// rows, so `count` must be bounded by values that are there.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);
    std::size_t appendDense(std::int32_t first, std::size_t count);

    /// Takes memory for so many rows at once; as with appendDense, not for a number that only a file claims.
    void reserve(std::size_t rows);
    bool remove(std::int32_t logical);

    Storage storage() const { return static_cast<Storage>(values_.index()); }
    std::vector<float>& floats() { return std::get<std::vector<float>>(values_); }
    std::vector<std::int32_t>& ints() { return std::get<std::vector<std::int32_t>>(values_); }
    std::vector<double>& doubles() { return std::get<std::vector<double>>(values_); }
    const std::vector<float>& floats() const { return std::get<std::vector<float>>(values_); }
    const std::vector<std::int32_t>& ints() const { return std::get<std::vector<std::int32_t>>(values_); }
    const std::vector<double>& doubles() const { return std::get<std::vector<double>>(values_); }

private:
    int width_;
    std::size_t rowCount_ = 0;
    std::vector<std::int32_t> logical_; // ascending; empty while rows are elements 0 … n-1
    std::variant<std::vector<float>, std::vector<std::int32_t>, std::vector<double>> values_;
};

} // namespace host
