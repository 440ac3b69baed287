#include "host/nodes/latticeCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/dagCompute.h"
#include "host/nodes/deformerCompute.h"
#include "host/nodes/meshRows.h"
#include "host/nodes/pointWeights.h"

#include "host/geometry/LatticeData.h"

#include "host/graph/Evaluation.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace host {

namespace {

using Imath::V3d;

struct LatticeAttributes {
    explicit LatticeAttributes(const NodeType& type)
        : input(type.find("latticeInput")), stored(type.find("cached")), s(type.find("sDivisions")),
          t(type.find("tDivisions")), u(type.find("uDivisions")), controlPoints(type.find("controlPoints")),
          output(type.find("latticeOutput")) {}

    AttrIndex input, stored, s, t, u, controlPoints, output;
};

const LatticeAttributes& latticeAttributes(const Node& node) {
    static const LatticeAttributes kAttributes(node.type());
    return kAttributes;
}

LatticeData pointsBeneath(Evaluation& evaluation, Node& node) {
    const LatticeAttributes& attr = latticeAttributes(node);
    for (const AttrIndex source : {attr.input, attr.stored}) {
        if (const LatticePtr lattice = latticeOf(evaluation.data(node, address(source)))) {
            return *lattice;
        }
    }
    const auto side = [&](AttrIndex divisions) {
        return static_cast<std::size_t>(std::clamp(evaluation.number(node, divisions), 0.0, 1000.0));
    };
    return LatticeData::regular(side(attr.s), side(attr.t), side(attr.u));
}

struct FfdAttributes {
    explicit FfdAttributes(const NodeType& type)
        : points(type.find("deformedLatticePoints")), matrix(type.find("deformedLatticeMatrix")),
          baseMatrix(type.find("baseLatticeMatrix")), isLocal(type.find("local")), outside(type.find("outsideLattice")),
          influence(type.find("localInfluenceS")), shapeSpace(type.find("shapeSpace")), weights(type.find("weights")) {}

    AttrIndex points, matrix, baseMatrix, isLocal, outside;
    AttrIndex influence; // along s; the two others follow it
    AttrIndex shapeSpace, weights;
};

const FfdAttributes& ffdAttributes(const Node& node) {
    static const FfdAttributes kAttributes(node.type());
    return kAttributes;
}

bool isInside(const V3d& part) {
    constexpr double kTolerance = 1e-6; // points on the border belong to it, though they are single precision
    return std::min({part.x, part.y, part.z}) >= -kTolerance && std::max({part.x, part.y, part.z}) <= 1.0 + kTolerance;
}

void applyLattice(Evaluation& evaluation, Node& node, std::int32_t element, MeshData&, Points& points) {
    const FfdAttributes& attr = ffdAttributes(node);
    const LatticePtr lattice = latticeOf(evaluation.data(node, address(attr.points)));
    if (lattice == nullptr) {
        return;
    }
    const Matrix44 toWorld = evaluation.matrix(node, address(attr.shapeSpace).element(element));
    const Matrix44 toBase = toWorld * evaluation.matrix(node, address(attr.baseMatrix)).inverse();
    const Matrix44 fromLattice = evaluation.matrix(node, address(attr.matrix)) * toWorld.inverse();
    const bool everywhere = evaluation.number(node, attr.outside) != 0.0;
    const PointWeights weights(evaluation, node, address(attr.weights).element(element));
    for (std::size_t i = 0; i < points.size(); ++i) {
        const V3d point(points[i]);
        const V3d part = point * toBase + V3d(0.5);
        if (everywhere || isInside(part)) {
            points[i] = Imath::V3f(point + (lattice->placeAt(part) * fromLattice - point) * weights.of(i));
        }
    }
}

/// Whether the lattice's points move against each other while the scene is open.
bool isMoving(Graph& graph, Node& ffd) {
    const Plug source = graph.sourceOf({&ffd, address(ffdAttributes(ffd).points)});
    if (!source || !source.node->type().isKindOf("lattice")) {
        return static_cast<bool>(source);
    }
    const LatticeAttributes& attr = latticeAttributes(*source.node);
    return graph.isDriven({source.node, address(attr.input)}) ||
           graph.isDriven({source.node, address(attr.controlPoints)});
}

} // namespace

void computeLattice(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const LatticeAttributes& attr = latticeAttributes(node);
    if (output.attr < attr.output) {
        computeDagMatrices(evaluation, node, output);
        return;
    }
    auto lattice = std::make_shared<LatticeData>(pointsBeneath(evaluation, node));
    const Plug controlPoints{&node, address(attr.controlPoints)};
    if (hasVectors(evaluation.graph(), controlPoints)) {
        Points offsets(lattice->points.size(), Imath::V3f(0.0F));
        addVectors(evaluation.graph(), controlPoints, offsets);
        for (std::size_t i = 0; i < offsets.size(); ++i) {
            lattice->points[i] += V3d(offsets[i]);
        }
    }
    evaluation.putData(node, output, std::move(lattice));
}

void fillLatticeAffects(NodeType& type) {
    fillOwnAffects(type, "controlPoints");
}

void computeFfd(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    computeDeformer(evaluation, node, output, applyLattice);
}

std::string limitOfFfd(Graph& graph, Node& node) {
    const FfdAttributes& attr = ffdAttributes(node);
    const LatticePtr lattice = latticeOf(graph.data({&node, address(attr.points)}));
    // Whatever the polynomials, those of a lattice that keeps its shape give the same places.
    if (lattice == nullptr || (lattice->isAffine() && !isMoving(graph, node))) {
        return graph.number({&node, address(attr.outside)}) == 2.0 ? " with a falloff outside the lattice" : "";
    }
    if (graph.number({&node, address(attr.outside)}) != 0.0) {
        return " that deforms points outside the lattice";
    }
    const std::size_t sides[] = {lattice->s, lattice->t, lattice->u};
    for (AttrIndex side = 0; side < 3; ++side) {
        const double influence = graph.number({&node, address(attr.influence + side)});
        if (graph.number({&node, address(attr.isLocal)}) != 0.0 && influence < static_cast<double>(sides[side])) {
            return " with local influence";
        }
    }
    return {};
}

} // namespace host
