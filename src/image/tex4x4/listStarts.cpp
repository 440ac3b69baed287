#include "image/tex4x4/listStarts.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace tvk {
namespace {

constexpr float kNothing = std::numeric_limits<float>::max();

// Different colours of the console, and how far each texel lies from them.
class LevelSet {
public:
    explicit LevelSet(const ListTask& listTask) : task(listTask) {
        for (size_t i = 0; i < task.distinct; ++i) {
            add(task.levelsOf(i));
        }
    }

    size_t size() const { return count; }
    const Levels& operator[](size_t k) const { return levels[k]; }

    void dropLeastMissed() {
        std::array<float, kBlockTexels> losses{}; // how much farther a colour's texels would have to go
        for (size_t i = 0; i < task.distinct; ++i) {
            size_t nearest = 0;
            float least = kNothing, second = kNothing;
            for (size_t k = 0; k < count; ++k) {
                const float distance = distances[i][k];
                second = std::min(second, std::max(distance, least));
                nearest = distance < least ? k : nearest;
                least = std::min(least, distance);
            }
            losses[nearest] += second - least;
        }
        const auto end = losses.begin() + static_cast<long>(count);
        const auto gone = static_cast<size_t>(std::min_element(losses.begin(), end) - losses.begin());
        --count;
        levels[gone] = levels[count];
        for (size_t i = 0; i < task.distinct; ++i) {
            distances[i][gone] = distances[i][count];
        }
    }

private:
    void add(const Levels& color) {
        const auto end = levels.begin() + static_cast<long>(count);
        if (std::find(levels.begin(), end, color) != end) {
            return;
        }
        for (size_t i = 0; i < task.distinct; ++i) {
            for (size_t c = 0; c < 3; ++c) {
                const float d = task.texels.channels[c][i] - task.colors.shown(color[c]);
                distances[i][count] += d * d * task.texels.weights[i];
            }
        }
        levels[count] = color;
        ++count;
    }

    const ListTask& task;
    std::array<Levels, kBlockTexels> levels{};
    std::array<std::array<float, kBlockTexels>, kBlockTexels> distances{}; // weighted, by texel and colour
    size_t count = 0;
};

// Heaps of texels, and what joining any two of them costs.
class Heaps {
public:
    explicit Heaps(const ListTask& task) : count(task.distinct) {
        for (size_t i = 0; i < count; ++i) {
            heaps[i].add(task.texels, i);
            for (size_t other = 0; other < i; ++other) {
                costs[i][other] = joinCost(i, other);
            }
        }
    }

    size_t size() const { return count; }
    const TexelHeap& operator[](size_t i) const { return heaps[i]; }

    void joinCheapest() {
        size_t later = 1, earlier = 0;
        for (size_t i = 1; i < count; ++i) {
            for (size_t other = 0; other < i; ++other) {
                if (costs[i][other] < costs[later][earlier]) {
                    later = i;
                    earlier = other;
                }
            }
        }
        heaps[earlier].add(heaps[later], 1);
        --count;
        heaps[later] = heaps[count];
        updateCosts(earlier);
        if (later < count) {
            updateCosts(later);
        }
    }

private:
    float joinCost(size_t a, size_t b) const {
        float distance = 0;
        for (size_t c = 0; c < 3; ++c) {
            const float d = heaps[a].values[c] / heaps[a].weight - heaps[b].values[c] / heaps[b].weight;
            distance += d * d;
        }
        return distance * heaps[a].weight * heaps[b].weight / (heaps[a].weight + heaps[b].weight);
    }

    void updateCosts(size_t changed) {
        for (size_t i = 0; i < count; ++i) {
            if (i != changed) {
                costs[std::max(i, changed)][std::min(i, changed)] = joinCost(i, changed);
            }
        }
    }

    size_t count;
    std::array<TexelHeap, kBlockTexels> heaps;
    std::array<std::array<float, kBlockTexels>, kBlockTexels> costs{};
};

// Texels in the order of their axis; any run of them is a heap at once.
class AxisOrder {
public:
    explicit AxisOrder(const ListTask& task) {
        const TexelAxis axis = findAxis(task.texels);
        std::vector<std::pair<float, size_t>> order;
        for (size_t i = 0; i < task.distinct; ++i) {
            float along = 0;
            for (size_t c = 0; c < 3; ++c) {
                along += task.texels.channels[c][i] * axis.direction[c];
            }
            order.emplace_back(along, i);
        }
        std::sort(order.begin(), order.end());
        for (size_t i = 0; i < order.size(); ++i) {
            before[i + 1] = before[i];
            before[i + 1].add(task.texels, order[i].second);
        }
    }

    TexelHeap between(size_t from, size_t to) const {
        TexelHeap heap = before[to];
        heap.add(before[from], -1);
        return heap;
    }

private:
    std::array<TexelHeap, kBlockTexels + 1> before; // the texels before each place
};

// The best runs that end at a place: their cost, and where the last of them begins.
struct Cuts {
    std::array<float, kBlockTexels + 1> costs{};
    std::array<size_t, kBlockTexels + 1> starts{};
};

Cuts oneRunMore(const AxisOrder& order, const Cuts& fewer, size_t runs, size_t count) {
    Cuts cuts;
    cuts.costs.fill(kNothing);
    for (size_t to = runs; to <= count; ++to) {
        for (size_t from = runs - 1; from < to; ++from) {
            const float cost = fewer.costs[from] + order.between(from, to).spread();
            if (cost < cuts.costs[to]) {
                cuts.costs[to] = cost;
                cuts.starts[to] = from;
            }
        }
    }
    return cuts;
}

} // namespace

void TexelHeap::add(TexelView texels, size_t i) {
    weight += texels.weights[i];
    for (size_t c = 0; c < 3; ++c) {
        const float value = texels.channels[c][i];
        values[c] += texels.weights[i] * value;
        squares += texels.weights[i] * value * value;
    }
}

void TexelHeap::add(const TexelHeap& other, float sign) {
    weight += sign * other.weight;
    squares += sign * other.squares;
    for (size_t c = 0; c < 3; ++c) {
        values[c] += sign * other.values[c];
    }
}

float TexelHeap::spread() const {
    const float length = values[0] * values[0] + values[1] * values[1] + values[2] * values[2];
    return squares - length / weight;
}

Levels TexelHeap::mean(const Tex4x4Colors& colors) const {
    return colors.nearestLevels(values[0] / weight, values[1] / weight, values[2] / weight);
}

ColorList dropLevels(const ListTask& task) {
    LevelSet levels(task);
    while (levels.size() > task.length) {
        levels.dropLeastMissed();
    }
    ColorList list{};
    for (size_t k = 0; k < task.length; ++k) {
        list[k] = levels[std::min(k, levels.size() - 1)];
    }
    return list;
}

ColorList joinHeaps(const ListTask& task) {
    Heaps heaps(task);
    while (heaps.size() > task.length) {
        heaps.joinCheapest();
    }
    ColorList list{};
    for (size_t k = 0; k < task.length; ++k) {
        list[k] = heaps[k].mean(task.colors);
    }
    return list;
}

ColorList cutAxis(const ListTask& task) {
    const AxisOrder order(task);
    std::array<Cuts, 5> cuts;
    cuts[0].costs.fill(kNothing);
    cuts[0].costs[0] = 0;
    for (size_t runs = 1; runs <= task.length; ++runs) {
        cuts[runs] = oneRunMore(order, cuts[runs - 1], runs, task.distinct);
    }
    ColorList list{};
    size_t to = task.distinct;
    for (size_t runs = task.length; runs > 0; --runs) {
        const size_t from = cuts[runs].starts[to];
        list[runs - 1] = order.between(from, to).mean(task.colors);
        to = from;
    }
    return list;
}

} // namespace tvk
