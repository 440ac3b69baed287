#include "host/app/verify/SceneFaces.h"

#include <maya/MColorArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>

#include <algorithm>
#include <cmath>

namespace host::app::verify {
namespace {

bool flag(const MFnDependencyNode& node, const char* name) {
    bool value = false;
    node.findPlug(name, false).getValue(value);
    return value;
}

Imath::M44d matrixOf(const MMatrix& matrix) {
    Imath::M44d result;
    for (unsigned int r = 0; r < 4; ++r) {
        for (unsigned int c = 0; c < 4; ++c) {
            result[r][c] = matrix(r, c);
        }
    }
    return result;
}

std::string shaderOf(const MObject& shadingGroup) {
    MPlugArray sources;
    MFnDependencyNode(shadingGroup).findPlug("surfaceShader", false).connectedTo(sources, true, false);
    return sources.length() == 0 ? std::string() : MFnDependencyNode(sources[0].node()).name().asChar();
}

// The parts of a mesh that a face is put together from.
class FaceMaker {
public:
    FaceMaker(const MDagPath& shape, const Imath::M44d& world, double magnify)
        : mesh(shape), name(shape.fullPathName().asChar()), matrix(world), factor(magnify) {
        normalMatrix = matrix.inverse().transposed();
        const bool isOpposite = flag(mesh, "opposite") && !flag(mesh, "doubleSided");
        normalSign = isOpposite ? -1.0 : 1.0;
        isTurned = (matrix.determinant() < 0) != isOpposite;
        MStringArray sets;
        mesh.getUVSetNames(sets);
        uvSet = sets.length() == 0 ? MString("map1") : sets[0];
        mesh.getPoints(points);
        mesh.getFaceVertexColors(colors);
        readShaders(shape.isInstanced() ? shape.instanceNumber() : 0);
    }

    std::vector<SceneFace> all() {
        std::vector<SceneFace> faces;
        for (int i = 0; i < mesh.numPolygons(); ++i) {
            faces.push_back(make(i));
        }
        return faces;
    }

private:
    // The host also names the groups of faces that no group of this instance has, which are for its own display.
    void readShaders(unsigned int instance) {
        MObjectArray groups;
        MObjectArray own;
        MObjectArray members;
        mesh.getConnectedShaders(instance, groups, shaderOfFace);
        mesh.getConnectedSetsAndMembers(instance, own, members, true);
        for (unsigned int i = 0; i < groups.length(); ++i) {
            bool isOwn = false;
            for (unsigned int k = 0; k < own.length(); ++k) {
                isOwn = isOwn || own[k] == groups[i];
            }
            shaders.push_back(isOwn ? std::optional<std::string>(shaderOf(groups[i])) : std::nullopt);
        }
    }

    SceneFace make(int number) {
        SceneFace face;
        face.mesh = name;
        face.number = number;
        const int shader =
            static_cast<unsigned>(number) < shaderOfFace.length() ? shaderOfFace[static_cast<unsigned>(number)] : -1;
        const std::optional<std::string> shaderName =
            shader < 0 ? std::nullopt : shaders.at(static_cast<std::size_t>(shader));
        face.inGroup = shaderName.has_value();
        face.shader = shaderName.value_or("");
        MIntArray vertices;
        MFloatVectorArray normals;
        mesh.getPolygonVertices(number, vertices);
        mesh.getFaceVertexNormals(number, normals);
        for (unsigned int i = 0; i < vertices.length(); ++i) {
            face.corners.push_back(corner(number, i, vertices[i], normals[i]));
        }
        if (isTurned) {
            const std::vector<SceneCorner> corners = face.corners;
            face.corners.assign(corners.rbegin(), corners.rend());
        }
        return face;
    }

    SceneCorner corner(int face, unsigned int place, int vertex, const MFloatVector& normal) {
        SceneCorner result;
        result.vertex = vertex;
        const MPoint& point = points[static_cast<unsigned>(vertex)];
        result.position = Imath::V3d(point.x, point.y, point.z) * factor * matrix;
        normalMatrix.multDirMatrix(Imath::V3d(normal.x, normal.y, normal.z) * normalSign, result.normal);
        result.normal.normalize();
        float u = 0.0F;
        float v = 0.0F;
        if (mesh.getPolygonUV(face, static_cast<int>(place), u, v, &uvSet)) {
            result.uv = Imath::V2d(u, v);
        }
        if (const MColor color = nextColor(); color.r >= 0.0F) {
            const auto five = [](float part) {
                return std::clamp(static_cast<int>(std::floor(part * 31.0F + 0.5F)), 0, 31);
            };
            result.color = {five(color.r), five(color.g), five(color.b)};
        }
        return result;
    }

    // Corners are asked for in the order in which the mesh has their colours.
    MColor nextColor() {
        return cornersMade < colors.length() ? colors[cornersMade++] : MColor(-1.0F, -1.0F, -1.0F, -1.0F);
    }

    MFnMesh mesh;
    std::string name;
    Imath::M44d matrix, normalMatrix;
    double factor, normalSign = 1.0;
    bool isTurned = false;
    MString uvSet;
    MPointArray points;
    MColorArray colors;
    unsigned int cornersMade = 0;
    MIntArray shaderOfFace;
    std::vector<std::optional<std::string>> shaders;
};

} // namespace

std::vector<SceneFace> sceneFaces(const MDagPath& shape, const Imath::M44d* world, double magnify) {
    Imath::M44d matrix = world != nullptr ? *world : matrixOf(shape.inclusiveMatrix());
    if (world == nullptr) {
        for (int i = 0; i < 3; ++i) {
            matrix[3][i] *= magnify;
        }
    }
    return FaceMaker(shape, matrix, magnify).all();
}

std::vector<SceneFace> operator+(std::vector<SceneFace> a, const std::vector<SceneFace>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Imath::V3d vectorArea(const std::vector<Imath::V3d>& outline) {
    Imath::V3d sum(0.0);
    for (std::size_t i = 1; i + 1 < outline.size(); ++i) {
        sum += (outline[i] - outline[0]).cross(outline[i + 1] - outline[0]) * 0.5;
    }
    return sum;
}

std::vector<Imath::V3d> outlineOf(const decode::DrawnFace& face) {
    std::vector<Imath::V3d> outline;
    std::transform(face.begin(), face.end(), std::back_inserter(outline),
                   [](const decode::DrawnVertex& vertex) { return vertex.world; });
    return outline;
}

std::vector<Imath::V3d> outlineOf(const SceneFace& face) {
    std::vector<Imath::V3d> outline;
    std::transform(face.corners.begin(), face.corners.end(), std::back_inserter(outline),
                   [](const SceneCorner& corner) { return corner.position; });
    return outline;
}

} // namespace host::app::verify
