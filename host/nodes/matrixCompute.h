#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// multMatrix: the product of all elements, the first applied first.
void computeMultMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// addMatrix: the sum of all elements.
void computeAddMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// wtAddMatrix: the sum of all elements by their weights.
void computeWtAddMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// inverseMatrix and transposeMatrix. The inverse of a matrix without one is the identity.
void computeInverseMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
void computeTransposeMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// composeMatrix: scale, shear, rotation (by angles, or by the quaternion) and translation as one matrix.
void computeComposeMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// decomposeMatrix: the pieces again; the angles are for inputRotateOrder.
void computeDecomposeMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// pointMatrixMult: inPoint by inMatrix; with vectorMultiply without its translation.
void computePointMatrixMult(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// vectorProduct: dot product (in all components), cross product, or input1 by the matrix as a vector or point.
void computeVectorProduct(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// distanceBetween: between the two points, each by its matrix.
void computeDistanceBetween(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// angleBetween: angle, axis and angles of the shortest rotation from vector1 to vector2.
void computeAngleBetween(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// holdMatrix: its input. passMatrix: its input times inScale, number by number.
void computePassMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// fourByFourMatrix: the matrix of its 16 numbers, row by row.
void computeFourByFourMatrix(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
