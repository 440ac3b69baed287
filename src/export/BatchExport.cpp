#include "export/BatchExport.h"

#include "export/LimitedLines.h"
#include "export/batchMessages.h"
#include "export/exportMessages.h"
#include "export/exportSettings.h"
#include "export/melText.h"
#include "export/translatorName.h"
#include "platform/fileSystem.h"
#include "scene/Run.h"
#include "scene/fileNames.h"
#include "scene/hostCompatibility.h"

#include <maya/MGlobal.h>

#include <array>
#include <fstream>
#include <iostream>
#include <string_view>
#include <utility>
#include <vector>

namespace tvk {
namespace {

constexpr std::string_view kLogForbids = "\\=;*?<>|"; // it becomes part of an option string
constexpr std::string_view kNameForbids = "/\\:*?<>|";

std::string quoted(BatchKeyword keyword) {
    return '"' + std::string(wordOf(keyword)) + '"';
}

MStatus isWrong(BatchKeyword keyword, const std::string& value) {
    say(kKeyword, quoted(keyword).append(kIsWrong) + value);
    return MS::kFailure;
}

MStatus isNotSpecified(BatchKeyword keyword) {
    say(kKeyword, quoted(keyword).append(kIsNotSpecified));
    return MS::kFailure;
}

MStatus fail(const Message& message, std::string_view subject = {}) {
    say(message, subject);
    return MS::kFailure;
}

// Writes the text; a log that cannot be written in full stops nothing, as in the exports themselves.
MStatus writeLog(const std::string& path, WriteMode mode, const std::string& text) {
    std::ofstream out;
    if (!openForWriting(out, path, mode)) {
        return fail(kCantOpenFile, path);
    }
    out << text;
    out.close();
    if (out.fail()) {
        say(kCantWriteFile, path);
    }
    return MS::kSuccess;
}

bool existsInScene(const std::string& node) {
    int exists = 0;
    return MGlobal::executeCommand(hostText("objExists " + melQuoted(node)), exists) && exists != 0;
}

MStatus selectRoots(const std::vector<std::string>& roots) {
    if (!runsInHost("select -cl")) {
        return MS::kFailure;
    }
    for (const std::string& root : roots) {
        if (!existsInScene(root) || !runsInHost("select -add " + melQuoted(root))) {
            return fail(kNodeNotFound, root);
        }
    }
    return MS::kSuccess;
}

// The folder within a project that it keeps its scenes in; empty when it has none.
std::string sceneFolderOfProject() {
    MString folder;
    return MGlobal::executeCommand("workspace -q -ote \"scene\"", folder) ? textOf(folder) : std::string();
}

} // namespace

BatchExport::Step BatchExport::stepOf(BatchKeyword keyword) {
    static constexpr std::array<std::pair<BatchKeyword, Step>, 6> kSteps{{
        {BatchKeyword::kLog, &BatchExport::takeLog},
        {BatchKeyword::kInputFolder, &BatchExport::takeInputFolder},
        {BatchKeyword::kOutputFolder, &BatchExport::takeOutputFolder},
        {BatchKeyword::kSettingsFolder, &BatchExport::takeSettingsFolder},
        {BatchKeyword::kSettings, &BatchExport::takeSettings},
        {BatchKeyword::kScene, &BatchExport::takeScene},
    }};
    for (const auto& [known, step] : kSteps) {
        if (known == keyword) {
            return step;
        }
    }
    return nullptr;
}

MStatus BatchExport::run(const std::string& listPath) {
    const MStatus status = readList(listPath);
    if (wasWarned) {
        raiseWarning();
    }
    if (status) {
        std::cerr << batchEnd(exported);
    }
    return status;
}

MStatus BatchExport::plan(const std::string& listPath, bool beginsLog, BatchPlan& plan) {
    planned = &plan;
    beginsLogFile = beginsLog;
    return readList(listPath);
}

MStatus BatchExport::readList(const std::string& listPath) {
    list = listPath;
    std::ifstream in;
    if (fileExists(list)) {
        in.open(systemPath(list));
    }
    if (!in.is_open()) {
        return fail(kCantOpenFile, list);
    }
    return readLines(in);
}

MStatus BatchExport::readLines(std::istream& in) {
    LimitedLines lines(in);
    std::string text;
    if (!lines.next(text) || !isBatchHeader(text)) {
        return fail(kWrongList);
    }
    while (lines.next(text)) {
        const BatchLine line = parseBatchLine(pathText(text));
        const Step step = stepOf(line.keyword);
        const MStatus status = step != nullptr ? (this->*step)(line) : MStatus(MS::kSuccess);
        if (!status) {
            return status;
        }
        mayTakeLog = mayTakeLog && line.keyword == BatchKeyword::kNone;
    }
    return exported > 0 ? MStatus(MS::kSuccess) : isNotSpecified(BatchKeyword::kScene);
}

MStatus BatchExport::takeLog(const BatchLine& line) {
    if (!mayTakeLog) {
        return MS::kSuccess;
    }
    if (line.value.empty()) {
        return fail(kEmptyLog);
    }
    if (holdsAnyOf(line.value, kLogForbids)) {
        return fail(kLogCharacters, line.value);
    }
    log = line.value;
    if (planned != nullptr) {
        planned->log = log;
    }
    return !beginsLogFile ? MStatus(MS::kSuccess) : writeLog(log, WriteMode::kReplace, batchLogHead(list));
}

MStatus BatchExport::takeInputFolder(const BatchLine& line) {
    scene.inputFolder = withoutFinalSlashes(line.value);
    if (!folderExists(scene.inputFolder) || !runsInHost("workspace -o " + melQuoted(absolutePath(scene.inputFolder)))) {
        return isWrong(line.keyword, scene.inputFolder);
    }
    const std::string ofProject = sceneFolderOfProject();
    sceneFolder = ofProject.empty() ? scene.inputFolder : scene.inputFolder + "/" + ofProject;
    wholeSceneFolder = absolutePath(sceneFolder);
    return MS::kSuccess;
}

MStatus BatchExport::takeOutputFolder(const BatchLine& line) {
    scene.outputFolder = withoutFinalSlashes(line.value);
    wholeOutputFolder = absolutePath(scene.outputFolder);
    return createFolder(scene.outputFolder) ? MStatus(MS::kSuccess) : isWrong(line.keyword, scene.outputFolder);
}

MStatus BatchExport::takeSettingsFolder(const BatchLine& line) {
    scene.settingsFolder = withoutFinalSlashes(line.value);
    settingsAreNew = true;
    return folderExists(scene.settingsFolder) ? MStatus(MS::kSuccess) : isWrong(line.keyword, scene.settingsFolder);
}

MStatus BatchExport::takeSettings(const BatchLine& line) {
    scene.settings = line.value;
    settingsAreNew = true;
    return MS::kSuccess;
}

MStatus BatchExport::takeScene(const BatchLine& line) {
    scene.number = exported + 1;
    scene.scene = line.value;
    scene.roots = line.roots;
    MStatus status = settleBase(line);
    for (const auto step : {&BatchExport::checkGiven, &BatchExport::readSettingsFile}) {
        status = status ? (this->*step)() : status;
    }
    if (status && planned != nullptr) {
        planScene();
    } else if (status) {
        status = runScene();
    }
    exported += status ? 1 : 0;
    return status;
}

MStatus BatchExport::runScene() {
    std::cerr << title() << std::flush;
    MStatus status = log.empty() ? MStatus(MS::kSuccess) : logScene();
    if (status) {
        status = openScene();
    }
    const std::vector<std::string> roots = splitRoots(scene.roots);
    if (status && !scene.roots.empty()) {
        status = selectRoots(roots);
    }
    if (status) {
        status = exportScene(!roots.empty());
    }
    return status;
}

std::string BatchExport::title() const {
    return sceneRule(scene.number) + "# scene: " + sceneFolder + "/" + scene.scene + "\n";
}

void BatchExport::planScene() {
    BatchJob job;
    job.project = absolutePath(scene.inputFolder);
    job.scene = wholeSceneFolder + "/" + scene.scene;
    job.settings = absolutePath(scene.settingsFolder + "/" + scene.settings);
    job.output = wholeOutputFolder + "/" + scene.base;
    for (const std::string& root : splitRoots(scene.roots)) {
        job.roots += (job.roots.empty() ? "" : ",") + root;
    }
    job.title = title();
    job.head = batchSceneHead(scene);
    planned->jobs.push_back(job);
}

MStatus BatchExport::settleBase(const BatchLine& line) {
    if (holdsAnyOf(line.name, kNameForbids)) {
        return fail(kNameCharacters, line.name);
    }
    scene.base = line.name.empty() ? baseNameOf(lastComponentOf(line.value)) : line.name;
    return MS::kSuccess;
}

MStatus BatchExport::checkGiven() {
    const std::array<std::pair<BatchKeyword, const std::string&>, 4> needed{{
        {BatchKeyword::kInputFolder, scene.inputFolder},
        {BatchKeyword::kOutputFolder, scene.outputFolder},
        {BatchKeyword::kSettingsFolder, scene.settingsFolder},
        {BatchKeyword::kSettings, scene.settings},
    }};
    for (const auto& [keyword, value] : needed) {
        if (value.empty()) {
            return isNotSpecified(keyword);
        }
    }
    return MS::kSuccess;
}

MStatus BatchExport::readSettingsFile() {
    if (!settingsAreNew) {
        return MS::kSuccess;
    }
    MString options;
    const MString path = hostText(scene.settingsFolder + "/" + scene.settings);
    if (!readExportSettings(options, scene.outputs.data(), path)) {
        return isWrong(BatchKeyword::kSettings, scene.settings);
    }
    optionString = textOf(options);
    settingsAreNew = false;
    return MS::kSuccess;
}

MStatus BatchExport::logScene() const {
    return writeLog(log, WriteMode::kAppend, batchSceneHead(scene));
}

MStatus BatchExport::openScene() const {
    return runsInHost("file -f -o " + melQuoted(wholeSceneFolder + "/" + scene.scene))
               ? MStatus(MS::kSuccess)
               : isWrong(BatchKeyword::kScene, scene.scene);
}

MStatus BatchExport::exportScene(bool selectionOnly) {
    std::string options = optionString + "batch_flag=1;";
    if (!log.empty()) {
        options += "batch_log_path=" + log + ";";
    }
    const std::string command = std::string("file -f ") + (selectionOnly ? "-es" : "-ea") + " -typ " +
                                melQuoted(kTranslatorName) + " -op " + melQuoted(options) + " " +
                                melQuoted(wholeOutputFolder + "/" + scene.base);
    const bool isExported = runsInHost(command);
    wasWarned = wasWarned || warningRaised();
    return isExported ? MStatus(MS::kSuccess) : fail(kFailedToExport);
}

} // namespace tvk
