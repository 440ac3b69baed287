#include "host/nodes/primitiveCompute.h"

#include "host/geometry/polyPrimitives.h"
#include "host/graph/Evaluation.h"

#include <Imath/ImathQuat.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace host {

namespace {

/// Reads the numbers of one creation node by name; a node is read only when something of it changes.
class Numbers {
public:
    Numbers(Evaluation& evaluation, Node& node) : evaluation_(evaluation), node_(node) {}

    double number(const char* name) const { return evaluation_.number(node_, node_.type().find(name)); }
    std::int32_t count(const char* name) const { return static_cast<std::int32_t>(number(name)); }
    bool hasUvs() const { return number("createUVs") != 0.0; }

    void warn(const std::string& text) const { evaluation_.warn(node_.name() + ": " + text); }
    /// Says that a switch asks for what is not known.
    void refuse(const char* name, bool asks, const char* instead) const {
        if (asks) {
            warn(std::string(name) + " is not supported as it is set (" + instead + ")");
        }
    }

private:
    Evaluation& evaluation_;
    Node& node_;
};

/// From upright along y to the node's axis, the shortest way.
Matrix44 turnToAxis(const Numbers& numbers) {
    const Imath::V3d axis(numbers.number("axisX"), numbers.number("axisY"), numbers.number("axisZ"));
    const Imath::V3d up(0, 1, 0);
    if (!(axis.length() > 0.0) || !std::isfinite(axis.length()) || axis.normalized() == up) {
        return {};
    }
    numbers.refuse("axis", std::abs(axis.normalized().x) > 1e-12 || axis.z < 0.0, "it is turned the shortest way");
    if (axis.normalized() == -up) {
        return Matrix44().setAxisAngle(Imath::V3d(1, 0, 0), M_PI);
    }
    Imath::Quatd turn;
    turn.setRotation(up, axis.normalized());
    return turn.toMatrix44();
}

void put(Evaluation& evaluation, Node& node, const PlugAddress& output, const Numbers& numbers,
         std::shared_ptr<MeshData> mesh) {
    if (mesh->topology->faceCount() == 0) {
        numbers.warn("it has too many faces (its mesh is empty)");
    }
    const Matrix44 turn = turnToAxis(numbers);
    if (turn != Matrix44()) {
        auto points = std::make_shared<Points>(*mesh->points);
        for (Imath::V3f& point : *points) {
            point = Imath::V3f(Imath::V3d(point) * turn);
        }
        mesh->points = std::move(points);
    }
    evaluation.putData(node, output, std::move(mesh));
}

} // namespace

void computePolyCube(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const Numbers from(evaluation, node);
    CubeShape shape;
    shape.width = from.number("width");
    shape.height = from.number("height");
    shape.depth = from.number("depth");
    shape.divisionsWidth = from.count("subdivisionsWidth");
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.divisionsDepth = from.count("subdivisionsDepth");
    shape.uvs = from.hasUvs();
    put(evaluation, node, output, from, makeCube(shape));
}

void computePolyPlane(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const Numbers from(evaluation, node);
    PlaneShape shape;
    shape.width = from.number("width");
    shape.height = from.number("height");
    shape.divisionsWidth = from.count("subdivisionsWidth");
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.uvs = from.hasUvs();
    put(evaluation, node, output, from, makePlane(shape));
}

void computePolySphere(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const Numbers from(evaluation, node);
    SphereShape shape;
    shape.radius = from.number("radius");
    shape.divisionsAxis = from.count("subdivisionsAxis");
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.uvs = from.hasUvs();
    put(evaluation, node, output, from, makeSphere(shape));
}

void computePolyCylinder(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const Numbers from(evaluation, node);
    CylinderShape shape;
    shape.radius = from.number("radius");
    shape.height = from.number("height");
    shape.divisionsAxis = from.count("subdivisionsAxis");
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.fanCaps = from.count("subdivisionsCaps") > 0;
    shape.uvs = from.hasUvs();
    from.refuse("subdivisionsCaps", from.count("subdivisionsCaps") > 1, "its caps have 1");
    from.refuse("roundCap", from.number("roundCap") != 0.0, "its caps are flat");
    put(evaluation, node, output, from, makeCylinder(shape));
}

void computePolyCone(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const Numbers from(evaluation, node);
    ConeShape shape;
    shape.radius = from.number("radius");
    shape.height = from.number("height");
    shape.divisionsAxis = from.count("subdivisionsAxis");
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.fanCap = from.count("subdivisionsCap") > 0;
    shape.uvs = from.hasUvs();
    from.refuse("subdivisionsCap", from.count("subdivisionsCap") > 1, "its cap has 1");
    from.refuse("roundCap", from.number("roundCap") != 0.0, "its cap is flat");
    put(evaluation, node, output, from, makeCone(shape));
}

namespace {

/// From the middle of a regular polygon to its corners.
double cornerRadius(double sideLength, std::int32_t sides) {
    return sideLength / (2.0 * std::sin(M_PI / sides));
}

} // namespace

void computePolyPyramid(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    constexpr std::int32_t kFewestSides = 3;
    constexpr std::int32_t kMostSides = 5; // of six, triangles with equal sides would lie flat
    const Numbers from(evaluation, node);
    const double side = from.number("sideLength");
    ConeShape shape;
    shape.divisionsAxis = std::clamp(from.count("numberOfSides"), kFewestSides, kMostSides);
    shape.radius = cornerRadius(side, shape.divisionsAxis);
    shape.height = std::sqrt(side * side - shape.radius * shape.radius);
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.fanCap = from.count("subdivisionsCaps") > 0;
    shape.uvs = from.hasUvs();
    shape.hardSides = true;
    put(evaluation, node, output, from, makeCone(shape));
}

void computePolyPrism(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    constexpr std::int32_t kFewestSides = 3;
    const Numbers from(evaluation, node);
    CylinderShape shape;
    shape.divisionsAxis = std::max(from.count("numberOfSides"), kFewestSides);
    shape.radius = cornerRadius(from.number("sideLength"), shape.divisionsAxis);
    shape.height = from.number("length");
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.fanCaps = from.count("subdivisionsCaps") > 0;
    shape.uvs = from.hasUvs();
    shape.hardSides = true;
    put(evaluation, node, output, from, makeCylinder(shape));
}

void computePolyTorus(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const Numbers from(evaluation, node);
    TorusShape shape;
    shape.radius = from.number("radius");
    shape.sectionRadius = from.number("sectionRadius");
    shape.twist = from.number("twist");
    shape.divisionsAxis = from.count("subdivisionsAxis");
    shape.divisionsHeight = from.count("subdivisionsHeight");
    shape.uvs = from.hasUvs();
    put(evaluation, node, output, from, makeTorus(shape));
}

} // namespace host
