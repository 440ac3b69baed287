#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace tvk {

// Hands out names that differ from all names handed out before. A wanted name that is taken gets "_1", "_2", … behind
// it: the first counter that makes it free. Comparison is exact and case-sensitive.
//
// The result is that of trying 1, 2, 3, … against every earlier name. Names are never given back, so the counters
// that were found taken for a wanted name stay taken, and the next search may start behind them: equal names cost
// constant time each instead of a growing search.
class UniqueNames {
public:
    // The number of names to come, when it is known; saves rehashing.
    void reserve(size_t count);

    // Returns the name to use, which counts as handed out from now on.
    std::string allocate(const std::string& wanted);

private:
    std::unordered_set<std::string> taken;
    std::unordered_map<std::string, uint64_t> nextCounters; // per wanted name that was taken
};

} // namespace tvk
