// Colours as Qt has them on the screen.
#pragma once

#include <QColor>
#include <QImage>

#include "canvas/bitmap.h"
#include "canvas/colour.h"

namespace gridwright {

inline QRgb screenPixel(Colour colour) { return qRgb(colour & 255, colour >> 8 & 255, colour >> 16 & 255); }
inline QColor screenColour(Colour colour) { return {screenPixel(colour)}; }

/// Colours to be laid over a drawing, which shines through; nothing where they are `kOutside`.
QImage layerOf(const Bitmap& colours);

}  // namespace gridwright
