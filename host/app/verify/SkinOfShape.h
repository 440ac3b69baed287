#pragma once

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <ImathMatrix.h>

#include <cstddef>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace host::app::verify {

struct SkinInfluence {
    MDagPath path;
    Imath::M44d bindInverse; // of its world matrix when it was bound, magnified
};

/// The skin that makes a mesh follow its influences.
struct SkinOfShape {
    MObject node;
    Imath::M44d geometry; // world matrix of the mesh when it was bound, magnified
    std::vector<SkinInfluence> influences;
    std::vector<std::vector<std::pair<std::size_t, double>>> weights; // by vertex: influences with a weight
};

/// What deforms a mesh by a skeleton, the one nearest to it that has an effect.
struct SkeletonDeformer {
    MObject node; // null when there is none
    bool isSkin = false;
};
SkeletonDeformer deformerOf(const MDagPath& shape);

/// The skin of that shape.
///   skin   a deformer of it that is a skin
SkinOfShape readSkin(const MDagPath& shape, const MObject& skin, double magnify);

/// The whole percentages that a file has of a vertex: influences by their weight in percent; empty when none has one.
///   strongest   only the strongest counts, wholly; of equal ones that with the smaller `order`
std::map<std::size_t, int> percentagesOf(const std::vector<std::pair<std::size_t, double>>& weights, bool strongest,
                                         const std::vector<int>& order);

/// Switches a deformer off while it exists.
class WithoutDeformer {
public:
    explicit WithoutDeformer(const MObject& deformer);
    ~WithoutDeformer();
    WithoutDeformer(const WithoutDeformer&) = delete;
    WithoutDeformer& operator=(const WithoutDeformer&) = delete;

private:
    MObject deformer_;
    int state_ = 0;
};

} // namespace host::app::verify
