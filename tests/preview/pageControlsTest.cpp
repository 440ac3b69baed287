#include "Browser.h"
#include "ExpectedPicture.h"

#include "host/app/preview/previewPage.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

// What the page's switches change in the picture.
namespace tvk {
namespace {

constexpr int kWidth = Browser::kWidth;
constexpr int kHeight = Browser::kHeight;
const StraightCamera kCamera = {{3, 6, 20}, {0, 4.5, 1}, 9.6};

class SwitchedPage : public testing::Test {
protected:
    SwitchedPage() : files(readExport(TVK_SAMPLES "/walk")) {
        browser.writePage(host::app::preview::previewPage(TVK_SAMPLES "/walk"));
    }

    Shot shoot(const std::string& switches) const {
        return browser.shoot("frame=12&panel=0&grid=0&background=ff00ff&" + kCamera.parameter() + switches);
    }
    ExpectedPicture expected() { return {files, 11, kCamera, kWidth, kHeight}; }
    bool isNearTexture(const ExpectedPicture& picture, int column, int row) const {
        for (int y = std::max(0, row - 1); y <= std::min(row + 1, kHeight - 1); ++y) {
            for (int x = std::max(0, column - 1); x <= std::min(column + 1, kWidth - 1); ++x) {
                const int polygon = picture.at(x, y).polygon;
                if (polygon >= 0 && files.geometry.polygons.at(static_cast<std::size_t>(polygon)).hasTexCoords) {
                    return true;
                }
            }
        }
        return false;
    }

    Browser browser;
    DecodedExport files;
};

int brightness(const std::array<int, 3>& color) {
    return color[0] + color[1] + color[2];
}

double distanceToLine(double x, double y, const Imath::V3d& a, const Imath::V3d& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double along = length == 0.0 ? 0.0 : std::clamp(((x - a.x) * dx + (y - a.y) * dy) / length, 0.0, 1.0);
    return std::hypot(x - a.x - along * dx, y - a.y - along * dy);
}

/// A grey tone has none.
double hueOf(const std::array<int, 3>& color) {
    const auto [low, high] = std::minmax_element(color.begin(), color.end());
    const double range = *high - *low;
    if (range == 0.0) {
        return -1.0;
    }
    if (*high == color[0]) {
        return std::fmod(6.0 + (color[1] - color[2]) / range, 6.0);
    }
    return *high == color[1] ? 2.0 + (color[2] - color[0]) / range : 4.0 + (color[0] - color[1]) / range;
}

} // namespace

TEST_F(SwitchedPage, DrawsWiresAlongTheEdgesOfFaces) {
    const Shot plain = shoot("");
    const Shot wired = shoot("&wire=1");
    expected(); // poses the model
    std::vector<std::pair<Imath::V3d, Imath::V3d>> edges;
    for (const decode::DrawnPolygon& polygon : files.geometry.polygons) {
        for (const decode::DrawnFace& face : polygon.faces) {
            for (std::size_t i = 0; i < face.size(); ++i) {
                edges.emplace_back(kCamera.place(face[i].world, kWidth, kHeight),
                                   kCamera.place(face[(i + 1) % face.size()].world, kWidth, kHeight));
            }
        }
    }
    int changed = 0;
    int elsewhere = 0;
    for (int row = 0; row < kHeight; ++row) {
        for (int column = 0; column < kWidth; ++column) {
            if (std::abs(brightness(plain.at(column, row)) - brightness(wired.at(column, row))) < 24) {
                continue;
            }
            ++changed;
            const bool isAtEdge = std::any_of(edges.begin(), edges.end(), [&](const auto& edge) {
                return distanceToLine(column + 0.5, row + 0.5, edge.first, edge.second) < 2.0;
            });
            elsewhere += isAtEdge ? 0 : 1;
        }
    }
    EXPECT_GT(changed, 1500);
    EXPECT_EQ(elsewhere, 0);
}

TEST_F(SwitchedPage, DrawsBonesThroughTheModel) {
    const Shot plain = shoot("");
    const Shot boned = shoot("&bones=1");
    const ExpectedPicture picture = expected();
    int joints = 0;
    int dots = 0;
    int bones = 0;
    for (const decode::ModelNode& node : files.model.nodes) {
        const auto placeOf = [&](int index) {
            return kCamera.place(picture.nodePlaces().at(static_cast<std::size_t>(index)), kWidth, kHeight);
        };
        const auto isInside = [](const Imath::V3d& at) {
            return at.x >= 0 && at.y >= 0 && at.x < kWidth && at.y < kHeight;
        };
        const auto changesAt = [&](const Imath::V3d& place) {
            return boned.at(static_cast<int>(place.x), static_cast<int>(place.y)) !=
                   plain.at(static_cast<int>(place.x), static_cast<int>(place.y));
        };
        const Imath::V3d place = placeOf(node.index);
        if (node.kind != "joint" || !isInside(place)) {
            continue;
        }
        ++joints;
        dots += brightness(boned.at(static_cast<int>(place.x), static_cast<int>(place.y))) > 720 ? 1 : 0;
        for (int i = 1; i < 8 && node.parent >= 0; ++i) {
            const Imath::V3d from = placeOf(node.parent);
            const Imath::V3d at = from + (place - from) * (i / 8.0);
            bones += isInside(at) && changesAt(at) ? 1 : 0;
        }
    }
    EXPECT_GT(joints, 15);
    EXPECT_EQ(dots, joints);
    EXPECT_GT(bones, joints);
}

TEST_F(SwitchedPage, GivesEachPrimitiveAColourOfItsOwn) {
    const Shot colored = shoot("&show=primitives");
    const ExpectedPicture picture = expected();
    std::map<int, std::map<int, int>> votes; // by primitive, how many pixels have a hue of so many tenths
    std::map<int, int> pixels;
    for (int row = 0; row < kHeight; ++row) {
        for (int column = 0; column < kWidth; ++column) {
            const bool isInner = row > 0 && column > 0 && row < kHeight - 1 && column < kWidth - 1;
            const int primitive = picture.at(column, row).primitive;
            if (!isInner || primitive < 0 || picture.at(column - 1, row).primitive != primitive ||
                picture.at(column + 1, row).primitive != primitive ||
                picture.at(column, row - 1).primitive != primitive ||
                picture.at(column, row + 1).primitive != primitive) {
                continue;
            }
            ++pixels[primitive];
            ++votes[primitive][static_cast<int>(std::lround(hueOf(colored.at(column, row)) * 10.0))];
        }
    }
    std::set<int> hues;
    std::size_t large = 0;
    for (const auto& [primitive, count] : pixels) {
        if (count < 40) {
            continue;
        }
        ++large;
        const auto& hue = *std::max_element(votes[primitive].begin(), votes[primitive].end(),
                                            [](const auto& x, const auto& y) { return x.second < y.second; });
        int near = 0;
        for (const auto& [tenths, voters] : votes[primitive]) {
            near += std::abs(tenths - hue.first) <= 1 ? voters : 0;
        }
        EXPECT_GT(near, count * 9 / 10) << "primitive " << primitive;
        hues.insert(hue.first);
    }
    EXPECT_GT(large, 10U);
    EXPECT_EQ(hues.size(), large);
}

TEST_F(SwitchedPage, LeavesTexturesOut) {
    const Shot textured = shoot("");
    const Shot plain = shoot("&show=plain");
    const ExpectedPicture picture = expected();
    int changedOnTextures = 0;
    int changedElsewhere = 0;
    for (int row = 0; row < kHeight; ++row) {
        for (int column = 0; column < kWidth; ++column) {
            if (textured.at(column, row) == plain.at(column, row)) {
                continue;
            }
            (isNearTexture(picture, column, row) ? changedOnTextures : changedElsewhere) += 1;
        }
    }
    EXPECT_GT(changedOnTextures, 100);
    EXPECT_EQ(changedElsewhere, 0);
}

TEST_F(SwitchedPage, DrawsAGridBehindTheModel) {
    const Shot ruled = browser.shoot("frame=12&panel=0&background=ff00ff&grid=1&" +
                                     StraightCamera{{9, 12, 18}, {0, 0, 0}, 12.0}.parameter());
    const Shot bare = browser.shoot("frame=12&panel=0&background=ff00ff&grid=0&" +
                                    StraightCamera{{9, 12, 18}, {0, 0, 0}, 12.0}.parameter());
    int changed = 0;
    for (int row = 0; row < kHeight; ++row) {
        for (int column = 0; column < kWidth; ++column) {
            changed += ruled.at(column, row) != bare.at(column, row) ? 1 : 0;
        }
    }
    EXPECT_GT(changed, 2000);
}

TEST(SkeletonPage, ShowsBonesWithoutBeingAskedAndAllOfThem) {
    const Browser browser;
    browser.writePage(host::app::preview::previewPage(TVK_SAMPLES "/character"));
    const Shot shot = browser.shoot("panel=0&grid=0&background=ff00ff");
    int inside = 0;
    int atBorder = 0;
    for (int row = 0; row < kHeight; ++row) {
        for (int column = 0; column < kWidth; ++column) {
            const auto [r, g, b] = shot.at(column, row);
            const bool isBone = r > 180 && g > 80 && b < 120;
            const bool isInside = row > 4 && column > 4 && row < kHeight - 5 && column < kWidth - 5;
            inside += isBone && isInside ? 1 : 0;
            atBorder += isBone && !isInside ? 1 : 0;
        }
    }
    EXPECT_GT(inside, 200);
    EXPECT_EQ(atBorder, 0);
}

} // namespace tvk
