#include "geometry/matrixGrouping.h"

#include "geometry/MatrixSet.h"
#include "geometry/MatrixSlots.h"
#include "geometry/groupFilling.h"
#include "geometry/groupGrowth.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

namespace tvk {

namespace {

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

// Groups as they are sent, and what that costs.
struct Sending {
    std::vector<FaceGroup> groups;
    std::size_t loads = 0;
    bool everyGroupLoads = true; // the first aside

    friend bool operator<(const Sending& a, const Sending& b) {
        return std::pair(a.loads, a.groups.size()) < std::pair(b.loads, b.groups.size());
    }
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
        const std::vector<MatrixBucket> buckets = makeBuckets();
        const std::size_t count = numbers.matrices.size();
        Sending best = improve(fillGroups(buckets, count, faceOrder(buckets)), buckets);
        const auto consider = [&](const BucketGroups& groups) {
            Sending other = improve(groups, buckets);
            if (other < best)
                best = std::move(other);
        };
        consider(fillGroups(buckets, count, bandOrder(buckets, count)));
        if (isGrowthAffordable(best.groups.size()))
            consider(growGroups(buckets, count, progress));
        if (progress)
            progress(1);
        return std::move(best.groups);
    }

private:
    std::vector<MatrixBucket> makeBuckets() const {
        std::map<MatrixSet, std::vector<int32_t>> bySet;
        for (std::size_t face = 0; face < faces.sizes.size(); ++face) {
            MatrixSet set;
            for (std::size_t i = starts[face]; i < starts[face + 1]; ++i)
                set.add(numbers.ofCorner[i]);
            bySet[set].push_back(static_cast<int32_t>(face));
        }
        std::vector<MatrixBucket> buckets;
        buckets.reserve(bySet.size());
        for (auto& [set, members] : bySet) {
            buckets.emplace_back();
            buckets.back().matrices = set;
            buckets.back().faces = std::move(members);
        }
        return buckets;
    }

    // Growing looks at all buckets that use a group's matrices, twice a group. Where hundreds of groups share few
    // matrices, as in skins without any order, that would take quadratic time.
    bool isGrowthAffordable(std::size_t groupCount) const {
        const auto corners = static_cast<double>(faces.corners.size());
        const double usesPerMatrix = corners / static_cast<double>(numbers.matrices.size());
        return static_cast<double>(groupCount) * 2 * kMatrixSlotCount * usesPerMatrix <= kMostLooks * corners;
    }

    // Sends groups as they are, or without the smallest one when that is cheaper and every later group still loads.
    Sending improve(BucketGroups groups, const std::vector<MatrixBucket>& buckets) const {
        Sending sending = send(groups, buckets);
        dissolveSmallest(groups, buckets);
        Sending improved = send(groups, buckets);
        return improved.everyGroupLoads && improved < sending ? improved : sending;
    }

    // Moves what it can from the group with the fewest faces to groups that have the matrices anyway.
    static void dissolveSmallest(BucketGroups& groups, const std::vector<MatrixBucket>& buckets) {
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

    static std::set<int32_t> matricesOf(const std::vector<std::size_t>& group,
                                        const std::vector<MatrixBucket>& buckets) {
        std::set<int32_t> matrices;
        for (const std::size_t bucket : group) {
            for (const int32_t matrix : buckets[bucket].matrices.sorted()) {
                if (matrix >= 0)
                    matrices.insert(matrix);
            }
        }
        return matrices;
    }

    Sending send(const BucketGroups& groups, const std::vector<MatrixBucket>& buckets) const {
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

    static constexpr double kMostLooks = 400; // per corner

    const FaceList& faces;
    std::vector<std::size_t> starts;
    MatrixNumbers numbers;
};

} // namespace

std::vector<FaceGroup> groupByMatrices(const FaceList& faces, const std::function<void(double)>& progress) {
    return Grouping(faces).run(progress);
}

} // namespace tvk
