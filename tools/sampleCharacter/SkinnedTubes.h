#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace tvk::samples {

/// Lengths and coordinates in thousandths of a centimetre, so that texts are the same everywhere.
using Place = std::array<long, 3>;

struct Bone {
    std::string name;
    int parent = -1; // index in the skeleton
    Place place{};   // in the world, at binding; bones are not turned there
};

/// Influences of a vertex with their weights in hundredths, which add up to 100.
using Weights = std::vector<std::pair<int, int>>;

struct Vertex {
    Place place{};
    Weights weights;
};

/// A tube from bone to bone, closed at both ends.
struct Limb {
    std::vector<int> bones;  // indices in the skeleton, from the root out
    std::vector<long> radii; // at each bone, and at the tip
    Place tip{};             // where it ends
    int ringsPerBone = 0;    // between two bones
    bool isSecondMaterial = false;
};

/// A mesh of tubes.
class SkinnedTubes {
public:
    static constexpr int kSides = 8;

    explicit SkinnedTubes(const std::vector<Bone>& skeleton) : skeleton_(skeleton) {}

    void add(const Limb& limb);

    std::vector<Vertex> vertices;
    std::vector<std::array<long, 2>> uvs;  // thousandths
    std::vector<std::vector<int>> faces;   // vertices, counter-clockwise seen from outside
    std::vector<std::vector<int>> faceUvs; // numbers of uvs
    std::vector<bool> isSecondMaterial;    // per face

private:
    void addRing(const Place& middle, const Place& along, long radius, const Weights& weights);
    void addSides(int firstVertex, int firstUv, int rings, bool isSecond);
    void addCap(int firstVertex, bool isStart, bool isSecond);
    const Place& placeOf(const Limb& limb, std::size_t joint) const;

    const std::vector<Bone>& skeleton_;
};

} // namespace tvk::samples
