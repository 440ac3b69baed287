#pragma once

#include "scene/OutputKind.h"

#include <array>
#include <iosfwd>
#include <string>

#include <maya/MStatus.h>
#include <maya/MString.h>

namespace tvk {

/// What a settings file says.
struct ExportSettings {
    std::string optionString;                        // every key of the settings table, each followed by ';'
    std::array<bool, kOutputKinds.size()> outputs{}; // that the file itself switches on, by kind
};

/// Reads the text of a settings file. False, with nothing said and only the outputs set, all off, when its first line
/// is not a settings file's. Lines that make no sense are passed over; the values' sense is left to who takes the
/// option string.
[[nodiscard]] bool parseExportSettings(std::istream& in, ExportSettings& settings);

/// The same of a file, for batch export. Fails, with nothing said, when the file cannot be opened or is none.
///   outputFlags   by kind: imd, ica, ima, itp, iva, ita
MStatus readExportSettings(MString& optionString, bool outputFlags[6], const MString& path);

} // namespace tvk
