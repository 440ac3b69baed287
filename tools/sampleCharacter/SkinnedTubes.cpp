#include "sampleCharacter/SkinnedTubes.h"

#include <cmath>
#include <cstdlib>

namespace tvk::samples {
namespace {

constexpr double kHalfTurn = 3.14159265358979323846;

// Round a tube that runs mostly along an axis, the two others.
std::array<std::size_t, 2> acrossOf(const Place& along) {
    std::size_t longest = 0;
    for (std::size_t i = 1; i < 3; ++i) {
        longest = std::labs(along[i]) > std::labs(along[longest]) ? i : longest;
    }
    const std::array<std::size_t, 2> across{(longest + 1) % 3, (longest + 2) % 3};
    return along[longest] < 0 ? std::array<std::size_t, 2>{across[1], across[0]} : across;
}

// Half way only where two bones meet: a console has room for few blends.
Weights weightsOf(const std::vector<int>& bones, std::size_t joint, int ring) {
    if (ring == 0 && joint > 0) {
        return {{bones[joint - 1], 50}, {bones[joint], 50}};
    }
    return {{bones[joint], 100}};
}

} // namespace

const Place& SkinnedTubes::placeOf(const Limb& limb, std::size_t joint) const {
    return joint < limb.bones.size() ? skeleton_[static_cast<std::size_t>(limb.bones[joint])].place : limb.tip;
}

void SkinnedTubes::add(const Limb& limb) {
    const auto firstVertex = static_cast<int>(vertices.size());
    const auto firstUv = static_cast<int>(uvs.size());
    int rings = 0;
    for (std::size_t joint = 0; joint < limb.bones.size(); ++joint) {
        const Place& from = placeOf(limb, joint);
        const Place& to = placeOf(limb, joint + 1);
        const Place along{to[0] - from[0], to[1] - from[1], to[2] - from[2]};
        const bool isLast = joint + 1 == limb.bones.size();
        for (int ring = 0; ring < limb.ringsPerBone + (isLast ? 1 : 0); ++ring, ++rings) {
            Place middle = from;
            for (std::size_t i = 0; i < 3; ++i) {
                middle[i] += along[i] * ring / limb.ringsPerBone;
            }
            const long radius =
                limb.radii[joint] + (limb.radii[joint + 1] - limb.radii[joint]) * ring / limb.ringsPerBone;
            addRing(middle, along, radius, weightsOf(limb.bones, joint, ring));
            for (long side = 0; side <= kSides; ++side) {
                uvs.push_back({side * 1000 / kSides, rings * 125L});
            }
        }
    }
    addSides(firstVertex, firstUv, rings, limb.isSecondMaterial);
    addCap(firstVertex, true, limb.isSecondMaterial);
    addCap(firstVertex + (rings - 1) * kSides, false, limb.isSecondMaterial);
}

void SkinnedTubes::addRing(const Place& middle, const Place& along, long radius, const Weights& weights) {
    const std::array<std::size_t, 2> across = acrossOf(along);
    for (int side = 0; side < kSides; ++side) {
        const double angle = 2 * kHalfTurn * side / kSides;
        Vertex vertex{middle, weights};
        vertex.place[across[0]] += std::lround(static_cast<double>(radius) * std::cos(angle));
        vertex.place[across[1]] += std::lround(static_cast<double>(radius) * std::sin(angle));
        vertices.push_back(vertex);
    }
}

void SkinnedTubes::addSides(int firstVertex, int firstUv, int rings, bool isSecond) {
    for (int ring = 0; ring + 1 < rings; ++ring) {
        for (int side = 0; side < kSides; ++side) {
            const int low = firstVertex + ring * kSides;
            const int next = (side + 1) % kSides;
            const int uv = firstUv + ring * (kSides + 1) + side;
            faces.push_back({low + side, low + next, low + kSides + next, low + kSides + side});
            faceUvs.push_back({uv, uv + 1, uv + kSides + 2, uv + kSides + 1});
            isSecondMaterial.push_back(isSecond);
        }
    }
}

// A face of as many corners as the tube has sides, with a disc of the texture.
void SkinnedTubes::addCap(int firstVertex, bool isStart, bool isSecond) {
    faces.emplace_back();
    faceUvs.emplace_back();
    isSecondMaterial.push_back(isSecond);
    for (int i = 0; i < kSides; ++i) {
        const int side = isStart ? kSides - 1 - i : i;
        const double angle = 2 * kHalfTurn * side / kSides;
        faces.back().push_back(firstVertex + side);
        faceUvs.back().push_back(static_cast<int>(uvs.size()));
        uvs.push_back({std::lround(500 + 500 * std::cos(angle)), std::lround(500 + 500 * std::sin(angle))});
    }
}

} // namespace tvk::samples
