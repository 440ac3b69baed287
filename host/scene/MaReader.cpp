#include "host/scene/MaReader.h"

#include "host/scene/References.h"
#include "host/scene/SceneArguments.h"
#include "host/scene/addAttrStatement.h"
#include "host/scene/applyReferenceEdits.h"
#include "host/scene/connectionStatements.h"
#include "host/scene/namespaceStatement.h"
#include "host/scene/nodeStatements.h"
#include "host/scene/referenceStatement.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/sceneStatements.h"
#include "host/scene/setAttrStatement.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace host {

using mel::Token;
using mel::TokenKind;

namespace {

constexpr std::string_view kHeading = "//Maya ASCII";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Values of a script node's scriptType.
constexpr int kOnDemand = 0;
constexpr int kWindowLayout = 3;
constexpr int kSceneConfiguration = 6;

bool isIdentifier(std::string_view word) {
    const auto isLetter = [](char byte) { return byte == '_' || ((byte | 32) >= 'a' && (byte | 32) <= 'z'); };
    return isLetter(word.front()) && std::all_of(word.begin(), word.end(), [&](char byte) {
               return isLetter(byte) || (byte >= '0' && byte <= '9') || byte == ':';
           });
}

} // namespace

// What a file's commands do here. Commands that are not listed are unknown.
struct MaReader::Row {
    std::string_view name;
    enum class Policy : std::uint8_t {
        kRun,
        kRunForScene, // read over in a file that the scene refers to
        kIgnore,
        kRefuse,
    } policy;
    Outcome (*run)(StatementContext&, ArgumentStream&) = nullptr;
};

const MaReader::Row* MaReader::findRow(std::string_view command) {
    using Policy = Row::Policy;
    static constexpr Row kRows[] = {
        {"setAttr", Policy::kRun, setAttrStatement},
        {"connectAttr", Policy::kRun, connectAttrStatement},
        {"createNode", Policy::kRun, createNodeStatement},
        {"rename", Policy::kRun, renameStatement},
        {"addAttr", Policy::kRun, addAttrStatement},
        {"select", Policy::kRun, selectStatement},
        {"parent", Policy::kRun, parentStatement},
        {"disconnectAttr", Policy::kRun, disconnectAttrStatement},
        {"fileInfo", Policy::kRunForScene, fileInfoStatement},
        {"currentUnit", Policy::kRun, currentUnitStatement},
        {"file", Policy::kRun, referenceStatement},
        {"namespace", Policy::kRun, namespaceStatement},
        {"playbackOptions", Policy::kRunForScene, playbackOptionsStatement},
        {"currentTime", Policy::kRunForScene, currentTimeStatement},
        {"relationship", Policy::kIgnore},
        {"requires", Policy::kIgnore},
        {"lockNode", Policy::kIgnore},
        {"dataStructure", Policy::kIgnore},
        {"applyMetadata", Policy::kIgnore},
        {"editMetadata", Policy::kIgnore},
        {"addMetadata", Policy::kIgnore},
        {"reorder", Policy::kIgnore},
        {"setKeyframe", Policy::kRefuse},
        {"eval", Policy::kRefuse},
        {"evalEcho", Policy::kRefuse},
        {"evalDeferred", Policy::kRefuse},
        {"source", Policy::kRefuse},
        {"python", Policy::kRefuse},
        {"system", Policy::kRefuse},
        {"exec", Policy::kRefuse},
        {"popen", Policy::kRefuse},
        {"sysFile", Policy::kRefuse},
        {"fopen", Policy::kRefuse},
        {"fprint", Policy::kRefuse},
        {"fwrite", Policy::kRefuse},
        {"scriptJob", Policy::kRefuse},
        {"scriptNode", Policy::kRefuse},
        {"expression", Policy::kRefuse},
        {"loadPlugin", Policy::kRefuse},
        {"unloadPlugin", Policy::kRefuse},
        {"delete", Policy::kRefuse},
        {"quit", Policy::kRefuse},
        {"print", Policy::kRefuse},
        {"proc", Policy::kRefuse},
        {"global", Policy::kRefuse},
    };
    const auto* found =
        std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& row) { return row.name == command; });
    return found == std::end(kRows) ? nullptr : found;
}

MaReader::MaReader(Scene& scene, std::string name, std::string_view text, References& references)
    : scene_(scene), references_(references), name_(std::move(name)), lexer_(text), context_(scene, true) {
    context_.references = &references;
    context_.warn = [this](const std::string& line) { warnAt(statementOffset_, line); };
    const std::size_t mark = text.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0;
    hasHeading_ = text.substr(mark, kHeading.size()) == kHeading;
}

SceneResult MaReader::read() {
    for (Token command = lexer_.nextSceneToken(); !command.is(TokenKind::kEnd); command = lexer_.nextSceneToken()) {
        statementOffset_ = command.offset;
        if (!command.is(TokenKind::kSemicolon) && !readStatement(command)) {
            return {error_};
        }
    }
    finishFile();
    return {};
}

bool MaReader::readStatement(const Token& command) {
    if (!command.is(TokenKind::kWord) || !isIdentifier(command.text)) {
        return fail(command.offset, messages::text(messages::kExpected, {"a command", mel::describeToken(command)}));
    }
    const Row* row = findRow(command.text);
    return row != nullptr ? runRow(*row) : skipUnknown(command);
}

bool MaReader::runRow(const Row& row) {
    if (row.run != setAttrStatement) {
        context_.finishFaces();
    }
    SceneArguments arguments(lexer_);
    const bool isReference = scene_.names().scope().isReference;
    if (row.policy == Row::Policy::kRun || (row.policy == Row::Policy::kRunForScene && !isReference)) {
        return finishStatement(row.run(context_, arguments));
    }
    if (row.policy == Row::Policy::kRefuse) {
        return finishStatement(Outcome::skipped(messages::kForbiddenCommand, {row.name}));
    }
    arguments.skipRest();
    return finishStatement(Outcome::done());
}

// A text without the heading of a scene is one only as long as its words are.
bool MaReader::skipUnknown(const Token& command) {
    if (!hasHeading_) {
        return fail(command.offset,
                    messages::text(messages::kExpected, {"a command of a scene file", mel::describeToken(command)}));
    }
    return finishStatement(Outcome::skipped(messages::kUnknownCommand, {command.text}));
}

bool MaReader::finishStatement(Outcome outcome) {
    if (outcome.kind == Outcome::Kind::kBroken) {
        return fail(lexer_.peekSceneToken().offset, outcome.text);
    }
    if (outcome.kind == Outcome::Kind::kSkipped) {
        context_.warn(outcome.text);
        SceneArguments(lexer_).skipRest();
    }
    const Token end = lexer_.nextSceneToken();
    return end.is(TokenKind::kSemicolon) ||
           fail(end.offset, messages::text(messages::kExpected, {"';'", mel::describeToken(end)}));
}

void MaReader::finishFile() {
    context_.finishFaces();
    statementOffset_ = lexer_.text().size();
    applyReferenceEdits(context_, references_);
    for (const Plug& plug : context_.locks) {
        const PlugFlags* known = plug.node->flags(plug.at);
        PlugFlags flags = known != nullptr ? *known : PlugFlags();
        flags.locked = true;
        scene_.graph().setFlags(plug, flags);
    }
    removeEmptyFosterParents(context_);
    if (!scene_.names().scope().isReference) {
        readScriptNodes();
    }
}

// Those of files that the scene refers to are told like its own, but say nothing of its playback range.
void MaReader::readScriptNodes() {
    for (Node* node : scene_.graph().nodes()) {
        if (node->type().name() == "script") {
            readScriptNode(*node);
        }
    }
}

void MaReader::readScriptNode(Node& node) {
    Graph& graph = scene_.graph();
    const Plug before{&node, graph.findPlug(node, "before")};
    const Plug type{&node, graph.findPlug(node, "scriptType")};
    if (!before || !type) {
        return;
    }
    const std::string script = graph.string(before);
    const auto kind = static_cast<int>(graph.number(type));
    constexpr std::string_view kConfiguration = "sceneConfigurationScriptNode";
    if (kind == kSceneConfiguration || node.name() == kConfiguration) {
        if (!node.isFromReference) {
            readPlayback(script);
        }
    } else if (kind != kOnDemand && kind != kWindowLayout && !script.empty()) {
        context_.warn(messages::text(messages::kScriptNode, {node.name()}));
    }
}

// The text is a program that sets the playback range; only that one command is read from it.
void MaReader::readPlayback(const std::string& script) {
    mel::Lexer lexer(script);
    for (Token word = lexer.nextSceneToken(); !word.is(TokenKind::kEnd); word = lexer.nextSceneToken()) {
        if (word.is(TokenKind::kSemicolon)) {
            continue;
        }
        SceneArguments arguments(lexer);
        const bool isPlayback = word.isWord("playbackOptions");
        const Outcome outcome = isPlayback ? playbackOptionsStatement(context_, arguments)
                                           : Outcome::skipped(messages::kForbiddenCommand, {word.text});
        if (!outcome.ok()) {
            context_.warn(outcome.text);
        }
        arguments.skipRest();
    }
}

bool MaReader::fail(std::size_t offset, const std::string& text) {
    const mel::SourcePosition at = lexer_.position(offset);
    error_ = name_ + ":" + std::to_string(at.line) + ":" + std::to_string(at.column) + ": " + text;
    return false;
}

void MaReader::warnAt(std::size_t offset, const std::string& text) {
    if (scene_.onWarning && references_.isNews(name_ + '\n' + text)) {
        scene_.onWarning(name_ + "(" + std::to_string(lexer_.position(offset).line) + "): " + text);
    }
}

} // namespace host
