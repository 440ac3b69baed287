// Stands for the exporter where a test is about the program alone. Its options make it write, warn and fail.

#include <maya/MFeedbackLine.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MIOStream.h>
#include <maya/MPxFileTranslator.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <fstream>
#include <new>
#include <string>

namespace {

class FakeTranslator : public MPxFileTranslator {
public:
    static void* create() { return new FakeTranslator; }

    bool haveWriteMethod() const override { return true; }
    MString defaultExtension() const override { return "imd"; }

    MStatus writer(const MFileObject& file, const MString& options, FileAccessMode mode) override {
        const std::string text = options.asChar();
        const auto has = [&](const char* word) { return text.find(word) != std::string::npos; };
        const std::string name = file.name().asChar();
        const std::string base = std::string(file.path().asChar()) + name.substr(0, name.size() - 4);
        MFeedbackLine::setShowFeedback(true);
        MFeedbackLine::setFormat("Making ^1.0f of ^1.0f");
        MFeedbackLine::setValue(0, 1.0);
        MFeedbackLine::setValue(1, 2.0);
        if (has("memory=1")) {
            throw std::bad_alloc();
        }
        if (has("warn=1")) {
            cerr << "Warning: made to warn\n";
        }
        if (has("fail=1")) {
            cerr << "Error: made to fail\n";
            return MStatus::kFailure;
        }
        if (has("silent=1")) {
            return MStatus::kFailure;
        }
        for (const char* kind : {"imd", "ica", "ima", "itp", "iva", "ita"}) {
            const std::string key = std::string(kind) + "_file_out=";
            const bool isOn = std::string(kind) == "imd" ? !has((key + "0").c_str()) : has((key + "1").c_str());
            if (isOn) {
                write(base + "." + kind, text, mode);
            }
        }
        MGlobal::displayInfo("summary");
        return MStatus::kSuccess;
    }

private:
    static void write(const std::string& path, const std::string& options, FileAccessMode mode) {
        MSelectionList selection;
        MGlobal::getActiveSelectionList(selection);
        MStringArray names;
        selection.getSelectionStrings(names);
        std::ofstream stream(path);
        stream << "options " << options << "\nmode " << mode << '\n';
        for (unsigned int i = 0; i < names.length(); ++i) {
            stream << "selected " << names[i] << '\n';
        }
    }
};

} // namespace

MStatus initializePlugin(MObject object) {
    MFnPlugin plugin(object);
    return plugin.registerFileTranslator("KALDERA_ZEPHRA_System", "", FakeTranslator::create);
}

MStatus uninitializePlugin(MObject object) {
    MFnPlugin plugin(object);
    return plugin.deregisterFileTranslator("KALDERA_ZEPHRA_System");
}
