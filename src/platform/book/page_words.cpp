#include "platform/book/page_words.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

#include "platform/pictures/plain_font.h"

namespace gridwright::book {

namespace {

constexpr int kDotsAnInch = 1200;
constexpr double kDots = kDotsAnInch / 72.0;  // a point
constexpr double kTitleLetters = 8 * kPointsAMillimetre, kNameLetters = 5 * kPointsAMillimetre;
constexpr double kNumberLetters = 3.5 * kPointsAMillimetre;
constexpr double kLongestName = 100 * kPointsAMillimetre;
constexpr double kCaptionPart = 0.55;  // of its row that letters take
constexpr double kSmallestTitle = 0.4;

QFont letters(double height, bool bold = false) {
  QFont font = plainFont();
  font.setPixelSize(std::max(1, qRound(height * kDots)));
  font.setBold(bold);
  return font;
}

QRectF inDots(const Box& box) {
  return {box.x * kDots, box.y * kDots, box.width * kDots, box.height * kDots};
}

/// One line in the middle of its row. Words that are longer end in dots.
void paintLine(QPainter& painter, const Box& row, const QFont& font, const QString& words) {
  const QRectF place = inDots(row);
  painter.setFont(font);
  painter.drawText(place, static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextSingleLine),
                   QFontMetricsF(font).elidedText(words, Qt::ElideRight, place.width()));
}

/// A title that is too long gets smaller letters first.
void paintTitle(QPainter& painter, const Box& row, const QString& title) {
  const double wide = QFontMetricsF(letters(kTitleLetters, true)).horizontalAdvance(title);
  const double fits = std::clamp(row.width * kDots / std::max(1.0, wide) * 0.98, kSmallestTitle, 1.0);
  paintLine(painter, row, letters(kTitleLetters * fits, true), title);
}

void paintNameLine(QPainter& painter, const Box& row) {
  const QString word = "Name: ";
  const QFont font = letters(kNameLetters);
  painter.setFont(font);
  painter.setPen(QPen(Qt::black, 0.3 * kPointsAMillimetre * kDots));
  const QPointF at(row.x * kDots, (row.y + kNameLetters * 1.1) * kDots);
  painter.drawText(at, word);
  const double begin = at.x() + QFontMetricsF(font).horizontalAdvance(word);
  const double end = std::min((row.x + row.width) * kDots, begin + kLongestName * kDots);
  const double below = at.y() + 0.6 * kPointsAMillimetre * kDots;
  painter.drawLine(QPointF(begin, below), QPointF(end, below));
}

void paintWords(QPainter& painter, const PlannedPage& page, const BookPlan& plan,
                const std::vector<MazeRecord>& mazes) {
  if (page.nameLine) paintNameLine(painter, *page.nameLine);
  if (page.title) paintTitle(painter, *page.title, QString::fromStdString(plan.title));
  for (const PlacedMaze& placed : page.mazes) {
    if (!placed.caption) continue;
    paintLine(painter, *placed.caption, letters(placed.caption->height * kCaptionPart),
              QString::fromStdString(captionOf(plan.caption, mazes[placed.maze])));
  }
  if (page.pageNumber)
    paintLine(painter, *page.pageNumber, letters(kNumberLetters), QString::number(page.number));
}

}  // namespace

std::string wordPagesOf(const PlannedDocument& document, const BookPlan& plan,
                        const std::vector<MazeRecord>& mazes, const IsStopped& isStopped) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kDotsAnInch);
  const QPageSize size(QSizeF(document.width, document.height), QPageSize::Point, {}, QPageSize::ExactMatch);
  writer.setPageLayout(QPageLayout(size, QPageLayout::Portrait, QMarginsF(), QPageLayout::Point));
  const double below = writer.pageLayout().fullRectPoints().height() - document.height;
  QPainter painter(&writer);
  painter.setLayoutDirection(Qt::LeftToRight);
  painter.translate(0, below * kDots);
  for (const PlannedPage& page : document.pages) {
    if (isStopped && isStopped()) break;
    if (&page != &document.pages.front()) writer.newPage();
    paintWords(painter, page, plan, mazes);
  }
  painter.end();
  return buffer.data().toStdString();
}

}  // namespace gridwright::book
