#pragma once

#include "TemporaryFolder.h"
#include "decode/ModelFile.h"
#include "decode/VisibilityFile.h"

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <ImathMatrix.h>

#include <iosfwd>
#include <sstream>
#include <string>
#include <vector>

namespace tvk {

/// The embedded host with an empty scene, for one test: what it says is collected, what is written to standard error
/// too, and files go to a folder of the test's own. Everything is put back at the end.
class HostSession {
public:
    HostSession();
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    const TemporaryFolder folder;

    // What the host was told, a line each, in order.
    std::vector<std::string> infos, warnings, errors;
    std::vector<std::string> progress; // of the feedback line, while it is shown
    /// What was written to standard error since the last call or the beginning.
    std::string takeMessages();

    /// Opens a scene of these statements (see sceneText.h); a test failure when it does not open.
    void open(const std::string& statements);
    /// Opens a scene file that has this text, so that the scene has a name.
    void openFile(const std::string& fileName, const std::string& text);
    /// Runs MEL and gives its result as text; a test failure when it ends in an error.
    std::string mel(const std::string& script);
    /// The same without the test failure: true when it ran to the end.
    bool melRuns(const std::string& script);

    /// A written file; a test failure and "" when there is none.
    std::string fileText(const std::string& name) const;
    bool hasFile(const std::string& name) const;
    decode::ModelFile model() const { return decode::readModelFile(fileText("model.imd")); }
    decode::VisibilityFile visibility() const { return decode::readVisibilityFile(fileText("model.iva")); }

    // The scene, through the API as a plug-in sees it.
    MDagPath path(const std::string& name) const;
    MObject node(const std::string& name) const;
    double currentTime() const;

    /// What a reader of the model should find as a node's world matrix: the host's own, with the node's scale pivot as
    /// origin, in units of `magnify`.
    Imath::M44d expectedWorld(const std::string& name, double magnify = 1.0);

private:
    std::ostringstream standardError;
    std::streambuf* oldBuffer;
};

/// Largest difference between elements.
double distance(const Imath::M44d& a, const Imath::M44d& b);

} // namespace tvk
