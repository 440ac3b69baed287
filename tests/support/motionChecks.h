#pragma once

#include "HostSession.h"

#include <string>

namespace tvk {

/// Linear keys on a plug of a node in a scene's text; the kind of the curve is that of the attribute: angles, lengths
/// or plain numbers.
///   plug   NODE.rx, NODE.ty, NODE.sx, NODE.v …
///   keys   "frame value frame value …", angles in degrees
std::string keyed(const std::string& plug, const std::string& keys);

/// Plays the session's model.imd with its model.ica and gives a test failure for every node whose world matrix differs
/// from the host's at some frame of the range.
///   tolerance   for matrix elements; grows with the node's distance from the origin where that is above 1
/// The host's time is changed. Nodes that the scene does not have by their written name are skipped; returns how many
/// were compared.
int expectMovesAsInTheHost(HostSession& session, double tolerance = 0.004, double magnify = 1.0);

} // namespace tvk
