#pragma once

#include <vector>

namespace tvk {

/// Rewrites the XYZ angles of a node, frame by frame, as the ones that give the same rotation and lie nearest to those
/// of the frame before, by the sum of the absolute differences. Passes over all frames until nothing changes, eight at
/// the most. Angles that do not change at all stay as they are.
///   x, y, z   degrees, of equal length
void filterEuler(std::vector<float>& x, std::vector<float>& y, std::vector<float>& z);

/// Into [-180, 180).
float normalisedTurn(float degrees);
void normaliseTurns(std::vector<float>& degrees);

/// Moves a curve of continuous angles by whole turns when the middle between its extremes is beyond a turn; to the far
/// side of zero, as the console's other tools do: a middle of 400 goes to -320.
void recentre(std::vector<float>& degrees);

} // namespace tvk
