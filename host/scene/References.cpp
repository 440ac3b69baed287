#include "host/scene/References.h"

#include "host/mel/filePath.h"
#include "host/scene/MaReader.h"
#include "host/scene/MappedFile.h"
#include "host/scene/codeset.h"
#include "host/scene/referencePlaces.h"
#include "host/scene/sceneMessages.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace host {

namespace {

// Far beyond what anybody works with: files that refer to each other twice at every level double at every level.
constexpr std::size_t kMostLevels = 32;
constexpr std::size_t kMostReferences = 10000;
constexpr std::size_t kMostBytes = std::size_t{4} << 30U;

bool isBinaryScene(std::string_view bytes) {
    const std::string_view start = bytes.substr(0, 4);
    return start == "FOR4" || start == "FOR8";
}

// One file has one place, however it is named.
std::string placeOf(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path place = std::filesystem::canonical(filePath(path), failed);
    return failed ? path : place.u8string();
}

bool isSomething(const std::string& path) {
    std::error_code failed;
    return std::filesystem::exists(filePath(path), failed);
}

std::string tryScene(const std::string& path) {
    MappedFile file;
    return openSceneFile(path, file);
}

// Where "rig.mb" may have been saved as Maya ASCII; other paths as they are.
std::string asAscii(const std::string& path) {
    constexpr std::string_view kBinaryEnding = ".mb";
    const bool isBinary = path.size() > kBinaryEnding.size() &&
                          path.compare(path.size() - kBinaryEnding.size(), kBinaryEnding.size(), kBinaryEnding) == 0;
    return isBinary ? path.substr(0, path.size() - kBinaryEnding.size()) + ".ma" : path;
}

// "dir/rig_v2.ma{1}" is rig_v2.
std::string baseName(std::string_view path) {
    path.remove_prefix(path.find_last_of("/\\") + 1); // 0 without a folder
    return SceneNames::legalName(path.substr(0, path.find('.')));
}

std::string nodeNameOf(const ReferenceRequest& request) {
    return request.node.empty() ? baseName(request.path) + "RN" : request.node;
}

// "a" a1, "a1" a2 …, the first that is nobody's.
std::string freeNamespace(const SceneNames& names, const std::string& wanted) {
    const std::string base = wanted.substr(0, wanted.find_last_not_of("0123456789") + 1);
    std::string name = wanted;
    for (int number = 1; names.isNamespaceMade(name); ++number) {
        name = base + std::to_string(number);
    }
    return name;
}

} // namespace

std::string openSceneFile(const std::string& path, MappedFile& file) {
    std::string error = file.open(path);
    if (error.empty() && isBinaryScene(file.bytes())) {
        error = messages::text(messages::kFileBinary, {path});
    }
    return error;
}

SceneResult References::readScene(std::string_view text, const std::string& name) {
    places_.push_back(placeOf(name));
    SceneResult result = read(text, name);
    places_.pop_back();
    scene_.nameScope() = NameScope();
    return result;
}

SceneResult References::read(std::string_view text, const std::string& name) {
    const DecodedText decoded = decodeToUtf8(text);
    if (scene_.onWarning && (decoded.isUnknownCodeset || decoded.hasBrokenText)) {
        const std::string_view pattern = decoded.isUnknownCodeset ? messages::kUnknownCodeset : messages::kBrokenText;
        const std::string line = name + ": " + messages::text(pattern, {findCodeset(text)});
        if (isNews(line)) {
            scene_.onWarning(line);
        }
    }
    files_.push_back(name);
    SceneResult result =
        MaReader(scene_, name, decoded.isChanged ? std::string_view(decoded.storage) : text, *this).read();
    files_.pop_back();
    return result;
}

void References::declare(const ReferenceRequest& request) {
    const std::string node = scene_.names().scope().nameOf(nodeNameOf(request));
    declared_.try_emplace(node, Declaration{request.path, request.isDeferred});
}

// By the reference's own path, then by the one that an outer scene declares.
std::vector<std::string> References::placesOf(const ReferenceRequest& request) const {
    std::vector<std::string> places = referencePlaces(request.path, files_.back(), scene_.workspace());
    const auto declared = declared_.find(scene_.names().scope().nameOf(nodeNameOf(request)));
    if (declared != declared_.end() && declared->second.path != request.path) {
        const std::vector<std::string> more = referencePlaces(declared->second.path, files_.back(), scene_.workspace());
        places.insert(places.end(), more.begin(), more.end());
    }
    return places;
}

// What is there but cannot be read is told only when nothing better is found.
References::Found References::openFirst(const ReferenceRequest& request, MappedFile& file) const {
    std::string firstFailure;
    for (const std::string& place : placesOf(request)) {
        const std::string ascii = asAscii(place);
        const std::string failure = tryScene(place);
        if (failure.empty() || tryScene(ascii).empty()) {
            const std::string& path = failure.empty() ? place : ascii;
            return {path, path != place, file.open(path)};
        }
        if (firstFailure.empty() && isSomething(place)) {
            firstFailure = failure;
        }
    }
    return {{}, false, firstFailure.empty() ? messages::text(messages::kFileMissing, {request.path}) : firstFailure};
}

std::string References::refuse(const std::string& path, std::size_t bytes) {
    if (std::find(places_.begin(), places_.end(), placeOf(path)) != places_.end()) {
        return messages::text(messages::kReferenceCycle, {path});
    }
    if (places_.size() > kMostLevels) {
        return messages::text(messages::kReferenceDepth, {std::to_string(kMostLevels), path});
    }
    count_ += 1;
    bytes_ += bytes;
    return count_ > kMostReferences || bytes_ > kMostBytes ? messages::text(messages::kReferenceCount, {path})
                                                           : std::string();
}

NameScope References::scopeFor(const ReferenceRequest& request) {
    const NameScope& outer = scene_.names().scope();
    std::string own = SceneNames::legalName(request.space);
    const bool isBare = !request.hasSpace && request.prefix.empty();
    const std::string prefix = SceneNames::legalName(isBare ? baseName(request.path) : request.prefix);
    NameScope scope;
    scope.isReference = true;
    scope.space = outer.fileSpace;
    scope.prefix = outer.prefix + (prefix.empty() ? "" : prefix + "_");
    if (!own.empty()) {
        own = outer.fileSpace + own;
        own = request.mergesNamespaces ? own : freeNamespace(scene_.names(), own);
        scope.space = own + ":";
        scene_.addNamespace(own);
    }
    scope.fileSpace = scope.space;
    return scope;
}

std::string References::load(const ReferenceRequest& request) {
    const std::string name = nodeNameOf(request);
    const std::string node = scene_.names().scope().nameOf(name);
    if (files_.size() == 1) {
        std::vector<std::string>& known = scene_.file().references;
        if (std::find(known.begin(), known.end(), request.path) == known.end()) {
            known.push_back(request.path);
        }
    }
    const auto declared = declared_.find(node);
    if (declared != declared_.end() ? declared->second.isDeferred : request.isDeferred) {
        return messages::text(messages::kReferenceUnloaded, {name, request.path});
    }
    MappedFile file;
    Found found = openFirst(request, file);
    if (found.error.empty()) {
        found.error = refuse(found.path, file.bytes().size());
    }
    if (found.error.empty()) {
        found.error = readInto(scopeFor(request), file, found.path).error;
    }
    if (!found.error.empty()) {
        return messages::text(messages::kReferenceNotLoaded, {name, found.error});
    }
    loaded_.insert(node);
    loadedInTurn_.push_back(node);
    return found.isAscii ? messages::text(messages::kReferenceAscii, {name, found.path}) : std::string();
}

SceneResult References::readInto(NameScope scope, const MappedFile& file, const std::string& path) {
    const Units units = scene_.units();
    const std::size_t before = scene_.graph().nodes().size();
    const std::size_t loadedBefore = loadedInTurn_.size();
    std::swap(scene_.nameScope(), scope);
    scene_.setUnits(Units());
    places_.push_back(placeOf(path));
    SceneResult result = read(file.bytes(), path);
    places_.pop_back();
    scene_.setUnits(units);
    std::swap(scene_.nameScope(), scope);
    if (!result.ok()) {
        const std::vector<Node*> nodes = scene_.graph().nodes();
        (void)scene_.deleteNodes({nodes.begin() + static_cast<std::ptrdiff_t>(before), nodes.end()});
        for (; loadedInTurn_.size() > loadedBefore; loadedInTurn_.pop_back()) {
            loaded_.erase(loadedInTurn_.back());
        }
    }
    return result;
}

} // namespace host
