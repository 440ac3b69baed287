#include "geometry/quadAxes.h"

#include "geometry/chordCover.h"

#include <array>
#include <cstddef>
#include <deque>

namespace tvk {

namespace {

constexpr uint8_t kFree = 2;

// The place across an edge when both faces use it, StripMesh::kNone otherwise.
uint32_t behindEdge(const StripMesh& mesh, const QuadAxes& axes, uint32_t quad, uint32_t edge) {
    const uint32_t across = mesh.across[quad][edge];
    if (across == StripMesh::kNone || axes[neighbourOf(across)] != (edgeOf(across) & 1u))
        return StripMesh::kNone;
    return across;
}

// Calls visit(places) for every strip: for each of its quads, quad * 4 + the edge through which the strip enters.
template <typename Visit>
void forEachStrip(const StripMesh& mesh, const QuadAxes& axes, Visit visit) {
    const auto count = static_cast<uint32_t>(mesh.faceCount());
    std::vector<uint8_t> seen(count, 0);
    std::vector<uint32_t> places;
    for (const bool rings : {false, true}) {
        for (uint32_t quad = 0; quad < count; ++quad) {
            if (seen[quad] != 0)
                continue;
            uint32_t entry = axes[quad];
            if (behindEdge(mesh, axes, quad, entry) != StripMesh::kNone)
                entry += 2;
            if (!rings && behindEdge(mesh, axes, quad, entry) != StripMesh::kNone)
                continue;
            places.clear();
            uint32_t place = quad * 4 + entry;
            while (place != StripMesh::kNone && seen[neighbourOf(place)] == 0) {
                seen[neighbourOf(place)] = 1;
                places.push_back(place);
                place = behindEdge(mesh, axes, neighbourOf(place), edgeOf(place) ^ 2u);
            }
            visit(places);
        }
    }
}

class GreedyChords {
public:
    explicit GreedyChords(const StripMesh& stripMesh)
        : mesh(stripMesh), axes(mesh.faceCount(), kFree), freeNeighbours(mesh.faceCount(), 0),
          stamps(mesh.faceCount(), 0) {
        for (auto quad = static_cast<uint32_t>(mesh.faceCount()); quad-- > 0;) {
            for (const uint32_t across : mesh.across[quad]) {
                if (across != StripMesh::kNone)
                    ++freeNeighbours[quad];
            }
            waiting[freeNeighbours[quad]].push_back(quad);
        }
    }

    QuadAxes run() {
        uint32_t start = 0;
        while (takeStart(start)) {
            const std::vector<uint32_t> first = walk(start, 0);
            const std::vector<uint32_t> second = walk(start, 1);
            const std::vector<uint32_t>& longer = second.size() > first.size() ? second : first;
            for (const uint32_t place : longer)
                axes[neighbourOf(place)] = edgeOf(place) & 1u;
            for (const uint32_t place : longer)
                tellNeighbours(neighbourOf(place));
        }
        return axes;
    }

private:
    bool takeStart(uint32_t& start) {
        for (std::size_t count = 0; count < waiting.size(); ++count) {
            while (!waiting[count].empty()) {
                start = waiting[count].back();
                waiting[count].pop_back();
                if (axes[start] == kFree && freeNeighbours[start] == count)
                    return true;
            }
        }
        return false;
    }

    void tellNeighbours(uint32_t quad) {
        for (const uint32_t across : mesh.across[quad]) {
            if (across == StripMesh::kNone)
                continue;
            const uint32_t neighbour = neighbourOf(across);
            --freeNeighbours[neighbour];
            if (axes[neighbour] == kFree)
                waiting[freeNeighbours[neighbour]].push_back(neighbour);
        }
    }

    // The places of a strip through the start, in no order.
    std::vector<uint32_t> walk(uint32_t start, uint32_t axis) {
        ++stamp;
        stamps[start] = stamp;
        std::vector<uint32_t> places{start * 4 + axis};
        for (const uint32_t exit : {axis, axis + 2}) {
            uint32_t place = mesh.across[start][exit];
            while (place != StripMesh::kNone && axes[neighbourOf(place)] == kFree &&
                   stamps[neighbourOf(place)] != stamp) {
                stamps[neighbourOf(place)] = stamp;
                places.push_back(place);
                place = mesh.across[neighbourOf(place)][edgeOf(place) ^ 2u];
            }
        }
        return places;
    }

    const StripMesh& mesh;
    QuadAxes axes;
    std::vector<uint8_t> freeNeighbours;
    std::vector<uint32_t> stamps;
    uint32_t stamp = 0;
    std::array<std::vector<uint32_t>, 5> waiting;
};

constexpr uint32_t kBlockSize = kStripPatchSize;
constexpr int32_t kJoinWeight = 8;

int32_t joinsOf(const StripMesh& mesh, const QuadAxes& axes, uint32_t quad, uint32_t except) {
    int32_t joins = 0;
    for (const uint32_t edge : {uint32_t{axes[quad]}, axes[quad] + 2u}) {
        const uint32_t place = behindEdge(mesh, axes, quad, edge);
        joins += place != StripMesh::kNone && neighbourOf(place) != except ? 1 : 0;
    }
    return joins;
}

// One try per quad: a random edge shall join, whatever its quads did before; at a border the quad just turns.
void sweepAxes(const StripMesh& mesh, uint32_t begin, uint32_t end, const AcceptTable& table, RandomBits& random,
               QuadAxes& axes) {
    for (uint32_t quad = begin; quad < end; ++quad) {
        const uint64_t bits = random.next();
        const auto edge = static_cast<uint32_t>(bits >> 62);
        const uint32_t across = mesh.across[quad][edge];
        const uint32_t other = across == StripMesh::kNone ? quad : neighbourOf(across);
        const auto axis = static_cast<uint8_t>(edge & 1u);
        const auto otherAxis = static_cast<uint8_t>(other == quad ? axis : edgeOf(across) & 1u);
        const uint8_t oldAxis = axes[quad];
        const uint8_t oldOther = axes[other];
        if (oldAxis == axis && oldOther == otherAxis)
            continue;
        int32_t loss = joinsOf(mesh, axes, quad, StripMesh::kNone);
        loss += other == quad ? 0 : joinsOf(mesh, axes, other, quad);
        axes[quad] = axis;
        axes[other] = otherAxis;
        loss -= joinsOf(mesh, axes, quad, StripMesh::kNone);
        loss -= other == quad ? 0 : joinsOf(mesh, axes, other, quad);
        if (!table.accepts(loss * kJoinWeight, static_cast<uint32_t>(bits))) {
            axes[quad] = oldAxis;
            axes[other] = oldOther;
        }
    }
}

// The places (quad * 4 + axis) from an edge of a quad on, itself excluded, until the border or until the chord closes.
void followChord(const StripMesh& mesh, uint32_t place, std::vector<uint8_t>& seen, std::vector<uint32_t>& places) {
    while (true) {
        const uint32_t across = mesh.across[neighbourOf(place)][edgeOf(place)];
        if (across == StripMesh::kNone)
            return;
        const uint32_t label = neighbourOf(across) * 4 + (edgeOf(across) & 1u);
        if (seen[label] != 0)
            return;
        seen[label] = 1;
        places.push_back(label);
        place = across ^ 2u;
    }
}

} // namespace

QuadAxes longestAxes(const StripMesh& mesh) {
    Chords chords;
    chords.places.reserve(mesh.faceCount() * 2);
    std::vector<uint8_t> seen(mesh.faceCount() * 4, 0);
    std::vector<uint32_t> back;
    for (uint32_t place = 0; place < seen.size(); ++place) {
        if (seen[place] != 0 || (place & 3u) > 1)
            continue;
        seen[place] = 1;
        back.clear();
        followChord(mesh, place, seen, back);
        chords.places.insert(chords.places.end(), back.rbegin(), back.rend());
        chords.places.push_back(place);
        followChord(mesh, place ^ 2u, seen, chords.places);
        chords.starts.push_back(chords.places.size());
        chords.shortened.push_back(EvenStretches::kNone);
    }
    return coverLongestFirst(chords, mesh.faceCount());
}

std::size_t countQuadStrips(const StripMesh& mesh, const QuadAxes& axes) {
    std::size_t count = 0;
    forEachStrip(mesh, axes, [&](const std::vector<uint32_t>&) { ++count; });
    return count;
}

std::vector<std::vector<int32_t>> readQuadStrips(const StripMesh& mesh, const QuadAxes& axes) {
    std::vector<std::vector<int32_t>> strips;
    forEachStrip(mesh, axes, [&](const std::vector<uint32_t>& places) {
        std::vector<int32_t> vertices;
        vertices.reserve(places.size() * 2 + 2);
        const std::array<int32_t, 4>& first = mesh.corners[neighbourOf(places[0])];
        vertices.push_back(first[edgeOf(places[0])]);
        vertices.push_back(first[(edgeOf(places[0]) + 1) & 3u]);
        for (const uint32_t place : places) {
            const std::array<int32_t, 4>& corners = mesh.corners[neighbourOf(place)];
            vertices.push_back(corners[(edgeOf(place) + 3) & 3u]);
            vertices.push_back(corners[(edgeOf(place) + 2) & 3u]);
        }
        strips.push_back(std::move(vertices));
    });
    return strips;
}

QuadAxes greedyAxes(const StripMesh& mesh) {
    return GreedyChords(mesh).run();
}

void annealAxes(const StripMesh& mesh, const AnnealPlan& plan, uint64_t seed, QuadAxes& axes,
                const std::function<void(double)>& done) {
    const QuadAxes before = axes;
    RandomBits random(seed);
    const auto count = static_cast<uint32_t>(mesh.faceCount());
    for (uint32_t begin = 0; begin < count; begin += kBlockSize) {
        const uint32_t end = begin + kBlockSize < count ? begin + kBlockSize : count;
        for (int32_t sweep = 0; sweep < plan.sweeps; ++sweep)
            sweepAxes(mesh, begin, end, AcceptTable(plan, sweep), random, axes);
        if (done)
            done(static_cast<double>(end) / count);
    }
    if (countQuadStrips(mesh, axes) > countQuadStrips(mesh, before))
        axes = before;
}

} // namespace tvk
