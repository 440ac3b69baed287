#pragma once

#include "host/scene/Scene.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace host {

class MappedFile;

/// What a `file -r` or `file -rdi` of a scene says.
struct ReferenceRequest {
    std::string path;      // as written
    std::string node;      // name of the reference node; "" when none is named
    std::string space;     // namespace, ":" for none
    bool hasSpace = false; // without one and without a prefix, the file's own name is the prefix
    std::string prefix;
    bool isDeferred = false;
    bool mergesNamespaces = false; // a namespace that is there is used; else a free one is found
};

/// Reads one scene and the files that it refers to, each where the scene names it, into namespaces or behind prefixes.
///
/// Files are read with units of their own. Nodes that every scene has are not made twice, and a file that is referred
/// to does not change them; it changes neither time nor playback range. A file that cannot be read leaves nothing
/// behind. Depth, number and bytes of references are bounded, and no file is read within itself.
class References {
public:
    explicit References(Scene& scene) : scene_(scene) {}
    References(const References&) = delete;
    References& operator=(const References&) = delete;

    /// Reads the scene itself; `name` is its path.
    SceneResult readScene(std::string_view text, const std::string& name);

    /// `file -rdi`: whether a reference is to be loaded, and where it is if the file that names it is wrong. What the
    /// outermost file says counts.
    void declare(const ReferenceRequest& request);
    /// `file -r`: reads the file into the scene. "" or a whole warning: the reference is not loaded, or it is Maya
    /// Binary and its Maya ASCII twin was read instead.
    std::string load(const ReferenceRequest& request);
    /// By the name of the reference node as the file that is read now has it.
    bool isLoaded(std::string_view node) const { return loaded_.count(scene_.names().scope().nameOf(node)) != 0; }

    /// Whether a warning is given for the first time.
    bool isNews(const std::string& line) { return told_.insert(line).second; }

private:
    struct Declaration {
        std::string path;
        bool isDeferred = false;
    };

    struct Found {
        std::string path;
        bool isAscii = false; // instead of the Maya Binary file that is asked for
        std::string error;    // nothing was found, or nothing that can be read
    };

    SceneResult read(std::string_view text, const std::string& name);
    std::vector<std::string> placesOf(const ReferenceRequest& request) const;
    Found openFirst(const ReferenceRequest& request, MappedFile& file) const;
    std::string refuse(const std::string& path, std::size_t bytes);
    NameScope scopeFor(const ReferenceRequest& request);
    SceneResult readInto(NameScope scope, const MappedFile& file, const std::string& path);

    Scene& scene_;
    std::vector<std::string> files_;              // being read, outermost first, as they are called in messages
    std::vector<std::string> places_;             // the same, as the system knows them
    std::map<std::string, Declaration> declared_; // by reference node
    std::set<std::string> loaded_;                // reference nodes
    std::vector<std::string> loadedInTurn_;       // the same
    std::unordered_set<std::string> told_;
    std::size_t count_ = 0, bytes_ = 0; // of references that were begun
};

/// "" and the file opened, or one line that says why it is no scene that can be read.
std::string openSceneFile(const std::string& path, MappedFile& file);

} // namespace host
