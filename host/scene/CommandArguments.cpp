#include "host/scene/CommandArguments.h"

#include "host/scene/SceneArguments.h"

namespace host {

namespace {

constexpr std::string_view kEndOfArguments = "the end of the command";

} // namespace

CommandArguments::CommandArguments(const mel::Invocation& invocation) {
    for (const mel::Argument& argument : invocation.arguments) {
        const bool isFlag = argument.isFlag() || (invocation.isFunctionCall && argument.value.isString() &&
                                                  isFlagWord(argument.value.text()));
        if (!argument.value.isArray()) {
            arguments_.push_back({argument.value, argument.isWord, isFlag, 0});
            continue;
        }
        for (std::size_t at = 0; at < argument.value.size(); ++at) {
            arguments_.push_back({argument.value.element(at), false, false, at == 0 ? argument.value.size() : 0});
        }
    }
}

bool CommandArguments::takeFlag(std::string_view& name) {
    if (atEnd() || !arguments_[next_].isFlag) {
        return false;
    }
    name = std::string_view(arguments_[next_++].value.text()).substr(1);
    return true;
}

bool CommandArguments::takeText(std::string_view& text) {
    if (atEnd() || arguments_[next_].isFlag) {
        return false;
    }
    storage_ = arguments_[next_++].value.toText();
    text = storage_;
    return true;
}

bool CommandArguments::takeString(std::string_view& text) {
    return !atEnd() && arguments_[next_].value.isString() && takeText(text);
}

bool CommandArguments::takeBoolean(bool& value) {
    if (atEnd() || !arguments_[next_].value.isString() || !parseBoolean(arguments_[next_].value.text(), value)) {
        return false;
    }
    ++next_;
    return true;
}

bool CommandArguments::takeNumber(double& value) {
    if (atEnd() || !arguments_[next_].value.isNumber()) {
        return false;
    }
    value = arguments_[next_++].value.toFloat();
    return true;
}

bool CommandArguments::takeInteger(std::int64_t& value) {
    if (atEnd() || !arguments_[next_].value.isNumber()) {
        return false;
    }
    value = arguments_[next_++].value.toInt();
    return true;
}

std::size_t CommandArguments::takeNumbers(double* values, std::size_t count) {
    std::size_t taken = 0;
    while (taken < count && takeNumber(values[taken])) {
        ++taken;
    }
    return taken;
}

std::size_t CommandArguments::takeNumbers(float* values, std::size_t count) {
    std::size_t taken = 0;
    for (double value = 0.0; taken < count && takeNumber(value); ++taken) {
        values[taken] = static_cast<float>(value);
    }
    return taken;
}

bool CommandArguments::takeStringList(std::vector<std::string>& texts) {
    if (atEnd() || arguments_[next_].listSize == 0) {
        return false;
    }
    texts.clear();
    for (std::size_t left = arguments_[next_].listSize; left > 0; --left) {
        texts.push_back(arguments_[next_++].value.toText());
    }
    return true;
}

std::string CommandArguments::describeNext() {
    return atEnd() ? std::string(kEndOfArguments) : "'" + arguments_[next_].value.toText() + "'";
}

} // namespace host
