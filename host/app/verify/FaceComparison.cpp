#include "host/app/verify/FaceComparison.h"

#include "decode/FileError.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

namespace host::app::verify {
namespace {

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
        return {cellOf(point.x), cellOf(point.y), cellOf(point.z)};
    }
    // What a damaged file puts beyond all cells stands in the last.
    long cellOf(double coordinate) const {
        constexpr double kLast = 1e9;
        const double cell = coordinate / size;
        return std::isnan(cell) ? 0 : std::lround(std::clamp(cell, -kLast, kLast));
    }

    const std::vector<SceneFace>& all;
    double size;
    std::map<std::array<long, 3>, std::vector<Place>> cells;
};

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
    Comparison(const std::vector<DrawnMaterial>& drawnMaterials, const std::vector<SceneFace>& sceneFaces,
               const FaceTolerance& allowed)
        : faces(sceneFaces), tolerance(allowed), grid(sceneFaces, allowed.position * 1.001), materials(drawnMaterials),
          triangles(sceneFaces.size(), 0), areas(sceneFaces.size(), Imath::V3d(0.0)) {
        result.polygonOfFace.assign(sceneFaces.size(), -1);
    }

    FaceDifferences run(const std::vector<const decode::DrawnPolygon*>& polygons) {
        for (const decode::DrawnPolygon* const polygon : polygons) {
            for (const decode::DrawnFace& face : polygon->faces) {
                give(*polygon, face);
            }
        }
        for (std::size_t i = 0; i < faces.size(); ++i) {
            checkWhole(i);
        }
        return std::move(result);
    }

private:
    // A face of the scene that what is drawn can be of.
    struct Fit {
        std::size_t face = 0;
        std::vector<std::size_t> corners; // of that face, for each vertex
        double error = 0.0;
    };

    const DrawnMaterial& materialOf(const decode::DrawnPolygon& polygon) const {
        static const DrawnMaterial none;
        const auto index = static_cast<std::size_t>(polygon.material);
        return polygon.material >= 0 && index < materials.size() ? materials[index] : none;
    }

    void tell(const std::string& what, const std::string& details = "") {
        if (++result.count <= kToldDifferences) {
            result.texts.push_back({what, details});
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
        std::optional<Fit> best;
        for (const Place& start : places.front()) {
            const std::optional<Fit> fit = fitFrom(face, places, start);
            const bool isFree = triangles[start.face] + face.size() <= faces[start.face].corners.size();
            if (fit && isFree && isOf(polygon, faces[start.face]) && (!best || fit->error < best->error)) {
                best = fit;
            }
        }
        if (!best) {
            tell(polygon.name + " draws what is no face of the scene, or is drawn already", shown(face));
            return;
        }
        triangles[best->face] += face.size() - 2;
        result.polygonOfFace[best->face] = polygon.index;
        areas[best->face] += vectorArea(outlineOf(face));
        measure(polygon, face, *best);
    }

    void measure(const decode::DrawnPolygon& polygon, const decode::DrawnFace& face, const Fit& fit) {
        for (std::size_t i = 0; i < face.size(); ++i) {
            const SceneCorner& corner = faces[fit.face].corners[fit.corners[i]];
            FaceErrors& errors = result.errors;
            ++errors.corners;
            errors.position = std::max(errors.position, (face[i].world - corner.position).length());
            if (polygon.hasNormals) {
                ++errors.normals;
                errors.normal = std::max(errors.normal, normalError(face[i], corner));
            }
            if (polygon.hasTexCoords) {
                ++errors.texCoords;
                const Imath::V2d off = texelsOff(polygon, face[i], corner);
                errors.texCoord = std::max({errors.texCoord, std::abs(off.x), std::abs(off.y)});
            }
            errors.colors += polygon.hasColors ? 1 : 0;
        }
    }

    bool isOf(const decode::DrawnPolygon& polygon, const SceneFace& face) const {
        if (tolerance.isMaterialOf) {
            return tolerance.isMaterialOf(materialOf(polygon).name, face);
        }
        return !tolerance.compareMaterials || materialOf(polygon).name == face.shader;
    }

    bool carries(const decode::DrawnPolygon& polygon, const decode::DrawnVertex& vertex,
                 const SceneCorner& corner) const {
        return (!polygon.hasNormals || normalError(vertex, corner) <= tolerance.normal) &&
               (!polygon.hasColors || vertex.color == corner.color.value_or(std::array<int, 3>{})) &&
               (!polygon.hasTexCoords || hasTexel(polygon, vertex, corner)) &&
               (!tolerance.fits || tolerance.fits(polygon, vertex, corner));
    }

    static double normalError(const decode::DrawnVertex& vertex, const SceneCorner& corner) {
        return (vertex.worldNormal.value_or(Imath::V3d(0.0)).normalized() - corner.normal).length();
    }

    Imath::V2d texelsOff(const decode::DrawnPolygon& polygon, const decode::DrawnVertex& vertex,
                         const SceneCorner& corner) const {
        const Imath::V2d size = materialOf(polygon).textureSize.value_or(Imath::V2d(0.0));
        const Imath::V2d uv = corner.uv.value_or(Imath::V2d(0.0));
        return vertex.texCoord.value_or(Imath::V2d(0.0)) - Imath::V2d(uv.x * size.x, size.y - uv.y * size.y);
    }

    bool hasTexel(const decode::DrawnPolygon& polygon, const decode::DrawnVertex& vertex,
                  const SceneCorner& corner) const {
        const Imath::V2d off = texelsOff(polygon, vertex, corner);
        return std::abs(off.x) <= tolerance.texel && std::abs(off.y) <= tolerance.texel;
    }

    // The corners of the face in their order from one on that fit what is drawn; nothing when it has no such.
    std::optional<Fit> fitFrom(const decode::DrawnFace& face, const std::vector<std::vector<Place>>& places,
                               const Place& start) const {
        const std::vector<SceneCorner>& corners = faces[start.face].corners;
        Fit fit{start.face, {start.corner}, (face[0].world - corners[start.corner].position).length()};
        std::size_t last = 0;
        for (std::size_t i = 1; i < face.size(); ++i) {
            std::optional<std::size_t> next;
            for (const Place& place : places[i]) {
                const std::size_t offset = (place.corner + corners.size() - start.corner) % corners.size();
                if (place.face == start.face && offset > last && (!next || offset < *next)) {
                    next = offset;
                }
            }
            if (!next) {
                return {};
            }
            last = *next;
            fit.corners.push_back((start.corner + last) % corners.size());
            fit.error += (face[i].world - corners[fit.corners.back()].position).length();
        }
        return fit;
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
            return;
        }
        ++result.errors.faces;
    }

    const std::vector<SceneFace>& faces;
    const FaceTolerance& tolerance;
    CornerGrid grid;
    const std::vector<DrawnMaterial>& materials;
    std::vector<std::size_t> triangles; // given to each face
    std::vector<Imath::V3d> areas;
    FaceDifferences result;
};

} // namespace

std::vector<DrawnMaterial> drawnMaterials(const decode::ModelFile& file) {
    std::vector<DrawnMaterial> materials;
    const decode::FileElement& body = file.root.child("body");
    const decode::FileElement* const array = body.find("material_array");
    if (array == nullptr) {
        return materials;
    }
    for (const decode::FileElement& element : array->children) {
        DrawnMaterial material{element.value("name"), {}};
        if (const int image = element.integer("tex_image_idx"); image >= 0) {
            const auto& pictures = body.child("tex_image_array").children;
            decode::require(static_cast<std::size_t>(image) < pictures.size(), element, "there is no texture ", image);
            const decode::FileElement& picture = pictures[static_cast<std::size_t>(image)];
            material.textureSize = Imath::V2d(picture.integer("original_width"), picture.integer("original_height"));
        }
        materials.push_back(material);
    }
    return materials;
}

FaceDifferences compareFaces(const std::vector<DrawnMaterial>& materials,
                             const std::vector<const decode::DrawnPolygon*>& polygons,
                             const std::vector<SceneFace>& faces, const FaceTolerance& tolerance) {
    return Comparison(materials, faces, tolerance).run(polygons);
}

} // namespace host::app::verify
