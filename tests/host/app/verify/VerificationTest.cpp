#include "host/app/verify/Verification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace host::app::verify {
namespace {

TEST(Verification, KeepsTheFirstFindingsAndCountsAll) {
    Verification result;
    EXPECT_TRUE(result.isGood());
    for (int i = 0; i < 100; ++i) {
        result.find(std::to_string(i));
    }
    EXPECT_FALSE(result.isGood());
    EXPECT_EQ(result.findings().size(), Verification::kToldFindings);
    EXPECT_EQ(result.findingCount(), 100U);
}

TEST(Verification, FindsErrorsAboveWhatIsAllowed) {
    Verification result;
    result.check(Part::kPositions, 0.5, 0.5, "a");
    EXPECT_TRUE(result.isGood());
    result.check(Part::kPositions, 0.75, 0.5, "a");
    EXPECT_THAT(result.findings(), testing::ElementsAre("a is off by 0.750000, allowed are 0.500000"));
    result.check(Part::kPositions, std::nan(""), 0.5, "b");
    EXPECT_EQ(result.findings().back(), "b is off by no number, allowed are 0.500000");
    EXPECT_EQ(result.of(Part::kPositions).compared, 3U);
}

TEST(Verification, TableNamesWhatWasNotWrittenAndNotCompared) {
    Verification result;
    result.measure(Part::kVisibility, 0.0, 12);
    result.note("the moon");
    result.note("the moon");
    EXPECT_EQ(verificationText(result, {"iva", "ita"}), "  imd  not written, not compared\n"
                                                        "  ica  not written, not compared\n"
                                                        "  ima  not written, not compared\n"
                                                        "  itp  not written, not compared\n"
                                                        "  iva  visibilities               12  equal\n"
                                                        "  ita  texture placements          0  nothing there\n"
                                                        "  Not compared: the moon");
}

} // namespace
} // namespace host::app::verify
