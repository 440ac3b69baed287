#include "scene/xmlText.h"

#include "FreshRun.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace tvk {
namespace {

TEST(XmlText, AttributesFollowABlankAndAreQuoted) {
    const FreshRun fresh;
    std::ostringstream out;
    writeAttribute(out, "name", "a b");
    writeAttribute(out, "size", 12);
    writeAttribute(out, "index", -1);
    EXPECT_EQ(out.str(), " name=\"a b\" size=\"12\" index=\"-1\"");
}

TEST(XmlText, AttributeLinesAreIndented) {
    const FreshRun fresh;
    std::ostringstream out;
    writeAttributeLine(out, 1, "name", "a");
    writeAttributeLine(out, 2, "parent", -1);
    EXPECT_EQ(out.str(), "\tname=\"a\"\n\t\tparent=\"-1\"\n");
}

TEST(XmlText, ValuesAreNotEscaped) {
    const FreshRun fresh;
    std::ostringstream out;
    writeAttribute(out, "source", "a&b<c>'d");
    EXPECT_EQ(out.str(), " source=\"a&b<c>'d\"");
}

TEST(XmlText, TextBecomesShiftJis) {
    const FreshRun fresh;
    std::ostringstream out;
    writeAttribute(out, "name", "\xE3\x82\xBD\xE8\xA1\xA8");
    writeAttributeLine(out, 0, "again", "\x83\x5C"); // is Shift_JIS already
    EXPECT_EQ(out.str(), " name=\"\x83\x5C\x95\x5C\"again=\"\x83\x5C\"\n");
    EXPECT_FALSE(takeLossyText());
}

TEST(XmlText, LossIsRememberedUntilItIsTaken) {
    const FreshRun fresh;
    std::ostringstream out;
    writeAttribute(out, "user", "J\xC3\xBCrgen");
    EXPECT_EQ(out.str(), " user=\"J?rgen\"");
    writeAttribute(out, "host", "plain");
    EXPECT_TRUE(takeLossyText());
    EXPECT_FALSE(takeLossyText());
    writeAttributeLine(out, 0, "name", "\xC3\xBC");
    EXPECT_TRUE(takeLossyText());
}

TEST(XmlText, VectorsAreRoundedToSteps) {
    const FreshRun fresh;
    EXPECT_EQ(fixedVectorText({0.1, -0.1, 1.0}), "0.100098 -0.100098 1.000000");
    EXPECT_EQ(fixedVectorText({-0.0, -1e-9, 0.0}), "0.000000 0.000000 0.000000");
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(fixedVectorText({std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity}),
              "0.000000 524287.999756 -524288.000000");
}

TEST(XmlText, RawVectorsAreTheStepsThemselves) {
    const FreshRun fresh;
    run().options.rawValues = true;
    EXPECT_EQ(fixedVectorText({0.1, -0.1, 1.0}), "410 -410 4096");
}

TEST(XmlText, TracksReferToTheirPool) {
    const FreshRun fresh;
    AnimTrack track;
    track.frameStep = 2;
    track.dataSize = 7;
    track.dataHead = 30;
    std::ostringstream out;
    writeTrackAttributes(out, track);
    EXPECT_EQ(out.str(), "frame_step=\"2\" data_size=\"7\" data_head=\"30\"");
}

TEST(XmlText, SwitchesAreWords) {
    EXPECT_STREQ(onOff(true), "on");
    EXPECT_STREQ(onOff(false), "off");
}

} // namespace
} // namespace tvk
