#pragma once

#include "scene/OutputKind.h"

#include <maya/MStatus.h>

#include <iosfwd>
#include <string>

namespace tvk {

// Versions that the files carry.
inline constexpr const char* kFileFormatVersion = "1.6.0";
inline constexpr const char* kExporterVersion = "1.6.0.20061003";
inline constexpr const char* kExporterName = "TVK_Export";

/// Who made a file, where, when, from what. Taken once per file.
struct CreateRecord {
    std::string user;
    std::string host;
    std::string date;   // local time, "2006-10-03T09:05:00"
    std::string source; // name of the scene file without its folder
};

CreateRecord readCreateRecord();

/// Makes one file: <outputFolder><baseName>.<extension>, replacing what was there. Fails, with a message, when it
/// cannot be opened or not be written in full, and silently with the status of its body; what was written stays.
MStatus writeOutputFile(OutputKind kind);

/// The path of a kind's file, UTF-8.
std::string outputPath(OutputKind kind);

/// Declaration, root start tag, head, body start tag, the model's repeated records, and the info element.
void writeHead(std::ostream& out, OutputKind kind, const CreateRecord& create);

/// The element that lists the settings of the export, one attribute per line.
void writeInfo(std::ostream& out, OutputKind kind);

/// The model's totals, the body end tag and the root end tag.
void writeTail(std::ostream& out, OutputKind kind);

} // namespace tvk
