#include "platform/shared/page_letters.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace gridwright {

namespace {

constexpr double kMillimetresInAnInch = 25.4;

}  // namespace

Ruler::Ruler(const QPaintDevice& device, double enlarged)
    : perMillimetre_(device.logicalDpiY() * enlarged / kMillimetresInAnInch) {}

QFont letters(double height, bool bold) {
  QFont font;
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(height))));
  font.setBold(bold);
  return font;
}

void paintWord(QPainter& painter, const QRectF& place, const QString& word, const QFont& font, double rim) {
  const QPointF at(place.left(), place.top() + QFontMetricsF(font).ascent());
  QPainterPath outline;
  outline.addText(at, font, word);
  painter.strokePath(outline, QPen(Qt::white, 2 * rim, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setFont(font);
  painter.setPen(Qt::black);
  painter.drawText(at, word);
}

}  // namespace gridwright
