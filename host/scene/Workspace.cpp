#include "host/scene/Workspace.h"

#include "host/mel/Lexer.h"
#include "host/mel/environment.h"
#include "host/mel/filePath.h"
#include "host/scene/MappedFile.h"
#include "host/scene/SceneArguments.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace host {

namespace {

constexpr const char* kRulesFile = "workspace.mel";

// Absolute, with '/' between the parts and at the end; "" when there is no such folder.
std::string folderPath(const std::string& folder) {
    std::error_code failed;
    const std::filesystem::path path = std::filesystem::absolute(filePath(folder), failed);
    if (failed || folder.empty() || !std::filesystem::is_directory(path, failed)) {
        return {};
    }
    std::string text = path.lexically_normal().generic_u8string();
    if (text.back() != '/') {
        text += '/';
    }
    return text;
}

std::string entry(const std::map<std::string, std::string, std::less<>>& rules, std::string_view key) {
    const auto found = rules.find(key);
    return found == rules.end() ? std::string() : found->second;
}

} // namespace

Workspace::Workspace() {
    const std::optional<std::string> project = environmentValue("MAYA_PROJECT");
    if (!project || !open(*project)) {
        open(".");
    }
}

bool Workspace::open(const std::string& directory) {
    std::string folder = folderPath(directory);
    if (folder.empty()) {
        return false;
    }
    root_ = std::move(folder);
    directory_ = root_;
    objectTypes_.clear();
    fileRules_.clear();
    MappedFile rules;
    if (rules.open(root_ + kRulesFile).empty()) {
        readRules(rules.bytes());
    }
    return true;
}

bool Workspace::setDirectory(const std::string& directory) {
    const bool isRelative = filePath(directory).is_relative();
    std::string folder = folderPath(isRelative ? root_ + directory : directory);
    if (folder.empty()) {
        return false;
    }
    directory_ = std::move(folder);
    return true;
}

std::string Workspace::fullName() const {
    return root_.size() > 1 ? root_.substr(0, root_.size() - 1) : root_;
}

std::string Workspace::objectTypeEntry(std::string_view type) const {
    return entry(objectTypes_, type);
}

std::string Workspace::fileRuleEntry(std::string_view rule) const {
    return entry(fileRules_, rule);
}

void Workspace::readRules(std::string_view text) {
    mel::Lexer lexer(text);
    SceneArguments arguments(lexer);
    for (mel::Token word = lexer.nextSceneToken(); word.is(mel::TokenKind::kWord); word = lexer.nextSceneToken()) {
        std::string flag;
        std::vector<std::string> texts;
        std::string_view next;
        while (word.isWord("workspace") && (arguments.takeFlag(next) || arguments.takeText(next))) {
            if (flag.empty()) {
                flag = next;
            } else {
                texts.emplace_back(next);
            }
        }
        if (texts.size() == 2 && (flag == "fr" || flag == "fileRule")) {
            fileRules_[texts[0]] = texts[1];
        } else if (texts.size() == 2 && (flag == "ot" || flag == "objectType")) {
            objectTypes_[texts[0]] = texts[1];
        }
        if (!lexer.skipStatement().is(mel::TokenKind::kSemicolon)) {
            return;
        }
    }
}

} // namespace host
