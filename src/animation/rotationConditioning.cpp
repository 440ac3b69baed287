#include "animation/rotationConditioning.h"

#include "animation/eulerCandidates.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tvk {
namespace {

constexpr int kMostPasses = 8;
constexpr float kTurn = 360.0F;

// Every other candidate is half a turn or more away in two angles, or a whole one in one of them: it is farther from
// the frame before than angles that are nearer to it than this, with room to spare for rounding.
constexpr double kSurelyNearest = 90.0;

using Angles = std::array<float, 3>;

bool varies(const std::vector<float>& track) {
    return std::any_of(track.begin(), track.end(), [&](float value) { return value != track.front(); });
}

double distance(const Angles& a, const Angles& b) {
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += std::abs(static_cast<double>(a[i]) - static_cast<double>(b[i]));
    }
    return sum;
}

Angles nearest(const Angles& angles, const Angles& previous) {
    Angles best = angles;
    double least = distance(angles, previous);
    if (least < kSurelyNearest) {
        return best;
    }
    for (const EulerCandidate& candidate : kEulerCandidates) {
        const Angles other{angles[0] + candidate.dx, (candidate.negatesY ? -angles[1] : angles[1]) + candidate.dy,
                           angles[2] + candidate.dz};
        const double found = distance(other, previous);
        if (found < least) {
            least = found;
            best = other;
        }
    }
    return best;
}

} // namespace

void filterEuler(std::vector<float>& x, std::vector<float>& y, std::vector<float>& z) {
    if (!varies(x) && !varies(y) && !varies(z)) {
        return;
    }
    bool changed = true;
    for (int pass = 0; pass < kMostPasses && changed; ++pass) {
        changed = false;
        for (std::size_t frame = 1; frame < x.size(); ++frame) {
            const Angles angles{x[frame], y[frame], z[frame]};
            const Angles best = nearest(angles, {x[frame - 1], y[frame - 1], z[frame - 1]});
            changed = changed || best != angles;
            x[frame] = best[0];
            y[frame] = best[1];
            z[frame] = best[2];
        }
    }
}

float normalisedTurn(float degrees) {
    const float turns = std::trunc(degrees / kTurn);
    float result = degrees >= 0.0F ? degrees - kTurn * turns : degrees + kTurn * (1.0F - turns);
    if (result >= kTurn / 2) {
        result -= kTurn;
    }
    return result;
}

void normaliseTurns(std::vector<float>& degrees) {
    std::transform(degrees.begin(), degrees.end(), degrees.begin(), normalisedTurn);
}

void recentre(std::vector<float>& degrees) {
    if (degrees.empty()) {
        return;
    }
    const auto [lowest, highest] = std::minmax_element(degrees.begin(), degrees.end());
    const float middle = (*highest + *lowest) / 2;
    if (!(std::abs(middle) > kTurn)) {
        return;
    }
    const float turns = std::trunc(middle / kTurn);
    const float shift = (turns < 1.0F ? turns - 1.0F : turns + 1.0F) * kTurn;
    for (float& value : degrees) {
        value -= shift;
    }
}

} // namespace tvk
