#include "export/optionTable.h"

#include "common/parseNumber.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace tvk {
namespace {

// The nearest value that the type holds: beyond its range the conversion alone would be undefined.
template <typename T>
T narrowed(double value) {
    if constexpr (std::is_same_v<T, double>) {
        return value;
    } else {
        constexpr double kLargest = std::numeric_limits<T>::max();
        return static_cast<T>(std::clamp(value, -kLargest, kLargest));
    }
}

} // namespace

const OptionRow* findOption(std::string_view key) {
    const auto* const found =
        std::find_if(kOptionRows.begin(), kOptionRows.end(), [key](const OptionRow& row) { return row.key == key; });
    return found == kOptionRows.end() ? nullptr : found;
}

void storeOption(const OptionRow& row, std::string_view value, ExportOptions& options) {
    std::visit(
        [&](auto field) {
            using Type = std::remove_reference_t<decltype(options.*field)>;
            if constexpr (std::is_same_v<Type, std::string>) {
                options.*field = value;
            } else if constexpr (std::is_same_v<Type, bool>) {
                options.*field = parseInteger(value) != 0;
            } else if constexpr (std::is_same_v<Type, int32_t>) {
                const double number = std::clamp(static_cast<double>(parseInteger(value)), row.lowest, row.highest);
                options.*field = static_cast<int32_t>(number);
            } else {
                options.*field = narrowed<Type>(std::clamp(parseReal(value), row.lowest, row.highest));
            }
        },
        row.field);
}

void setDefaults(ExportOptions& options) {
    for (const OptionRow& row : kOptionRows) {
        storeOption(row, row.defaultText, options);
    }
}

} // namespace tvk
