#pragma once

#include "export/batchHeadings.h"
#include "export/batchList.h"

#include <maya/MStatus.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace tvk {

/// A scene of a list, for a process of its own to export. Paths are absolute.
struct BatchJob {
    std::string project, scene, settings;
    std::string output; // base path
    std::string roots;  // between commas, without blanks beside them; empty for the whole scene
    std::string title;  // lines that a batch has on standard error before the export …
    std::string head;   // … and in the log
};

/// What a list asks for.
struct BatchPlan {
    std::string log; // as the list has it; empty: none
    std::vector<BatchJob> jobs;
};

/// Exports the scenes of a batch list, each through the host's own export command. One object serves one list.
class BatchExport {
public:
    /// Fails, with a message on standard error, at the first line that cannot be followed; what was exported before
    /// stays. The exports' own messages go to the list's log, if it names one. In the end the run's warning flag is up
    /// when that of some export was.
    MStatus run(const std::string& listPath);

    /// Follows the list in the same way, but leaves every scene unopened and tells it instead. Output folders are made;
    /// the log is begun only when `beginsLog`. Fails as run() does, with `plan` as far as it came.
    MStatus plan(const std::string& listPath, bool beginsLog, BatchPlan& plan);

private:
    using Step = MStatus (BatchExport::*)(const BatchLine& line);
    static Step stepOf(BatchKeyword keyword);

    MStatus readList(const std::string& listPath);
    MStatus readLines(std::istream& in);
    MStatus takeLog(const BatchLine& line);
    MStatus takeInputFolder(const BatchLine& line);
    MStatus takeOutputFolder(const BatchLine& line);
    MStatus takeSettingsFolder(const BatchLine& line);
    MStatus takeSettings(const BatchLine& line);
    MStatus takeScene(const BatchLine& line);

    MStatus settleBase(const BatchLine& line);
    MStatus checkGiven();
    MStatus readSettingsFile();
    MStatus logScene() const;
    MStatus openScene() const;
    MStatus exportScene(bool selectionOnly);
    MStatus runScene();
    void planScene();
    std::string title() const;

    BatchPlan* planned = nullptr; // null when scenes are exported
    bool beginsLogFile = true;
    std::string list;
    std::string log; // empty: none
    bool mayTakeLog = true;
    std::string sceneFolder; // the input folder, or the folder within it that its project has for scenes
    // What the host gets: it would look for relative paths in its project.
    std::string wholeSceneFolder, wholeOutputFolder;
    std::string optionString;
    bool settingsAreNew = false; // to be read before the next scene
    BatchScene scene;            // what holds for the next one
    int64_t exported = 0;
    bool wasWarned = false; // of some export
};

} // namespace tvk
