#pragma once

#include "host/mel/CommandTable.h"
#include "host/scene/ArgumentStream.h"

namespace host {

/// Arguments of a MEL command. Arrays count as their elements, one after the other.
class CommandArguments final : public ArgumentStream {
public:
    explicit CommandArguments(const mel::Invocation& invocation);

    bool atEnd() override { return next_ == arguments_.size(); }
    bool takeFlag(std::string_view& name) override;
    bool takeText(std::string_view& text) override;
    bool takeString(std::string_view& text) override;
    bool takeBoolean(bool& value) override;
    bool takeNumber(double& value) override;
    bool takeInteger(std::int64_t& value) override;
    std::size_t takeNumbers(double* values, std::size_t count) override;
    std::size_t takeNumbers(float* values, std::size_t count) override;
    bool takeStringList(std::vector<std::string>& texts) override;
    void skipRest() override { next_ = arguments_.size(); }
    std::size_t mostArguments() override { return arguments_.size() - next_; }
    std::string describeNext() override;

private:
    struct Entry {
        mel::Value value;
        bool isWord = false;
        bool isFlag = false;
        std::size_t listSize = 0; // of the array that begins here, else 0
    };

    std::vector<Entry> arguments_;
    std::size_t next_ = 0;
    std::string storage_;
};

} // namespace host
