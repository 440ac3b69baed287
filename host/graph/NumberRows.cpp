#include "host/graph/NumberRows.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <type_traits>
#include <utility>

namespace host {

namespace {

std::variant<std::vector<float>, std::vector<std::int32_t>, std::vector<double>>
emptyBlock(NumberRows::Storage storage) {
    switch (storage) {
    case NumberRows::Storage::kFloat:
        return std::vector<float>{};
    case NumberRows::Storage::kInt:
        return std::vector<std::int32_t>{};
    default:
        return std::vector<double>{};
    }
}

void assign(float& place, double value) {
    // A cast of a number beyond the range of float is undefined; such numbers come from files.
    if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max()) && !std::isinf(value)) {
        place = std::copysign(std::numeric_limits<float>::infinity(), value < 0.0 ? -1.0F : 1.0F);
    } else {
        place = static_cast<float>(value);
    }
}

void assign(std::int32_t& place, double value) {
    constexpr double kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr double kHighest = std::numeric_limits<std::int32_t>::max();
    place = std::isnan(value) ? 0 : static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
}

void assign(double& place, double value) {
    place = value;
}

} // namespace

NumberRows::NumberRows(int width, Storage storage) : width_(width), values_(emptyBlock(storage)) {}

std::ptrdiff_t NumberRows::findRow(std::int32_t logical) const {
    if (logical < 0) {
        return -1;
    }
    if (isDense()) {
        return static_cast<std::size_t>(logical) < rowCount_ ? logical : -1;
    }
    if (late_ == nullptr && logical > logical_.back()) {
        return -1; // the common question while a file is read in order
    }
    const auto ordered = logical_.end() - static_cast<std::ptrdiff_t>(late_ != nullptr ? late_->size() : 0);
    const auto found = std::lower_bound(logical_.begin(), ordered, logical);
    if (found != ordered && *found == logical) {
        return found - logical_.begin();
    }
    if (late_ == nullptr) {
        return -1;
    }
    const auto late = late_->find(logical);
    return late != late_->end() ? static_cast<std::ptrdiff_t>(late->second) : -1;
}

std::int32_t NumberRows::logicalIndex(std::size_t row) const {
    sortIn();
    return isDense() ? static_cast<std::int32_t>(row) : logical_[row];
}

double NumberRows::value(std::size_t row, int column) const {
    const std::size_t place = row * static_cast<std::size_t>(width_) + static_cast<std::size_t>(column);
    return std::visit([place](const auto& block) { return static_cast<double>(block[place]); }, values_);
}

void NumberRows::setValue(std::size_t row, int column, double value) {
    const std::size_t place = row * static_cast<std::size_t>(width_) + static_cast<std::size_t>(column);
    std::visit([place, value](auto& block) { assign(block[place], value); }, values_);
}

std::size_t NumberRows::makeRow(std::int32_t logical, const double* fill) {
    const std::ptrdiff_t found = findRow(logical);
    if (found >= 0) {
        return static_cast<std::size_t>(found);
    }
    const std::size_t row = rowCount_;
    const bool staysDense = isDense() && static_cast<std::size_t>(logical) == rowCount_;
    if (!staysDense) {
        becomeSparse();
        if (late_ == nullptr && !logical_.empty() && logical < logical_.back()) {
            late_ = std::make_unique<std::unordered_map<std::int32_t, std::size_t>>();
        }
        if (late_ != nullptr) {
            late_->emplace(logical, row);
        }
        logical_.push_back(logical);
    }
    const auto width = static_cast<std::size_t>(width_);
    std::visit(
        [&](auto& block) {
            block.resize(block.size() + width);
            for (std::size_t column = 0; column < width; ++column) {
                assign(block[row * width + column], fill[column]);
            }
        },
        values_);
    ++rowCount_;
    return row;
}

void NumberRows::becomeSparse() {
    if (isDense()) {
        logical_.resize(rowCount_);
        std::iota(logical_.begin(), logical_.end(), 0);
    }
}

void NumberRows::sortLateRows() const {
    late_.reset();
    std::vector<std::size_t> order(logical_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) { return logical_[a] < logical_[b]; });
    const auto width = static_cast<std::size_t>(width_);
    std::visit(
        [&](auto& block) {
            std::remove_reference_t<decltype(block)> sorted;
            sorted.reserve(block.size());
            for (const std::size_t row : order) {
                const auto first = block.begin() + static_cast<std::ptrdiff_t>(row * width);
                sorted.insert(sorted.end(), first, first + width_);
            }
            block = std::move(sorted);
        },
        values_);
    std::sort(logical_.begin(), logical_.end());
    if (static_cast<std::size_t>(logical_.back()) + 1 == rowCount_) {
        logical_.clear(); // no index is missing
    }
}

std::size_t NumberRows::appendDense(std::int32_t first, std::size_t count) {
    constexpr std::size_t kHighestCount = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) + 1;
    const auto start = static_cast<std::size_t>(first);
    if (!isDense() || first < 0 || start > rowCount_ || count > kHighestCount - start) {
        return npos;
    }
    const auto width = static_cast<std::size_t>(width_);
    if (start + count > rowCount_) {
        rowCount_ = start + count;
        std::visit([this, width](auto& block) { block.resize(rowCount_ * width); }, values_);
    }
    return start * width;
}

void NumberRows::reserve(std::size_t rows) {
    const std::size_t count = rows * static_cast<std::size_t>(width_);
    std::visit([count](auto& block) { block.reserve(count); }, values_);
}

bool NumberRows::remove(std::int32_t logical) {
    sortIn();
    const std::ptrdiff_t row = findRow(logical);
    if (row < 0) {
        return false;
    }
    if (static_cast<std::size_t>(row) + 1 != rowCount_) {
        becomeSparse();
    }
    if (!logical_.empty()) {
        logical_.erase(logical_.begin() + row);
    }
    const std::ptrdiff_t width = width_;
    std::visit([&](auto& block) { block.erase(block.begin() + row * width, block.begin() + (row + 1) * width); },
               values_);
    --rowCount_;
    return true;
}

} // namespace host
