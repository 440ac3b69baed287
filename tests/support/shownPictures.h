#pragma once

#include "decode/ModelTextures.h"

#include "writers/Picture.h"

namespace tvk {

// Textures of a model file held against the pictures that they were made of.

/// Gives a test failure for every difference that the format does not excuse:
///   all formats   sizes; padding that does not repeat the picture's edge
///   a3i5, a5i3    a colour that differs in five bits a channel, alpha that differs in its upper three or five bits
///   palette4, palette16, palette256, direct
///                 the same for colours of pixels with an alpha of at least 128; all others must be clear, and only
///                 they
///   tex4x4        of a block with at most `exactColors` colours as the formats above; of others only what is clear
void expectShows(const decode::ModelTexture& texture, const Picture& picture, int exactColors = 0);

/// Peak signal to noise in decibels over R, G and B of the pixels that are not clear, a component c of five bits shown
/// as c << 3 | c >> 2. Infinite when nothing differs.
double peakSignalToNoise(const decode::ModelTexture& texture, const Picture& picture);

/// The same when nothing but the lower three bits of a component is lost: the best that a format can do.
double bestSignalToNoise(const Picture& picture);

/// The same for blocks of 4 by 4 that mix the corners of the box around their colours in four steps, or in three where
/// they have holes: what the plainest compressor of such textures does.
double plainBlocksSignalToNoise(const Picture& picture);

} // namespace tvk
