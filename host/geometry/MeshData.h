#pragma once

#include "host/geometry/ComponentList.h"
#include "host/geometry/MeshTopology.h"

#include <Imath/ImathVec.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

using Points = std::vector<Imath::V3f>;

/// One set of texture coordinates. A face without ids (FaceIds::find gives null) is not mapped in this set.
struct UvSet {
    std::string name;
    std::shared_ptr<const std::vector<Imath::V2f>> points; // never null
    std::shared_ptr<const FaceIds> ids;                    // never null; indices into `points`, checked
};

/// What the colours of a set are made of, by the number that files have for it.
enum class ColorRepresentation : std::uint8_t { kAlpha = 1, kRgb = 3, kRgba = 4 };

/// One set of colours. The numbers that the representation leaves out are 0 (of an RGB colour, alpha is 1).
struct ColorSet {
    std::string name;
    ColorRepresentation representation = ColorRepresentation::kRgba;
    bool clamped = false; // colours are meant to be within 0 … 1; they are not changed
    std::shared_ptr<const std::vector<Imath::V4f>> colors; // r g b a; never null
    std::shared_ptr<const FaceIds> ids;                    // never null; checked; -1: the corner has no colour
};

/// Components that history gave to a group id: members of the set that the id stands for.
struct ComponentGroup {
    std::int32_t id = 0;
    std::shared_ptr<const ComponentList> components; // never null; not checked against the mesh
};

/// Components that a shape calls by a name, for deformers that name them.
struct ComponentTag {
    std::string name;
    std::shared_ptr<const ComponentList> components; // never null; not checked against the mesh
};

/// How the faces around a corner count in its normal, by the number of the mesh attribute for it.
enum class NormalWeighting : std::uint8_t { kUnweighted = 0, kAngle = 1, kArea = 2, kAngleAndArea = 3 };

/// A mesh as it travels through plugs, in the object space of its shape, centimetres. Immutable once there; a node that
/// changes something copies the object, which costs a few pointers, and replaces what it changes.
struct MeshData final : Data {
    MeshData() : Data(DataKind::kMesh) {}

    std::shared_ptr<const MeshTopology> topology = MeshTopology::empty(); // never null
    std::shared_ptr<const Points> points = std::make_shared<Points>();    // never null; one per vertex, may be NaN
    /// Normals that users set, per normal id of topology->normalFans(), not necessarily of unit length; a null pointer
    /// when there are none. A component of kNotSet or more: the normal with this id is computed.
    std::shared_ptr<const Points> userNormals;
    static constexpr float kNotSet = 1e19F;
    NormalWeighting weighting = NormalWeighting::kAngleAndArea;

    std::vector<UvSet> uvSets; // in the order of their indices in files; the first is the default one
    std::string currentUvSet;  // may name no set: the first then
    std::vector<ColorSet> colorSets;
    std::string currentColorSet; // may name no set: the first then
    std::vector<ComponentGroup> groups;
    std::vector<ComponentTag> tags;

    /// Null when there is no such set; an empty name means the current one.
    const UvSet* findUvSet(std::string_view name) const;
    const ColorSet* findColorSet(std::string_view name) const;
    /// Null when history did not give anything to this group.
    const ComponentGroup* findGroup(std::int32_t id) const;
    const ComponentTag* findTag(std::string_view name) const;

    /// One per normal id of topology->normalFans(), unit length, or 0 0 0 where all faces are degenerate. Worked out
    /// once, when asked for.
    const Points& normals() const;
    /// Whether the normal with this id is one that a user set.
    bool isUserNormal(std::int32_t normalId) const;

private:
    Lazy<Points> normals_;
};

using MeshPtr = std::shared_ptr<const MeshData>;

/// The data as a mesh; null when there is none or it is of another kind.
MeshPtr meshOf(const DataPtr& data);

} // namespace host
