#pragma once

#include "host/graph/NodeType.h"

namespace host {

/// animLayer: the weights that its blend nodes take. Muted, below a muted layer, or not alone while another is, a layer
/// gives its own animation (foregroundWeight) 0, else its weight times its parent's. An override layer takes from the
/// animation below (backgroundWeight) what it gives to its own, or without passthrough all of it; others leave it 1.
void computeAnimLayer(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Blend nodes of numbers: weightA * inputA + weightB * inputB.
void computeLayeredNumber(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Of what cannot be mixed: inputB from a weightB of a half on, else inputA.
void computeLayeredChoice(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Of scales: by accumulationMode 0 inputA ^ weightA * inputB ^ weightB, by 1 the weighted sum. A factor that no power
/// can be taken of (0 or below) counts as a whole.
void computeLayeredScale(Evaluation& evaluation, Node& node, const PlugAddress& output);

/// Of rotations, in the node's rotateOrder: by accumulationMode 0 angle by angle, by 1 as whole turns: that of inputB
/// comes first, then that of inputA, each as far as its weight says; with weights that add up to 1, the turn that lies
/// between the two.
void computeLayeredRotation(Evaluation& evaluation, Node& node, const PlugAddress& output);

} // namespace host
