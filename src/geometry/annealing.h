#pragma once

#include <array>
#include <cstdint>

namespace tvk {

// Where and how long a set of labels is improved by annealing: random changes are made, and those for the worse are
// kept with a chance that falls with their loss and from sweep to sweep. All arithmetic is on integers, so that every
// compiler and processor gets the same strips.

// The chance to accept a loss of one unit, in 1/2^32, falls in a straight line from first to last over all sweeps. The
// last sweep accepts no loss.
struct AnnealPlan {
    int32_t sweeps = 0; // changes tried per face; 0 leaves the labels alone
    uint32_t firstChance = 0;
    uint32_t lastChance = 0;
};

// One random number after the other (a counter, its bits mixed). The same seed gives the same numbers.
class RandomBits {
public:
    explicit RandomBits(uint64_t seed) : state(seed) {}

    uint64_t next() {
        state += 0x9e3779b97f4a7c15u;
        uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9u;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebu;
        return mixed ^ (mixed >> 31);
    }

private:
    uint64_t state;
};

// The chances of all losses in one sweep.
class AcceptTable {
public:
    // Losses from here on count as this one.
    static constexpr int32_t kLargestLoss = 40;

    AcceptTable(const AnnealPlan& plan, int32_t sweep);

    //   loss     in units; 0 or less is always accepted
    //   random   any 32 random bits
    bool accepts(int32_t loss, uint32_t random) const {
        return loss <= 0 || random < chances[static_cast<std::size_t>(loss < kLargestLoss ? loss : kLargestLoss)];
    }

private:
    std::array<uint32_t, kLargestLoss + 1> chances{};
};

} // namespace tvk
