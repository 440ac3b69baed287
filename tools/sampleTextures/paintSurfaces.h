#pragma once

#include "sampleTextures/Picture.h"

namespace tvk::samples {

// Pictures that fill their frame. Each says how many colours it has, as that decides the format.

Picture paintChecker(); // 16 x 16, 4 colours
Picture paintBricks();  // 32 x 32, more than 16 and at most 256
Picture paintSky();     // 32 x 32, more than 256
Picture paintMeadow();  // 32 x 32, many

} // namespace tvk::samples
