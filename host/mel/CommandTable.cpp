#include "host/mel/CommandTable.h"

#include "host/mel/characterClass.h"

#include <algorithm>

namespace host::mel {

bool Argument::isFlag() const {
    const std::string& text = value.text();
    return isWord && text.size() > 1 && text[0] == '-' && isNameStart(text[1]);
}

CommandResult CommandResult::failure(std::string text) {
    CommandResult result;
    result.error = std::move(text);
    return result;
}

bool CommandTable::add(std::string name, NativeCommand command) {
    const bool isName = !name.empty() && isNameStart(name.front()) &&
                        std::all_of(name.begin(), name.end(), [](char byte) { return isOf(byte, kNameByte); });
    if (!isName || command == nullptr) {
        return false;
    }
    return commands_.try_emplace(std::move(name), std::make_shared<const NativeCommand>(std::move(command))).second;
}

bool CommandTable::remove(std::string_view name) {
    const auto found = commands_.find(name);
    if (found == commands_.end()) {
        return false;
    }
    commands_.erase(found);
    return true;
}

std::shared_ptr<const NativeCommand> CommandTable::find(std::string_view name) const {
    const auto found = commands_.find(name);
    return found != commands_.end() ? found->second : nullptr;
}

std::vector<std::string> CommandTable::names() const {
    std::vector<std::string> names;
    names.reserve(commands_.size());
    for (const auto& [name, command] : commands_) {
        names.push_back(name);
    }
    return names;
}

} // namespace host::mel
