#include "meshChecks.h"

#include "checkSupport.h"

#include <maya/MColor.h>
#include <maya/MFnMesh.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>
#include <maya/MVectorArray.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace tvk {
namespace {

using Json = nlohmann::json;
using Row = std::vector<double>;

/// The decimals that distinct values are recorded with.
constexpr double kDecimals = 1e4;

MDagPath shapeOf(const Json& check) {
    return pathTo(check["shape"].get<std::string>());
}

/// Equal with as many decimals as are recorded.
std::size_t countDistinct(const std::vector<Row>& rows) {
    std::set<std::vector<long>> distinct;
    for (const Row& row : rows) {
        std::vector<long> rounded;
        for (const double value : row) {
            rounded.push_back(std::lround(value * kDecimals));
        }
        distinct.insert(std::move(rounded));
    }
    return distinct.size();
}

bool isNear(const Row& a, const Row& b, double tolerance) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](double x, double y) { return std::abs(x - y) <= tolerance; });
}

/// How many rows of one list have nothing like them in the other.
long countMissing(const std::vector<Row>& rows, const std::vector<Row>& others, double tolerance) {
    return std::count_if(rows.begin(), rows.end(), [&](const Row& row) {
        return std::none_of(others.begin(), others.end(),
                            [&](const Row& other) { return isNear(row, other, tolerance); });
    });
}

std::string compareSets(const char* what, const std::vector<Row>& found, const Json& expected, double tolerance) {
    const std::vector<Row> rows = expected.get<std::vector<Row>>();
    const long extra = countMissing(found, rows, tolerance);
    const long missing = countMissing(rows, found, tolerance);
    return extra + missing == 0 ? ""
                                : std::string(what) + ": " + std::to_string(missing) + " missing, " +
                                      std::to_string(extra) + " not expected ";
}

std::string compareCount(const char* what, std::size_t found, const Json& expected) {
    return found == expected.get<std::size_t>() ? "" : std::string(what) + ": found " + std::to_string(found) + " ";
}

Row bound(const std::vector<Row>& rows, bool upper) {
    Row result = rows.empty() ? Row() : rows.front();
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            result[i] = upper ? std::max(result[i], row[i]) : std::min(result[i], row[i]);
        }
    }
    return result;
}

/// What the corners of all faces have.
struct Corners {
    std::vector<Row> points, uvs, pointsWithNormals;
    int triangles = 0;
};

Corners readCorners(const MDagPath& shape) {
    Corners result;
    for (MItMeshPolygon face(shape); !face.isDone(); face.next()) {
        MPointArray points;
        MVectorArray normals;
        face.getPoints(points);
        face.getNormals(normals);
        for (unsigned int i = 0; i < points.length(); ++i) {
            const MPoint& point = points[i];
            result.points.push_back({point.x, point.y, point.z});
            result.pointsWithNormals.push_back({point.x, point.y, point.z, normals[i].x, normals[i].y, normals[i].z});
            float2 uv;
            if (face.getUV(static_cast<int>(i), uv)) {
                result.uvs.push_back({static_cast<double>(uv[0]), static_cast<double>(uv[1])});
            }
        }
        int triangles = 0;
        face.numTriangles(triangles);
        result.triangles += triangles;
    }
    return result;
}

/// Null where a corner has none.
Json uvsOfFace(const MFnMesh& mesh, int face, const MString& set) {
    Json corners = Json::array();
    for (int corner = 0; corner < mesh.polygonVertexCount(face); ++corner) {
        float u = 0.0F;
        float v = 0.0F;
        if (!mesh.getPolygonUV(face, corner, u, v, &set)) {
            return nullptr;
        }
        corners.push_back({static_cast<double>(u), static_cast<double>(v)});
    }
    return corners;
}

/// Compares nested arrays of numbers and nulls.
bool isNear(const Json& found, const Json& expected, double tolerance) {
    if (found.is_array() && expected.is_array()) {
        return std::equal(found.begin(), found.end(), expected.begin(), expected.end(),
                          [&](const Json& a, const Json& b) { return isNear(a, b, tolerance); });
    }
    if (found.is_number() && expected.is_number()) {
        return std::abs(found.get<double>() - expected.get<double>()) <= tolerance;
    }
    return found.is_null() && expected.is_null();
}

std::string compareNested(const Json& found, const Json& expected, double tolerance) {
    return isNear(found, expected, tolerance) ? "" : "found " + found.dump() + " expected " + expected.dump();
}

Json componentsOf(const MColor& color, MFnMesh::MColorRepresentation representation) {
    const auto wide = [](float value) { return static_cast<double>(value); };
    switch (representation) {
    case MFnMesh::kAlpha:
        return {wide(color.a)};
    case MFnMesh::kRGB:
        return {wide(color.r), wide(color.g), wide(color.b)};
    default:
        return {wide(color.r), wide(color.g), wide(color.b), wide(color.a)};
    }
}

} // namespace

std::string checkPoints(const Json& check) {
    MPointArray points;
    if (!MFnMesh(shapeOf(check)).getPoints(points)) {
        return "no such mesh";
    }
    std::vector<double> found;
    for (unsigned int i = 0; i < points.length(); ++i) {
        found.insert(found.end(), {points[i].x, points[i].y, points[i].z});
    }
    return compare(found, numbers(check["value"]), check.value("tol", 0.0));
}

std::string checkMeshCounts(const Json& check) {
    const MFnMesh mesh(shapeOf(check));
    std::string difference = compareCount("vertices", static_cast<std::size_t>(mesh.numVertices()), check["vertices"]) +
                             compareCount("faces", static_cast<std::size_t>(mesh.numPolygons()), check["faces"]);
    if (check.contains("uvCount")) {
        difference += compareCount("uvCount", static_cast<std::size_t>(mesh.numUVs()), check["uvCount"]);
    }
    return difference;
}

std::string checkEvaluatedMesh(const Json& check) {
    const Corners found = readCorners(shapeOf(check));
    const double tolerance = check["tol"].get<double>();
    std::string difference = compareCount("points", countDistinct(found.points), check["distinctPoints"]) +
                             compareCount("texture coordinates", countDistinct(found.uvs), check["distinctUVs"]) +
                             compareCount("triangles", static_cast<std::size_t>(found.triangles), check["triangles"]) +
                             compare(bound(found.points, false), numbers(check["min"]), tolerance) +
                             compare(bound(found.points, true), numbers(check["max"]), tolerance) +
                             compare(bound(found.uvs, false), numbers(check["uvMin"]), tolerance) +
                             compare(bound(found.uvs, true), numbers(check["uvMax"]), tolerance);
    if (check.contains("points")) {
        difference += compareSets("points", found.points, check["points"], tolerance) +
                      compareSets("texture coordinates", found.uvs, check["uvs"], tolerance) +
                      compareSets("normals", found.pointsWithNormals, check["cornerNormals"], tolerance);
    }
    return difference;
}

std::string checkUvsByCorner(const Json& check) {
    const MFnMesh mesh(shapeOf(check));
    const MString set(check["set"].get<std::string>().c_str());
    Json found = Json::array();
    for (int face = 0; face < mesh.numPolygons(); ++face) {
        found.push_back(uvsOfFace(mesh, face, set));
    }
    return compareNested(found, check["value"], check["tol"].get<double>());
}

std::string checkUvOfCorner(const Json& check) {
    const MString set(check["set"].get<std::string>().c_str());
    const Json found = uvsOfFace(MFnMesh(shapeOf(check)), check["face"].get<int>(), set);
    const auto corner = check["corner"].get<std::size_t>();
    return found.is_null() ? "found none" : compareNested(found[corner], check["value"], check["tol"].get<double>());
}

std::string checkUvCount(const Json& check) {
    MStatus status;
    const int count = MFnMesh(shapeOf(check)).numUVs(MString(check["set"].get<std::string>().c_str()), &status);
    return status ? compareCount("uvCount", static_cast<std::size_t>(count), check["value"]) : "no such set";
}

std::string checkUvSetNames(const Json& check) {
    MStringArray names;
    MFnMesh(shapeOf(check)).getUVSetNames(names);
    Json found = Json::array();
    for (unsigned int i = 0; i < names.length(); ++i) {
        found.push_back(names[i].asChar());
    }
    return found == check["value"] ? "" : "found " + found.dump();
}

std::string checkColorsByCorner(const Json& check) {
    const MFnMesh mesh(shapeOf(check));
    const MString set(check["set"].get<std::string>().c_str());
    MStatus status;
    const MFnMesh::MColorRepresentation representation = mesh.getColorRepresentation(set, &status);
    if (!status) {
        return "no such set";
    }
    Json found = Json::array();
    for (int face = 0; face < mesh.numPolygons(); ++face) {
        Json corners = Json::array();
        for (int corner = 0; corner < mesh.polygonVertexCount(face); ++corner) {
            int id = -1;
            MColor color;
            mesh.getColorIndex(face, corner, id, &set);
            corners.push_back(mesh.getColor(id, color, &set) ? componentsOf(color, representation) : Json());
        }
        found.push_back(corners);
    }
    return compareNested(found, check["value"], check["tol"].get<double>());
}

} // namespace tvk
