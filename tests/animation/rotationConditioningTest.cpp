#include "animation/rotationConditioning.h"

#include "animation/eulerCandidates.h"

#include <ImathEuler.h>
#include <ImathMatrix.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace tvk {
namespace {

using Track = std::vector<float>;

Imath::M33d rotationOf(double x, double y, double z) {
    constexpr double kRadians = 3.14159265358979323846 / 180.0;
    return Imath::Eulerd(x * kRadians, y * kRadians, z * kRadians).toMatrix33();
}

TEST(EulerCandidates, GiveTheSameRotation) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> angle(-300, 300);
    for (const EulerCandidate& candidate : kEulerCandidates) {
        const double x = angle(random);
        const double y = angle(random);
        const double z = angle(random);
        const Imath::M33d same =
            rotationOf(x + candidate.dx, (candidate.negatesY ? -y : y) + candidate.dy, z + candidate.dz);
        EXPECT_TRUE(same.equalWithAbsError(rotationOf(x, y, z), 1e-9))
            << candidate.dx << ' ' << candidate.dy << ' ' << candidate.dz;
    }
}

TEST(EulerCandidates, RepeatSomeAndTurnZTwiceOnce) {
    const auto same = [](std::size_t a, std::size_t b) {
        const EulerCandidate& first = kEulerCandidates.at(a);
        const EulerCandidate& second = kEulerCandidates.at(b);
        return first.dx == second.dx && first.dy == second.dy && first.dz == second.dz;
    };
    EXPECT_TRUE(same(4, 65));
    EXPECT_TRUE(same(31, 43));
    EXPECT_TRUE(same(51, 53));
    EXPECT_EQ(kEulerCandidates.at(54).dx, 360);
    EXPECT_EQ(kEulerCandidates.at(54).dz, 720);
}

TEST(EulerFilter, TakesFlipsOut) {
    Track x{0, 180, 0};
    Track y{80, 85, 80};
    Track z{0, 180, 0};
    filterEuler(x, y, z);
    EXPECT_EQ(x, (Track{0, 0, 0}));
    EXPECT_EQ(y, (Track{80, 95, 80}));
    EXPECT_EQ(z, (Track{0, 0, 0}));
}

TEST(EulerFilter, FollowsTurnsBeyondHalfATurn) {
    Track x{0, 0, 0, 0};
    Track y{0, 0, 0, 0};
    Track z{170, -170, -150, 100};
    filterEuler(x, y, z);
    EXPECT_EQ(z, (Track{170, 190, 210, 100}));
}

TEST(EulerFilter, LeavesAnglesThatDoNotChange) {
    Track x{500, 500};
    Track y{0, 0};
    Track z{-900, -900};
    filterEuler(x, y, z);
    EXPECT_EQ(x, (Track{500, 500}));
    EXPECT_EQ(z, (Track{-900, -900}));
}

TEST(EulerFilter, KeepsTheEarlierCandidateOnTies) {
    // 180 lies as far from 0 as -180 does.
    Track x{0, 180};
    Track y{0, 0};
    Track z{0, 0};
    filterEuler(x, y, z);
    EXPECT_EQ(x[1], 180);
}

TEST(EulerFilter, TakesOneTurnAPassAndEightPassesAtTheMost) {
    Track x{0, 360.0F * 12};
    Track y{0, 0};
    Track z{0, 0};
    filterEuler(x, y, z);
    EXPECT_EQ(x[1], 360.0F * 4);
}

// The definition: every candidate is tried at every frame.
void filterLiterally(Track& x, Track& y, Track& z) {
    bool changed = true;
    for (int pass = 0; pass < 8 && changed; ++pass) {
        changed = false;
        for (std::size_t f = 1; f < x.size(); ++f) {
            std::array<float, 3> best{x[f], y[f], z[f]};
            double least = std::numeric_limits<double>::infinity();
            for (const EulerCandidate& candidate : kEulerCandidates) {
                const std::array<float, 3> tried{
                    x[f] + candidate.dx, (candidate.negatesY ? -y[f] : y[f]) + candidate.dy, z[f] + candidate.dz};
                const double sum = std::abs(static_cast<double>(tried[0]) - static_cast<double>(x[f - 1])) +
                                   std::abs(static_cast<double>(tried[1]) - static_cast<double>(y[f - 1])) +
                                   std::abs(static_cast<double>(tried[2]) - static_cast<double>(z[f - 1]));
                if (sum < least) {
                    least = sum;
                    best = tried;
                }
            }
            changed = changed || best != std::array<float, 3>{x[f], y[f], z[f]};
            x[f] = best[0];
            y[f] = best[1];
            z[f] = best[2];
        }
    }
}

TEST(EulerFilter, DoesAsTryingEveryCandidateDoes) {
    std::mt19937 random(3);
    std::uniform_real_distribution<float> any(-900.0F, 900.0F);
    std::uniform_real_distribution<float> small(-70.0F, 70.0F);
    for (int round = 0; round < 2000; ++round) {
        std::array<Track, 3> tracks;
        for (Track& track : tracks) {
            track.push_back(any(random));
            for (int f = 1; f < 12; ++f) {
                track.push_back(random() % 3 == 0 ? any(random) : track.back() + small(random));
            }
        }
        std::array<Track, 3> literal = tracks;
        filterEuler(tracks[0], tracks[1], tracks[2]);
        filterLiterally(literal[0], literal[1], literal[2]);
        ASSERT_EQ(tracks, literal) << round;
    }
}

TEST(EulerFilter, OfNoFramesIsNothing) {
    Track none;
    filterEuler(none, none, none);
    EXPECT_TRUE(none.empty());
}

struct TurnCase {
    float degrees, normalised;
};

class NormalisedTurn : public testing::TestWithParam<TurnCase> {};

TEST_P(NormalisedTurn, LiesFromMinus180ToBelow180) {
    EXPECT_EQ(normalisedTurn(GetParam().degrees), GetParam().normalised);
}

INSTANTIATE_TEST_SUITE_P(Turns, NormalisedTurn,
                         testing::Values(TurnCase{0, 0}, TurnCase{179, 179}, TurnCase{180, -180}, TurnCase{190, -170},
                                         TurnCase{-180, -180}, TurnCase{-181, 179}, TurnCase{360, 0}, TurnCase{-360, 0},
                                         TurnCase{720, 0}, TurnCase{-725, -5}, TurnCase{545, -175}));

struct CentreCase {
    Track track, moved;
};

class Recentred : public testing::TestWithParam<CentreCase> {};

TEST_P(Recentred, MovesByWholeTurns) {
    Track track = GetParam().track;
    recentre(track);
    EXPECT_EQ(track, GetParam().moved);
}

INSTANTIATE_TEST_SUITE_P(Middles, Recentred,
                         testing::Values(CentreCase{{0, 720}, {0, 720}},       // a middle of 360 stays
                                         CentreCase{{300, 500}, {-420, -220}}, // 400 goes to -320
                                         CentreCase{{-300, -500}, {420, 220}}, // and -400 to 320
                                         CentreCase{{900}, {-180}}, CentreCase{{-360}, {-360}}, CentreCase{{}, {}}));

} // namespace
} // namespace tvk
