#include "platform/shared/page_paint.h"

#include <QFontMetricsF>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "platform/shared/image_files.h"
#include "platform/shared/layer_paint.h"
#include "platform/shared/page_letters.h"
#include "platform/shared/page_sheets.h"
#include "printing/taken_picture.h"

namespace gridwright {

namespace {

// Sizes on paper, in millimetres.
constexpr double kNameRow = 12, kNameLetters = 5, kLongestName = 100;
constexpr double kTitleRow = 13, kTitleLetters = 8;
constexpr double kSmallestWord = 4, kLargestWord = 6;
constexpr double kRim = 0.5;  // of white round a word, where it stands over lines

constexpr double kMostHead = 0.25;      // of the page's height
constexpr double kSmallestTitle = 0.4;  // of its letters; what is longer still ends in dots
constexpr double kInTenths = 10;

int tenths(double millimetres) { return static_cast<int>(std::lround(millimetres * kInTenths)); }

/// The head of a page: a line for a name, a title under it. \returns what is left of the paper.
QRectF paintHead(QPainter& painter, QRectF paper, const PageSetup& setup, const Ruler& ruler) {
  const double wanted = ruler((setup.nameLine ? kNameRow : 0) + (setup.title.empty() ? 0 : kTitleRow));
  if (wanted <= 0) return paper;
  const double scale = std::min(1.0, paper.height() * kMostHead / wanted);
  const auto size = [&](double millimetres) { return ruler(millimetres) * scale; };
  painter.setPen(QPen(Qt::black, size(0.3)));
  if (setup.nameLine) {
    const QString word = "Name: ";
    const QFont font = letters(size(kNameLetters));
    painter.setFont(font);
    const QPointF at(paper.left(), paper.top() + size(kNameLetters) * 1.1);
    painter.drawText(at, word);
    const double begin = at.x() + QFontMetricsF(font).horizontalAdvance(word);
    painter.drawLine(QPointF(begin, at.y() + size(0.6)),
                     QPointF(std::min(paper.right(), begin + size(kLongestName)), at.y() + size(0.6)));
    paper.setTop(paper.top() + size(kNameRow));
  }
  if (setup.title.empty()) return paper;
  QString title = QString::fromStdString(setup.title);
  QFont font = letters(size(kTitleLetters), true);
  const double fits = paper.width() / std::max(1.0, QFontMetricsF(font).horizontalAdvance(title));
  if (fits < 1) font = letters(size(kTitleLetters) * std::max(kSmallestTitle, fits * 0.98), true);
  if (fits < kSmallestTitle) title = QFontMetricsF(font).elidedText(title, Qt::ElideRight, paper.width());
  painter.setFont(font);
  painter.drawText(QRectF(paper.topLeft(), QSizeF(paper.width(), size(kTitleRow - 2))),
                   static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextSingleLine), title);
  paper.setTop(paper.top() + size(kTitleRow));
  return paper;
}

/// A picture on its page.
struct Placed {
  const BitmapView& picture;
  QRectF place;

  [[nodiscard]] double scale() const { return place.width() / picture.width; }
  [[nodiscard]] QRectF onPage(const Square& s) const {
    return {place.left() + s.left * scale(), place.top() + s.top * scale(), (s.right - s.left + 1) * scale(),
            (s.bottom - s.top + 1) * scale()};
  }
  /// How many colours change under a part of the page, along rows and columns: none beside the picture.
  [[nodiscard]] int linesUnder(const QRectF& part) const {
    const auto from = [&](double at, double edge) {
      return std::max(0, static_cast<int>(std::floor((at - edge) / scale())));
    };
    const int right = std::min(picture.width - 1, static_cast<int>((part.right() - place.left()) / scale()));
    const int bottom =
        std::min(picture.height - 1, static_cast<int>((part.bottom() - place.top()) / scale()));
    const int left = from(part.left(), place.left());
    const int top = from(part.top(), place.top());
    int changes = 0;
    for (int y = top; y <= bottom; ++y) {
      const Colour* row = picture.row(y);
      const Colour* next = picture.row(std::min(y + 1, bottom));
      for (int x = left; x <= right; ++x) {
        changes += row[x] != next[x] ? 1 : 0;
        changes += x < right && row[x] != row[x + 1] ? 1 : 0;
      }
    }
    return changes;
  }
};

/// Where a word can stand beside a square: right, left, below, above, then at its corners.
std::array<QRectF, 8> besides(const QRectF& square, const QSizeF& word, double gap) {
  const double left = square.left() - gap - word.width();
  const double right = square.right() + gap;
  const double above = square.top() - gap - word.height();
  const double below = square.bottom() + gap;
  const double middleX = square.center().x() - word.width() / 2;
  const double middleY = square.center().y() - word.height() / 2;
  const auto at = [&](double x, double y) { return QRectF(QPointF(x, y), word); };
  return {at(right, middleY), at(left, middleY), at(middleX, below), at(middleX, above),
          at(right, below),   at(right, above),  at(left, below),    at(left, above)};
}

/// The place with the fewest lines under it, on the paper and off all that is taken; nothing where there is
/// none.
std::optional<QRectF> bestOf(const std::array<QRectF, 8>& places, const Placed& placed, const QRectF& paper,
                             const std::vector<QRectF>& taken) {
  std::optional<QRectF> best;
  int fewest = 0;
  for (const QRectF& place : places) {
    const bool isTaken =
        std::any_of(taken.begin(), taken.end(), [&](const QRectF& t) { return t.intersects(place); });
    if (isTaken || !paper.contains(place)) continue;
    const int lines = placed.linesUnder(place);
    if (best && lines >= fewest) continue;
    best = place;
    fewest = lines;
  }
  return best;
}

void paintEndWords(QPainter& painter, const Placed& placed, const QRectF& paper,
                   const std::vector<EndWord>& ends, const Ruler& ruler) {
  std::vector<QRectF> taken(ends.size());
  std::transform(ends.begin(), ends.end(), taken.begin(),
                 [&](const EndWord& end) { return placed.onPage(end.square); });
  for (const EndWord& end : ends) {
    const QRectF square = placed.onPage(end.square);
    const QFont font = letters(std::clamp(square.height(), ruler(kSmallestWord), ruler(kLargestWord)));
    const QFontMetricsF metrics(font);
    const QString word = QString::fromUtf8(end.word.data(), static_cast<qsizetype>(end.word.size()));
    const QSizeF size(metrics.horizontalAdvance(word), metrics.height());
    const auto place = bestOf(besides(square, size, ruler(kRim)), placed, paper, taken);
    if (!place) continue;
    taken.push_back(*place);
    paintWord(painter, *place, word, font, ruler(kRim));
  }
}

QImage imageOfTaken(const BitmapView& picture) {
  QImage image = imageOf(picture);
  if (!hasHoles(picture)) return image;
  image.convertTo(QImage::Format_ARGB32);
  for (int y = 0; y < picture.height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::transform(picture.row(y), picture.row(y) + picture.width, row, row,
                   [](Colour raw, QRgb seen) { return isSeeThrough(raw) ? 0 : seen; });
  }
  return image;
}

/// A page as its sheets are laid, upright or lying.
QPageLayout laid(const QPageLayout& usual, const PageSetup& setup, bool lies) {
  QPageLayout layout = usual;
  if (setup.paper) layout.setPageSize(qtPaper(*setup.paper), layout.minimumMargins());
  layout.setOrientation(lies ? QPageLayout::Landscape : QPageLayout::Portrait);
  if (!setup.margins && !setup.paper) return layout;
  const Margins wanted = setup.margins.value_or(marginsOf(usual));
  layout.setUnits(QPageLayout::Millimeter);
  const QRectF sheet = layout.fullRect();
  const QMarginsF least = layout.minimumMargins();
  const auto held = [](int margin, double atLeast, double side) {
    return std::max(atLeast, heldMargin(margin / kInTenths, side));
  };
  layout.setMargins({held(wanted.left, least.left(), sheet.width()),
                     held(wanted.top, least.top(), sheet.height()),
                     held(wanted.right, least.right(), sheet.width()),
                     held(wanted.bottom, least.bottom(), sheet.height())});
  return layout;
}

/// One sheet lies as its picture does, several so that the picture becomes largest.
bool liesAsUsual(const QPageLayout& usual, const BitmapView& picture, const PageSetup& setup) {
  const bool lies = picture.width > picture.height;
  if (setup.tiles.count() == 1 || picture.isEmpty()) return lies;
  const auto scale = [&](bool lying) {
    const QRectF printable = laid(usual, setup, lying).paintRect(QPageLayout::Millimeter);
    const QSizeF page = Sheets(printable.size(), setup.tiles, kSheetOverlap).page().size();
    return std::min(page.width() / picture.width, page.height() / picture.height);
  };
  const double lying = scale(true);
  const double upright = scale(false);
  return lying == upright ? lies : lying > upright;
}

}  // namespace

QPageSize qtPaper(const PaperSize& size) {
  return QPageSize(QSizeF(size.width / kInTenths, size.height / kInTenths), QPageSize::Millimeter);
}

PaperSize paperOf(const QPageSize& size) {
  const QSizeF there = size.size(QPageSize::Millimeter);
  return knownPaper({tenths(there.width()), tenths(there.height())});
}

Margins marginsOf(const QPageLayout& layout) {
  const QMarginsF m = layout.margins(QPageLayout::Millimeter);
  return {tenths(m.left()), tenths(m.top()), tenths(m.right()), tenths(m.bottom())};
}

PageSetup withChanges(PageSetup setup, const QPageLayout& before, const QPageLayout& after) {
  if (after.orientation() != before.orientation())
    setup.landscape = after.orientation() == QPageLayout::Landscape;
  if (!after.pageSize().isEquivalentTo(before.pageSize())) setup.paper = paperOf(after.pageSize());
  if (marginsOf(after) != marginsOf(before)) setup.margins = marginsOf(after);
  return setup;
}

void layPage(QPagedPaintDevice& device, const QPageLayout& usual, const BitmapView& picture,
             const PageSetup& setup) {
  const bool lies = setup.landscape.has_value() ? *setup.landscape : liesAsUsual(usual, picture, setup);
  const QPageLayout layout = laid(usual, setup, lies);
  QPageLayout turned = device.pageLayout();
  turned.setOrientation(layout.orientation());
  if (turned.isEquivalentTo(layout)) {
    device.setPageOrientation(layout.orientation());
  } else {
    device.setPageLayout(layout);
  }
}

PagePaint::PagePaint(const BitmapView& picture, const PageLook& look, PictureInk ink)
    : picture_(picture), look_(look) {
  if (ink == PictureInk::rectangles && !picture.isEmpty())
    layers_ = layersOfTaken(picture, mostPatches(look.cells));
  if (!layers_ && !picture.isEmpty()) image_ = imageOfTaken(picture);
}

void PagePaint::paint(QPainter& painter, const QRectF& paper, double enlarged) const {
  if (picture_.isEmpty()) return;
  painter.setRenderHint(QPainter::LosslessImageRendering, true);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  const Ruler ruler(*painter.device(), enlarged);
  const QRectF left = paintHead(painter, paper, look_.setup, ruler);
  const double scale = std::min(left.width() / picture_.width, left.height() / picture_.height);
  QRectF place(0, 0, picture_.width * scale, picture_.height * scale);
  place.moveCenter(left.center());
  if (layers_) {
    paintLayers(painter, place, {picture_.width, picture_.height}, *layers_);
  } else {
    painter.drawImage(place, image_);
  }
  paintEndWords(painter, {picture_, place}, left, look_.ends, ruler);
}

}  // namespace gridwright
