#pragma once

#include <nlohmann/json.hpp>

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <string>
#include <vector>

namespace tvk {

/// What checks of all kinds need.

/// "" when all numbers are within the tolerance (never finer than the nine digits that are recorded), else both lists.
std::string compare(const std::vector<double>& found, const std::vector<double>& expected, double tolerance);
/// A number, or the numbers of nested arrays one after the other.
std::vector<double> numbers(const nlohmann::json& value);
/// Not valid when there is no such node.
MDagPath pathTo(const std::string& name);
/// Null when there is no such node.
MObject nodeNamed(const std::string& name);

} // namespace tvk
