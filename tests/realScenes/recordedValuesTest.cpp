// Real scenes against the values that the real host evaluated for them.

#include "RecordedScene.h"
#include "valueChecks.h"

#include "HostSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace tvk {
namespace {

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
        if (isValueCheck(check)) {
            EXPECT_EQ(differenceFrom(check), "") << describe(check);
        }
    }
}

TEST(RealScene, HasNothingToTellOfClipsThatAreNotOnTheTimeline) {
    HostSession session;
    ASSERT_TRUE(session.melRuns("file -f -o \"" TVK_SCENES "/trax-character/ComplexAnim1.ma\""));
    EXPECT_THAT(session.warnings, testing::Each(testing::Not(testing::HasSubstr("lip"))));
}

INSTANTIATE_TEST_SUITE_P(Corpus, RecordedValues, testing::ValuesIn(recordedScenes()), testName);

} // namespace
} // namespace tvk
