#include "host/app/StatusLine.h"

#include <gtest/gtest.h>

namespace host::app {
namespace {

FeedbackLine line(const std::string& format, double count = -1.0, double total = -1.0) {
    FeedbackLine result;
    result.setShown(true);
    result.setFormat(format);
    if (count >= 0.0) {
        result.setValue(0, count);
    }
    if (total >= 0.0) {
        result.setValue(1, total);
    }
    return result;
}

struct TextRow {
    FeedbackLine line;
    int columns;
    const char* text;
};

TEST(statusText, barsTextsAndNarrowTerminals) {
    const TextRow rows[] = {
        {line("Getting Data ..."), 79, "Getting Data ..."},
        {line("Getting Data ..."), 7, "Getting"},
        {line("Getting Data ..."), 0, ""},
        {line("frame ^1.0f of ^1.0f", 0.0, 10.0), 79, "[....................] frame 0 of 10"},
        {line("frame ^1.0f of ^1.0f", 5.0, 10.0), 79, "[##########..........] frame 5 of 10"},
        {line("frame ^1.0f of ^1.0f", 10.0, 10.0), 79, "[####################] frame 10 of 10"},
        {line("frame ^1.0f of ^1.0f", 12.0, 10.0), 79, "[####################] frame 12 of 10"},
        {line("frame ^1.0f", 5.0), 79, "frame 5"},
        {line("frame ^1.0f of ^1.0f", 5.0, 0.0), 79, "frame 5 of 0"},
        {line("日本語"), 2, "日本"},
        {line("two\nlines\x1b[0m"), 79, "two lines [0m"},
    };
    for (const TextRow& row : rows) {
        EXPECT_EQ(statusText(row.line, row.columns), row.text);
    }
    FeedbackLine titled = line("frame");
    titled.setTitle("Export");
    EXPECT_EQ(statusText(titled, 79), "Export: frame");
}

class StatusLineTest : public testing::Test {
protected:
    std::string written;
    StatusLine status{[this](const std::string& text) { written += text; }, [] { return 20; }};
};

TEST_F(StatusLineTest, isDrawnOverItselfAndTakenAway) {
    status.show(line("one"));
    EXPECT_EQ(written, "\r\033[Kone");
    written.clear();
    status.show(line("two"));
    EXPECT_EQ(written, "\r\033[Ktwo");
    written.clear();
    status.hide();
    EXPECT_EQ(written, "\r\033[K");
    status.hide();
    EXPECT_EQ(written, "\r\033[K") << "there is nothing to take away twice";
}

TEST_F(StatusLineTest, leavesTheLastColumnFree) {
    status.show(line("0123456789012345678901234567890"));
    EXPECT_EQ(written, "\r\033[K0123456789012345678");
}

TEST_F(StatusLineTest, valuesAloneAreNotRedrawnAtOnce) {
    status.show(line("frame ^1.0f", 1.0));
    written.clear();
    for (double frame = 2.0; frame < 100.0; ++frame) {
        status.show(line("frame ^1.0f", frame));
    }
    EXPECT_LT(written.size(), 50U);
}

TEST_F(StatusLineTest, isShownOnlyWhenThePluginWantsIt) {
    FeedbackLine hidden = line("one");
    hidden.setShown(false);
    status.show(hidden);
    EXPECT_EQ(written, "");
    status.show(line("one"));
    written.clear();
    status.show(line(""));
    EXPECT_EQ(written, "\r\033[K");
}

} // namespace
} // namespace host::app
