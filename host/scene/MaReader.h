#pragma once

#include "host/mel/Lexer.h"
#include "host/scene/Scene.h"
#include "host/scene/StatementContext.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

class References;

/// Reads one Maya ASCII text into a scene: the scene itself, or a file that it refers to, under the scene's current
/// names. Statements are read and done one after the other, straight from the text, which must outlive the reader;
/// memory beside the scene itself does not grow with it.
///
/// Nothing in a file is run: statements that build the scene are done, known ones without meaning here are read over,
/// and whatever else MEL could do is skipped with a warning. Warnings are "NAME(LINE): …", each text once; broken
/// syntax ends the reading with "NAME:LINE:COLUMN: expected …, found …".
class MaReader {
public:
    MaReader(Scene& scene, std::string name, std::string_view text, References& references);

    SceneResult read();

private:
    struct Row;
    static const Row* findRow(std::string_view command);

    bool readStatement(const mel::Token& command);
    bool runRow(const Row& row);
    bool skipUnknown(const mel::Token& command);
    bool finishStatement(Outcome outcome);
    void finishFile();
    void readScriptNodes();
    void readScriptNode(Node& node);
    void readPlayback(const std::string& script);
    bool fail(std::size_t offset, const std::string& text);
    void warnAt(std::size_t offset, const std::string& text);

    Scene& scene_;
    References& references_;
    std::string name_;
    mel::Lexer lexer_;
    StatementContext context_;
    std::size_t statementOffset_ = 0;
    bool hasHeading_ = false;
    std::string error_;
};

} // namespace host
