#pragma once

#include "host/scene/StatementContext.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

enum class FlagValue : std::uint8_t { kNone, kBoolean, kOptionalBoolean, kInteger, kNumber, kText };

/// One flag of a statement: a row of its table. Rows with one id mean the same.
struct StatementFlag {
    std::string_view shortName, longName;
    FlagValue value;
    int id;
};

/// One use of a flag: the member that its FlagValue promises is set (both kinds of boolean: isOn, true by default).
struct FlagUse {
    int id = 0;
    bool isOn = true;
    std::int64_t integer = 0;
    double number = 0.0;
    std::string text;
};

/// The flags of one statement.
class StatementFlags {
public:
    template <std::size_t Count>
    StatementFlags(std::string_view command, const StatementFlag (&rows)[Count])
        : command_(command), rows_(rows), count_(Count) {}

    /// Takes the flags that come next, up to the first argument that is none.
    Outcome take(StatementContext& context, ArgumentStream& arguments,
                 const std::function<void(const FlagUse&)>& use) const;
    /// Takes everything: flags anywhere, names and other texts between them.
    Outcome takeAll(StatementContext& context, ArgumentStream& arguments, std::vector<std::string>& texts,
                    const std::function<void(const FlagUse&)>& use) const;

private:
    const StatementFlag* find(std::string_view name) const;

    std::string_view command_;
    const StatementFlag* rows_;
    std::size_t count_;
};

} // namespace host
