#include "geometry/chordCover.h"

#include <algorithm>

namespace tvk {

namespace {

constexpr uint8_t kFree = 0xff;

// A stretch of a chord that was free when it was noted down.
struct Stretch {
    uint32_t chord;
    std::size_t begin;
    std::size_t end;
};

class Cover {
public:
    Cover(const Chords& allChords, std::size_t faceCount) : chords(allChords), labels(faceCount, kFree) {
        std::size_t longest = 0;
        for (std::size_t chord = 0; chord + 1 < chords.starts.size(); ++chord)
            longest = std::max(longest, chords.starts[chord + 1] - chords.starts[chord]);
        byLength.resize(longest + 1);
        // Stretches are taken from the back, so the first chord goes there.
        for (std::size_t chord = chords.starts.size() - 1; chord-- > 0;)
            note({static_cast<uint32_t>(chord), chords.starts[chord], chords.starts[chord + 1]});
    }

    std::vector<uint8_t> run() {
        for (std::size_t length = byLength.size(); length-- > 1;) {
            while (!byLength[length].empty()) {
                const Stretch stretch = byLength[length].back();
                byLength[length].pop_back();
                if (!noteFreeParts(stretch))
                    take(stretch);
            }
        }
        return labels;
    }

private:
    void note(const Stretch& stretch) {
        if (stretch.end > stretch.begin)
            byLength[stretch.end - stretch.begin].push_back(stretch);
    }

    bool isFree(std::size_t at) const { return labels[chords.places[at] >> 2] == kFree; }

    // False, and nothing noted, when the stretch is free as a whole.
    bool noteFreeParts(const Stretch& stretch) {
        std::size_t begin = stretch.begin;
        for (std::size_t at = stretch.begin; at < stretch.end; ++at) {
            if (isFree(at))
                continue;
            note({stretch.chord, begin, at});
            begin = at + 1;
        }
        if (begin == stretch.begin)
            return false;
        note({stretch.chord, begin, stretch.end});
        return true;
    }

    void take(Stretch stretch) {
        const std::size_t length = stretch.end - stretch.begin;
        const std::size_t offset = stretch.begin - chords.starts[stretch.chord];
        const EvenStretches shortened = chords.shortened[stretch.chord];
        const EvenStretches kind = offset % 2 == 0 ? EvenStretches::kFromEvenPlaces : EvenStretches::kFromOddPlaces;
        if (length > 2 && length % 2 == 0 && shortened == kind) {
            --stretch.end;
            note({stretch.chord, stretch.end, stretch.end + 1});
        }
        for (std::size_t at = stretch.begin; at < stretch.end; ++at)
            labels[chords.places[at] >> 2] = chords.places[at] & 3u;
    }

    const Chords& chords;
    std::vector<uint8_t> labels;
    std::vector<std::vector<Stretch>> byLength;
};

} // namespace

std::vector<uint8_t> coverLongestFirst(const Chords& chords, std::size_t faceCount) {
    return Cover(chords, faceCount).run();
}

} // namespace tvk
