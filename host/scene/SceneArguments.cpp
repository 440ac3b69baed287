#include "host/scene/SceneArguments.h"

#include <array>
#include <utility>

namespace host {

using mel::Token;
using mel::TokenKind;

bool isFlagWord(std::string_view word) {
    const auto isLetter = [](char byte) { return (byte | 32) >= 'a' && (byte | 32) <= 'z'; };
    if (word.size() < 2 || word[0] != '-' || !isLetter(word[1])) {
        return false;
    }
    constexpr std::array<std::string_view, 2> kNumbers = {"nan", "inf"};
    std::string start;
    for (const char byte : word.substr(1, 3)) {
        start += static_cast<char>(byte | 32);
    }
    const bool isWhole = word.size() <= 4 || !isLetter(word[4]);
    return !(isWhole && (start == kNumbers[0] || start == kNumbers[1])) && word != "-infinity";
}

bool parseBoolean(std::string_view word, bool& value) {
    constexpr std::array<std::pair<std::string_view, bool>, 6> kWords = {
        {{"yes", true}, {"no", false}, {"on", true}, {"off", false}, {"true", true}, {"false", false}}};
    for (const auto& [text, meaning] : kWords) {
        if (word == text) {
            value = meaning;
            return true;
        }
    }
    return false;
}

bool SceneArguments::atEnd() {
    const Token next = lexer_.peekSceneToken();
    return next.is(TokenKind::kSemicolon) || next.is(TokenKind::kEnd);
}

bool SceneArguments::takeFlag(std::string_view& name) {
    const std::size_t start = lexer_.offset();
    const Token next = lexer_.nextSceneToken();
    if (next.is(TokenKind::kWord) && isFlagWord(next.text)) {
        name = next.text.substr(1);
        return true;
    }
    lexer_.seek(start);
    return false;
}

bool SceneArguments::takeText(std::string_view& text) {
    const std::size_t start = lexer_.offset();
    const Token next = lexer_.nextSceneToken();
    if (next.is(TokenKind::kWord) && !isFlagWord(next.text)) {
        text = next.text;
        return true;
    }
    lexer_.seek(start);
    return takeString(text);
}

bool SceneArguments::takeString(std::string_view& text) {
    return lexer_.readString(text, storage_);
}

bool SceneArguments::takeBoolean(bool& value) {
    const std::size_t start = lexer_.offset();
    const Token next = lexer_.nextSceneToken();
    if (next.is(TokenKind::kWord) && parseBoolean(next.text, value)) {
        return true;
    }
    lexer_.seek(start);
    return false;
}

bool SceneArguments::takeStringList(std::vector<std::string>& texts) {
    const std::size_t start = lexer_.offset();
    std::vector<std::string> list;
    bool isList = lexer_.nextSceneToken().is(TokenKind::kOpenBrace);
    if (isList && lexer_.peekSceneToken().is(TokenKind::kCloseBrace)) {
        lexer_.nextSceneToken();
        texts.clear();
        return true;
    }
    for (std::string_view text; isList && lexer_.readString(text, storage_);) {
        list.emplace_back(text);
        const Token next = lexer_.nextSceneToken();
        if (next.is(TokenKind::kCloseBrace)) {
            texts = std::move(list);
            return true;
        }
        isList = next.is(TokenKind::kComma);
    }
    lexer_.seek(start);
    return false;
}

void SceneArguments::skipRest() {
    // The ';' stays: whoever reads the statement takes it.
    lexer_.seek(lexer_.skipStatement().offset);
}

} // namespace host
