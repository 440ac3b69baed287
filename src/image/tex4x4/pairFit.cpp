#include "image/tex4x4/pairFit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tvk {
namespace {

constexpr float kNothing = std::numeric_limits<float>::max();

// How far each place lies on the way from the first colour to the second.
constexpr std::array<float, kPairPlaces> kWays{0, 1, Tex4x4Colors::kShares[0], Tex4x4Colors::kShares[1],
                                               Tex4x4Colors::kShares[2]};

// Levels that are tried around a guess, in each direction: mixes are cut off, which moves the best pair upwards.
constexpr int kReach = 2;

struct LevelGuess {
    int first = 0, second = 0;
};

// The sums of least squares that all channels share.
struct Normals {
    float firstFirst = 0, firstSecond = 0, secondSecond = 0;

    explicit Normals(const PairSums& sums) {
        for (size_t p = 0; p < kPairPlaces; ++p) {
            const float weight = sums.places[p].weight, way = kWays[p];
            firstFirst += weight * (1 - way) * (1 - way);
            firstSecond += weight * (1 - way) * way;
            secondSecond += weight * way * way;
        }
    }
    float determinant() const { return firstFirst * secondSecond - firstSecond * firstSecond; }
    bool isSolvable() const {
        constexpr float kSmall = 1e-5F;
        const float all = firstFirst + secondSecond;
        return determinant() > kSmall * all * all;
    }
};

int clampedLevel(float component) {
    const float level = component * (Tex4x4Colors::kLevels - 1) / 255.0F;
    return static_cast<int>(std::lround(std::clamp(level, 0.0F, Tex4x4Colors::kLevels - 1.0F)));
}

LevelGuess solved(const Normals& normals, const PairSums& sums, size_t channel) {
    float first = 0, second = 0;
    for (size_t p = 0; p < kPairPlaces; ++p) {
        first += (1 - kWays[p]) * sums.places[p].values[channel];
        second += kWays[p] * sums.places[p].values[channel];
    }
    const float determinant = normals.determinant();
    return {clampedLevel((first * normals.secondSecond - second * normals.firstSecond) / determinant),
            clampedLevel((second * normals.firstFirst - first * normals.firstSecond) / determinant)};
}

// Texels at one place only tell nothing about the other end.
LevelGuess guessed(const Tex4x4Colors& colors, const PairSums& sums, size_t channel, LevelGuess guess) {
    const auto meanLevel = [&](const PlaceSums& place, int otherwise) {
        return place.weight > 0 ? colors.nearestLevel(place.values[channel] / place.weight) : otherwise;
    };
    return {meanLevel(sums.places[0], guess.first), meanLevel(sums.places[1], guess.second)};
}

float placeError(const PlaceSums& place, size_t channel, float value) {
    return (place.weight * value - 2 * place.values[channel]) * value; // and a constant
}

// The levels near a guess, and the error of the texels at the end of the pair that they would be.
struct LevelRange {
    static constexpr int kTop = Tex4x4Colors::kLevels - 1;

    int lowest, highest;
    std::array<float, 2 * kReach + 1> errors{};

    LevelRange(const Tex4x4Colors& colors, const PlaceSums& place, size_t channel, int guess)
        : lowest(std::max(0, guess - kReach)), highest(std::min(kTop, guess + kReach)) {
        for (int level = lowest; level <= highest; ++level) {
            errors[static_cast<size_t>(level - lowest)] = placeError(place, channel, colors.shown(level));
        }
    }
    float error(int level) const { return errors[static_cast<size_t>(level - lowest)]; }
};

// The mixed colours' part of a channel's error. A pair has one mode, or two at the most.
class MixErrors {
public:
    MixErrors(const Tex4x4Colors& tex4x4Colors, const PairSums& pairSums) : colors(tex4x4Colors), sums(pairSums) {
        for (size_t mix = 0; mix < Tex4x4Colors::kMixes; ++mix) {
            if (sums.places[2 + mix].weight > 0) {
                used[count++] = mix;
            }
        }
    }
    float of(size_t channel, int first, int second) const {
        float error = 0;
        for (size_t i = 0; i < count; ++i) {
            error += placeError(sums.places[2 + used[i]], channel, colors.mixed(used[i], first, second));
        }
        return error;
    }

private:
    const Tex4x4Colors& colors;
    const PairSums& sums;
    std::array<size_t, Tex4x4Colors::kMixes> used{};
    size_t count = 0;
};

void searchLevels(const Tex4x4Colors& colors, const PairSums& sums, const MixErrors& mixes, size_t channel,
                  LevelGuess guess, ColorPair& pair) {
    uint8_t &bestFirst = pair.first[channel], &bestSecond = pair.second[channel];
    float least = placeError(sums.places[0], channel, colors.shown(bestFirst)) +
                  placeError(sums.places[1], channel, colors.shown(bestSecond)) +
                  mixes.of(channel, bestFirst, bestSecond);
    const LevelRange firsts(colors, sums.places[0], channel, guess.first);
    const LevelRange seconds(colors, sums.places[1], channel, guess.second);
    for (int first = firsts.lowest; first <= firsts.highest; ++first) {
        for (int second = seconds.lowest; second <= seconds.highest; ++second) {
            const float error = firsts.error(first) + seconds.error(second) + mixes.of(channel, first, second);
            if (error < least) {
                least = error;
                bestFirst = static_cast<uint8_t>(first);
                bestSecond = static_cast<uint8_t>(second);
            }
        }
    }
}

// A pair in one mode on its way to its texels.
struct Candidate {
    ColorPair pair;
    Tex4x4Mode mode = Tex4x4Mode::kPair;
    float error = kNothing;
};

// Texels to places, pair to texels, and so on as long as it helps.
void alternate(const Tex4x4Colors& colors, TexelView texels, Candidate& best) {
    constexpr int kRounds = 8;
    std::array<uint8_t, kMostTexels> indices{};
    ColorPair pair = best.pair;
    for (int round = 0; round < kRounds; ++round) {
        const float error = assignTexels(texels, colors.pairPalette(best.mode, pair), indices.data());
        if (error >= best.error) {
            return;
        }
        best.error = error;
        best.pair = pair;
        PairSums sums;
        for (size_t i = 0; i < texels.count; ++i) {
            sums.add(placeOf(best.mode, indices[i]), texels.weights[i], texels.channels[0][i], texels.channels[1][i],
                     texels.channels[2][i]);
        }
        refitPair(colors, sums, pair);
    }
}

struct Step {
    int first, second;
};

constexpr std::array<Step, 8> kSteps{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {-1, -1}, {1, -1}, {-1, 1}}};

bool takeStep(const Tex4x4Colors& colors, TexelView texels, size_t channel, const Step& step, Candidate& best) {
    const int first = best.pair.first[channel] + step.first, second = best.pair.second[channel] + step.second;
    if (std::min(first, second) < 0 || std::max(first, second) >= Tex4x4Colors::kLevels) {
        return false;
    }
    ColorPair moved = best.pair;
    moved.first[channel] = static_cast<uint8_t>(first);
    moved.second[channel] = static_cast<uint8_t>(second);
    const float error = paletteError(texels, colors.pairPalette(best.mode, moved));
    if (error >= best.error) {
        return false;
    }
    best.pair = moved;
    best.error = error;
    return true;
}

// Steps of single levels, texels free to change their places, until none helps.
void walk(const Tex4x4Colors& colors, TexelView texels, Candidate& best) {
    constexpr int kRounds = 4;
    bool moved = true;
    for (int round = 0; moved && round < kRounds; ++round) {
        moved = false;
        for (size_t channel = 0; channel < 3; ++channel) {
            for (const Step& step : kSteps) {
                moved = takeStep(colors, texels, channel, step, best) || moved;
            }
        }
    }
}

// Ends of the axis, drawn in or out: outliers pull the first, and mixes of ends far out fall between levels.
constexpr std::array<float, 3> kStretches{1.0F, 0.75F, 1.5F};

Levels pointOn(const Tex4x4Colors& colors, const TexelAxis& axis, float along) {
    return colors.nearestLevels(axis.mean[0] + along * axis.direction[0], axis.mean[1] + along * axis.direction[1],
                                axis.mean[2] + along * axis.direction[2]);
}

Candidate startAt(const Tex4x4Colors& colors, TexelView texels, const TexelAxis& axis, Tex4x4Mode mode, float stretch) {
    Candidate candidate;
    candidate.mode = mode;
    candidate.pair = {pointOn(colors, axis, axis.lowest * stretch), pointOn(colors, axis, axis.highest * stretch)};
    alternate(colors, texels, candidate);
    return candidate;
}

Candidate fitMode(const Tex4x4Colors& colors, TexelView texels, const TexelAxis& axis, Tex4x4Mode mode) {
    constexpr float kHopeless = 2; // times the best error: a walk does not make up for that
    std::array<Candidate, kStretches.size()> candidates;
    float least = kNothing;
    for (size_t i = 0; i < candidates.size(); ++i) {
        candidates[i] = startAt(colors, texels, axis, mode, kStretches[i]);
        least = std::min(least, candidates[i].error);
    }
    Candidate best;
    for (Candidate& candidate : candidates) {
        if (candidate.error <= least * kHopeless) {
            walk(colors, texels, candidate);
            best = candidate.error < best.error ? candidate : best;
        }
    }
    return best;
}

// The different colours of the console that the texels are nearest to, as far as a pair can hold them.
struct FewLevels {
    ColorPair pair;
    size_t colors = 0, levels = 0; // different colours of the texels; of the console, up to 3

    FewLevels(const Tex4x4Colors& console, TexelView texels) {
        for (size_t i = 0; i < texels.count; ++i) {
            if (texels.weights[i] > 0) {
                add(console.nearestLevels(texels.channels[0][i], texels.channels[1][i], texels.channels[2][i]));
            }
        }
    }

private:
    void add(const Levels& color) {
        ++colors;
        const bool isKnown = (levels > 0 && color == pair.first) || (levels > 1 && color == pair.second);
        if (isKnown || levels > 2) {
            return;
        }
        pair.first = levels == 0 ? color : pair.first;
        pair.second = levels < 2 ? color : pair.second;
        ++levels;
    }
};

} // namespace

void PairSums::add(size_t place, float weight, float red, float green, float blue) {
    PlaceSums& sums = places[place];
    sums.weight += weight;
    sums.values[0] += weight * red;
    sums.values[1] += weight * green;
    sums.values[2] += weight * blue;
}

void refitPair(const Tex4x4Colors& colors, const PairSums& sums, ColorPair& pair) {
    const Normals normals(sums);
    const MixErrors mixes(colors, sums);
    for (size_t channel = 0; channel < 3; ++channel) {
        const LevelGuess now{pair.first[channel], pair.second[channel]};
        const LevelGuess guess =
            normals.isSolvable() ? solved(normals, sums, channel) : guessed(colors, sums, channel, now);
        searchLevels(colors, sums, mixes, channel, guess, pair);
    }
}

float pairError(const Tex4x4Colors& colors, TexelView texels, bool hasHoles, const ColorPair& pair, Tex4x4Mode& mode) {
    const float withHoles = paletteError(texels, colors.pairPalette(Tex4x4Mode::kPairAndHole, pair));
    const float without = hasHoles ? kNothing : paletteError(texels, colors.pairPalette(Tex4x4Mode::kPair, pair));
    mode = without <= withHoles ? Tex4x4Mode::kPair : Tex4x4Mode::kPairAndHole;
    return std::min(without, withHoles);
}

PairFit fitPair(const Tex4x4Colors& colors, TexelView texels, bool hasHoles, PairEffort effort) {
    const FewLevels few(colors, texels);
    Candidate best;
    if (few.levels <= 2) {
        best.pair = few.pair;
        best.error = paletteError(texels, colors.pairPalette(Tex4x4Mode::kPairAndHole, few.pair));
    }
    if (few.colors <= 2) {
        return {best.pair, best.error};
    }
    const TexelAxis axis = findAxis(texels);
    for (const Tex4x4Mode mode : {Tex4x4Mode::kPair, Tex4x4Mode::kPairAndHole}) {
        if (hasHoles && mode == Tex4x4Mode::kPair) {
            continue;
        }
        const Candidate candidate = effort == PairEffort::kQuick
                                        ? startAt(colors, texels, axis, mode, kStretches.front())
                                        : fitMode(colors, texels, axis, mode);
        best = candidate.error < best.error ? candidate : best;
    }
    return {best.pair, best.error};
}

} // namespace tvk
