#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The arguments of one statement, taken from the front one after the other. A statement is the same thing in a scene
/// file, where its arguments are read from the mapped bytes as they come, and as a MEL command, where they are ready
/// values; both go through this, so that there is one setAttr.
///
/// Every take… leaves the stream alone and says false when the next argument is something else. Texts are valid until
/// the next call. Long runs of numbers cost one call per batch, not one per number.
class ArgumentStream {
public:
    virtual ~ArgumentStream() = default;

    virtual bool atEnd() = 0;
    /// "-name", not a negative number; `name` comes without '-'.
    virtual bool takeFlag(std::string_view& name) = 0;
    /// A word or a quoted string; numbers give their text.
    virtual bool takeText(std::string_view& text) = 0;
    /// A quoted string only, also one of several pieces.
    virtual bool takeString(std::string_view& text) = 0;
    /// yes no on off true false; numbers are no booleans here.
    virtual bool takeBoolean(bool& value) = 0;
    virtual bool takeNumber(double& value) = 0;
    /// A number's whole part; false when it is beyond 64 bits.
    virtual bool takeInteger(std::int64_t& value) = 0;
    /// As far as numbers follow each other; returns how many.
    virtual std::size_t takeNumbers(double* values, std::size_t count) = 0;
    virtual std::size_t takeNumbers(float* values, std::size_t count) = 0;
    /// {"a", "b"}
    virtual bool takeStringList(std::vector<std::string>& texts) = 0;
    virtual void skipRest() = 0;

    /// No more than this many arguments can follow: a bound for what is made before they are read.
    virtual std::size_t mostArguments() = 0;
    /// The next argument as messages name it: "'word'", "string "text"", "';'", "end of text".
    virtual std::string describeNext() = 0;
};

} // namespace host
