#include "platform/shared/page_sheets.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <array>

#include "platform/shared/page_letters.h"

namespace gridwright {

namespace {

// Parts of the rim.
constexpr double kMarkBegins = 0.2, kMarkEnds = 0.9;
constexpr double kSignLetters = 0.7, kSignFromCorner = 1.3;
// On paper, in millimetres.
constexpr double kMarkWidth = 0.2, kWhiteBesideMark = 0.3;

/// At each corner of what is kept a short line along either cut, in the rim.
void paintMarks(QPainter& painter, const QRectF& kept, double rim, const Ruler& ruler) {
  const std::array pens = {
      QPen(Qt::white, ruler(kMarkWidth + 2 * kWhiteBesideMark), Qt::SolidLine, Qt::FlatCap),
      QPen(Qt::black, ruler(kMarkWidth), Qt::SolidLine, Qt::FlatCap)};
  for (const QPen& pen : pens) {
    painter.setPen(pen);
    for (const QPointF& corner : {kept.topLeft(), kept.topRight(), kept.bottomLeft(), kept.bottomRight()}) {
      const QPointF out(corner.x() > kept.center().x() ? rim : -rim,
                        corner.y() > kept.center().y() ? rim : -rim);
      const QPointF level(out.x(), 0);
      const QPointF upright(0, out.y());
      for (const QPointF& way : {level, upright})
        painter.drawLine(corner + way * kMarkBegins, corner + way * kMarkEnds);
    }
  }
}

/// "2/6" in the rim below what is kept.
void paintSign(QPainter& painter, const Sheets& sheets, int sheet, const Ruler& ruler) {
  const QFont font = letters(sheets.rim() * kSignLetters);
  const QString sign = QString::number(sheet + 1) + "/" + QString::number(sheets.count());
  const QFontMetricsF metrics(font);
  const QSizeF size(metrics.horizontalAdvance(sign), metrics.height());
  const QPointF corner = sheets.kept().bottomLeft();
  const QPointF at(corner.x() + sheets.rim() * kSignFromCorner,
                   corner.y() + (sheets.rim() - size.height()) / 2);
  paintWord(painter, {at, size}, sign, font, ruler(kWhiteBesideMark));
}

}  // namespace

Sheets::Sheets(const QSizeF& printable, const PageTiles& tiles, double overlap)
    : printable_(printable),
      tiles_(tiles),
      rim_(std::min({overlap, printable.width() / 4, printable.height() / 4}) / 2) {}

QRectF Sheets::page() const {
  const QRectF part = kept();
  return {0, 0, part.width() * tiles_.columns, part.height() * tiles_.rows};
}

QRectF Sheets::kept() const { return QRectF({0, 0}, printable_).adjusted(rim_, rim_, -rim_, -rim_); }

QRectF Sheets::pageOn(int sheet) const {
  const QRectF part = kept();
  const int column = sheet % tiles_.columns;
  const int row = sheet / tiles_.columns;
  return page().translated(part.left() - column * part.width(), part.top() - row * part.height());
}

bool paintSheets(QPainter& painter, const BitmapView& picture, const PageLook& look, PictureInk ink,
                 const std::function<bool()>& nextSheet) {
  const QRectF printable(0, 0, painter.device()->width(), painter.device()->height());
  const PageTiles tiles = look.setup.tiles;
  if (tiles.count() == 1) {
    PagePaint(picture, look, ink).paint(painter, printable, 1);
    return true;
  }
  const Ruler ruler(*painter.device());
  const Sheets sheets(printable.size(), tiles, ruler(kSheetOverlap));
  const PagePaint page(picture, look, PictureInk::rectangles);
  for (int sheet = 0; sheet < sheets.count(); ++sheet) {
    if (sheet > 0 && !nextSheet()) return false;
    painter.save();
    painter.setClipRect(printable);
    page.paint(painter, sheets.pageOn(sheet), std::min(tiles.columns, tiles.rows));
    painter.restore();
    painter.save();
    paintMarks(painter, sheets.kept(), sheets.rim(), ruler);
    paintSign(painter, sheets, sheet, ruler);
    painter.restore();
  }
  return true;
}

}  // namespace gridwright
