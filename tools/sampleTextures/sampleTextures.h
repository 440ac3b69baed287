#pragma once

#include "sampleTextures/tgaFile.h"

#include <string_view>
#include <vector>

namespace tvk::samples {

/// One image file of the samples, and what the exporter is meant to make of it.
struct SampleTexture {
    std::string_view fileName;
    std::string_view scene; // that shows it, without extension
    std::string_view format;
    Picture (*paint)(); // what it shows
    FileBytes (*make)();
};

/// Every image file of the samples.
const std::vector<SampleTexture>& sampleTextures();

} // namespace tvk::samples
