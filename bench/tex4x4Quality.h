#pragma once

#include "image/ImageRecord.h"
#include "image/tex4x4/tex4x4Colors.h"

namespace tvk {

// Mean squared errors over red, green and blue of the texels that are there, 0 to 255 a channel.

// Of a compressed texture, read here from the description of the format.
double textureError(const ImageRecord& image, const TextureData& data, Tex4x4Mixing mixing);

// Of squish's iterative cluster fit in DXT1 with one-bit alpha, by its own decoder: four bits a texel. On a display of
// five bits a channel (kConsole) each of its colours is seen at the nearest of those.
double squishError(const ImageRecord& image, Tex4x4Mixing mixing);

// Compresses with squish and throws the result away.
void runSquish(const ImageRecord& image);

// What blocks could reach at best if each had four palette colours of its own: the best of very many starts of a plain
// search in every mode, without a thought of time.
double ownColorsError(const ImageRecord& image, Tex4x4Mixing mixing);

// In decibels of 255.
double signalToNoise(double meanSquaredError);

} // namespace tvk
