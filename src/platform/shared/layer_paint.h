// Pictures that were cut into rectangles, by way of Qt.
#pragma once

#include "canvas/geometry.h"
#include "printing/patches.h"

class QPainter;
class QRectF;

namespace gridwright {

/// Draws all layers of a picture of this size into a place, one path for each colour, its edges unsmoothed:
/// patches reach below the later ones that they meet, so that nothing shines through between them in any
/// resolution. Patches off the painter's clip are left out. The painter is left as it was.
void paintLayers(QPainter& painter, const QRectF& place, const Size& size, const ColourLayers& layers);

}  // namespace gridwright
