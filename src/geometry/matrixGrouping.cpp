#include "geometry/matrixGrouping.h"

#include "geometry/MatrixSet.h"
#include "geometry/MatrixSlots.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tvk {

namespace {

// Faces that need the same matrices; matrices are numbered from 0 in order of first use.
struct Bucket {
    MatrixSet matrices;
    std::vector<int32_t> faces;
    int32_t missing = 0; // of its matrices, those that the group at hand does not have
    int32_t loads = 0;   // of those, the ones that no slot holds
    bool isTaken = false;
};

// Numbers the matrices of all corners in order of first use.
struct MatrixNumbers {
    std::vector<int32_t> ofCorner;
    std::vector<int32_t> matrices;
};

MatrixNumbers numberMatrices(const FaceList& faces) {
    MatrixNumbers numbers;
    numbers.ofCorner.reserve(faces.corners.size());
    std::unordered_map<int32_t, int32_t> known;
    int32_t last = -1;
    for (const Corner& corner : faces.corners) {
        if (last < 0 || numbers.matrices[static_cast<std::size_t>(last)] != corner.matrix) {
            const auto [entry, isNew] = known.emplace(corner.matrix, static_cast<int32_t>(numbers.matrices.size()));
            if (isNew)
                numbers.matrices.push_back(corner.matrix);
            last = entry->second;
        }
        numbers.ofCorner.push_back(last);
    }
    return numbers;
}

// Divides buckets into groups: each begins with the bucket that needs the fewest loads and grows by the bucket that
// adds the fewest matrices, then the fewest loads, then the most faces.
class GroupGrowth {
public:
    GroupGrowth(std::vector<Bucket> allBuckets, std::size_t matrixCount)
        : buckets(std::move(allBuckets)), users(matrixCount), isInGroup(matrixCount, 0), isHeld(matrixCount, 0) {
        for (std::size_t i = 0; i < buckets.size(); ++i) {
            for (const int32_t matrix : buckets[i].matrices.sorted()) {
                if (matrix < 0)
                    continue;
                users[static_cast<std::size_t>(matrix)].push_back(i);
                ++buckets[i].missing;
                ++buckets[i].loads;
            }
            queue.insert(keyOf(i));
        }
    }

    // The buckets of each group.
    std::vector<std::vector<std::size_t>> run(const std::function<void(double)>& progress) {
        std::vector<std::vector<std::size_t>> groups;
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
        const Bucket& it = buckets[bucket];
        return {it.missing, it.loads, -static_cast<std::ptrdiff_t>(it.faces.size()), bucket};
    }

    std::vector<std::size_t> growGroup() {
        std::vector<std::size_t> taken{findStart()};
        take(taken[0]);
        while (!queue.empty()) {
            const std::size_t next = std::get<3>(*queue.begin());
            if (static_cast<int32_t>(group.size()) + buckets[next].missing > kMatrixSlotCount)
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
        return {buckets[bucket].loads, -static_cast<std::ptrdiff_t>(buckets[bucket].faces.size()), bucket};
    }

    void take(std::size_t bucket) {
        queue.erase(keyOf(bucket));
        buckets[bucket].isTaken = true;
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
        list.erase(std::remove_if(list.begin(), list.end(), [&](std::size_t i) { return buckets[i].isTaken; }),
                   list.end());
        for (const std::size_t bucket : list) {
            auto node = queue.extract(keyOf(bucket));
            buckets[bucket].missing += missing;
            buckets[bucket].loads += loads;
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

    std::vector<Bucket> buckets;
    std::vector<std::vector<std::size_t>> users; // per matrix the buckets that use it
    std::set<Key> queue;                         // the buckets that wait
    std::vector<int32_t> group;                  // the matrices of the group at hand
    std::vector<uint8_t> isInGroup;
    std::vector<uint8_t> isHeld; // some slot holds it
    MatrixSlots slots;
};

// Groups as they are sent, and what that costs.
struct Sending {
    std::vector<FaceGroup> groups;
    std::size_t loads = 0;
    bool everyGroupLoads = true; // the first aside
};

class Grouping {
public:
    explicit Grouping(const FaceList& faceList)
        : faces(faceList), starts(faceStarts(faceList)), numbers(numberMatrices(faceList)) {}

    std::vector<FaceGroup> run(const std::function<void(double)>& progress) {
        if (faces.sizes.empty())
            return {};
        if (numbers.matrices.size() <= static_cast<std::size_t>(kMatrixSlotCount)) {
            std::vector<int32_t> all(faces.sizes.size());
            for (std::size_t face = 0; face < all.size(); ++face)
                all[face] = static_cast<int32_t>(face);
            return {{numbers.matrices, std::move(all)}};
        }
        const std::vector<Bucket> buckets = makeBuckets();
        std::vector<std::vector<std::size_t>> groups = GroupGrowth(buckets, numbers.matrices.size()).run(progress);
        Sending sending = send(groups, buckets);
        dissolveSmallest(groups, buckets);
        Sending improved = send(groups, buckets);
        const bool isBetter =
            std::pair(improved.loads, improved.groups.size()) < std::pair(sending.loads, sending.groups.size());
        return improved.everyGroupLoads && isBetter ? std::move(improved.groups) : std::move(sending.groups);
    }

private:
    std::vector<Bucket> makeBuckets() const {
        std::map<MatrixSet, std::vector<int32_t>> bySet;
        for (std::size_t face = 0; face < faces.sizes.size(); ++face) {
            MatrixSet set;
            for (std::size_t i = starts[face]; i < starts[face + 1]; ++i)
                set.add(numbers.ofCorner[i]);
            bySet[set].push_back(static_cast<int32_t>(face));
        }
        std::vector<Bucket> buckets;
        buckets.reserve(bySet.size());
        for (auto& [set, members] : bySet) {
            buckets.emplace_back();
            buckets.back().matrices = set;
            buckets.back().faces = std::move(members);
        }
        return buckets;
    }

    // Moves what it can from the group with the fewest faces to groups that have the matrices anyway.
    static void dissolveSmallest(std::vector<std::vector<std::size_t>>& groups, const std::vector<Bucket>& buckets) {
        const auto faceCount = [&](const std::vector<std::size_t>& group) {
            std::size_t count = 0;
            for (const std::size_t bucket : group)
                count += buckets[bucket].faces.size();
            return count;
        };
        std::size_t smallest = 0;
        for (std::size_t i = 1; i < groups.size(); ++i) {
            if (faceCount(groups[i]) < faceCount(groups[smallest]))
                smallest = i;
        }
        std::map<int32_t, std::vector<std::size_t>> groupsWith;
        for (const std::size_t bucket : groups[smallest]) {
            for (const int32_t matrix : buckets[bucket].matrices.sorted())
                groupsWith[matrix];
        }
        for (std::size_t i = 0; i < groups.size(); ++i) {
            for (const int32_t matrix : matricesOf(groups[i], buckets)) {
                if (const auto found = groupsWith.find(matrix); i != smallest && found != groupsWith.end())
                    found->second.push_back(i);
            }
        }
        std::vector<std::size_t> left;
        for (const std::size_t bucket : groups[smallest]) {
            const std::size_t other = commonGroup(buckets[bucket].matrices, groupsWith, groups.size());
            (other < groups.size() ? groups[other] : left).push_back(bucket);
        }
        groups[smallest] = std::move(left);
        if (groups[smallest].empty())
            groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(smallest));
    }

    // The first group that has all matrices of a set, `none` when there is no such group.
    static std::size_t commonGroup(const MatrixSet& set, const std::map<int32_t, std::vector<std::size_t>>& groupsWith,
                                   std::size_t none) {
        std::vector<std::size_t> common = groupsWith.at(set.sorted()[0]);
        for (const int32_t matrix : set.sorted()) {
            if (matrix < 0)
                continue;
            std::vector<std::size_t> both;
            const std::vector<std::size_t>& with = groupsWith.at(matrix);
            std::set_intersection(common.begin(), common.end(), with.begin(), with.end(), std::back_inserter(both));
            common = std::move(both);
        }
        return common.empty() ? none : common[0];
    }

    static std::set<int32_t> matricesOf(const std::vector<std::size_t>& group, const std::vector<Bucket>& buckets) {
        std::set<int32_t> matrices;
        for (const std::size_t bucket : group) {
            for (const int32_t matrix : buckets[bucket].matrices.sorted()) {
                if (matrix >= 0)
                    matrices.insert(matrix);
            }
        }
        return matrices;
    }

    Sending send(const std::vector<std::vector<std::size_t>>& groups, const std::vector<Bucket>& buckets) const {
        Sending sending;
        MatrixSlots slots;
        for (const std::vector<std::size_t>& members : groups) {
            FaceGroup group;
            for (const std::size_t bucket : members)
                group.faces.insert(group.faces.end(), buckets[bucket].faces.begin(), buckets[bucket].faces.end());
            std::sort(group.faces.begin(), group.faces.end());
            const std::vector<int32_t> used = matricesByUse(group.faces);
            const std::set<int32_t> isUsed(used.begin(), used.end());
            for (const int32_t matrix : slots.held()) {
                if (isUsed.count(matrix) != 0)
                    group.matrices.push_back(matrix);
            }
            const std::size_t kept = group.matrices.size();
            for (const int32_t matrix : used) {
                if (!slots.holds(matrix))
                    group.matrices.push_back(matrix);
            }
            sending.loads += group.matrices.size() - kept;
            if (!sending.groups.empty() && kept == group.matrices.size())
                sending.everyGroupLoads = false;
            slots.load(group.matrices);
            sending.groups.push_back(std::move(group));
        }
        return sending;
    }

    // The matrices themselves, not their numbers.
    std::vector<int32_t> matricesByUse(const std::vector<int32_t>& members) const {
        std::vector<int32_t> matrices;
        std::set<int32_t> known;
        for (const int32_t face : members) {
            for (std::size_t i = starts[static_cast<std::size_t>(face)]; i < starts[static_cast<std::size_t>(face) + 1];
                 ++i) {
                if (known.insert(faces.corners[i].matrix).second)
                    matrices.push_back(faces.corners[i].matrix);
            }
        }
        return matrices;
    }

    const FaceList& faces;
    std::vector<std::size_t> starts;
    MatrixNumbers numbers;
};

} // namespace

std::vector<FaceGroup> groupByMatrices(const FaceList& faces, const std::function<void(double)>& progress) {
    return Grouping(faces).run(progress);
}

} // namespace tvk
