#pragma once

#include <map>
#include <string>
#include <string_view>

namespace host {

/// A project: a root folder and the folders below it for each kind of file. Paths have '/' between their parts.
class Workspace {
public:
    /// Starts with the folder that the user's default project has: $MAYA_PROJECT, else the current folder.
    Workspace();

    /// Makes `directory` the project and reads its `workspace.mel`, if there is one, as data: the rules of
    /// `workspace -fr "scene" "scenes"`, `-ot` and `-rt` lines; nothing in it is run and broken text ends the reading.
    /// False, and nothing changed, when it is no folder.
    bool open(const std::string& directory);

    /// With a '/' at the end.
    const std::string& rootDirectory() const { return root_; }
    /// Current folder for relative names, with a '/' at the end; the root unless it was changed.
    const std::string& directory() const { return directory_; }
    bool setDirectory(const std::string& directory);
    /// Without a '/' at the end.
    std::string fullName() const;

    /// Folder registered for an object type ("scene") or file rule; "" when there is none.
    std::string objectTypeEntry(std::string_view type) const;
    std::string fileRuleEntry(std::string_view rule) const;
    void setObjectTypeEntry(std::string type, std::string folder) { objectTypes_[std::move(type)] = std::move(folder); }
    void setFileRuleEntry(std::string rule, std::string folder) { fileRules_[std::move(rule)] = std::move(folder); }

private:
    void readRules(std::string_view text);

    std::string root_, directory_;
    std::map<std::string, std::string, std::less<>> objectTypes_, fileRules_;
};

} // namespace host
