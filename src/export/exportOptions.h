#pragma once

#include <maya/MFileObject.h>
#include <maya/MPxFileTranslator.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace tvk {

/// Fills the run's options for a new export: what the file and the project say, the animation range, defaults for the
/// rest.
///   file   the chosen file; its name loses one extension, whichever it is
void resetOptions(const MFileObject& file, MPxFileTranslator::FileAccessMode mode);

/// Takes "key=value;key=value" into the run's options. Unknown keys and pieces without a value are passed over; the
/// last of two equal keys wins; a value ends at a second '='. Always succeeds.
MStatus parseOptions(const MString& optionString);

/// Settles the outputs, the frame range and the derived flags. Fails, with a message, when no output is on or the range
/// is empty.
MStatus validateOptions();

} // namespace tvk
