// Real scenes against the values that the real host evaluated for them.

#include "RecordedScene.h"
#include "valueChecks.h"

#include "HostSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tvk {
namespace {

// Recorded values that need more than this version evaluates. A line whose values all come out right is an error, so
// that the list can only shrink. An empty subject stands for all of that kind.
struct Waiting {
    const char* scene;
    const char* what;
    const char* subject;
    const char* reason;
};

constexpr Waiting kWaiting[] = {};

const Waiting* waitingFor(const std::string& scene, const nlohmann::json& check) {
    const auto* const found = std::find_if(std::begin(kWaiting), std::end(kWaiting), [&](const Waiting& row) {
        return row.scene == scene && check["what"] == row.what &&
               (*row.subject == '\0' || subjectOf(check) == row.subject);
    });
    return found == std::end(kWaiting) ? nullptr : found;
}

std::string describe(const nlohmann::json& check) {
    const std::string time = check.contains("time") ? " at " + check["time"].dump() : "";
    return check["what"].get<std::string>() + " " + subjectOf(check) + time;
}

class RecordedValues : public testing::TestWithParam<RecordedScene> {};

TEST_P(RecordedValues, AreWhatTheHostEvaluates) {
    const RecordedScene& scene = GetParam();
    HostSession session;
    ASSERT_TRUE(session.melRuns("file -f -o \"" + scene.path + "\""));
    for (const nlohmann::json& check : scene.checks) {
        if (isValueCheck(check) && waitingFor(scene.name, check) == nullptr) {
            EXPECT_EQ(differenceFrom(check), "") << describe(check);
        }
    }
}

TEST_P(RecordedValues, WaitOnlyWhereTheyDiffer) {
    const RecordedScene& scene = GetParam();
    HostSession session;
    ASSERT_TRUE(session.melRuns("file -f -o \"" + scene.path + "\""));
    for (const Waiting& row : kWaiting) {
        if (row.scene != scene.name) {
            continue;
        }
        const bool differs = std::any_of(scene.checks.begin(), scene.checks.end(), [&](const nlohmann::json& check) {
            return waitingFor(scene.name, check) == &row && !differenceFrom(check).empty();
        });
        EXPECT_TRUE(differs) << row.what << " " << row.subject << " no longer needs to wait: " << row.reason;
    }
}

TEST(RealScene, TellsWhichNodesThatMoveThingsAreNotEvaluated) {
    HostSession session;
    ASSERT_TRUE(session.melRuns("file -f -o \"" TVK_SCENES "/trax-character/ComplexAnim1.ma\""));
    EXPECT_THAT(session.warnings, testing::Contains("node type 'clipScheduler' is not supported: "
                                                    "character.character_setScheduler1 keeps its stored values"));
}

INSTANTIATE_TEST_SUITE_P(Corpus, RecordedValues, testing::ValuesIn(recordedScenes()), testName);

} // namespace
} // namespace tvk
