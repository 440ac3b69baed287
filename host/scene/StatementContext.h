#pragma once

#include "host/geometry/PolyFacesBuilder.h"
#include "host/graph/parsePlugPath.h"
#include "host/mel/Value.h"
#include "host/scene/ArgumentStream.h"
#include "host/scene/ReferenceEdits.h"
#include "host/scene/Scene.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class References;

/// How a statement ended.
struct [[nodiscard]] Outcome {
    enum class Kind : std::uint8_t {
        kDone,
        kSkipped, // understood, but it cannot be done here: a warning in a file, an error of a command
        kBroken,  // no such statement: ends the reading of a file
    };

    Kind kind = Kind::kDone;
    std::string text;
    mel::Value value; // the result of a command

    static Outcome done(mel::Value result = {}) { return {Kind::kDone, {}, std::move(result)}; }
    static Outcome skipped(std::string text) { return {Kind::kSkipped, std::move(text), {}}; }
    static Outcome skipped(std::string_view pattern, std::initializer_list<std::string_view> arguments);
    /// "expected …, found …", at the stream's next argument.
    static Outcome broken(ArgumentStream& arguments, std::string_view expected);
    bool ok() const { return kind == Kind::kDone; }
};

/// What the statements of one file, or one command, work on and remember between them.
struct StatementContext {
    StatementContext(Scene& sceneToChange, bool isLoadingFile) : scene(sceneToChange), isLoading(isLoadingFile) {}

    Scene& scene;
    /// A file: the current node is what ".attr" means, locks wait for the end, and what is unknown is left out.
    /// A command: locks hold, and what is unknown is an error.
    bool isLoading;
    Node* current = nullptr;
    bool isCurrentUnknown = false; // the file is about a node that is not here; what it says of it is left out
    /// One line about a part that is left out while the statement goes on; said once per text.
    std::function<void(const std::string&)> warn = [](const std::string&) {};

    /// The other files of the scene; null for a command.
    References* references = nullptr;
    /// What a file changes in them, for its end.
    std::vector<ReferenceEdits> edits;

    /// Makes `node` the one that the file is about from here on. A file that the scene refers to says nothing of nodes
    /// that every scene has.
    void goTo(Node* node);

    /// Locks met in a file: a file sets and connects what it also locks.
    std::vector<Plug> locks;
    /// The type of the last typed value of an attribute that takes any: later chunks of an array do not repeat it.
    Plug typedPlug;
    std::string typedAs;
    /// Faces of a mesh in the middle of their chunks, and the array that holds them (all at its element 0).
    Plug facesPlug;
    std::unique_ptr<PolyFacesBuilder> faces;
    /// Stores the faces gathered so far. To be called before anything may read them.
    void finishFaces();
    /// Whether a statement goes on behind an unknown flag: in a file, with a warning, after what seems to be its value.
    bool passUnknownFlag(ArgumentStream& arguments, std::string_view flag, std::string_view command, Outcome& outcome);
};

/// A plug or range of plugs that a statement names as "node.attr", "|a|b.attr" or ".attr".
struct PlugTarget {
    Node* node = nullptr;
    PlugRange range;
    /// With node null or the range empty: why. Unknown attributes of nodes that are unknown themselves give kDone,
    /// and nothing is to be done.
    Outcome failure;

    bool ok() const { return node != nullptr && static_cast<bool>(range); }
    Plug plug() const { return {node, range.at}; }
};
PlugTarget findTarget(StatementContext& context, std::string_view name);

} // namespace host
