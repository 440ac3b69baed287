#include "host/scene/referenceStatement.h"

#include "host/scene/References.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/statementFlags.h"

#include <utility>

namespace host {

namespace {

enum FileFlag : int { kReference, kDeclaration, kNamespace, kPrefix, kNode, kDeferred, kMerge, kNoEffect };

constexpr StatementFlag kFileFlags[] = {
    {"r", "reference", FlagValue::kNone, kReference},
    {"rdi", "referenceDepthInfo", FlagValue::kInteger, kDeclaration},
    {"ns", "namespace", FlagValue::kText, kNamespace},
    {"rpr", "renamingPrefix", FlagValue::kText, kPrefix},
    {"rfn", "referenceNode", FlagValue::kText, kNode},
    {"dr", "deferReference", FlagValue::kNumber, kDeferred},
    {"mnc", "mergeNamespacesOnClash", FlagValue::kOptionalBoolean, kMerge},
    {"op", "options", FlagValue::kText, kNoEffect},
    {"typ", "type", FlagValue::kText, kNoEffect},
    {"shd", "sharedNodes", FlagValue::kText, kNoEffect},
    {"srf", "sharedReferenceFile", FlagValue::kText, kNoEffect},
    {"lrd", "loadReferenceDepth", FlagValue::kText, kNoEffect},
    {"sns", "swapNamespace", FlagValue::kText, kNoEffect},
    {"ra", "renameAll", FlagValue::kOptionalBoolean, kNoEffect},
    {"dns", "defaultNamespace", FlagValue::kNone, kNamespace},
    {"usn", "useNamespacesDuringFileIO", FlagValue::kOptionalBoolean, kNoEffect},
    {"uns", "usingNamespaces", FlagValue::kOptionalBoolean, kNoEffect},
};

struct Statement {
    ReferenceRequest request;
    bool isReference = false, isDeclaration = false;

    void use(const FlagUse& flag) {
        switch (flag.id) {
        case kReference:
            isReference = true;
            break;
        case kDeclaration:
            isDeclaration = true;
            break;
        case kNamespace:
            request.space = flag.text;
            request.hasSpace = true;
            break;
        case kPrefix:
            request.prefix = flag.text;
            break;
        case kNode:
            request.node = flag.text;
            break;
        case kDeferred:
            request.isDeferred = flag.number != 0.0;
            break;
        case kMerge:
            request.mergesNamespaces = flag.isOn;
            break;
        default:
            break;
        }
    }
};

} // namespace

Outcome referenceStatement(StatementContext& context, ArgumentStream& arguments) {
    static const StatementFlags flags("file", kFileFlags);
    Statement statement;
    std::vector<std::string> texts;
    Outcome outcome = flags.takeAll(context, arguments, texts, [&](const FlagUse& flag) { statement.use(flag); });
    if (!outcome.ok()) {
        return outcome;
    }
    if (context.references == nullptr || (!statement.isReference && !statement.isDeclaration)) {
        return Outcome::skipped(messages::kForbiddenCommand, {"file"});
    }
    if (texts.empty()) {
        return Outcome::broken(arguments, "the path of a file");
    }
    statement.request.path = texts.back();
    if (statement.isDeclaration) {
        context.references->declare(statement.request);
        return outcome;
    }
    std::string warning = context.references->load(statement.request);
    return warning.empty() ? outcome : Outcome::skipped(std::move(warning));
}

} // namespace host
