#include "platform/pictures/qt_ink.h"

#include <QFont>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QSvgRenderer>
#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "pictures/stamps.h"
#include "platform/pictures/plain_font.h"

namespace gridwright {

namespace {

constexpr int kShapedAt = 1000;  ///< Pixels: outlines are taken at this size and scaled.

QFont qtFont(const LetterFont& font) {
  QFont made = plainFont();
  made.setFamily(QString::fromStdString(font.name));
  made.setBold(font.bold);
  made.setPixelSize(kShapedAt);
  return made;
}

/// A line as its fonts shape it: from right to left, joined, accents set, whatever its script asks for.
class ShapedLine {
 public:
  ShapedLine(const QString& text, const QFont& font) : layout_(text, font) {
    layout_.beginLayout();
    line_ = layout_.createLine();
    if (line_.isValid()) line_.setLineWidth(1e7);
    layout_.endLayout();
  }
  [[nodiscard]] QPainterPath path() const {
    QPainterPath all;
    all.setFillRule(Qt::WindingFill);
    for (const QGlyphRun& run : layout_.glyphRuns()) {
      const QRawFont raw = run.rawFont();
      const QList<quint32> glyphs = run.glyphIndexes();
      const QList<QPointF> places = run.positions();
      for (qsizetype i = 0; i < glyphs.size(); ++i)
        all.addPath(raw.pathForGlyph(glyphs[i]).translated(places[i]));
    }
    const double ascent = line_.isValid() ? line_.ascent() : 0;
    return all.translated(0, -ascent);
  }
  /// Whether each of its letters is in a font.
  [[nodiscard]] bool hasAll() const {
    const auto runs = layout_.glyphRuns();
    return std::none_of(runs.begin(), runs.end(),
                        [](const QGlyphRun& run) { return run.glyphIndexes().contains(0U); });
  }
  [[nodiscard]] double columnOf(qsizetype cursor) const {
    return line_.isValid() ? line_.cursorToX(static_cast<int>(cursor)) : 0;
  }

 private:
  QTextLayout layout_;
  QTextLine line_;
};

bool isBlank(const QString& letter) {
  return std::all_of(letter.begin(), letter.end(), [](QChar c) {
    return c.isSpace() || c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
  });
}

/// Calls `take` with begin and end of each letter, accents and what else belongs to it included.
template <class Take>
void forLetters(const QString& text, Take take) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  for (qsizetype begin = 0;;) {
    const qsizetype end = finder.toNextBoundary();
    if (end < 0) return;
    if (end > begin) take(begin, end);
    begin = end;
  }
}

/// How high a capital stands at the size at which lines are shaped.
double capitalOf(const QFont& font) {
  const double high = -ShapedLine(QStringLiteral("H"), font).path().boundingRect().top();
  return high > 1 ? high : 0.7 * kShapedAt;
}

/// The pixels of an image that are more black than clear.
BitPlane darkOf(const QImage& image) {
  BitPlane plane({image.width(), image.height()});
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(row[x]) >= 128) plane.set(x, y);
    }
  }
  return plane;
}

QImage clearImage(int width, int height) {
  QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

BitPlane filled(const QPainterPath& path, Size size) {
  QImage image = clearImage(size.width, size.height);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillPath(path, Qt::black);
  painter.end();
  return darkOf(image);
}

int within(double number, int most) {
  return static_cast<int>(std::clamp(number, 1.0, static_cast<double>(most)));
}

}  // namespace

/// A line at the size at which all are shaped.
struct QtInk::Shaped {
  std::string line;
  LetterFont font;
  QPainterPath path;
  double capital = kShapedAt;
  struct Extent {
    std::string text;
    double left, right;
  };
  std::vector<Extent> letters;
  std::vector<std::string> missing;
};

QtInk::QtInk(std::filesystem::path stamps) : stamps_(std::move(stamps)) {}
QtInk::~QtInk() = default;

const QtInk::Shaped& QtInk::shaped(const std::string& line, const LetterFont& font) {
  if (last_ && last_->line == line && last_->font.name == font.name && last_->font.bold == font.bold)
    return *last_;
  last_ = std::make_unique<Shaped>();
  last_->line = line;
  last_->font = font;
  const QFont qt = qtFont(font);
  const QString given = QString::fromStdString(line);
  QString text;
  forLetters(given, [&](qsizetype begin, qsizetype end) {
    const QString letter = given.mid(begin, end - begin);
    if (isBlank(letter)) {
      text += letter;
      return;
    }
    const ShapedLine alone(letter, qt);
    if (alone.hasAll() && !alone.path().isEmpty()) {
      text += letter;
    } else {
      last_->missing.push_back(letter.toStdString());
    }
  });
  const ShapedLine whole(text, qt);
  last_->path = whole.path();
  last_->capital = capitalOf(qt);
  forLetters(text, [&](qsizetype begin, qsizetype end) {
    const QString letter = text.mid(begin, end - begin);
    if (isBlank(letter)) return;
    const double from = whole.columnOf(begin);
    const double to = whole.columnOf(end);
    last_->letters.push_back({letter.toStdString(), std::min(from, to), std::max(from, to)});
  });
  return *last_;
}

LineInk QtInk::line(const std::string& line, const LetterFont& font) {
  const Shaped& known = shaped(line, font);
  LineInk made;
  made.missing = known.missing;
  const double scale = font.capital / known.capital;
  const QRectF box = QTransform::fromScale(scale, scale).map(known.path).boundingRect();
  if (known.path.isEmpty()) return made;
  const double left = std::floor(box.left()) - 1;
  const double top = std::floor(box.top()) - 1;
  const Size size{within(box.width() + 4, kInkSide), within(box.height() + 4, kInkSide)};
  const QTransform placing = QTransform::fromScale(scale, scale) * QTransform::fromTranslate(-left, -top);
  const BitPlane ink = filled(placing.map(known.path), size);
  const Square bounds = ink.bounds();
  if (bounds.left > bounds.right) return made;
  made.ink = ink.cut(bounds);
  made.baseline = static_cast<int>(-top) - bounds.top;
  for (const Shaped::Extent& letter : known.letters) {
    const auto column = [&](double at) {
      return static_cast<int>(std::lround(at * scale - left)) - bounds.left;
    };
    made.letters.push_back({letter.text, column(letter.left), column(letter.right)});
  }
  return made;
}

std::vector<std::string> QtInk::fontNames() {
  std::vector<std::string> names;
  for (const QString& name : QFontDatabase::families()) {
    if (!QFontDatabase::isPrivateFamily(name) && QFontDatabase::isSmoothlyScalable(name))
      names.push_back(name.toStdString());
  }
  std::sort(names.begin(), names.end());
  return names;
}

BitPlane QtInk::stamp(const std::string& name, int height) {
  if (std::find(kStamps.begin(), kStamps.end(), name) == kStamps.end()) return {};
  QSvgRenderer outline(QString::fromStdString((stamps_ / (name + ".svg")).string()));
  const QRectF box = outline.viewBoxF();
  if (!outline.isValid() || box.isEmpty()) return {};
  const int high = within(height, 1000);
  QImage image = clearImage(within(std::round(high * box.width() / box.height()), kInkSide), high);
  QPainter painter(&image);
  outline.render(&painter);
  painter.end();
  const BitPlane ink = darkOf(image);
  const Square bounds = ink.bounds();
  return bounds.left > bounds.right ? BitPlane() : ink.cut({bounds.left, 0, bounds.right, high - 1});
}

}  // namespace gridwright
