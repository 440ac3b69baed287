#pragma once

#include "host/app/preview/JsonText.h"

#include "decode/ExportedFiles.h"

namespace host::app::preview {

// The model's part of the page's data. Each writes one value. Throw a decode::FileError for what they cannot show.

void writeNodes(const decode::ExportedFiles& files, JsonText& json);
void writeMatrices(const decode::ExportedFiles& files, JsonText& json);
void writePolygons(const decode::ExportedFiles& files, JsonText& json);
void writeMaterials(const decode::ExportedFiles& files, JsonText& json);
void writeImages(const decode::ExportedFiles& files, JsonText& json);

/// Lines about what the page leaves out of what the materials ask for.
void writeNotes(const decode::ExportedFiles& files, JsonText& json);

/// The model's materials in their order; null when it has none.
const decode::FileElement* materialArray(const decode::ExportedFiles& files);

} // namespace host::app::preview
