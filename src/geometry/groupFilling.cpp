#include "geometry/groupFilling.h"

#include "geometry/PolygonPrimitives.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <tuple>

namespace tvk {

namespace {

constexpr std::size_t kUnranked = static_cast<std::size_t>(-1);

// Per matrix the buckets that use it.
std::vector<std::vector<std::size_t>> usersOf(const std::vector<MatrixBucket>& buckets, std::size_t matrixCount) {
    std::vector<std::vector<std::size_t>> users(matrixCount);
    for (std::size_t i = 0; i < buckets.size(); ++i) {
        for (const int32_t matrix : buckets[i].matrices.sorted()) {
            if (matrix != MatrixSet::kNone)
                users[static_cast<std::size_t>(matrix)].push_back(i);
        }
    }
    return users;
}

class GroupFiller {
public:
    GroupFiller(const std::vector<MatrixBucket>& allBuckets, std::size_t matrixCount)
        : buckets(allBuckets), users(usersOf(buckets, matrixCount)), missing(buckets.size(), 0),
          isTaken(buckets.size(), 0), isInGroup(matrixCount, 0) {
        for (const std::vector<std::size_t>& list : users) {
            for (const std::size_t bucket : list)
                ++missing[bucket];
        }
    }

    BucketGroups run(const std::vector<std::size_t>& order) {
        for (const std::size_t bucket : order) {
            if (isTaken[bucket] != 0)
                continue;
            if (static_cast<int32_t>(matrices.size()) + missing[bucket] > kMatrixSlotCount)
                closeGroup();
            addMatricesOf(bucket);
        }
        closeGroup();
        return groups;
    }

private:
    void addMatricesOf(std::size_t bucket) {
        for (const int32_t matrix : buckets[bucket].matrices.sorted()) {
            if (matrix == MatrixSet::kNone || isInGroup[static_cast<std::size_t>(matrix)] != 0)
                continue;
            isInGroup[static_cast<std::size_t>(matrix)] = 1;
            matrices.push_back(matrix);
            for (const std::size_t user : users[static_cast<std::size_t>(matrix)]) {
                if (--missing[user] > 0 || isTaken[user] != 0)
                    continue;
                isTaken[user] = 1;
                group.push_back(user);
            }
        }
    }

    void closeGroup() {
        for (const int32_t matrix : matrices) {
            isInGroup[static_cast<std::size_t>(matrix)] = 0;
            for (const std::size_t user : users[static_cast<std::size_t>(matrix)])
                ++missing[user];
        }
        matrices.clear();
        if (!group.empty())
            groups.push_back(std::move(group));
        group.clear();
    }

    const std::vector<MatrixBucket>& buckets;
    std::vector<std::vector<std::size_t>> users;
    std::vector<int32_t> missing; // per bucket how many of its matrices the group at hand does not have
    std::vector<uint8_t> isTaken;
    std::vector<uint8_t> isInGroup;
    std::vector<int32_t> matrices; // of the group at hand
    std::vector<std::size_t> group;
    BucketGroups groups;
};

// Ranks all matrices that hang together with one, breadth first.
//   ranked   the matrices in order of rank; those found are added
void rankFrom(std::size_t start, const std::vector<MatrixBucket>& buckets,
              const std::vector<std::vector<std::size_t>>& users, std::vector<std::size_t>& ranks,
              std::vector<std::size_t>& ranked) {
    std::size_t next = ranked.size();
    ranks[start] = ranked.size();
    ranked.push_back(start);
    for (; next < ranked.size(); ++next) {
        for (const std::size_t bucket : users[ranked[next]]) {
            for (const int32_t neighbour : buckets[bucket].matrices.sorted()) {
                if (neighbour == MatrixSet::kNone || ranks[static_cast<std::size_t>(neighbour)] != kUnranked)
                    continue;
                ranks[static_cast<std::size_t>(neighbour)] = ranked.size();
                ranked.push_back(static_cast<std::size_t>(neighbour));
            }
        }
    }
}

} // namespace

BucketGroups fillGroups(const std::vector<MatrixBucket>& buckets, std::size_t matrixCount,
                        const std::vector<std::size_t>& order) {
    return GroupFiller(buckets, matrixCount).run(order);
}

std::vector<std::size_t> faceOrder(const std::vector<MatrixBucket>& buckets) {
    std::vector<std::size_t> order(buckets.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return buckets[a].faces[0] < buckets[b].faces[0]; });
    return order;
}

std::vector<std::size_t> bandOrder(const std::vector<MatrixBucket>& buckets, std::size_t matrixCount) {
    const std::vector<std::vector<std::size_t>> users = usersOf(buckets, matrixCount);
    std::vector<std::size_t> ranks(matrixCount, kUnranked);
    std::vector<std::size_t> ranked;
    for (std::size_t matrix = 0; matrix < matrixCount; ++matrix) {
        if (ranks[matrix] != kUnranked)
            continue;
        // What is found last is far out; ranking anew from there goes through the skeleton once.
        const std::size_t first = ranked.size();
        rankFrom(matrix, buckets, users, ranks, ranked);
        const std::size_t farthest = ranked.back();
        for (std::size_t i = first; i < ranked.size(); ++i)
            ranks[ranked[i]] = kUnranked;
        ranked.resize(first);
        rankFrom(farthest, buckets, users, ranks, ranked);
    }

    using Key = std::tuple<std::size_t, std::size_t, std::size_t>; // highest rank, lowest rank, bucket
    std::vector<Key> keys;
    for (std::size_t i = 0; i < buckets.size(); ++i) {
        std::size_t highest = 0;
        std::size_t lowest = matrixCount;
        for (const int32_t matrix : buckets[i].matrices.sorted()) {
            if (matrix == MatrixSet::kNone)
                continue;
            highest = std::max(highest, ranks[static_cast<std::size_t>(matrix)]);
            lowest = std::min(lowest, ranks[static_cast<std::size_t>(matrix)]);
        }
        keys.emplace_back(highest, lowest, i);
    }
    std::sort(keys.begin(), keys.end());
    std::vector<std::size_t> order;
    order.reserve(keys.size());
    for (const Key& key : keys)
        order.push_back(std::get<2>(key));
    return order;
}

} // namespace tvk
