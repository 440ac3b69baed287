#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// Constraints: what the held node's channels must be so that it follows the weighted mean of the targets, in the space
/// of its parent. Without targets that count the rest values (with enableRestPosition), else what the driven channels
/// store. All also compute the matrices that transforms have.

/// constraintTranslate: the held rotate pivot at the targets' pivots, plus the offset.
void computePointConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// constraintTranslate: from the chain's start (constraintRotatePivot within pivotSpace) to the targets.
void computePoleVectorConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// constraintRotate: as the targets are turned, after the offset.
void computeOrientConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// constraintTranslate and constraintRotate: as if the held node were a child of the targets; scales do not pass on.
void computeParentConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// constraintScale: the geometric mean of the targets' scales in the world, times the offset.
void computeScaleConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output);
/// constraintRotate: aimVector towards the targets, upVector as near to the world's up as that allows. Without a
/// direction for up, the shortest turn.
void computeAimConstraint(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Fills which attribute of a constraint type changes what.
void fillConstraintAffects(NodeType& type);

} // namespace host
