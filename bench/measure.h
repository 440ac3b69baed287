#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace tvk {

// The wall-clock seconds of the fastest of several runs: what the work costs when nothing else disturbs it.
//   repeats   at least 1
template <typename Run>
double measureSeconds(int repeats, Run run) {
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < repeats; ++i) {
        const auto start = std::chrono::steady_clock::now();
        run();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        least = std::min(least, taken.count());
    }
    return least;
}

// What one run of another program cost.
struct ProgramCost {
    int exitStatus = -1; // -1: it was ended by a signal; 127: it did not start
    double seconds = 0;
    std::int64_t peakBytes = 0; // the largest resident memory, and never less than the caller's own at the start
};

// Runs a program with its output thrown away and waits for it.
//   command   the program's path, then its arguments; at least one entry
ProgramCost runProgram(const std::vector<std::string>& command);

} // namespace tvk
