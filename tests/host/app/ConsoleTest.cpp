#include "host/app/Console.h"

#include <gmock/gmock.h>

#include <iostream>
#include <sstream>

namespace host::app {
namespace {

class Redirected {
public:
    explicit Redirected(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf())) {}
    ~Redirected() { stream_.rdbuf(before_); }
    Redirected(const Redirected&) = delete;
    Redirected& operator=(const Redirected&) = delete;

    std::string text() const { return text_.str(); }

private:
    std::ostringstream text_;
    std::ostream& stream_;
    std::streambuf* before_;
};

class ConsoleTest : public testing::Test {
protected:
    Host& host = Host::instance();
    Redirected output{std::cout};
    Redirected errors{std::cerr};
};

TEST_F(ConsoleTest, messagesGoWhereTheyBelong) {
    {
        Console console(host, {});
        host.info("info");
        host.warning("warned");
        host.error("failed");
        EXPECT_TRUE(host.interpreter().eval("print \"printed\\n\"").ok());
    }
    EXPECT_EQ(output.text(), "info\nprinted\n");
    EXPECT_EQ(errors.text(), "Warning: warned\nError: failed\n");
}

TEST_F(ConsoleTest, quietLeavesWarningsAndErrors) {
    {
        Console console(host, {true, false});
        host.info("info");
        host.warning("warned");
        EXPECT_TRUE(host.interpreter().eval("print \"printed\"").ok());
    }
    EXPECT_EQ(output.text(), "");
    EXPECT_EQ(errors.text(), "Warning: warned\n");
}

TEST_F(ConsoleTest, whatPluginsWriteIsCountedByLine) {
    Console console(host, {});
    std::cerr << "Warning: one\n"
              << "Warn"
              << "ing:"
              << " two" << std::endl
              << "no Warning: here\n"
              << "         Warning: nor here\n"
              << "Error: three\nError:\nErrors\n";
    std::cerr.put('W');
    std::cerr << "arning: four\n";
    EXPECT_EQ(console.warnings(), 3U);
    EXPECT_EQ(console.errors(), 2U);
    host.warning("five");
    EXPECT_EQ(console.warnings(), 4U);
}

TEST_F(ConsoleTest, afterItNobodyListens) {
    { Console console(host, {}); }
    host.error("lost");
    std::cerr << "kept";
    EXPECT_EQ(errors.text(), "kept");
}

TEST_F(ConsoleTest, theStatusLineGivesWayToMessages) {
    FeedbackLine& line = host.feedbackLine();
    {
        Console console(host, {false, true});
        line.setShown(true);
        line.setFormat("working");
        std::cerr << "Warning: x\n";
        line.setFormat("still");
        host.info("info");
    }
    EXPECT_EQ(errors.text(), "\r\033[Kworking\r\033[KWarning: x\n\r\033[Kstill\r\033[K");
    line.clear();
    line.setShown(false);
}

} // namespace
} // namespace host::app
