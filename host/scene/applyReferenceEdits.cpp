#include "host/scene/applyReferenceEdits.h"

#include "host/scene/Placeholders.h"
#include "host/scene/References.h"
#include "host/scene/SceneArguments.h"
#include "host/scene/addAttrStatement.h"
#include "host/scene/connectionStatements.h"
#include "host/scene/nodeStatements.h"
#include "host/scene/sceneMessages.h"
#include "host/scene/setAttrStatement.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace host {

namespace {

using Statement = Outcome (*)(StatementContext&, ArgumentStream&);

// In which order the kinds are done: what is locked or driven within the other file is freed first, then everything
// comes to its place, so that the paths of what follows are right.
int rankOf(int kind) {
    constexpr std::array<int, 10> kRanks = {1, 2, 4, 3, 5, 6, 7, 7, 8, 0};
    return kind < 0 ? 9 : kRanks[static_cast<std::size_t>(kind)];
}

// Whether an edit names all that it is about.
bool isWhole(const ReferenceEdit& edit) {
    constexpr std::array<std::size_t, 10> kFewestTexts = {1, 2, 2, 2, 2, 3, 0, 0, 2, 2};
    return edit.kind < 0 || edit.texts.size() >= kFewestTexts[static_cast<std::size_t>(edit.kind)];
}

std::string inQuotes(std::string_view text) {
    std::string whole = "\"";
    for (const char byte : text) {
        whole += byte == '"' || byte == '\\' ? "\\" : "";
        whole += byte == '\n' ? ' ' : byte;
    }
    return whole + "\"";
}

class EditApplier {
public:
    EditApplier(StatementContext& context, Placeholders& placeholders)
        : context_(context), placeholders_(placeholders) {}

    void apply(ReferenceEditBlock& block) {
        std::stable_sort(block.edits.begin(), block.edits.end(), [](const ReferenceEdit& a, const ReferenceEdit& b) {
            return rankOf(a.kind) < rankOf(b.kind);
        });
        std::size_t failures = 0;
        std::string first;
        for (const ReferenceEdit& edit : block.edits) {
            Outcome outcome = isWhole(edit) ? applyOne(edit) : Outcome::skipped(messages::kEditCut, {});
            if (!outcome.ok() && failures++ == 0) {
                first = std::move(outcome.text);
            }
        }
        if (failures > 0) {
            context_.warn(
                messages::text(messages::kEditsNotDone,
                               {std::to_string(failures), std::to_string(block.edits.size()), block.reference, first}));
        }
    }

private:
    Outcome applyOne(const ReferenceEdit& edit) {
        const auto text = [&](std::size_t at) { return at < edit.texts.size() ? edit.texts[at] : std::string(); };
        const std::string first = placedName(context_.scene, text(0));
        switch (edit.kind) {
        case ReferenceEdit::kParent:
            return text(1).empty() ? run(parentStatement, "-w " + text(2) + " " + inQuotes(first))
                                   : run(parentStatement, text(2) + " " + inQuotes(first) + " " +
                                                              inQuotes(placedName(context_.scene, text(1))));
        case ReferenceEdit::kAddAttribute: // the short name may be left out
            return run(addAttrStatement, "-ln " + inQuotes(text(1)) + " -sn " +
                                             inQuotes(text(edit.texts.size() > 3 ? 2 : 1)) + " " + edit.texts.back() +
                                             " " + inQuotes(first));
        case ReferenceEdit::kSetAttribute:
            return run(setAttrStatement, inQuotes(first + "." + text(1)) + " " + text(2));
        case ReferenceEdit::kDisconnect:
            return run(disconnectAttrStatement,
                       text(2) + " " + inQuotes(first) + " " + inQuotes(placedName(context_.scene, text(1))));
        case ReferenceEdit::kDeleteAttribute:
            return Outcome::skipped(messages::kAttributeStays, {text(0) + "." + text(1)});
        case ReferenceEdit::kConnect:
            return placeholders_.connect(edit.texts);
        case ReferenceEdit::kLock:
        case ReferenceEdit::kUnlock:
            return run(setAttrStatement, std::string("-l ") + (edit.kind == ReferenceEdit::kLock ? "on " : "off ") +
                                             inQuotes(first + "." + text(1)));
        case ReferenceEdit::kRelationship:
        case ReferenceEdit::kRelationshipToo:
            return Outcome::done();
        default:
            return Outcome::skipped(messages::kEditNotKnown, {});
        }
    }

    Outcome run(Statement statement, const std::string& text) {
        mel::Lexer lexer(text);
        SceneArguments arguments(lexer);
        return statement(context_, arguments);
    }

    StatementContext& context_;
    Placeholders& placeholders_;
};

} // namespace

void applyReferenceEdits(StatementContext& context, const References& references) {
    if (context.edits.empty()) {
        return;
    }
    Placeholders placeholders(context);
    EditApplier applier(context, placeholders);
    for (ReferenceEdits& edits : context.edits) {
        for (ReferenceEditBlock& block : edits.blocks) {
            if (references.isLoaded(block.reference)) {
                applier.apply(block);
            }
        }
    }
    placeholders.replace();
}

void removeEmptyFosterParents(StatementContext& context) {
    Scene& scene = context.scene;
    for (const ReferenceEdits& edits : context.edits) {
        const AttrIndex attr = edits.node->findAttribute("fosterParent");
        Node* foster = attr == kNoAttr ? nullptr : scene.graph().sourceOf({edits.node, {attr, 0, {}}}).node;
        if (foster != nullptr && foster->type().name() == "fosterParent" && foster->children().empty()) {
            context.goTo(nullptr);
            (void)scene.deleteNode(*foster);
        }
    }
}

} // namespace host
