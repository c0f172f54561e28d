#include "platform/qt/ink_buttons.h"

#include <QGridLayout>
#include <QPainter>
#include <algorithm>

#include "platform/qt/screen_colour.h"
#include "platform/qt/swatch_button.h"

namespace gridwright {

namespace {

constexpr int kColumns = 8;
constexpr int kInHand = 3;  // points of the ring round the colour in hand
constexpr int kDot = 6;     // points across

}  // namespace

const char* inkName(int ink) {
  return ink == kPaperInk ? "paper" : kPaletteNames.at(static_cast<std::size_t>(ink));
}

InkButton::InkButton(int ink, QWidget* parent) : QAbstractButton(parent), ink_(ink) {
  setObjectName(QString("ink%1").arg(ink));
  setCheckable(true);
  setAutoExclusive(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setRole(InkRole::border);
}

void InkButton::setRole(InkRole role) {
  filled_ = role == InkRole::grows;
  const QString words = filled_ ? QString("%1, filled by a maze").arg(inkName(ink_)) : QString(inkName(ink_));
  if (accessibleName() != words) {
    setAccessibleName(words);
    setToolTip(words);
    update();
  }
  if (isHidden() == (role != InkRole::taken)) setVisible(role != InkRole::taken);
}

void InkButton::showLetter(bool shown) {
  const bool lettered = shown && ink_ != kPaperInk;
  if (lettered == lettered_) return;
  lettered_ = lettered;
  update();
}

void InkButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor colour = screenColour(colourOfInk(ink_));
  const int edge = isChecked() ? kInHand : 1;
  painter.fillRect(rect(), palette().color(isChecked() ? QPalette::Highlight : QPalette::WindowText));
  if (isChecked())
    painter.fillRect(rect().adjusted(edge - 1, edge - 1, 1 - edge, 1 - edge),
                     palette().color(QPalette::Base));
  painter.fillRect(rect().adjusted(edge, edge, -edge, -edge), colour);
  if (filled_) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(inkOn(colour));
    const int size = lettered_ ? kDot / 2 : kDot;  // beneath the letter
    const double y = lettered_ ? height() - edge - size / 2.0 : height() / 2.0;
    painter.drawEllipse(QPointF(width() / 2.0, y), size / 2.0, size / 2.0);
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
  if (lettered_) {
    painter.setPen(inkOn(colour));
    painter.drawText(rect().adjusted(0, 0, 0, -kDot / 2), Qt::AlignCenter,
                     QString(QLatin1Char(kPaletteLetters[static_cast<std::size_t>(ink_)])));
  }
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(inkOn(colour), 1, Qt::DotLine));
  painter.drawRect(rect().adjusted(edge + 1, edge + 1, -edge - 2, -edge - 2));
}

InkButtons::InkButtons(QWidget* parent) : QWidget(parent) {
  setAccessibleName("Colour");
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(1);
  for (int ink = 0; ink < kInks; ++ink) {
    auto* button = new InkButton(ink, this);
    buttons_.at(static_cast<std::size_t>(ink)) = button;
    grid->addWidget(button, ink / kColumns, ink % kColumns);
    connect(button, &QAbstractButton::clicked, this, [this, ink] { onChoose(ink); });
  }
}

void InkButtons::mirror(int inHand, const ColourSets& sets, bool letters) {
  for (int ink = 0; ink < kInks; ++ink) {
    button(ink)->setRole(roleOf(ink, sets));
    button(ink)->showLetter(letters);
    if (ink == inHand) button(ink)->setChecked(true);
  }
}

}  // namespace gridwright
