#include "host/api/FeedbackLine.h"

#include "HostTest.h"

#include <maya/MFeedbackLine.h>

#include <cmath>

namespace host {
namespace {

struct FormatRow {
    const char* format;
    const char* text; // with the values 12.5 and 0.125
};

class FeedbackFormatTest : public testing::TestWithParam<FormatRow> {};

TEST_P(FeedbackFormatTest, fillsItsSlots) {
    FeedbackLine line;
    line.setFormat(GetParam().format);
    line.setValue(0, 12.5);
    line.setValue(1, 0.125);
    EXPECT_EQ(line.text(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Formats, FeedbackFormatTest,
                         testing::Values(FormatRow{"plain", "plain"}, FormatRow{"", ""},
                                         FormatRow{"[^6.3f]", "[12.500]"}, FormatRow{"[^8.1f]", "[    12.5]"},
                                         FormatRow{"^2.1f/^2.3f", "12.5/0.125"}, FormatRow{"^f", "12"},
                                         FormatRow{"^.2f", "12.50"}, FormatRow{"^4.0f^4.0f^4.0f", "  12   0    "},
                                         FormatRow{"5% ^ done", "5% ^ done"}, FormatRow{"^6.3d", "^6.3d"},
                                         FormatRow{"^", "^"}, FormatRow{"^999.1f", "^999.1f"}, FormatRow{"^6.", "^6."},
                                         FormatRow{"^^2.1f", "^12.5"}));

class MFeedbackLineTest : public HostTest {
protected:
    MFeedbackLineTest() {
        line.clear();
        line.setShown(false);
        line.onChange = [this] { ++changes; };
    }
    ~MFeedbackLineTest() override { line.onChange = nullptr; }

    FeedbackLine& line = host.feedbackLine();
    int changes = 0;
};

TEST_F(MFeedbackLineTest, whatPluginsSayReachesTheProgram) {
    EXPECT_FALSE(MFeedbackLine::showFeedback());
    EXPECT_EQ(MFeedbackLine::setShowFeedback(true), MStatus::kSuccess);
    EXPECT_EQ(MFeedbackLine::setTitle("title"), MStatus::kSuccess);
    EXPECT_EQ(MFeedbackLine::setFormat("frame ^3.0f"), MStatus::kSuccess);
    EXPECT_EQ(MFeedbackLine::setValue(0, 7.0), MStatus::kSuccess);
    EXPECT_TRUE(MFeedbackLine::showFeedback());
    EXPECT_EQ(line.text(), "frame   7");
    EXPECT_EQ(line.title(), "title");
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(MFeedbackLine::setFormat("next ^3.0f"), MStatus::kSuccess);
    EXPECT_EQ(line.text(), "next    ") << "values belong to their format";
    EXPECT_EQ(MFeedbackLine::clear(), MStatus::kSuccess);
    EXPECT_EQ(line.text(), "");
}

TEST_F(MFeedbackLineTest, valuesThatCannotBeShownAreRefused) {
    EXPECT_EQ(MFeedbackLine::setValue(-1, 1.0), MStatus::kInvalidParameter);
    EXPECT_EQ(MFeedbackLine::setValue(0, std::nan("")), MStatus::kInvalidParameter);
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace host
