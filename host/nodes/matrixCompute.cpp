#include "host/nodes/matrixCompute.h"

#include "host/nodes/address.h"
#include "host/nodes/blendRotation.h"
#include "host/nodes/matrixPieces.h"
#include "host/nodes/tripleValues.h"

#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>

#include <cmath>

namespace host {

namespace {

using Imath::M33d;
using Imath::Quatd;
using Imath::V3d;

/// Asks `use` to take in each element of an array of matrices.
template <typename Use>
void forEachMatrix(Evaluation& evaluation, Node& node, AttrIndex array, AttrIndex matrix, const Use& use) {
    for (const std::int32_t index : evaluation.graph().elementIndices({&node, address(array)})) {
        use(evaluation.matrix(node, address(matrix).element(index)), index);
    }
}

Matrix44 noMatrix() {
    Matrix44 matrix;
    matrix = 0.0;
    return matrix;
}

Quatd unitOrNone(const Quatd& quaternion) {
    const double length = quaternion.length();
    return length > 0.0 && std::isfinite(length) ? quaternion / length : Quatd();
}

V3d unitOrZero(const V3d& vector) {
    const double length = vector.length();
    return length > 0.0 && std::isfinite(length) ? vector / length : V3d(0.0);
}

V3d turned(const V3d& vector, const Matrix44& matrix) {
    V3d result;
    matrix.multDirMatrix(vector, result);
    return result;
}

} // namespace

void computeMultMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("matrixIn");
    Matrix44 product;
    forEachMatrix(evaluation, node, kInput, kInput,
                  [&](const Matrix44& matrix, std::int32_t) { product = product * matrix; });
    evaluation.putMatrix(node, output, product);
}

void computeAddMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("matrixIn");
    Matrix44 sum = noMatrix();
    forEachMatrix(evaluation, node, kInput, kInput, [&](const Matrix44& matrix, std::int32_t) { sum += matrix; });
    evaluation.putMatrix(node, output, sum);
}

void computeWtAddMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kArray = node.type().find("wtMatrix");
    static const AttrIndex kMatrix = node.type().find("matrixIn");
    static const AttrIndex kWeight = node.type().find("weightIn");
    Matrix44 sum = noMatrix();
    forEachMatrix(evaluation, node, kArray, kMatrix, [&](const Matrix44& matrix, std::int32_t index) {
        sum += matrix * evaluation.number(node, address(kWeight).element(index));
    });
    evaluation.putMatrix(node, output, sum);
}

void computeInverseMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("inputMatrix");
    evaluation.putMatrix(node, output, evaluation.matrix(node, address(kInput)).gjInverse());
}

void computeTransposeMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kInput = node.type().find("inputMatrix");
    evaluation.putMatrix(node, output, evaluation.matrix(node, address(kInput)).transposed());
}

void computeComposeMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kTranslate = node.type().find("inputTranslateX");
    static const AttrIndex kRotate = node.type().find("inputRotateX");
    static const AttrIndex kOrder = node.type().find("inputRotateOrder");
    static const AttrIndex kScale = node.type().find("inputScaleX");
    static const AttrIndex kShear = node.type().find("inputShearX");
    static const AttrIndex kQuaternion = node.type().find("inputQuatX");
    static const AttrIndex kByAngles = node.type().find("useEulerRotation");
    TransformPieces pieces;
    pieces.scale = readTriple(evaluation, node, kScale);
    pieces.shear = readTriple(evaluation, node, kShear);
    Matrix44 matrix = transformMatrix(pieces);
    if (evaluation.number(node, kByAngles) != 0.0) {
        matrix *= matrixOf(
            rotationMatrix(readTriple(evaluation, node, kRotate), rotateOrderOf(evaluation.number(node, kOrder))));
    } else {
        const V3d axis = readTriple(evaluation, node, kQuaternion);
        matrix *= matrixOf(unitOrNone(Quatd(evaluation.number(node, kQuaternion + 3), axis)).toMatrix33());
    }
    const V3d translate = readTriple(evaluation, node, kTranslate);
    for (int axis = 0; axis < 3; ++axis) {
        matrix[3][axis] = translate[axis];
    }
    evaluation.putMatrix(node, output, matrix);
}

void computeDecomposeMatrix(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const AttrIndex kInput = node.type().find("inputMatrix");
    static const AttrIndex kOrder = node.type().find("inputRotateOrder");
    static const AttrIndex kQuaternion = node.type().find("outputQuatX");
    static const AttrIndex kRotate = node.type().find("outputRotateX");
    static const AttrIndex kScale = node.type().find("outputScaleX");
    static const AttrIndex kShear = node.type().find("outputShearX");
    static const AttrIndex kTranslate = node.type().find("outputTranslateX");
    const MatrixPieces pieces = piecesOf(evaluation.matrix(node, address(kInput)));
    const Quatd quaternion = Imath::extractQuat(matrixOf(pieces.rotation));
    putTriple(evaluation, node, kTranslate, pieces.translate);
    putTriple(evaluation, node, kScale, pieces.scale);
    putTriple(evaluation, node, kShear, pieces.shear);
    putTriple(evaluation, node, kRotate,
              rotationAngles(pieces.rotation, rotateOrderOf(evaluation.number(node, kOrder))));
    putTriple(evaluation, node, kQuaternion, quaternion.v);
    evaluation.putNumber(node, address(kQuaternion + 3), quaternion.r);
}

void computePointMatrixMult(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const AttrIndex kPoint = node.type().find("inPointX");
    static const AttrIndex kMatrix = node.type().find("inMatrix");
    static const AttrIndex kAsVector = node.type().find("vectorMultiply");
    static const AttrIndex kOutput = node.type().find("outputX");
    const V3d point = readTriple(evaluation, node, kPoint);
    const Matrix44 matrix = evaluation.matrix(node, address(kMatrix));
    putTriple(evaluation, node, kOutput,
              evaluation.number(node, kAsVector) != 0.0 ? turned(point, matrix)
                                                        : turned(point, matrix) + originOf(matrix));
}

void computeVectorProduct(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const AttrIndex kOperation = node.type().find("operation");
    static const AttrIndex kInput1 = node.type().find("input1X");
    static const AttrIndex kInput2 = node.type().find("input2X");
    static const AttrIndex kMatrix = node.type().find("matrix");
    static const AttrIndex kNormalize = node.type().find("normalizeOutput");
    static const AttrIndex kOutput = node.type().find("outputX");
    const V3d first = readTriple(evaluation, node, kInput1);
    const V3d second = readTriple(evaluation, node, kInput2);
    const Matrix44 matrix = evaluation.matrix(node, address(kMatrix));
    const bool asUnit = evaluation.number(node, kNormalize) != 0.0;
    const double operation = evaluation.number(node, kOperation);
    V3d result = first;
    if (operation == 1.0) {
        result = V3d(asUnit ? unitOrZero(first).dot(unitOrZero(second)) : first.dot(second));
    } else if (operation == 2.0) {
        result = first.cross(second);
    } else if (operation == 3.0) {
        result = turned(first, matrix);
    } else if (operation == 4.0) {
        result = turned(first, matrix) + originOf(matrix);
    }
    putTriple(evaluation, node, kOutput, asUnit && operation != 1.0 ? unitOrZero(result) : result);
}

void computeDistanceBetween(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kPoint1 = node.type().find("point1X");
    static const AttrIndex kPoint2 = node.type().find("point2X");
    static const AttrIndex kMatrix1 = node.type().find("inMatrix1");
    static const AttrIndex kMatrix2 = node.type().find("inMatrix2");
    const auto place = [&](AttrIndex point, AttrIndex matrixAttr) {
        const Matrix44 matrix = evaluation.matrix(node, address(matrixAttr));
        return turned(readTriple(evaluation, node, point), matrix) + originOf(matrix);
    };
    evaluation.putNumber(node, output, (place(kPoint1, kMatrix1) - place(kPoint2, kMatrix2)).length());
}

void computeAngleBetween(Evaluation& evaluation, Node& node, const PlugAddress&) {
    static const AttrIndex kVector1 = node.type().find("vector1X");
    static const AttrIndex kVector2 = node.type().find("vector2X");
    static const AttrIndex kAngle = node.type().find("angle");
    static const AttrIndex kAxis = node.type().find("axisX");
    static const AttrIndex kEuler = node.type().find("eulerX");
    const V3d first = unitOrZero(readTriple(evaluation, node, kVector1));
    const V3d second = unitOrZero(readTriple(evaluation, node, kVector2));
    Quatd turn;
    if (first.length() > 0.0 && second.length() > 0.0) {
        turn.setRotation(first, second);
    }
    putTriple(evaluation, node, kAxis, unitOrZero(turn.v));
    evaluation.putNumber(node, address(kAngle), turn.angle());
    putTriple(evaluation, node, kEuler, rotationAngles(turn.toMatrix33(), RotateOrder::kXYZ));
}

void computePassMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    const AttrIndex scale = node.type().find("inScale"); // holdMatrix has none
    const Matrix44 matrix = evaluation.matrix(node, address(node.type().find("inMatrix")));
    evaluation.putMatrix(node, output, scale == kNoAttr ? matrix : matrix * evaluation.number(node, scale));
}

void computeFourByFourMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output) {
    static const AttrIndex kFirst = node.type().find("in00");
    Matrix44 matrix;
    for (AttrIndex number = 0; number < 16; ++number) {
        matrix[number / 4][number % 4] = evaluation.number(node, kFirst + number);
    }
    evaluation.putMatrix(node, output, matrix);
}

} // namespace host
