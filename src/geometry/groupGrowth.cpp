#include "geometry/groupGrowth.h"

#include "geometry/MatrixSlots.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>
#include <utility>

namespace tvk {

namespace {

// Divides buckets into groups: each begins with the bucket that needs the fewest loads and grows by the bucket that
// adds the fewest matrices, then the fewest loads, then the most faces.
class GroupGrowth {
public:
    GroupGrowth(const std::vector<MatrixBucket>& allBuckets, std::size_t matrixCount)
        : buckets(allBuckets), counts(allBuckets.size()), users(matrixCount), isInGroup(matrixCount, 0),
          isHeld(matrixCount, 0) {
        for (std::size_t i = 0; i < buckets.size(); ++i) {
            for (const int32_t matrix : buckets[i].matrices.sorted()) {
                if (matrix < 0)
                    continue;
                users[static_cast<std::size_t>(matrix)].push_back(i);
                ++counts[i].missing;
                ++counts[i].loads;
            }
            queue.insert(keyOf(i));
        }
    }

    // The buckets of each group.
    BucketGroups run(const std::function<void(double)>& progress) {
        BucketGroups groups;
        while (!queue.empty()) {
            groups.push_back(growGroup());
            if (progress)
                progress(1.0 - static_cast<double>(queue.size()) / static_cast<double>(buckets.size()));
        }
        return groups;
    }

private:
    using Key = std::tuple<int32_t, int32_t, std::ptrdiff_t, std::size_t>;

    Key keyOf(std::size_t bucket) const {
        return {counts[bucket].missing, counts[bucket].loads,
                -static_cast<std::ptrdiff_t>(buckets[bucket].faces.size()), bucket};
    }

    std::vector<std::size_t> growGroup() {
        std::vector<std::size_t> taken{findStart()};
        take(taken[0]);
        while (!queue.empty()) {
            const std::size_t next = std::get<3>(*queue.begin());
            if (static_cast<int32_t>(group.size()) + counts[next].missing > kMatrixSlotCount)
                break;
            taken.push_back(next);
            take(next);
        }
        closeGroup();
        return taken;
    }

    // With an empty group the queue is in order of the sets' sizes and then of loads, so each size has its own best.
    std::size_t findStart() const {
        std::size_t best = buckets.size();
        for (int32_t size = 1; size <= 4; ++size) {
            const auto found = queue.lower_bound({size, -1, 0, 0});
            if (found == queue.end() || std::get<0>(*found) != size)
                continue;
            const std::size_t bucket = std::get<3>(*found);
            if (best == buckets.size() || startKey(bucket) < startKey(best))
                best = bucket;
        }
        return best;
    }

    std::tuple<int32_t, std::ptrdiff_t, std::size_t> startKey(std::size_t bucket) const {
        return {counts[bucket].loads, -static_cast<std::ptrdiff_t>(buckets[bucket].faces.size()), bucket};
    }

    void take(std::size_t bucket) {
        queue.erase(keyOf(bucket));
        counts[bucket].isTaken = true;
        for (const int32_t matrix : buckets[bucket].matrices.sorted()) {
            if (matrix < 0 || isInGroup[static_cast<std::size_t>(matrix)] != 0)
                continue;
            isInGroup[static_cast<std::size_t>(matrix)] = 1;
            group.push_back(matrix);
            change(matrix, -1, isHeld[static_cast<std::size_t>(matrix)] != 0 ? 0 : -1);
        }
    }

    // Counts anew for all waiting buckets that use a matrix.
    void change(int32_t matrix, int32_t missing, int32_t loads) {
        if (missing == 0 && loads == 0)
            return;
        std::vector<std::size_t>& list = users[static_cast<std::size_t>(matrix)];
        list.erase(std::remove_if(list.begin(), list.end(), [&](std::size_t i) { return counts[i].isTaken; }),
                   list.end());
        for (const std::size_t bucket : list) {
            auto node = queue.extract(keyOf(bucket));
            counts[bucket].missing += missing;
            counts[bucket].loads += loads;
            node.value() = keyOf(bucket);
            queue.insert(std::move(node));
        }
    }

    void closeGroup() {
        const std::array<int32_t, kMatrixSlotCount> before = slots.held();
        slots.load(group);
        for (const int32_t matrix : group) {
            isInGroup[static_cast<std::size_t>(matrix)] = 0;
            isHeld[static_cast<std::size_t>(matrix)] = 1;
            change(matrix, 1, 0);
        }
        for (const int32_t matrix : before) {
            if (matrix < 0 || slots.holds(matrix))
                continue;
            isHeld[static_cast<std::size_t>(matrix)] = 0;
            change(matrix, 0, 1);
        }
        group.clear();
    }

    struct Counts {
        int32_t missing = 0; // of the bucket's matrices, those that the group at hand does not have
        int32_t loads = 0;   // of those, the ones that no slot holds
        bool isTaken = false;
    };

    const std::vector<MatrixBucket>& buckets;
    std::vector<Counts> counts;
    std::vector<std::vector<std::size_t>> users; // per matrix the buckets that use it
    std::set<Key> queue;                         // the buckets that wait
    std::vector<int32_t> group;                  // the matrices of the group at hand
    std::vector<uint8_t> isInGroup;
    std::vector<uint8_t> isHeld; // some slot holds it
    MatrixSlots slots;
};

} // namespace

BucketGroups growGroups(const std::vector<MatrixBucket>& buckets, std::size_t matrixCount,
                        const std::function<void(double)>& progress) {
    return GroupGrowth(buckets, matrixCount).run(progress);
}

} // namespace tvk
