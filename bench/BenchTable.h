#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tvk {

// One thing measured beside its baseline in the same run. Smaller is better: times, bytes, times per node.
struct BenchRow {
    std::string what;         // "open, long arrays, 100 MB"
    double measured = 0;      // in unit
    std::string unit;         // "s", "us/node", "MB"
    std::string baselineName; // "std::from_chars on the same numbers"
    double baseline = 0;      // in unit, above 0
    double limit = 0;         // the largest measured / baseline that we aim for; 0: none, the ratio is only shown
};

// Prints the rows as a Markdown table below a heading; numbers have three digits. The last column says "yes" or "NO"
// for rows with a limit. Returns whether every row keeps its limit.
bool printBenchTable(std::ostream& stream, const std::string& title, const std::vector<BenchRow>& rows);

} // namespace tvk
