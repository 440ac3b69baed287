#include "export/envelope.h"

#include "common/numberText.h"
#include "export/bodies.h"
#include "export/exportMessages.h"
#include "platform/fileSystem.h"
#include "platform/userEnvironment.h"
#include "scene/Run.h"
#include "scene/hostCompatibility.h"
#include "scene/xmlText.h"

#include <maya/MFeedbackLine.h>
#include <maya/MFileIO.h>
#include <maya/MGlobal.h>

#include <fstream>
#include <string>
#include <string_view>

namespace tvk {
namespace {

void writeCreate(std::ostream& out, std::string_view element, const CreateRecord& create) {
    out << '<' << element;
    writeAttribute(out, "user", create.user);
    writeAttribute(out, "host", create.host);
    writeAttribute(out, "date", create.date);
    writeAttribute(out, "source", create.source);
    out << "/>\n";
}

void writeGenerator(std::ostream& out, std::string_view element) {
    out << '<' << element;
    writeAttribute(out, "name", "Maya " + textOf(MGlobal::mayaVersion()) + " " + kExporterName);
    writeAttribute(out, "version", kExporterVersion);
    out << "/>\n";
}

// The part of the file between the info element and the tail.
MStatus writeBody(std::ostream& out, OutputKind kind) {
    for (const BodyWriter& writer : kBodyWriters) {
        if (writer.kind == kind) {
            return writer.write(out);
        }
    }
    return MS::kFailure;
}

MStatus closeChecked(std::ofstream& out, const std::string& path) {
    out.close();
    if (out.fail()) {
        say(kCantWriteFile, path);
        return MS::kFailure;
    }
    return MS::kSuccess;
}

} // namespace

CreateRecord readCreateRecord() {
    std::string source = textOf(MFileIO::currentFile());
    const auto slash = source.rfind('/');
    if (slash != std::string::npos && slash > 0) {
        source.erase(0, slash + 1);
    }
    return {userName(), hostName(), localTimeText(localTime()), source};
}

std::string outputPath(OutputKind kind) {
    const ExportOptions& options = run().options;
    return options.outputFolder + options.baseName + "." + std::string(outputKindRow(kind).extension);
}

MStatus writeOutputFile(OutputKind kind) {
    const std::string path = outputPath(kind);
    std::ofstream out;
    if (!openForWriting(out, path, WriteMode::kReplace)) {
        say(kCantOpenFile, path);
        return MS::kFailure;
    }
    MFeedbackLine::setFormat(hostText("Making ... " + std::string(outputKindRow(kind).extension)));
    setupStream(out);
    takeLossyText();
    writeHead(out, kind, readCreateRecord());
    MStatus status = writeBody(out, kind);
    if (status) {
        writeTail(out, kind);
    }
    const MStatus closed = closeChecked(out, path);
    if (takeLossyText()) {
        say(kLossyText, path);
    }
    return status ? closed : status;
}

void writeHead(std::ostream& out, OutputKind kind, const CreateRecord& create) {
    const OutputKindRow row = outputKindRow(kind);
    out << "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n\n<" << row.extension;
    writeAttribute(out, "version", kFileFormatVersion);
    out << ">\n\n<head>\n\t";
    writeCreate(out, "create", create);
    out << "\t<title>" << row.titleWord << " Data for KALDERA ZEPHRA-System</title>\n\t";
    writeGenerator(out, "generator");
    out << "</head>\n\n<body>\n\n";
    if (kind == OutputKind::kImd) {
        writeCreate(out, "original_create", create);
        writeGenerator(out, "original_generator");
        out << '\n';
    }
    writeInfo(out, kind);
}

void writeTail(std::ostream& out, OutputKind kind) {
    const SceneData& scene = run().scene;
    if (kind == OutputKind::kImd) {
        out << "<output_info";
        writeAttribute(out, "vertex_size", scene.vertexTotal);
        writeAttribute(out, "polygon_size", scene.polygonTotal);
        out << "\n\ttriangle_size=\"" << integerText(scene.triangleTotal) << '"';
        writeAttribute(out, "quad_size", scene.quadTotal);
        out << "/>\n\n";
    }
    out << "</body>\n\n</" << outputKindRow(kind).extension << ">\n";
}

} // namespace tvk
