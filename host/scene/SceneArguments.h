#pragma once

#include "host/mel/Lexer.h"
#include "host/scene/ArgumentStream.h"

namespace host {

/// Arguments of a statement of a scene file; they end before the ';'. The text must outlive this.
class SceneArguments final : public ArgumentStream {
public:
    explicit SceneArguments(mel::Lexer& lexer) : lexer_(lexer) {}

    bool atEnd() override;
    bool takeFlag(std::string_view& name) override;
    bool takeText(std::string_view& text) override;
    bool takeString(std::string_view& text) override;
    bool takeBoolean(bool& value) override;
    bool takeNumber(double& value) override { return lexer_.readNumber(value); }
    bool takeInteger(std::int64_t& value) override { return lexer_.readInteger(value); }
    std::size_t takeNumbers(double* values, std::size_t count) override { return lexer_.readNumbers(values, count); }
    std::size_t takeNumbers(float* values, std::size_t count) override { return lexer_.readNumbers(values, count); }
    bool takeStringList(std::vector<std::string>& texts) override;
    void skipRest() override;
    std::size_t mostArguments() override { return lexer_.text().size() - lexer_.offset(); }
    std::string describeNext() override { return mel::describeToken(lexer_.peekSceneToken()); }

private:
    mel::Lexer& lexer_;
    std::string storage_;
};

/// "-name" as a flag is written: '-' and a letter, unless it is a number as other systems print it (-nan, -inf).
bool isFlagWord(std::string_view word);
/// yes no on off true false.
bool parseBoolean(std::string_view word, bool& value);

} // namespace host
