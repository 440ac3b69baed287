#include "ExportSession.h"
#include "sceneText.h"

#include <gtest/gtest.h>

#include <clocale>
#include <iostream>
#include <locale>
#include <sstream>
#include <string>

namespace tvk {
namespace {

// Commas for points, points between thousands, as in Germany; and a Japanese "yes" for good measure.
class Commas : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
    std::string do_truename() const override { return "hai"; }
};

/// A locale for the whole program, of the C++ library and of the C library, until the end.
class WorldLocale {
public:
    WorldLocale(const std::locale& streams, const char* c)
        : oldStreams(std::locale::global(streams)), oldC(std::setlocale(LC_ALL, nullptr)) {
        std::setlocale(LC_ALL, c); // stays as it is where the system lacks it; the streams' locale works everywhere
    }
    ~WorldLocale() {
        std::locale::global(oldStreams);
        std::setlocale(LC_ALL, oldC.c_str());
    }
    WorldLocale(const WorldLocale&) = delete;
    WorldLocale& operator=(const WorldLocale&) = delete;

private:
    std::locale oldStreams;
    std::string oldC;
};

// Without the lines that hold the time.
std::string withoutDates(const std::string& text) {
    std::istringstream in(text);
    std::string kept;
    for (std::string line; std::getline(in, line);) {
        if (line.find("create user=\"") == std::string::npos) {
            kept += line + "\n";
        }
    }
    return kept;
}

struct Written {
    std::string model, visibility;
};

Written exportOnce() {
    ExportSession session;
    session.open(nodeText("transform", "a", "", set3("t", 1234.5, -0.125, 1e-3) + " " + set3("r", 10.5, 20.25, 1500)) +
                 nodeText("joint", "b", "a", set3("s", 1.5, 1, 1) + " setAttr \".ro\" 3;") +
                 nodeText("joint", "c", "b", set3("t", 0.1, 2000000, 0)) + visibilityKeys("b", "1 1 5.0 0 2000 1", 3) +
                 playback(1, 3000));
    EXPECT_TRUE(session.exportAll("magnify=2.5;anime_tol_t=0.25;iva_file_out=1;"));
    session.model();
    session.visibility();
    return {withoutDates(session.fileText("model.imd")), withoutDates(session.fileText("model.iva"))};
}

TEST(Locales, TheSameSceneGivesTheSameBytes) {
    const Written expected = exportOnce();
    EXPECT_NE(expected.model.find("\tmagnify=\"2.500000\"\n"), std::string::npos);
    EXPECT_NE(expected.model.find("translate=\"3086.250000 -0.312500 0.002441\""), std::string::npos) << expected.model;
    EXPECT_NE(expected.visibility.find("\tframe_size=\"3000\"\n"), std::string::npos);
    const std::locale commas(std::locale::classic(), new Commas);
    for (const char* c : {"C", "C.UTF-8", "de_DE.UTF-8", "de_DE", "ja_JP.UTF-8", "ja_JP.SJIS"}) {
        const WorldLocale world(commas, c);
        ASSERT_EQ((std::ostringstream() << 1234.5).str(), "1.234,5"); // the locale is really there
        const Written again = exportOnce();
        EXPECT_EQ(again.model, expected.model) << c;
        EXPECT_EQ(again.visibility, expected.visibility) << c;
    }
}

// The host's own stream may hold any flags and locale; the exporter's numbers in messages are plain.
TEST(Locales, MessagesHaveNoThousandsSeparators) {
    const std::locale commas(std::locale::classic(), new Commas);
    const WorldLocale world(commas, "C");
    ExportSession session;
    std::cerr.imbue(commas);
    session.open(nodeText("transform", "a"));
    EXPECT_TRUE(session.exportAll("frame_range=2;start_frame=123456;end_frame=234567"));
    EXPECT_EQ(session.takeMessages(), "Warning: Invalid start frame (ignored): 123456\n\n");
}

} // namespace
} // namespace tvk
