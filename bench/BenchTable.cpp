#include "bench/BenchTable.h"

#include <array>
#include <cstdio>
#include <ostream>

namespace tvk {

namespace {

std::string threeDigits(double value) {
    std::array<char, 32> text{};
    // Large numbers without an exponent: people compare them by eye.
    std::snprintf(text.data(), text.size(), value >= 1000 ? "%.0f" : "%.3g", value);
    return text.data();
}

} // namespace

bool printBenchTable(std::ostream& stream, const std::string& title, const std::vector<BenchRow>& rows) {
    bool keepsAll = true;
    stream << "## " << title << "\n\n"
           << "| what | measured | baseline | | ratio | aim | kept |\n"
           << "|---|--:|---|--:|--:|--:|---|\n";
    for (const BenchRow& row : rows) {
        const double ratio = row.measured / row.baseline;
        const bool isLimited = row.limit > 0;
        const bool keeps = !isLimited || ratio <= row.limit;
        keepsAll = keepsAll && keeps;
        stream << "| " << row.what << " | " << threeDigits(row.measured) << ' ' << row.unit << " | " << row.baselineName
               << " | " << threeDigits(row.baseline) << ' ' << row.unit << " | " << threeDigits(ratio) << " | "
               << (isLimited ? threeDigits(row.limit) : std::string()) << " | "
               << (isLimited ? (keeps ? "yes" : "NO") : "") << " |\n";
    }
    stream << '\n';
    return keepsAll;
}

} // namespace tvk
