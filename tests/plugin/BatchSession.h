#pragma once

#include "PluginSession.h"

#include <string>
#include <vector>

namespace tvk {

/// A host with the exporter and a small project to batch: folders in, out and set, scenes in/a.ma and in/b.ma with a
/// node of that name each and a joint "shared", settings set/model.z3es for the model alone.
class BatchSession : public PluginSession {
public:
    BatchSession();

    /// Writes a file below the folder.
    void write(const std::string& name, const std::string& bytes) const;
    void makeFolder(const std::string& name) const;
    void writeScene(const std::string& name, const std::string& statements) const;
    void writeSettings(const std::string& name, const std::string& lines) const;

    /// The lines that name the project's folders and settings.
    std::string start() const;
    /// Runs a list of a header and these lines, "list.z3be"; '@' stands for the folder. True when the command
    /// succeeded.
    bool batch(const std::string& lines);
    /// The command with any file.
    bool batchFile(const std::string& path);

    /// Names of the nodes in a written model.
    std::vector<std::string> nodesOf(const std::string& model) const;
    /// What the command says of a scene on the error stream before it exports it.
    std::string announced(int number, const std::string& scene) const;
    /// The text with '@' replaced by the folder.
    std::string placed(std::string text) const;
};

} // namespace tvk
