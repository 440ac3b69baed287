#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace tvk {

/// Whether this program has a way to make such a check.
bool isValueCheck(const nlohmann::json& check);

/// Compares what the host says, through the API as a plug-in reads it, with what the real host said.
/// Returns "" or what differs.
std::string differenceFrom(const nlohmann::json& check);

/// What a check is of: the node, plug or path that it names.
std::string subjectOf(const nlohmann::json& check);

} // namespace tvk
