#include "host/scene/SceneNames.h"

#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <charconv>

namespace host {

namespace {

bool isLegalByte(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           byte == '_' || static_cast<unsigned char>(byte) >= 0x80;
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

// "a12" is text "a" and number 12. Numbers too long to count on belong to the text.
struct NumberedName {
    std::string_view base;
    std::uint32_t number = 0;
};

NumberedName splitNumber(std::string_view name) {
    constexpr std::size_t kMostDigits = 9;
    std::size_t digits = 0;
    while (digits < name.size() && isDigit(name[name.size() - 1 - digits])) {
        ++digits;
    }
    while (digits > 1 && name[name.size() - digits] == '0') {
        --digits;
    }
    NumberedName split{name, 0};
    if (digits > 0 && digits <= kMostDigits) {
        split.base = name.substr(0, name.size() - digits);
        std::from_chars(name.data() + split.base.size(), name.data() + name.size(), split.number);
    }
    return split;
}

std::string_view withoutRootNamespace(std::string_view part) {
    return part.substr(0, 1) == ":" ? part.substr(1) : part;
}

} // namespace

std::string SceneNames::legalName(std::string_view wanted) {
    std::string name;
    bool isPartStart = true;
    for (const char byte : wanted) {
        if (byte == ':') {
            if (!isPartStart) {
                name += ':';
            }
            isPartStart = true;
            continue;
        }
        if (isPartStart && isDigit(byte)) {
            name += '_';
        }
        name += isLegalByte(byte) ? byte : '_';
        isPartStart = false;
    }
    if (isPartStart && !name.empty()) {
        name.pop_back(); // a namespace without a name behind it
    }
    return name;
}

bool SceneNames::isFree(std::string_view name, const Node* parent) const {
    const Bearers* holders = bearers(name);
    if (holders == nullptr) {
        return true;
    }
    // A name outside the DAG is nobody else's.
    return parent != nullptr && (holders->single == nullptr || holders->single->isDag()) &&
           child(*parent, name) == nullptr;
}

std::string SceneNames::freeName(std::string_view wanted, const Node* parent) const {
    const bool wantsNumber = !wanted.empty() && wanted.back() == '#';
    std::string name = legalName(wantsNumber ? wanted.substr(0, wanted.size() - 1) : wanted);
    if (!wantsNumber && isFree(name, parent)) {
        return name;
    }
    const NumberedName split = wantsNumber ? NumberedName{name, 0} : splitNumber(name);
    const std::string base(split.base);
    const CountKey key{parent != nullptr ? parent->id() : NodeId(), split.number + 1};
    std::uint32_t& next = counts_[base].try_emplace(key, split.number + 1).first->second;
    do {
        name = base + std::to_string(next++);
    } while (!isFree(name, parent));
    --next; // the caller may leave this one
    return name;
}

void SceneNames::forgetCounts(std::string_view name) {
    if (!counts_.empty()) {
        counts_.erase(std::string(splitNumber(name).base));
        counts_.erase(std::string(name));
    }
}

void SceneNames::add(Node& node) {
    Bearers& holders = byName_[node.name()];
    if (holders.count() == 0) {
        holders.single = &node;
        return;
    }
    if (holders.more == nullptr) {
        holders.more = std::make_unique<std::unordered_set<Node*>>();
        holders.more->insert(holders.single);
        holders.single = nullptr;
    }
    holders.more->insert(&node);
}

void SceneNames::addChild(Node& node, const Node& parent) {
    children_[{&parent, node.name()}] = &node;
}

void SceneNames::removeChild(const Node& node, const Node& parent) {
    children_.erase({&parent, node.name()});
    forgetCounts(node.name());
}

void SceneNames::remove(const Node& node) {
    forgetCounts(node.name());
    const auto found = byName_.find(node.name());
    if (found == byName_.end()) {
        return;
    }
    Bearers& holders = found->second;
    if (holders.single == &node) {
        byName_.erase(found);
        return;
    }
    if (holders.more == nullptr) {
        return;
    }
    holders.more->erase(const_cast<Node*>(&node));
    if (holders.more->size() == 1) {
        holders.single = *holders.more->begin();
        holders.more.reset();
    }
}

void SceneNames::clear() {
    byName_.clear();
    children_.clear();
    counts_.clear();
    namespaces_.clear();
    scope_ = NameScope();
}

bool SceneNames::isNamespace(const std::string& name) const {
    const std::string start = name + ":";
    return isNamespaceMade(name) || std::any_of(byName_.begin(), byName_.end(), [&](const auto& entry) {
               return entry.first.compare(0, start.size(), start) == 0;
           });
}

const SceneNames::Bearers* SceneNames::bearers(std::string_view name) const {
    const auto found = byName_.find(std::string(name));
    return found == byName_.end() ? nullptr : &found->second;
}

std::vector<Node*> SceneNames::nodesNamed(std::string_view shortName) const {
    const Bearers* holders = bearers(withoutRootNamespace(shortName));
    if (holders == nullptr) {
        return {};
    }
    if (holders->single != nullptr) {
        return {holders->single};
    }
    return {holders->more->begin(), holders->more->end()};
}

Node* SceneNames::child(const Node& parent, std::string_view name) const {
    const auto found = children_.find({&parent, name});
    return found == children_.end() ? nullptr : found->second;
}

std::size_t SceneNames::ChildHash::operator()(const ChildKey& key) const {
    constexpr std::size_t kSpread = 0x9E3779B97F4A7C15U; // golden ratio: neighbours in memory become far apart
    return std::hash<std::string_view>()(key.name) ^ (std::hash<const void*>()(key.parent) * kSpread);
}

std::size_t SceneNames::CountHash::operator()(const CountKey& key) const {
    return std::hash<std::uint64_t>()((std::uint64_t{key.parent.slot} << 32U) ^
                                      (std::uint64_t{key.parent.generation} << 20U) ^ key.start);
}

} // namespace host
