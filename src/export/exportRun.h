#pragma once

#include <maya/MFileObject.h>
#include <maya/MPxFileTranslator.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

namespace tvk {

/// One export, as the host's file translator is asked for it: options, messages, scene, files, report. Nothing that it
/// gathered outlives it. Fails when a step said an error; never throws. A call from inside a run
/// fails at once, says nothing and disturbs nothing.
MStatus exportFile(const MFileObject& file, const MString& optionString, MPxFileTranslator::FileAccessMode mode);

/// The driver: gathers the scene and writes the files by the run's options, reports, and frees what it gathered.
MStatus runExport();

/// Reads the scene into the run's data. On success the host's current time is what it was; on failure it may not be.
MStatus gatherScene();

/// Writes every kind that is switched on, in their fixed order, up to the first failure.
///   written   counts the files that were written in full
MStatus writeAllFiles(int& written);

} // namespace tvk
