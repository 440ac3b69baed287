#include "host/app/verify/checkBoxes.h"

#include "host/app/report/nameText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace host::app::verify {
namespace {

constexpr double kSteps = 4096.0;
constexpr double kSinglePrecision = 4e-7; // what a number may lose before it is rounded
constexpr double kLeastWord = -32768.0;
constexpr double kMostWord = 32767.0;
constexpr double kNoLimit = std::numeric_limits<double>::infinity();

double inSteps(double number) {
    return std::round(number * kSteps);
}

double shifted(double steps, int shift) {
    return std::floor(std::ldexp(steps, -shift));
}

void widen(Imath::V3d& least, Imath::V3d& most, const Imath::V3d& point) {
    for (int i = 0; i < 3; ++i) {
        least[i] = std::min(least[i], point[i]);
        most[i] = std::max(most[i], point[i]);
    }
}

Imath::V3d vectorOf(const decode::FileElement& element, const char* name) {
    const std::vector<double> numbers = element.reals(name, 3);
    return {numbers[0], numbers[1], numbers[2]};
}

std::string axisOf(const char* word, int axis) {
    return std::string(": ") + word + " " + "xyz"[axis];
}

// How often a box of whole steps is halved until it and its extent are words of 16 bits.
int shiftOf(const Imath::V3d& least, const Imath::V3d& most) {
    int shift = 0;
    for (int i = 0; i < 3; ++i) {
        for (const double value : {inSteps(least[i]), inSteps(most[i]), inSteps(most[i]) - inSteps(least[i])}) {
            while (shifted(value, shift) < kLeastWord || shifted(value, shift) > kMostWord) {
                ++shift;
            }
        }
    }
    return shift;
}

} // namespace

void BoxCheck::addFaces(int node, const std::vector<SceneFace>& faces, const std::vector<int>& polygonOfFace,
                        const Imath::M44d& toNode) {
    // A face without area is measured with the others of its mesh and shader.
    std::map<std::pair<std::string, std::string>, std::set<int>> drawn;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        if (polygonOfFace[i] >= 0) {
            drawn[{faces[i].mesh, faces[i].shader}].insert(polygonOfFace[i]);
        }
    }
    for (std::size_t i = 0; i < faces.size(); ++i) {
        int polygon = polygonOfFace[i];
        if (polygon < 0) {
            const std::set<int>& others = drawn[{faces[i].mesh, faces[i].shader}];
            if (others.size() != 1) {
                leaveOutNode(node, faces[i].mesh + ", which has faces without area");
                continue;
            }
            polygon = *others.begin();
        }
        for (const SceneCorner& corner : faces[i].corners) {
            const Imath::V3d point = corner.position * toNode;
            for (Points* const points : {&ofPolygons_[polygon], &ofNodes_[node]}) {
                points->all.push_back(point);
                points->reach = std::max({points->reach, point.length(), corner.position.length()});
            }
        }
    }
}

void BoxCheck::addSent(const Imath::V3d& position, double reach) {
    hasSent_ = true;
    widen(sentMin_, sentMax_, position);
    sentReach_ = std::max({sentReach_, position.length(), reach});
}

void BoxCheck::leaveOutModel(const std::string& why) {
    isModelLeftOut_ = true;
    result_.note("box_test, for " + why);
}

void BoxCheck::leaveOutNode(int node, const std::string& why) {
    leftOutNodes_.insert(node);
    result_.note("boxes of " + why);
}

void BoxCheck::run() {
    checkPolygons();
    checkNodes();
    checkModel();
}

void BoxCheck::checkPolygons() {
    for (const decode::DrawnPolygon& polygon : model_.geometry.polygons) {
        const auto points = ofPolygons_.find(polygon.index);
        if (points != ofPolygons_.end() && leftOutNodes_.count(polygon.node) == 0) {
            checkVolume(points->second, polygon.volumeMin, polygon.volumeMax, polygon.volumeRadius, kMostWord,
                        "imd: polygon " + report::utf8Name(polygon.name));
        }
    }
}

void BoxCheck::checkNodes() {
    const auto& elements = model_.file.root.child("body").child("node_array").children;
    for (const decode::ModelNode& node : model_.file.nodes) {
        const decode::FileElement& element = elements.at(static_cast<std::size_t>(node.index));
        if (element.attribute("volume_r") != nullptr && leftOutNodes_.count(node.index) == 0) {
            checkVolume(ofNodes_[node.index], vectorOf(element, "volume_min"), vectorOf(element, "volume_max"),
                        element.reals("volume_r", 1).front(), kNoLimit, "imd: node " + report::utf8Name(node.name));
        }
    }
}

// Without points all is 0.
//   limit   largest number of steps that a side may have
void BoxCheck::checkVolume(const Points& points, const Imath::V3d& writtenMin, const Imath::V3d& writtenMax,
                           double writtenRadius, double limit, const std::string& place) {
    Imath::V3d least(0.0);
    Imath::V3d most(0.0);
    double radius = 0.0;
    if (!points.all.empty()) {
        least = most = points.all.front();
        for (const Imath::V3d& point : points.all) {
            widen(least, most, point);
        }
        const Imath::V3d center = (least + most) * 0.5;
        for (const Imath::V3d& point : points.all) {
            radius = std::max(radius, (point - center).length());
        }
    }
    const double scale = std::ldexp(1.0, -model_.geometry.positionScale);
    const double slack = points.all.empty() ? 0.0 : kSinglePrecision * points.reach;
    const auto side = [&](double written, double expected, const std::string& what) {
        checkSteps(written, std::clamp(inSteps((expected - slack) * scale), -limit - 1.0, limit),
                   std::clamp(inSteps((expected + slack) * scale), -limit - 1.0, limit), what);
    };
    for (int i = 0; i < 3; ++i) {
        side(writtenMin[i], least[i], place + axisOf("volume_min", i));
        side(writtenMax[i], most[i], place + axisOf("volume_max", i));
    }
    checkSteps(writtenRadius, inSteps((radius - slack) * scale), inSteps((radius + slack) * scale),
               place + ": volume_r");
}

void BoxCheck::checkModel() {
    const decode::FileElement* const box = model_.file.root.child("body").find("box_test");
    if ((box != nullptr) != !model_.geometry.polygons.empty()) {
        result_.find(box == nullptr ? "imd: box_test is not there" : "imd: box_test is there without polygons");
    }
    if (box == nullptr || isModelLeftOut_ || !hasSent_) {
        return;
    }
    const int shift = shiftOf(sentMin_, sentMax_);
    if (box->integer("pos_scale") != shift) {
        result_.find("imd: box_test: pos_scale is " + box->value("pos_scale") + " instead of " + std::to_string(shift));
        return;
    }
    const Imath::V3d corner = vectorOf(*box, "xyz");
    const Imath::V3d extent = vectorOf(*box, "whd");
    const double slack = kSinglePrecision * sentReach_;
    for (int i = 0; i < 3; ++i) {
        const double leastLow = inSteps(sentMin_[i] - slack);
        const double leastHigh = inSteps(sentMin_[i] + slack);
        const double mostLow = inSteps(sentMax_[i] - slack);
        const double mostHigh = inSteps(sentMax_[i] + slack);
        checkSteps(corner[i], shifted(leastLow, shift), shifted(leastHigh, shift),
                   "imd: box_test" + axisOf("corner", i));
        checkSteps(extent[i], shifted(mostLow - leastHigh, shift), shifted(mostHigh - leastLow, shift),
                   "imd: box_test" + axisOf("extent", i));
    }
}

//   least, most   of what may be written, in whole steps
void BoxCheck::checkSteps(double written, double least, double most, const std::string& place) {
    const double steps = inSteps(written);
    const double off = std::isnan(steps) ? steps : std::max({0.0, least - steps, steps - most});
    result_.check(Part::kBoxes, off / kSteps, 0.0, place);
}

} // namespace host::app::verify
