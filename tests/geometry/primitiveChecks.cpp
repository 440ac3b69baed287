#include "primitiveChecks.h"

#include "geometry/MatrixSlots.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <tuple>

namespace tvk::test {

namespace {

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

using Key = std::vector<std::tuple<int32_t, int32_t, int32_t, int32_t, int32_t>>;

// A face in a form that is the same for all its corners to begin with.
Key keyOf(const FaceCorners& face) {
    Key key;
    for (const Corner& corner : face)
        key.emplace_back(corner.position, corner.texCoord, corner.normal, corner.color, corner.matrix);
    Key least = key;
    for (std::size_t i = 1; i < key.size(); ++i) {
        std::rotate(key.begin(), key.begin() + 1, key.end());
        least = std::min(least, key);
    }
    return least;
}

// A bag of faces.
class Faces {
public:
    void add(const FaceCorners& face) { ++counts[keyOf(face)]; }
    bool remove(const FaceCorners& face) {
        const auto found = counts.find(keyOf(face));
        if (found == counts.end())
            return false;
        if (--found->second == 0)
            counts.erase(found);
        return true;
    }
    bool isEmpty() const { return counts.empty(); }
    std::size_t kinds() const { return counts.size(); }

private:
    std::map<Key, int> counts;
};

bool removeHalves(Faces& sent, const FaceCorners& quad) {
    for (std::size_t i = 0; i < 2; ++i) {
        const FaceCorners first{quad[i], quad[i + 1], quad[(i + 2) % 4]};
        const FaceCorners second{quad[i], quad[(i + 2) % 4], quad[(i + 3) % 4]};
        if (!sent.remove(first))
            continue;
        if (sent.remove(second))
            return true;
        sent.add(first);
    }
    return false;
}

AssertionResult checkPrimitive(const Primitive& primitive) {
    const std::size_t count = primitive.vertices.size();
    switch (primitive.type) {
    case PrimitiveType::kTriangles:
        if (count < 3 || count % 3 != 0)
            return AssertionFailure() << "triangles of " << count << " vertices";
        break;
    case PrimitiveType::kQuads:
        if (count < 4 || count % 4 != 0)
            return AssertionFailure() << "quads of " << count << " vertices";
        break;
    case PrimitiveType::kTriangleStrip:
        if (count < 4)
            return AssertionFailure() << "a triangle strip of " << count << " vertices";
        break;
    case PrimitiveType::kQuadStrip:
        if (count < 6 || count % 2 != 0)
            return AssertionFailure() << "a quad strip of " << count << " vertices";
        break;
    }
    for (const FaceCorners& face : decodePrimitive(primitive)) {
        for (std::size_t i = 0; i < face.size(); ++i) {
            if (face[i] == face[(i + 1) % face.size()])
                return AssertionFailure() << "a face repeats a vertex";
        }
    }
    return AssertionSuccess();
}

AssertionResult checkMatrices(const MatrixGroup& group, MatrixSlots& slots) {
    if (group.matrices.size() > static_cast<std::size_t>(kMatrixSlotCount))
        return AssertionFailure() << "a group of " << group.matrices.size() << " matrices";
    std::size_t kept = 0;
    int32_t lastSlot = -1;
    for (; kept < group.matrices.size() && slots.holds(group.matrices[kept]); ++kept) {
        if (slots.slotOf(group.matrices[kept]) <= lastSlot)
            return AssertionFailure() << "held matrices are not in slot order";
        lastSlot = slots.slotOf(group.matrices[kept]);
    }
    for (std::size_t i = kept; i < group.matrices.size(); ++i) {
        if (slots.holds(group.matrices[i]))
            return AssertionFailure() << "matrix " << group.matrices[i] << " is held and comes after loaded ones";
    }
    slots.load(group.matrices);
    std::set<int32_t> used;
    for (const Primitive& primitive : group.primitives) {
        for (const Corner& corner : primitive.vertices) {
            if (!slots.holds(corner.matrix))
                return AssertionFailure() << "matrix " << corner.matrix << " is in no slot";
            used.insert(corner.matrix);
        }
    }
    if (used != std::set<int32_t>(group.matrices.begin(), group.matrices.end()) || used.size() != group.matrices.size())
        return AssertionFailure() << "a group's list is not what its vertices use";
    return AssertionSuccess();
}

AssertionResult checkCounts(const MatrixGroup& group) {
    int32_t vertices = 0;
    int32_t triangles = 0;
    int32_t quads = 0;
    for (const Primitive& primitive : group.primitives) {
        vertices += static_cast<int32_t>(primitive.vertices.size());
        for (const FaceCorners& face : decodePrimitive(primitive))
            (face.size() == 3 ? triangles : quads) += 1;
    }
    if (vertices != group.vertexCount || triangles != group.triangleCount || quads != group.quadCount)
        return AssertionFailure() << "counts " << group.vertexCount << ' ' << group.triangleCount << ' '
                                  << group.quadCount << " instead of " << vertices << ' ' << triangles << ' ' << quads;
    return AssertionSuccess();
}

} // namespace

std::vector<FaceCorners> decodePrimitive(const Primitive& primitive) {
    const std::vector<Corner>& v = primitive.vertices;
    std::vector<FaceCorners> faces;
    switch (primitive.type) {
    case PrimitiveType::kTriangles:
        for (std::size_t i = 0; i + 2 < v.size(); i += 3)
            faces.push_back({v[i], v[i + 1], v[i + 2]});
        break;
    case PrimitiveType::kQuads:
        for (std::size_t i = 0; i + 3 < v.size(); i += 4)
            faces.push_back({v[i], v[i + 1], v[i + 2], v[i + 3]});
        break;
    case PrimitiveType::kTriangleStrip:
        for (std::size_t i = 0; i + 2 < v.size(); ++i)
            faces.push_back(i % 2 == 0 ? FaceCorners{v[i], v[i + 1], v[i + 2]} : FaceCorners{v[i + 1], v[i], v[i + 2]});
        break;
    case PrimitiveType::kQuadStrip:
        for (std::size_t i = 0; i + 3 < v.size(); i += 2)
            faces.push_back({v[i], v[i + 1], v[i + 3], v[i + 2]});
        break;
    }
    return faces;
}

std::vector<FaceCorners> facesOf(const FaceList& faces) {
    std::vector<FaceCorners> all;
    auto begin = faces.corners.begin();
    for (const uint8_t size : faces.sizes) {
        all.emplace_back(begin, begin + size);
        begin += size;
    }
    return all;
}

AssertionResult sendsFaces(const PolygonPrimitives& polygon, const FaceList& faces, int64_t splits) {
    Faces sentTriangles;
    Faces sentQuads;
    for (const MatrixGroup& group : polygon.groups) {
        for (const Primitive& primitive : group.primitives) {
            for (const FaceCorners& face : decodePrimitive(primitive))
                (face.size() == 3 ? sentTriangles : sentQuads).add(face);
        }
    }
    std::vector<FaceCorners> halved;
    for (const FaceCorners& face : facesOf(faces)) {
        if (face.size() == 4 && !sentQuads.remove(face))
            halved.push_back(face);
        else if (face.size() == 3 && !sentTriangles.remove(face))
            return AssertionFailure() << "a triangle is not sent";
    }
    for (const FaceCorners& quad : halved) {
        if (!removeHalves(sentTriangles, quad))
            return AssertionFailure() << "a quad is not sent";
    }
    if (static_cast<int64_t>(halved.size()) > splits)
        return AssertionFailure() << halved.size() << " quads are split, " << splits << " may be";
    if (!sentTriangles.isEmpty() || !sentQuads.isEmpty())
        return AssertionFailure() << sentTriangles.kinds() + sentQuads.kinds() << " faces are sent that are none";
    return AssertionSuccess();
}

AssertionResult isWellFormed(const PolygonPrimitives& polygon) {
    MatrixSlots slots;
    std::set<int32_t> matrices;
    const Corner* last = nullptr;
    for (const MatrixGroup& group : polygon.groups) {
        if (group.primitives.empty())
            return AssertionFailure() << "a group without primitives";
        for (const Primitive& primitive : group.primitives) {
            if (const AssertionResult result = checkPrimitive(primitive); !result)
                return result;
        }
        if (const AssertionResult result = checkMatrices(group, slots); !result)
            return result;
        if (const AssertionResult result = checkCounts(group); !result)
            return result;
        if (last != nullptr && last->matrix == group.primitives[0].vertices[0].matrix)
            return AssertionFailure() << "a later group begins with the matrix that the one before ended with";
        last = &group.primitives.back().vertices.back();
        matrices.insert(group.matrices.begin(), group.matrices.end());
    }
    if (polygon.usesMatrixCommands != (matrices.size() > 1))
        return AssertionFailure() << matrices.size() << " matrices, and the flag says otherwise";
    return AssertionSuccess();
}

int64_t verticesOf(const PolygonPrimitives& polygon) {
    int64_t count = 0;
    for (const MatrixGroup& group : polygon.groups)
        count += group.vertexCount;
    return count;
}

} // namespace tvk::test
