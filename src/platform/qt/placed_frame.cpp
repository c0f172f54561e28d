#include "platform/qt/placed_frame.h"

#include <algorithm>
#include <cmath>

#include "pictures/sheet.h"

namespace gridwright {

namespace {

int side(double wanted) { return static_cast<int>(std::lround(std::clamp(wanted, 1.0, 1.0 * Sheet::kSide))); }

}  // namespace

QPoint PlacedFrame::corner(Part part) const {
  switch (part) {
    case Part::topRight:
      return box_.topRight();
    case Part::bottomLeft:
      return box_.bottomLeft();
    case Part::bottomRight:
      return box_.bottomRight();
    default:
      return box_.topLeft();
  }
}

std::optional<PlacedFrame::Part> PlacedFrame::partAt(QPoint at, int near) const {
  for (const Part part : kCorners) {
    const QPoint away = at - corner(part);
    if (std::max(std::abs(away.x()), std::abs(away.y())) <= near) return part;
  }
  if (box_.contains(at)) return Part::inside;
  return std::nullopt;
}

QRect PlacedFrame::dragged(Part part, QPoint by, bool isFree) const {
  if (part == Part::inside) return box_.translated(by);
  const bool isLeft = part == Part::topLeft || part == Part::bottomLeft;
  const bool isTop = part == Part::topLeft || part == Part::topRight;
  double width = box_.width() + (isLeft ? -by.x() : by.x());
  double height = box_.height() + (isTop ? -by.y() : by.y());
  if (!isFree) {
    // As large as the further pull asks for, as far as both sides fit on the largest sheet.
    double scale = std::max(width / box_.width(), height / box_.height());
    scale = std::min(scale, 1.0 * Sheet::kSide / std::max(box_.width(), box_.height()));
    width = box_.width() * scale;
    height = box_.height() * scale;
  }
  QRect made(0, 0, side(width), side(height));
  if (isLeft) {
    made.moveRight(box_.right());
  } else {
    made.moveLeft(box_.left());
  }
  if (isTop) {
    made.moveBottom(box_.bottom());
  } else {
    made.moveTop(box_.top());
  }
  return made;
}

QRect PlacedFrame::scaled(bool larger) const {
  const int longer = std::max(box_.width(), box_.height());
  const int step = std::max(1, longer / 20);
  const double scale = static_cast<double>(side(longer + (larger ? step : -step))) / longer;
  QRect made(0, 0, side(box_.width() * scale), side(box_.height() * scale));
  made.moveTopLeft(box_.topLeft() +
                   QPoint((box_.width() - made.width()) / 2, (box_.height() - made.height()) / 2));
  return made;
}

}  // namespace gridwright
