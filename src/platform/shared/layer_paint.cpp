#include "platform/shared/layer_paint.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>

namespace gridwright {

namespace {

QColor qtColour(Colour colour) { return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF}; }

}  // namespace

void paintLayers(QPainter& painter, const QRectF& place, const Size& size, const ColourLayers& layers) {
  if (size.width <= 0 || size.height <= 0) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.translate(place.topLeft());
  painter.scale(place.width() / size.width, place.height() / size.height);
  painter.setPen(Qt::NoPen);
  for (const ColourLayer& layer : layers) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.reserve(static_cast<int>(layer.patches.size()) * 5);  // corners of a closed rectangle
    for (const Patch& patch : layer.patches) path.addRect(patch.x, patch.y, patch.width, patch.height);
    painter.setBrush(qtColour(layer.colour));
    painter.drawPath(path);
  }
  painter.restore();
}

}  // namespace gridwright
