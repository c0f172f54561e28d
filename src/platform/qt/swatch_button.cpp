#include "platform/qt/swatch_button.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <array>

#include "canvas/colour.h"

namespace gridwright {

namespace {

constexpr int kMargin = 5;
constexpr int kPlainSide = 56;

}  // namespace

SwatchButton::SwatchButton(int i, QWidget* parent) : QAbstractButton(parent) {
  const Colour colour = kPalette.at(static_cast<std::size_t>(i));
  colour_ = QColor(colour & 255, colour >> 8 & 255, colour >> 16 & 255);
  letter_ = QLatin1Char(kPaletteLetters[static_cast<std::size_t>(i)]);
  setCheckable(true);
  setAccessibleDescription(kPaletteNames.at(static_cast<std::size_t>(i)));
  setToolTip(kPaletteNames.at(static_cast<std::size_t>(i)));
  connect(this, &QAbstractButton::clicked, this, [this] {
    if (onPress) onPress(Qt::LeftButton);
  });
}

void SwatchButton::setMarked(bool on) {
  if (marked_ == on) return;
  marked_ = on;
  update();
}

QColor inkOn(const QColor& ground) {
  constexpr int kMiddle = 128;
  return qGray(ground.rgb()) < kMiddle ? Qt::white : Qt::black;
}

// As wide as the longest caption, so that the sixteen stay in line whatever their captions become.
QSize SwatchButton::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  const int plate = metrics.horizontalAdvance("Border Color") + 4 * kMargin;
  return {std::max(kPlainSide, plate), std::max(kPlainSide, metrics.height() + 6 * kMargin + 16)};
}

void SwatchButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton && onPress) onPress(Qt::RightButton);
  QAbstractButton::mousePressEvent(event);
}

void SwatchButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect box = rect().adjusted(1, 1, -1, -1);
  painter.fillRect(box, colour_);
  if (!isEnabled()) painter.fillRect(box, QBrush(palette().color(QPalette::Window), Qt::Dense3Pattern));
  painter.setPen(
      QPen(palette().color(isDown() ? QPalette::Highlight : QPalette::WindowText), isDown() ? 2 : 1));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));

  QStyleOptionButton tick;
  tick.initFrom(this);
  tick.state |= isChecked() ? QStyle::State_On : QStyle::State_Off;
  const int side = style()->pixelMetric(QStyle::PM_IndicatorWidth, &tick, this);
  tick.rect = QRect(box.left() + kMargin, box.top() + kMargin, side, side);
  style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &tick, &painter, this);

  if (marked_) {
    QFont face = font();
    face.setBold(true);
    painter.setFont(face);
    painter.setPen(inkOn(colour_));
    painter.drawText(box.adjusted(kMargin, kMargin, -kMargin, -kMargin), Qt::AlignTop | Qt::AlignRight,
                     letter_);
    painter.setFont(font());
  }
  if (text().isEmpty()) return;
  const int height = fontMetrics().height() + 2;
  const QRect plate(box.left() + kMargin, box.bottom() - kMargin - height, box.width() - 2 * kMargin, height);
  painter.fillRect(plate, palette().color(QPalette::Base));
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
  painter.drawText(plate, Qt::AlignCenter, text());
}

}  // namespace gridwright
