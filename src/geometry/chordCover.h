#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tvk {

enum class EvenStretches : uint8_t { kNone, kFromEvenPlaces, kFromOddPlaces };

// Every straight way through a mesh: for each face and each of its labels the one chain that it lies on.
// A place is face * 4 + label.
struct Chords {
    std::vector<uint32_t> places;       // of all chords, one after the other, in the order of their chains
    std::vector<std::size_t> starts{0}; // where each chord begins, and the end
    // Per chord which stretches of an even length above 2 must give up their last face: those that begin at the chord's
    // places 0, 2, 4 …, or those that begin at 1, 3, 5 …
    std::vector<EvenStretches> shortened;
};

// Labels for all faces: the longest chord first, what it cuts through being left over in pieces; of equal lengths the
// earlier chord. About n log n.
//   faceCount   every face must be on some chord
std::vector<uint8_t> coverLongestFirst(const Chords& chords, std::size_t faceCount);

} // namespace tvk
