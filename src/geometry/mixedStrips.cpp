#include "geometry/mixedStrips.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace tvk {

namespace {

using Vertices = std::vector<int32_t>;

// One way to send a strip as triangles. A strip's triangles are alternately turned round, so that each way fits either
// at even or at odd places of a longer strip; only even ones can begin.
struct Way {
    Vertices vertices;
    bool fitsOdd;
};

Vertices reversed(const Vertices& vertices) {
    return {vertices.rbegin(), vertices.rend()};
}

// All ways to send a triangle strip.
std::vector<Way> waysOfTriangles(const Vertices& strip) {
    if (strip.size() > 3)
        return {{strip, false}, {reversed(strip), strip.size() % 2 == 1}};
    std::vector<Way> ways;
    Vertices turned = strip;
    for (int i = 0; i < 3; ++i) {
        ways.push_back({turned, false});
        ways.push_back({reversed(turned), true});
        std::rotate(turned.begin(), turned.begin() + 1, turned.end());
    }
    return ways;
}

// All ways to send a quad strip as triangles: from either end, and with the two vertices of each pair exchanged.
std::vector<Way> waysOfQuads(const Vertices& strip) {
    std::vector<Vertices> chains{strip};
    if (strip.size() == 4)
        chains.push_back({strip[1], strip[3], strip[0], strip[2]});
    std::vector<Way> ways;
    for (const Vertices& chain : chains) {
        for (const Vertices& way : {chain, reversed(chain)}) {
            ways.push_back({way, false});
            Vertices exchanged = way;
            for (std::size_t i = 0; i + 1 < exchanged.size(); i += 2)
                std::swap(exchanged[i], exchanged[i + 1]);
            ways.push_back({std::move(exchanged), true});
        }
    }
    return ways;
}

bool follows(const Way& first, const Way& second) {
    const std::size_t length = first.vertices.size();
    return !first.fitsOdd && second.fitsOdd == (length % 2 == 1) && first.vertices[length - 2] == second.vertices[0] &&
           first.vertices[length - 1] == second.vertices[1];
}

// The strip that two strips make together; empty when they do not meet.
Vertices joined(const std::vector<Way>& some, const std::vector<Way>& others) {
    for (const Way& a : some) {
        for (const Way& b : others) {
            for (const auto& [first, second] : {std::pair(&a, &b), std::pair(&b, &a)}) {
                if (!follows(*first, *second))
                    continue;
                Vertices together = first->vertices;
                together.insert(together.end(), second->vertices.begin() + 2, second->vertices.end());
                return together;
            }
        }
    }
    return {};
}

using Edge = uint64_t;

Edge edgeBetween(int32_t a, int32_t b) {
    return static_cast<uint64_t>(std::min(a, b)) << 32 | static_cast<uint64_t>(std::max(a, b));
}

// The edges at which a strip can go on.
std::vector<Edge> endsOf(const Vertices& strip, bool isQuads) {
    const std::size_t length = strip.size();
    std::vector<Edge> ends{edgeBetween(strip[0], strip[1]), edgeBetween(strip[length - 2], strip[length - 1])};
    if (length == 3)
        ends.push_back(edgeBetween(strip[0], strip[2]));
    if (isQuads && length == 4) {
        ends.push_back(edgeBetween(strip[0], strip[2]));
        ends.push_back(edgeBetween(strip[1], strip[3]));
    }
    return ends;
}

class Joiner {
public:
    explicit Joiner(StripSet& stripSet) : strips(stripSet) {
        for (std::size_t i = 0; i < strips.triangleStrips.size(); ++i)
            enter(i);
    }

    // Makes the quad strip part of a triangle strip that meets it, and of a second one at its other end.
    bool absorb(const Vertices& quads) {
        std::size_t strip = 0;
        Vertices together = meet(waysOfQuads(quads), endsOf(quads, true), kNone, strip);
        if (together.empty())
            return false;
        strips.triangleStrips[strip] = std::move(together);
        enter(strip);
        const Vertices& grown = strips.triangleStrips[strip];
        std::size_t other = 0;
        together = meet(waysOfTriangles(grown), endsOf(grown, false), strip, other);
        if (!together.empty()) {
            strips.triangleStrips[strip].clear();
            strips.triangleStrips[other] = std::move(together);
            enter(other);
        }
        return true;
    }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    void enter(std::size_t strip) {
        for (const Edge end : endsOf(strips.triangleStrips[strip], false))
            stripsAt[end].push_back(strip);
    }

    // Finds a triangle strip that meets one of the ways at one of the edges. Entries of strips that have grown or gone
    // are harmless: they do not fit any more.
    Vertices meet(const std::vector<Way>& ways, const std::vector<Edge>& edges, std::size_t except,
                  std::size_t& strip) const {
        for (const Edge edge : edges) {
            const auto found = stripsAt.find(edge);
            if (found == stripsAt.end())
                continue;
            const std::size_t tries = std::min(found->second.size(), kMostTries);
            for (std::size_t i = 0; i < tries; ++i) {
                strip = found->second[found->second.size() - 1 - i];
                const Vertices& candidate = strips.triangleStrips[strip];
                if (strip == except || candidate.empty())
                    continue;
                Vertices together = joined(ways, waysOfTriangles(candidate));
                if (!together.empty())
                    return together;
            }
        }
        return {};
    }

    // Where hundreds of faces share an edge, looking at all of them for each would take quadratic time.
    static constexpr std::size_t kMostTries = 8;

    StripSet& strips;
    std::unordered_map<Edge, std::vector<std::size_t>> stripsAt;
};

} // namespace

std::size_t vertexCount(const StripSet& strips) {
    std::size_t count = 0;
    for (const Vertices& strip : strips.triangleStrips)
        count += strip.size();
    for (const Vertices& strip : strips.quadStrips)
        count += strip.size();
    return count;
}

int64_t joinMixedStrips(StripSet& strips, int64_t allowance) {
    Joiner joiner(strips);
    std::stable_sort(strips.quadStrips.begin(), strips.quadStrips.end(),
                     [](const Vertices& a, const Vertices& b) { return a.size() < b.size(); });
    int64_t split = 0;
    std::vector<Vertices> left;
    for (Vertices& quads : strips.quadStrips) {
        const auto count = static_cast<int64_t>(quads.size() / 2 - 1);
        if (split + count <= allowance && joiner.absorb(quads))
            split += count;
        else
            left.push_back(std::move(quads));
    }
    strips.quadStrips = std::move(left);
    const auto gone = [](const Vertices& strip) { return strip.empty(); };
    strips.triangleStrips.erase(std::remove_if(strips.triangleStrips.begin(), strips.triangleStrips.end(), gone),
                                strips.triangleStrips.end());
    return split;
}

} // namespace tvk
