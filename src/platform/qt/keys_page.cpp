#include "platform/qt/keys_page.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "platform/qt/panels.h"

namespace gridwright {

namespace {

constexpr int kEdge = 16;   // free round the rows,
constexpr int kGap = 5;     // between keys,
constexpr int kWide = 16;   // and between keys and words
constexpr int kInside = 5;  // between a key's rim and what stands on it
constexpr int kSmallestFont = 6;
constexpr auto kFoot = "Any key or click goes back.";

int capWidth(const QFontMetrics& metrics, const QString& words) {
  return std::max(metrics.height() + kInside, metrics.horizontalAdvance(words) + 2 * kInside);
}

/// A key is lighter than the sheet, with a rim that is thicker below.
void drawCap(QPainter& painter, const QPalette& palette, const QRect& box, const QString& words) {
  painter.setPen(palette.color(QPalette::WindowText));
  painter.setBrush(palette.color(QPalette::Base));
  painter.drawRoundedRect(box, 3, 3);
  painter.drawLine(box.left() + 2, box.bottom() - 1, box.right() - 2, box.bottom() - 1);
  painter.setPen(palette.color(QPalette::Text));
  painter.drawText(box.adjusted(0, 0, 0, -1), Qt::AlignCenter, words);
}

}  // namespace

KeysPage::KeysPage(QWidget* parent) : QFrame(parent) {
  setObjectName("Keys");
  setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Raised));
  setLineWidth(2);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void KeysPage::show(const KeysSheet& sheet) {
  sheet_ = sheet;
  setVisible(sheet.shown);
  if (!sheet.shown) return;
  QString all;
  for (const KeysSheet::Row& row : sheet.rows) {
    for (const std::string& cap : row.caps) all += qString(cap) + " ";
    all += qString(row.words) + "; ";
  }
  setAccessibleName(qString(sheet.title));
  setAccessibleDescription(all + kFoot);
  raise();
  update();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

int KeysPage::capsWidth(const QFontMetrics& metrics) const {
  int widest = 0;
  for (const KeysSheet::Row& row : sheet_.rows) {
    int width = -kGap;
    for (const std::string& cap : row.caps) width += capWidth(metrics, qString(cap)) + kGap;
    widest = std::max(widest, width);
  }
  return widest;
}

int KeysPage::layOut(const QFont& face, QPainter* painter) const {
  const QFontMetrics metrics(face);
  const int line = metrics.height() + kInside;
  QRect words(kEdge + capsWidth(metrics) + kWide, kEdge + line + kGap, 0, line);
  words.setRight(width() - kEdge);
  if (painter != nullptr) painter->drawText(kEdge, kEdge + metrics.ascent(), qString(sheet_.title));
  for (const KeysSheet::Row& row : sheet_.rows) {
    const int needed =
        metrics.boundingRect(QRect(0, 0, words.width(), 1000), Qt::TextWordWrap, qString(row.words)).height();
    words.setHeight(std::max(line, needed));
    if (painter != nullptr) {
      QRect cap(kEdge, words.top() + (words.height() - line) / 2, 0, line);
      for (const std::string& on : row.caps) {
        cap.setWidth(capWidth(metrics, qString(on)));
        drawCap(*painter, palette(), cap, qString(on));
        cap.moveLeft(cap.right() + 1 + kGap);
      }
      painter->setPen(palette().color(QPalette::WindowText));
      painter->drawText(words, static_cast<int>(Qt::AlignVCenter) | static_cast<int>(Qt::TextWordWrap),
                        qString(row.words));
    }
    words.moveTop(words.bottom() + 1 + kGap);
  }
  if (painter != nullptr) painter->drawText(kEdge, words.top() + kGap + metrics.ascent(), kFoot);
  return words.top() + kGap + line + kEdge;
}

QFont KeysPage::fittingFont() const {
  QFont face = font();
  while (layOut(face, nullptr) > height() && face.pointSize() > kSmallestFont)
    face.setPointSize(face.pointSize() - 1);
  return face;
}

void KeysPage::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QFont face = fittingFont();
  painter.setFont(face);
  layOut(face, &painter);
}

void KeysPage::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (onDismiss) onDismiss();
}

}  // namespace gridwright
