#pragma once

#include "scene/messages.h"

namespace tvk {

// What the batch command says, each text once. What follows a text that ends in a blank is its subject.

inline constexpr Message kWrongList{Severity::kError, "z3be file is wrong"};
inline constexpr Message kEmptyLog{Severity::kError, "\"log\" is wrong"};
inline constexpr Message kLogCharacters{Severity::kError,
                                        "\"log\" is wrong (don't use [\\] [=] [;] [*] [?] [<] [>] [|]): "};
inline constexpr Message kNameCharacters{Severity::kError,
                                         "\"-name\" is wrong (don't use [/] [\\] [:] [*] [?] [<] [>] [|]): "};
inline constexpr Message kNodeNotFound{Severity::kError, "Node is not found: "};
inline constexpr Message kFailedToExport{Severity::kError, "Failed to export"};

/// A keyword, in quotes, stands between the prefix and one of these.
inline constexpr Message kKeyword{Severity::kError, ""};
inline constexpr std::string_view kIsWrong = " is wrong: ";
inline constexpr std::string_view kIsNotSpecified = " is not specified";

inline constexpr std::string_view kBatchFinished = "Batch Export is finished. Total "; // number and scenes follow

} // namespace tvk
