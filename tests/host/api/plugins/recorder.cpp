// A plug-in that tests can watch: a file type that writes down what it was called with, and commands of every kind of
// argument and result. It registers in three steps and stops at the first one that the host refuses.

#include <maya/MArgDatabase.h>
#include <maya/MFileIO.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MIOStream.h>
#include <maya/MPxCommand.h>
#include <maya/MPxFileTranslator.h>
#include <maya/MSelectionList.h>

#include <fstream>
#include <new>
#include <stdexcept>

namespace {

class RecordTranslator : public MPxFileTranslator {
public:
    static void* create() { return new RecordTranslator; }

    bool haveWriteMethod() const override { return true; }
    MString defaultExtension() const override { return "rec"; }

    MStatus writer(const MFileObject& file, const MString& options, FileAccessMode mode) override {
        if (options == "fail") {
            return MStatus::kFailure;
        }
        if (options == "throw") {
            throw std::runtime_error("the writer gave up");
        }
        MSelectionList selection;
        MGlobal::getActiveSelectionList(selection);
        MStringArray names;
        selection.getSelectionStrings(names);
        std::ofstream stream(file.fullName().asChar());
        stream << "path " << file.path() << "\nname " << file.name() << "\noptions " << options << "\nmode " << mode
               << "\ncurrent mode " << fileAccessMode() << "\nwriting " << MFileIO::isWritingFile() << "\nexporting "
               << MFileIO::beforeExportFilename() << '\n';
        for (unsigned int i = 0; i < names.length(); ++i) {
            stream << "selected " << names[i] << '\n';
        }
        cerr << "Warning: recorded " << file.name() << '\n';
        MGlobal::displayInfo(MString("recorded ") + file.name());
        return stream.good() ? MStatus::kSuccess : MStatus::kFailure;
    }
};

/// recordEcho -t TEXT -n NUMBER [-b] [-m TEXT]… OBJECT…: a string array of what it was given.
class EchoCommand : public MPxCommand {
public:
    static void* create() { return new EchoCommand; }

    static MSyntax createSyntax() {
        MSyntax syntax;
        syntax.addFlag("-t", "-text", MSyntax::kString);
        syntax.addFlag("n", "number", MSyntax::kDouble);
        syntax.addFlag("b", "bare");
        syntax.addFlag("m", "many", MSyntax::kString);
        syntax.makeFlagMultiUse("m");
        syntax.setObjectType(MSyntax::kStringObjects);
        return syntax;
    }

    MStatus doIt(const MArgList& arguments) override {
        MStatus status;
        const MArgDatabase database(syntax(), arguments, &status);
        if (status != MStatus::kSuccess) {
            return status;
        }
        MStringArray result;
        MString text;
        if (database.getFlagArgument("-text", 0, text) == MStatus::kSuccess) {
            result.append(MString("text ") + text);
        }
        double number = 0.0;
        if (database.getFlagArgument("n", 0, number) == MStatus::kSuccess) {
            result.append(MString("number ") + number);
        }
        if (database.isFlagSet("-b")) {
            result.append("bare");
        }
        for (unsigned int use = 0; use < database.numberOfFlagUses("many"); ++use) {
            MArgList values;
            database.getFlagArgumentList("many", use, values);
            result.append(MString("many ") + values.asString(0));
        }
        MStringArray objects;
        database.getObjects(objects);
        for (unsigned int i = 0; i < objects.length(); ++i) {
            result.append(MString("object ") + objects[i]);
        }
        setResult(result);
        return MStatus::kSuccess;
    }
};

/// recordRun KIND [MEL]: fails, throws, or runs MEL and gives its result, as KIND says.
class RunCommand : public MPxCommand {
public:
    static void* create() { return new RunCommand; }

    MStatus doIt(const MArgList& arguments) override {
        const MString kind = arguments.asString(0);
        setResult("lost unless it succeeds");
        if (kind == "throw") {
            throw std::runtime_error("the command gave up");
        }
        if (kind == "memory") {
            throw std::bad_alloc();
        }
        if (kind == "text") {
            MString result;
            const MStatus status = MGlobal::executeCommand(arguments.asString(1), result);
            setResult(MString("got ") + result);
            return status;
        }
        if (kind == "list") {
            clearResult();
            appendToResult(1);
            appendToResult(2);
            return MStatus::kSuccess;
        }
        return MStatus::kFailure;
    }
};

} // namespace

MStatus initializePlugin(MObject object) {
    MFnPlugin plugin(object, "Tests", "1.2", "1.0");
    MStatus status =
        plugin.registerFileTranslator("Record", "", RecordTranslator::create, "recordOptions", "default=1;");
    if (status != MStatus::kSuccess) {
        MGlobal::displayError("register Record");
        return status;
    }
    status = plugin.registerCommand("recordEcho", EchoCommand::create, EchoCommand::createSyntax);
    if (status != MStatus::kSuccess) {
        MGlobal::displayError("register recordEcho");
        return status;
    }
    status = plugin.registerCommand("recordRun", RunCommand::create);
    if (status != MStatus::kSuccess) {
        MGlobal::displayError("register recordRun");
    }
    return status;
}

MStatus uninitializePlugin(MObject object) {
    MFnPlugin plugin(object);
    MStatus status = plugin.deregisterFileTranslator("Record");
    if (status == MStatus::kSuccess) {
        status = plugin.deregisterCommand("recordEcho");
    }
    if (status == MStatus::kSuccess) {
        status = plugin.deregisterCommand("recordRun");
    }
    return status;
}
