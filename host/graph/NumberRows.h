#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <variant>
#include <vector>

namespace host {

/// The elements of an array attribute whose elements are plain numbers (width 1) or compounds of numbers (width =
/// number of children): one flat block instead of a value per element, since scenes hold millions of them. Floats stay
/// floats and integers integers (4 bytes each); everything else is double. Values are in internal units.
///
/// Rows are in ascending order of logical index. A file may give them in any order: rows made out of order wait at the
/// end and are sorted in when somebody asks for logicalIndex, a block or a removal. A row number holds until then.
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
    /// Constant time in ascending order and elsewhere.
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
    std::vector<float>& floats() { return block<float>(); }
    std::vector<std::int32_t>& ints() { return block<std::int32_t>(); }
    std::vector<double>& doubles() { return block<double>(); }
    const std::vector<float>& floats() const { return block<float>(); }
    const std::vector<std::int32_t>& ints() const { return block<std::int32_t>(); }
    const std::vector<double>& doubles() const { return block<double>(); }

private:
    template <typename Number>
    std::vector<Number>& block() const {
        sortIn();
        return std::get<std::vector<Number>>(values_);
    }
    void sortIn() const {
        if (late_ != nullptr) {
            sortLateRows();
        }
    }
    void sortLateRows() const;
    void becomeSparse();

    int width_;
    std::size_t rowCount_ = 0;
    mutable std::vector<std::int32_t> logical_; // per row; empty while rows are elements 0 … n-1
    mutable std::variant<std::vector<float>, std::vector<std::int32_t>, std::vector<double>> values_;
    /// The rows at the end that were made out of order, by logical index; null when there are none.
    mutable std::unique_ptr<std::unordered_map<std::int32_t, std::size_t>> late_;
};

} // namespace host
