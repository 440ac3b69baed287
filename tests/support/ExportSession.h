#pragma once

#include "HostSession.h"

#include "scene/Run.h"

#include <maya/MPxFileTranslator.h>
#include <maya/MStatus.h>

#include <string>

namespace tvk {

/// A host session with the exporter that is linked into the test. The run's state is new at the beginning.
class ExportSession : public HostSession {
public:
    ExportSession();

    // Exports to <folder>/model.imd and so on.
    MStatus exportAll(const std::string& options = "");
    MStatus exportSelected(const std::string& options = "");
    MStatus exportTo(const std::string& fileName, const std::string& options, MPxFileTranslator::FileAccessMode mode);

    /// Only what comes before the scene is gathered: options as an export would have them, and an empty scene record.
    void prepareRun(const std::string& options = "",
                    MPxFileTranslator::FileAccessMode mode = MPxFileTranslator::kExportAccessMode);
};

} // namespace tvk
