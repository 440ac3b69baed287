#include "host/nodes/dagCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/transformMatrix.h"
#include "host/nodes/tripleValues.h"

#include "host/graph/DagPath.h"
#include "host/graph/Evaluation.h"

#include <algorithm>
#include <vector>

namespace host {

namespace {

using Imath::V3d;

/// Indices of the attributes that every DAG node has; the same in all types, since a type's own come after those that
/// it inherits.
struct DagAttributes {
    explicit DagAttributes(const NodeType& type)
        : matrix(type.find("matrix")), inverseMatrix(type.find("inverseMatrix")), worldMatrix(type.find("worldMatrix")),
          worldInverseMatrix(type.find("worldInverseMatrix")), parentMatrix(type.find("parentMatrix")),
          parentInverseMatrix(type.find("parentInverseMatrix")) {}

    AttrIndex matrix, inverseMatrix, worldMatrix, worldInverseMatrix, parentMatrix, parentInverseMatrix;
};

/// Those of every transform.
struct TransformAttributes {
    explicit TransformAttributes(const NodeType& type)
        : translate(type.find("translateX")), rotate(type.find("rotateX")), rotateOrder(type.find("rotateOrder")),
          scale(type.find("scaleX")), shear(type.find("shearXY")), rotatePivot(type.find("rotatePivotX")),
          rotatePivotTranslate(type.find("rotatePivotTranslateX")), scalePivot(type.find("scalePivotX")),
          scalePivotTranslate(type.find("scalePivotTranslateX")), rotateAxis(type.find("rotateAxisX")),
          transMinusRotatePivot(type.find("transMinusRotatePivotX")),
          translateLimits{type.find("minTransXLimit"), type.find("maxTransXLimit"), type.find("minTransXLimitEnable"),
                          type.find("maxTransXLimitEnable")},
          rotateLimits{type.find("minRotXLimit"), type.find("maxRotXLimit"), type.find("minRotXLimitEnable"),
                       type.find("maxRotXLimitEnable")},
          scaleLimits{type.find("minScaleXLimit"), type.find("maxScaleXLimit"), type.find("minScaleXLimitEnable"),
                      type.find("maxScaleXLimitEnable")},
          inheritsTransform(type.find("inheritsTransform")), offsetParentMatrix(type.find("offsetParentMatrix")),
          xformMatrix(type.find("xformMatrix")), dagLocalMatrix(type.find("dagLocalMatrix")),
          dagLocalInverseMatrix(type.find("dagLocalInverseMatrix")) {}

    struct Limits {
        AttrIndex minimum, maximum, minimumEnable, maximumEnable; // of x; y and z follow
    };

    // Of three numbers the first; the others have the next two indices.
    AttrIndex translate, rotate, rotateOrder, scale, shear, rotatePivot, rotatePivotTranslate, scalePivot,
        scalePivotTranslate, rotateAxis, transMinusRotatePivot;
    Limits translateLimits, rotateLimits, scaleLimits;
    AttrIndex inheritsTransform, offsetParentMatrix, xformMatrix, dagLocalMatrix, dagLocalInverseMatrix;
};

struct JointAttributes {
    explicit JointAttributes(const NodeType& type)
        : jointOrient(type.find("jointOrientX")), inverseScale(type.find("inverseScaleX")),
          segmentScaleCompensate(type.find("segmentScaleCompensate")) {}

    AttrIndex jointOrient, inverseScale, segmentScaleCompensate;
};

const DagAttributes& dagAttributes(const Node& node) {
    static const DagAttributes kAttributes(node.type());
    return kAttributes;
}

const TransformAttributes& transformAttributes(const Node& transform) {
    static const TransformAttributes kAttributes(transform.type());
    return kAttributes;
}

const JointAttributes& jointAttributes(const Node& joint) {
    static const JointAttributes kAttributes(joint.type());
    return kAttributes;
}

V3d readLimited(Evaluation& evaluation, Node& node, AttrIndex first, const TransformAttributes::Limits& limits) {
    V3d value = readTriple(evaluation, node, first);
    for (int axis = 0; axis < 3; ++axis) {
        double& number = value[axis];
        if (evaluation.number(node, limits.minimumEnable + axis) != 0.0) {
            number = std::max(number, evaluation.number(node, limits.minimum + axis));
        }
        if (evaluation.number(node, limits.maximumEnable + axis) != 0.0) {
            number = std::min(number, evaluation.number(node, limits.maximum + axis));
        }
    }
    return value;
}

TransformPieces readPieces(Evaluation& evaluation, Node& node, const V3d& rotate) {
    const TransformAttributes& attr = transformAttributes(node);
    TransformPieces pieces;
    pieces.translate = readLimited(evaluation, node, attr.translate, attr.translateLimits);
    pieces.rotate = rotate;
    pieces.scale = readLimited(evaluation, node, attr.scale, attr.scaleLimits);
    pieces.rotateOrder = rotateOrderOf(evaluation.number(node, attr.rotateOrder));
    pieces.shear = readTriple(evaluation, node, attr.shear);
    pieces.rotateAxis = readTriple(evaluation, node, attr.rotateAxis);
    pieces.rotatePivot = readTriple(evaluation, node, attr.rotatePivot);
    pieces.rotatePivotTranslate = readTriple(evaluation, node, attr.rotatePivotTranslate);
    pieces.scalePivot = readTriple(evaluation, node, attr.scalePivot);
    pieces.scalePivotTranslate = readTriple(evaluation, node, attr.scalePivotTranslate);
    return pieces;
}

Matrix44 localMatrix(Evaluation& evaluation, Node& node) {
    if (node.type().dagRole != DagRole::kTransform) {
        return {};
    }
    const TransformAttributes& attr = transformAttributes(node);
    return transformMatrixWith(evaluation, node, readLimited(evaluation, node, attr.rotate, attr.rotateLimits));
}

bool inheritsTransform(Evaluation& evaluation, Node& node) {
    return node.type().dagRole != DagRole::kTransform ||
           evaluation.number(node, transformAttributes(node).inheritsTransform) != 0.0;
}

/// A node on one of its paths.
struct PlacedNode {
    Node* node = nullptr;
    std::int32_t path = 0;
};

/// The same path without its last node; no node when that is the world, or when there are not so many paths.
PlacedNode placedParent(const Graph& graph, const PlacedNode& placed) {
    const std::vector<Node*>& parents = placed.node->parents();
    auto path = static_cast<std::size_t>(std::max(placed.path, 0));
    for (Node* parent : parents) {
        const std::size_t count = parents.size() == 1 ? path + 1 : pathCount(graph, *parent);
        if (path < count) {
            return parent->type().dagRole == DagRole::kWorld ? PlacedNode{}
                                                             : PlacedNode{parent, static_cast<std::int32_t>(path)};
        }
        path -= count;
    }
    return {};
}

Plug worldMatrixOf(const PlacedNode& placed) {
    return {placed.node, address(dagAttributes(*placed.node).worldMatrix).element(placed.path)};
}

/// World matrix of the parent, computed with those of all ancestors from the top down.
Matrix44 computeParentMatrix(Evaluation& evaluation, const PlacedNode& placed) {
    std::vector<PlacedNode> ancestors;
    for (PlacedNode at = placed; at.node != nullptr && inheritsTransform(evaluation, *at.node);) {
        at = placedParent(evaluation.graph(), at);
        if (at.node == nullptr) {
            break;
        }
        ancestors.push_back(at);
        if (evaluation.graph().isCached(worldMatrixOf(at))) {
            break;
        }
    }
    Matrix44 matrix;
    for (auto ancestor = ancestors.rbegin(); ancestor != ancestors.rend(); ++ancestor) {
        matrix = evaluation.graph().matrix(worldMatrixOf(*ancestor));
    }
    return matrix;
}

void computeTransMinusRotatePivot(Evaluation& evaluation, Node& node) {
    const TransformAttributes& attr = transformAttributes(node);
    for (int axis = 0; axis < 3; ++axis) {
        evaluation.putNumber(node, address(attr.transMinusRotatePivot + axis),
                             evaluation.number(node, attr.translate + axis) -
                                 evaluation.number(node, attr.rotatePivot + axis));
    }
}

Matrix44 dagLocalMatrix(Evaluation& evaluation, Node& node) {
    const Matrix44 matrix = evaluation.matrix(node, address(dagAttributes(node).matrix));
    return node.type().dagRole == DagRole::kTransform
               ? matrix * evaluation.matrix(node, address(transformAttributes(node).offsetParentMatrix))
               : matrix;
}

/// One of the matrices that only transforms have.
void computeOfTransform(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const TransformAttributes& attr = transformAttributes(node);
    if (output.attr == attr.xformMatrix) {
        evaluation.putMatrix(node, output, evaluation.matrix(node, address(dagAttributes(node).matrix)));
    } else if (output.attr == attr.dagLocalMatrix) {
        evaluation.putMatrix(node, output, dagLocalMatrix(evaluation, node));
    } else if (output.attr == attr.dagLocalInverseMatrix) {
        evaluation.putMatrix(node, output, evaluation.matrix(node, address(attr.dagLocalMatrix)).gjInverse());
    } else {
        computeTransMinusRotatePivot(evaluation, node);
    }
}

} // namespace

Matrix44 transformMatrixWith(Evaluation& evaluation, Node& transform, const V3d& rotate) {
    const TransformPieces pieces = readPieces(evaluation, transform, rotate);
    if (!transform.type().isKindOf("joint")) {
        return transformMatrix(pieces);
    }
    const JointAttributes& attr = jointAttributes(transform);
    JointPieces joint;
    joint.jointOrient = readTriple(evaluation, transform, attr.jointOrient);
    joint.inverseScale = readTriple(evaluation, transform, attr.inverseScale);
    joint.segmentScaleCompensate = evaluation.number(transform, attr.segmentScaleCompensate) != 0.0;
    return jointMatrix(pieces, joint);
}

void computeDagMatrices(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const DagAttributes& attr = dagAttributes(node);
    const auto sameElement = [&](AttrIndex other) {
        PlugAddress at = output;
        at.attr = other;
        return evaluation.matrix(node, at);
    };
    if (output.attr == attr.matrix) {
        evaluation.putMatrix(node, output, localMatrix(evaluation, node));
    } else if (output.attr == attr.inverseMatrix) {
        evaluation.putMatrix(node, output, sameElement(attr.matrix).gjInverse());
    } else if (output.attr == attr.parentMatrix) {
        evaluation.putMatrix(node, output, computeParentMatrix(evaluation, {&node, output.index[0]}));
    } else if (output.attr == attr.worldMatrix) {
        evaluation.putMatrix(node, output, dagLocalMatrix(evaluation, node) * sameElement(attr.parentMatrix));
    } else if (output.attr == attr.worldInverseMatrix) {
        evaluation.putMatrix(node, output, sameElement(attr.worldMatrix).gjInverse());
    } else if (output.attr == attr.parentInverseMatrix) {
        evaluation.putMatrix(node, output, sameElement(attr.parentMatrix).gjInverse());
    } else {
        computeOfTransform(evaluation, node, output);
    }
}

void fillDagAffects(NodeType& type) {
    struct Row {
        const char* input;
        std::vector<const char*> outputs;
    };
    const std::vector<const char*> placed = {"worldMatrix", "worldInverseMatrix", "parentMatrix",
                                             "parentInverseMatrix"};
    const std::vector<const char*> offset = {"worldMatrix", "worldInverseMatrix", "dagLocalMatrix",
                                             "dagLocalInverseMatrix"};
    const std::vector<const char*> local = {
        "matrix",      "inverseMatrix",  "worldMatrix",           "worldInverseMatrix",
        "xformMatrix", "dagLocalMatrix", "dagLocalInverseMatrix", "transMinusRotatePivot"};
    std::vector<Row> rows = {{"inheritsTransform", placed}, {"offsetParentMatrix", offset}};
    for (const char* input : {"translate",
                              "rotate",
                              "rotateOrder",
                              "scale",
                              "shear",
                              "rotatePivot",
                              "rotatePivotTranslate",
                              "scalePivot",
                              "scalePivotTranslate",
                              "rotateAxis",
                              "minTransLimit",
                              "maxTransLimit",
                              "minTransLimitEnable",
                              "maxTransLimitEnable",
                              "minRotLimit",
                              "maxRotLimit",
                              "minRotLimitEnable",
                              "maxRotLimitEnable",
                              "minScaleLimit",
                              "maxScaleLimit",
                              "minScaleLimitEnable",
                              "maxScaleLimitEnable",
                              "jointOrient",
                              "inverseScale",
                              "segmentScaleCompensate"}) {
        rows.push_back({input, local});
    }
    type.affects.assign(type.attributes().size(), {});
    for (std::size_t i = 0; i < type.attributes().size(); ++i) {
        if (type.attributes()[i].parent == kNoAttr) {
            type.affects[i] = {kNoAttr};
        }
    }
    for (const Row& row : rows) {
        const AttrIndex input = type.find(row.input);
        if (input == kNoAttr) {
            continue;
        }
        std::vector<AttrIndex>& affected = type.affects[static_cast<std::size_t>(input)];
        affected.clear();
        for (const char* output : row.outputs) {
            affected.push_back(type.find(output));
        }
    }
}

void fillOwnAffects(NodeType& type, const char* firstOwnAttribute) {
    fillDagAffects(type);
    const AttrIndex firstOwn = type.find(firstOwnAttribute);
    std::vector<AttrIndex> own;
    for (const AttrIndex output : type.outputs()) {
        if (output >= firstOwn) {
            own.push_back(output);
        }
    }
    for (std::size_t i = 0; i < type.attributes().size(); ++i) {
        const Attribute& attribute = type.attributes()[i];
        const bool isInput = static_cast<AttrIndex>(i) >= firstOwn || attribute.longName == "nodeState";
        if (isInput && attribute.parent == kNoAttr && !attribute.computed) {
            type.affects[i] = own;
        }
    }
}

} // namespace host
