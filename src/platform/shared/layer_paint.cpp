#include "platform/shared/layer_paint.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <cmath>

namespace gridwright {

namespace {

QColor qtColour(Colour colour) { return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF}; }

/// Where the edges between the pixels of a side lie on the page: on whole dots, as long as a pixel has a few
/// of them. That is closer than anybody sees, a printer of these dots draws it exactly, and documents get
/// half as long.
class Edges {
 public:
  Edges(double begin, double length, int pixels) : begin_(begin), step_(length / pixels) {}
  [[nodiscard]] double operator()(int pixel) const {
    constexpr double kFewDots = 2;
    const double edge = begin_ + pixel * step_;
    return step_ < kFewDots ? edge : std::round(edge);
  }

 private:
  double begin_, step_;
};

}  // namespace

void paintLayers(QPainter& painter, const QRectF& place, const Size& size, const ColourLayers& layers) {
  if (size.width <= 0 || size.height <= 0) return;
  const Edges across(place.left(), place.width(), size.width);
  const Edges down(place.top(), place.height(), size.height);
  const QRectF shown = painter.hasClipping() ? painter.clipBoundingRect() : place;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(Qt::NoPen);
  for (const ColourLayer& layer : layers) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.reserve(static_cast<int>(layer.patches.size()) * 4);
    for (const Patch& patch : layer.patches) {
      const double left = across(patch.x);
      const double right = across(patch.x + patch.width);
      const double top = down(patch.y);
      const double bottom = down(patch.y + patch.height);
      if (right < shown.left() || left > shown.right() || bottom < shown.top() || top > shown.bottom())
        continue;
      path.moveTo(left, top);  // what is filled closes by itself
      path.lineTo(right, top);
      path.lineTo(right, bottom);
      path.lineTo(left, bottom);
    }
    painter.setBrush(qtColour(layer.colour));
    painter.drawPath(path);
  }
  painter.restore();
}

}  // namespace gridwright
