#include "host/nodes/rotationAverage.h"

#include "host/nodes/matrixPieces.h"

#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>

namespace host {

namespace {

using Imath::M33d;
using Imath::Quatd;

Quatd quaternionOf(const M33d& rotation) {
    return Imath::extractQuat(matrixOf(rotation));
}

double dot(const Quatd& a, const Quatd& b) {
    return a.r * b.r + a.v.dot(b.v);
}

M33d weightedMean(const std::vector<WeightedRotation>& rotations) {
    const Quatd first = quaternionOf(rotations.front().rotation);
    Quatd sum(0, 0, 0, 0);
    for (const WeightedRotation& each : rotations) {
        const Quatd quaternion = quaternionOf(each.rotation);
        sum += quaternion * (dot(first, quaternion) < 0.0 ? -each.weight : each.weight);
    }
    return sum.length() > 0.0 ? sum.normalized().toMatrix33() : rotations.front().rotation;
}

M33d alongArcs(const std::vector<WeightedRotation>& rotations, bool shortest) {
    Quatd mean = quaternionOf(rotations.front().rotation);
    double total = rotations.front().weight;
    for (std::size_t i = 1; i < rotations.size(); ++i) {
        Quatd next = quaternionOf(rotations[i].rotation);
        if ((dot(mean, next) < 0.0) == shortest) {
            next = -next;
        }
        total += rotations[i].weight;
        if (total != 0.0) {
            mean = Imath::slerp(mean, next, rotations[i].weight / total).normalized();
        }
    }
    return mean.toMatrix33();
}

} // namespace

RotationMixing rotationMixingOf(double number) {
    return number >= 0.0 && number <= 4.0 ? static_cast<RotationMixing>(static_cast<int>(number))
                                          : RotationMixing::kAverage;
}

M33d averageRotation(const std::vector<WeightedRotation>& rotations, RotationMixing mixing) {
    if (rotations.empty()) {
        return {};
    }
    if (rotations.size() == 1) {
        return rotations.front().rotation;
    }
    if (mixing == RotationMixing::kShortest || mixing == RotationMixing::kLongest) {
        return alongArcs(rotations, mixing == RotationMixing::kShortest);
    }
    return weightedMean(rotations);
}

} // namespace host
