#include "checkSupport.h"

#include <maya/MSelectionList.h>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace tvk {
namespace {

std::string listText(const std::vector<double>& values) {
    std::ostringstream text;
    text.precision(12);
    for (const double value : values) {
        text << value << ' ';
    }
    return text.str();
}

void append(std::vector<double>& list, const nlohmann::json& value) {
    if (!value.is_array()) {
        list.push_back(value.get<double>());
        return;
    }
    for (const nlohmann::json& element : value) {
        append(list, element);
    }
}

} // namespace

std::string compare(const std::vector<double>& found, const std::vector<double>& expected, double tolerance) {
    bool equal = found.size() == expected.size();
    for (std::size_t i = 0; equal && i < found.size(); ++i) {
        equal = std::abs(found[i] - expected[i]) <= std::max(tolerance, 5e-9 * std::abs(expected[i]));
    }
    return equal ? "" : "found " + listText(found) + "expected " + listText(expected);
}

std::vector<double> numbers(const nlohmann::json& value) {
    std::vector<double> list;
    append(list, value);
    return list;
}

MDagPath pathTo(const std::string& name) {
    MSelectionList list;
    MDagPath path;
    if (list.add(MString(name.c_str()))) {
        list.getDagPath(0, path);
    }
    return path;
}

MObject nodeNamed(const std::string& name) {
    MSelectionList list;
    MObject node;
    if (list.add(MString(name.c_str()))) {
        list.getDependNode(0, node);
    }
    return node;
}

} // namespace tvk
