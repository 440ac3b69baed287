#pragma once

#include "image/Bytes.h"
#include "image/ImageRecord.h"
#include "image/ImageResult.h"

namespace tvk {

enum class ExtensionReading {
    kPartial, // format, colour-0 transparency and palette name: what a name check needs
    kFull,    // everything, which must be complete
};

/// Reads the chunks of a file's extension block into record.extension.
///   block   the file from record.extensionOffset to its end
/// Chunks of unknown names are skipped; of repeated chunks the last wins.
ImageResult readExtension(Bytes block, ExtensionReading reading, ImageRecord& record);

} // namespace tvk
