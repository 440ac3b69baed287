#include "Browser.h"
#include "ExpectedPicture.h"

#include "host/app/preview/previewPage.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

namespace tvk {
namespace {

constexpr std::array<int, 3> kBackground = {255, 0, 255};
constexpr const char* kBare = "&panel=0&grid=0&background=ff00ff";

bool isBackground(const std::array<int, 3>& color) {
    return std::abs(color[0] - kBackground[0]) < 8 && color[1] < 8 && std::abs(color[2] - kBackground[2]) < 8;
}

// Where a pixel around is drawn and another is not, or what is seen through is not known.
bool isAtOutline(const ExpectedPicture& picture, int column, int row) {
    int drawn = 0;
    int all = 0;
    for (int y = std::max(0, row - 1); y <= std::min(row + 1, picture.height() - 1); ++y) {
        for (int x = std::max(0, column - 1); x <= std::min(column + 1, picture.width() - 1); ++x) {
            ++all;
            drawn += picture.at(x, y).polygon >= 0 ? 1 : 0;
            if (picture.at(x, y).isTranslucent) {
                return true;
            }
        }
    }
    return drawn != 0 && drawn != all;
}

struct Agreement {
    int covered = 0;       // pixels that are drawn in both pictures
    int wrongCoverage = 0; // in one of them, away from its outline
    int plain = 0;         // pixels whose colour is compared
    int wrongColors = 0;   // those that differ by more than a step of five bits
    std::string firstWrong, firstUncovered;
};

Agreement compare(const ExpectedPicture& expected, const Shot& shot) {
    constexpr double kStep = 8.3;
    Agreement found;
    for (int row = 0; row < shot.height; ++row) {
        for (int column = 0; column < shot.width; ++column) {
            const std::array<int, 3> shown = shot.at(column, row);
            const ExpectedPixel& pixel = expected.at(column, row);
            const bool isDrawn = pixel.polygon >= 0;
            found.covered += isDrawn && !isBackground(shown) ? 1 : 0;
            if (isDrawn == isBackground(shown) && !isAtOutline(expected, column, row)) {
                ++found.wrongCoverage;
                const std::string where = std::to_string(column) + " " + std::to_string(row);
                found.firstUncovered = found.firstUncovered.empty() ? where : found.firstUncovered;
            }
            if (!expected.isPlain(column, row)) {
                continue;
            }
            ++found.plain;
            double worst = 0.0;
            for (std::size_t i = 0; i < 3; ++i) {
                worst = std::max(worst, std::abs(pixel.color.at(i) - shown.at(i)));
            }
            if (worst > kStep) {
                ++found.wrongColors;
                std::ostringstream text;
                text << "at " << column << ' ' << row << " polygon " << pixel.polygon << ": " << shown[0] << ' '
                     << shown[1] << ' ' << shown[2] << " instead of " << pixel.color[0] << ' ' << pixel.color[1] << ' '
                     << pixel.color[2];
                found.firstWrong = found.firstWrong.empty() ? text.str() : found.firstWrong;
            }
        }
    }
    return found;
}

/// The page of an export shows at a frame what the decoded files say.
///   least   pixels that must be drawn, and be compared by colour
void expectShown(const Browser& browser, DecodedExport& files, int frame, int firstFrame, const StraightCamera& camera,
                 int least) {
    const Shot shot = browser.shoot("frame=" + std::to_string(frame) + "&" + camera.parameter() + kBare);
    ASSERT_EQ(shot.width, Browser::kWidth);
    ASSERT_EQ(shot.height, Browser::kHeight);
    const ExpectedPicture expected(files, static_cast<std::size_t>(frame - firstFrame), camera, shot.width,
                                   shot.height);
    const Agreement found = compare(expected, shot);
    EXPECT_GT(found.covered, least);
    EXPECT_LT(found.wrongCoverage, found.covered / 500 + 1)
        << "frame " << frame << " covers " << found.covered << ", differs first at " << found.firstUncovered;
    EXPECT_GT(found.plain, least / 2);
    EXPECT_LT(found.wrongColors, found.plain / 100 + 1) << "frame " << frame << ' ' << found.firstWrong;
}

struct SampleView {
    const char *name, *sample;
    int frame, firstFrame;
    StraightCamera camera;
    int least;
};

std::ostream& operator<<(std::ostream& out, const SampleView& view) {
    return out << view.name;
}

class SamplePictures : public testing::TestWithParam<SampleView> {};

const std::vector<SampleView>& sampleViews() {
    static const std::vector<SampleView> kViews = {
        {"WalkAtItsStart", "walk", 1, 1, {{0, 4.5, 20}, {0, 4.5, 0}, 9.6}, 12000},
        {"WalkLater", "walk", 12, 1, {{12, 12, 16}, {0, 4, 1}, 12.0}, 12000},
        {"WalkFromItsLeft", "walk", 31, 1, {{20, 6, 1}, {0, 4.5, 1}, 9.6}, 12000},
        {"WalkWithoutItsLantern", "walk", 26, 1, {{5, 6, 20}, {0, 4.5, 1}, 6.0}, 12000},
        {"BlinkingEyes", "walk", 20, 1, {{0, 8, 20}, {0, 7.8, 1}, 1.6}, 12000},
        {"WalkAtItsEnd", "walk", 60, 1, {{-12, 9, 16}, {0, 4, 1}, 12.0}, 12000},
        {"SkinWithBlends", "golem", 1, 1, {{2, 1.4, 6}, {0, 1, 0}, 2.2}, 10000},
        {"TexturesOfAllFormats", "materials", 1, 1, {{2, 5, 30}, {0, 3.5, 0}, 13.0}, 20000},
        {"OnlyBothSidedFacesFromBehind", "materials", 1, 1, {{2, 5, -30}, {0, 3.5, 0}, 13.0}, 1000},
    };
    return kViews;
}

} // namespace

TEST_P(SamplePictures, ShowTheDecodedFiles) {
    const SampleView& view = GetParam();
    const std::string base = std::string(TVK_SAMPLES "/") + view.sample;
    DecodedExport files = readExport(base);
    const Browser browser;
    browser.writePage(host::app::preview::previewPage(base));
    expectShown(browser, files, view.frame, view.firstFrame, view.camera, view.least);
}

INSTANTIATE_TEST_SUITE_P(Page, SamplePictures, testing::ValuesIn(sampleViews()),
                         [](const auto& instance) { return instance.param.name; });

namespace {

/// An ica file for a model: nodes as the model has them, but the named ones turned about z by so much from frame to
/// frame, every fourth of five frames stored.
std::string turningNodes(const decode::ModelFile& model, const std::map<std::string, double>& degreesPerFrame) {
    std::vector<double> scales, rotates, translates;
    std::ostringstream things;
    const auto channel = [&](const std::string& word, std::vector<double>& pool, double value, double change) {
        const std::size_t head = pool.size();
        pool.push_back(value);
        if (change != 0.0) {
            pool.push_back(value + 4.0 * change);
        }
        things << "\t\t<" << word << " frame_step=\"" << (change == 0.0 ? 1 : 4) << "\" data_size=\""
               << pool.size() - head << "\" data_head=\"" << head << "\"/>\n";
    };
    for (const decode::ModelNode& node : model.nodes) {
        const auto turned = degreesPerFrame.find(node.name);
        things << "\t<node_anm index=\"" << node.index << "\">\n";
        for (int axis = 0; axis < 3; ++axis) {
            channel(std::string("scale_") + "xyz"[axis], scales, node.scale[axis], 0.0);
        }
        for (int axis = 0; axis < 3; ++axis) {
            const double change = axis == 2 && turned != degreesPerFrame.end() ? turned->second : 0.0;
            channel(std::string("rotate_") + "xyz"[axis], rotates, node.rotate[axis], change);
        }
        for (int axis = 0; axis < 3; ++axis) {
            channel(std::string("translate_") + "xyz"[axis], translates, node.translate[axis], 0.0);
        }
        things << "\t</node_anm>\n";
    }
    std::ostringstream text;
    text << R"(<?xml version="1.0" encoding="Shift_JIS"?>

<ica version="1.6.0">

<body>

<node_anm_info
	frame_size="5"
	tool_start_frame="10"
	interpolation="linear"
	interp_end_to_start="off"
/>

)";
    const auto pool = [&text](const char* name, const std::vector<double>& values) {
        text << '<' << name << " size=\"" << values.size() << "\">\n";
        for (const double value : values) {
            text << '\t' << std::to_string(std::round(value * 4096.0) / 4096.0) << '\n';
        }
        text << "</" << name << ">\n\n";
    };
    pool("node_scale_data", scales);
    pool("node_rotate_data", rotates);
    pool("node_translate_data", translates);
    text << "<node_anm_array size=\"" << model.nodes.size() << "\">\n"
         << things.str() << "</node_anm_array>\n"
         << "</body>\n"
         << "</ica>\n";
    return text.str();
}

} // namespace

TEST(PagePictures, BendASkinAsTheConsoleDoes) {
    const Browser browser;
    const std::string base = browser.path("golem");
    std::filesystem::copy_file(TVK_SAMPLES "/golem.imd", base + ".imd");
    const decode::ModelFile model = readExport(base).model;
    std::ofstream(base + ".ica", std::ios::binary)
        << turningNodes(model, {{"forearm_l", 15.0}, {"forearm_r", -10.0}, {"belly", 5.0}, {"thigh_l", 10.0}});
    DecodedExport files = readExport(base);
    ASSERT_TRUE(files.nodes.has_value());
    browser.writePage(host::app::preview::previewPage(base));
    const StraightCamera camera = {{0, 1, 6}, {0, 1, 0}, 2.2};
    expectShown(browser, files, 10, 10, camera, 10000);
    expectShown(browser, files, 13, 10, camera, 10000);
    expectShown(browser, files, 14, 10, camera, 10000);
}

TEST(PagePictures, TurnBillboardsToTheEye) {
    const Browser browser;
    const std::string base = browser.path("signs");
    std::ifstream stream(TVK_SAMPLES "/materials.imd", std::ios::binary);
    std::string model{std::istreambuf_iterator<char>(stream), {}};
    const auto turn = [&model](const std::string& node, const std::string& way) {
        const std::string off = "billboard=\"off\"";
        const std::size_t at = model.find(off, model.find("name=\"" + node + R"(" kind="mesh")"));
        ASSERT_NE(at, std::string::npos) << node;
        model.replace(at, off.size(), "billboard=\"" + way + "\"");
    };
    turn("lamp_on", "on");
    turn("window", "on");
    turn("sky", "y_on");
    turn("meadow", "y_on");
    std::ofstream(base + ".imd", std::ios::binary) << model;
    DecodedExport files = readExport(base);
    browser.writePage(host::app::preview::previewPage(base));
    expectShown(browser, files, 1, 1, {{20, 15, 14}, {0, 3.5, 0}, 13.0}, 10000);
    expectShown(browser, files, 1, 1, {{-14, 9, -20}, {0, 3.5, 0}, 13.0}, 5000);
}

} // namespace tvk
