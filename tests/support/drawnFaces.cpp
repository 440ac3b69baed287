#include "drawnFaces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>

namespace tvk {
namespace {

// More would only bury the first.
constexpr std::size_t kToldFailures = 5;

struct Place {
    std::size_t face, corner;
};

// Corners by where they stand: a place finds those that are at most a cell away.
class CornerGrid {
public:
    CornerGrid(const std::vector<SceneFace>& faces, double cell) : all(faces), size(cell) {
        for (std::size_t f = 0; f < faces.size(); ++f) {
            for (std::size_t c = 0; c < faces[f].corners.size(); ++c) {
                cells[key(faces[f].corners[c].position)].push_back({f, c});
            }
        }
    }

    template <typename Fits>
    std::vector<Place> near(const Imath::V3d& at, Fits fits) const {
        std::vector<Place> found;
        for (int i = 0; i < 27; ++i) {
            const Imath::V3d step(i % 3 - 1, i / 3 % 3 - 1, i / 9 - 1);
            const auto cell = cells.find(key(at + step * size));
            if (cell == cells.end()) {
                continue;
            }
            for (const Place& place : cell->second) {
                if (fits(all[place.face].corners[place.corner])) {
                    found.push_back(place);
                }
            }
        }
        return found;
    }

private:
    std::array<long, 3> key(const Imath::V3d& point) const {
        return {std::lround(point.x / size), std::lround(point.y / size), std::lround(point.z / size)};
    }

    const std::vector<SceneFace>& all;
    double size;
    std::map<std::array<long, 3>, std::vector<Place>> cells;
};

// What a polygon's material says.
struct DrawnMaterial {
    std::string name;
    std::optional<Imath::V2d> textureSize; // of the picture's file
};

std::vector<DrawnMaterial> readMaterials(const decode::ModelFile& file) {
    std::vector<DrawnMaterial> materials;
    const decode::FileElement& body = *file.root.find("body");
    const decode::FileElement* const array = body.find("material_array");
    if (array == nullptr) {
        return materials;
    }
    for (const decode::FileElement& element : array->children) {
        DrawnMaterial material{element.value("name"), {}};
        if (const int image = element.integer("tex_image_idx"); image >= 0) {
            const decode::FileElement& picture =
                body.find("tex_image_array")->children.at(static_cast<std::size_t>(image));
            material.textureSize = Imath::V2d(picture.integer("original_width"), picture.integer("original_height"));
        }
        materials.push_back(material);
    }
    return materials;
}

std::string shown(const decode::DrawnFace& face) {
    std::ostringstream text;
    for (const decode::DrawnVertex& vertex : face) {
        text << "\n    at " << vertex.world;
        if (vertex.worldNormal) {
            text << " normal " << vertex.worldNormal->normalized();
        }
        if (vertex.texCoord) {
            text << " texel " << *vertex.texCoord;
        }
        if (vertex.color) {
            text << " colour " << (*vertex.color)[0] << ' ' << (*vertex.color)[1] << ' ' << (*vertex.color)[2];
        }
    }
    return text.str();
}

class Comparison {
public:
    Comparison(const decode::ModelFile& file, const decode::ModelGeometry& drawn,
               const std::vector<SceneFace>& sceneFaces, const FaceTolerance& allowed)
        : model(drawn), faces(sceneFaces), tolerance(allowed), grid(sceneFaces, allowed.position * 1.001),
          materials(readMaterials(file)), triangles(sceneFaces.size(), 0), areas(sceneFaces.size(), Imath::V3d(0.0)) {}

    void run() {
        for (const decode::DrawnPolygon& polygon : model.polygons) {
            for (const decode::DrawnFace& face : polygon.faces) {
                give(polygon, face);
            }
        }
        for (std::size_t i = 0; i < faces.size(); ++i) {
            checkWhole(i);
        }
        EXPECT_EQ(failures, 0U) << "differences in all";
    }

private:
    const DrawnMaterial& materialOf(const decode::DrawnPolygon& polygon) const {
        static const DrawnMaterial none;
        const auto index = static_cast<std::size_t>(polygon.material);
        return polygon.material >= 0 && index < materials.size() ? materials[index] : none;
    }

    void tell(const std::string& what) {
        if (++failures <= kToldFailures) {
            ADD_FAILURE() << what;
        }
    }

    // Gives what is drawn to the face that it can be of and that is nearest.
    void give(const decode::DrawnPolygon& polygon, const decode::DrawnFace& face) {
        std::vector<std::vector<Place>> places;
        for (const decode::DrawnVertex& vertex : face) {
            places.push_back(grid.near(vertex.world, [&](const SceneCorner& corner) {
                return (vertex.world - corner.position).length() <= tolerance.position &&
                       carries(polygon, vertex, corner);
            }));
        }
        std::optional<std::size_t> best;
        double least = 0.0;
        for (const Place& start : places.front()) {
            const std::optional<double> error = errorAround(face, places, start);
            const bool isFree = triangles[start.face] + face.size() <= faces[start.face].corners.size();
            if (error && isFree && isOf(polygon, faces[start.face]) && (!best || *error < least)) {
                best = start.face;
                least = *error;
            }
        }
        if (!best) {
            tell(polygon.name + " draws what is no face of the scene, or is drawn already" + shown(face));
            return;
        }
        triangles[*best] += face.size() - 2;
        areas[*best] += vectorArea(outlineOf(face));
    }

    bool isOf(const decode::DrawnPolygon& polygon, const SceneFace& face) const {
        return !tolerance.compareMaterials || materialOf(polygon).name == face.shader;
    }

    bool carries(const decode::DrawnPolygon& polygon, const decode::DrawnVertex& vertex,
                 const SceneCorner& corner) const {
        return (!polygon.hasNormals || hasNormal(vertex, corner)) &&
               (!polygon.hasColors || vertex.color == corner.color.value_or(std::array<int, 3>{})) &&
               (!polygon.hasTexCoords || hasTexel(polygon, vertex, corner));
    }

    bool hasNormal(const decode::DrawnVertex& vertex, const SceneCorner& corner) const {
        return (vertex.worldNormal.value_or(Imath::V3d(0.0)).normalized() - corner.normal).length() <= tolerance.normal;
    }

    // Half a sixteenth of a texel, and what single precision has of a coordinate far out.
    bool hasTexel(const decode::DrawnPolygon& polygon, const decode::DrawnVertex& vertex,
                  const SceneCorner& corner) const {
        const Imath::V2d size = materialOf(polygon).textureSize.value_or(Imath::V2d(0.0));
        const Imath::V2d uv = corner.uv.value_or(Imath::V2d(0.0));
        const Imath::V2d off = *vertex.texCoord - Imath::V2d(uv.x * size.x, size.y - uv.y * size.y);
        return std::abs(off.x) <= 0.032 && std::abs(off.y) <= 0.032;
    }

    // How far the corners are from those of the face, taken in their order from one on; nothing when it has no such.
    std::optional<double> errorAround(const decode::DrawnFace& face, const std::vector<std::vector<Place>>& places,
                                      const Place& start) const {
        const std::size_t count = faces[start.face].corners.size();
        std::size_t last = 0;
        double error = (face[0].world - faces[start.face].corners[start.corner].position).length();
        for (std::size_t i = 1; i < face.size(); ++i) {
            std::optional<std::size_t> next;
            for (const Place& place : places[i]) {
                const std::size_t offset = (place.corner + count - start.corner) % count;
                if (place.face == start.face && offset > last && (!next || offset < *next)) {
                    next = offset;
                }
            }
            if (!next) {
                return {};
            }
            last = *next;
            const SceneCorner& corner = faces[start.face].corners[(start.corner + last) % count];
            error += (face[i].world - corner.position).length();
        }
        return error;
    }

    // What moves each corner by the tolerance changes the area by at most that much along the outline.
    void checkWhole(std::size_t number) {
        const SceneFace& face = faces[number];
        const std::vector<Imath::V3d> outline = outlineOf(face);
        double around = 0.0;
        for (std::size_t i = 0; i < outline.size(); ++i) {
            around += (outline[(i + 1) % outline.size()] - outline[i]).length();
        }
        const Imath::V3d expected = vectorArea(outline);
        if ((areas[number] - expected).length() > (around + tolerance.position) * tolerance.position * 2) {
            std::ostringstream text;
            text << face.mesh << ".f[" << face.number << "] of area " << expected << " is drawn with " << areas[number];
            tell(text.str());
        }
    }

    const decode::ModelGeometry& model;
    const std::vector<SceneFace>& faces;
    FaceTolerance tolerance;
    CornerGrid grid;
    std::vector<DrawnMaterial> materials;
    std::vector<std::size_t> triangles; // given to each face
    std::vector<Imath::V3d> areas;
    std::size_t failures = 0;
};

} // namespace

void expectDrawn(const decode::ModelFile& file, const decode::ModelGeometry& model, const std::vector<SceneFace>& faces,
                 const FaceTolerance& tolerance) {
    Comparison(file, model, faces, tolerance).run();
}

} // namespace tvk
