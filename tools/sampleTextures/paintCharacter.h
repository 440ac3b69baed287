#pragma once

#include "sampleTextures/Picture.h"

namespace tvk::samples {

// What moves in the walking scene.

Picture paintEyes(int frame); // 32 x 16, at most 4 colours; frame 1 open, 2 half closed, 3 closed
Picture paintPond();          // 32 x 32, at most 16 colours; the next one fits on every side

} // namespace tvk::samples
