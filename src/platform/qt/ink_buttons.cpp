#include "platform/qt/ink_buttons.h"

#include <QGridLayout>
#include <QPainter>
#include <algorithm>

#include "platform/qt/screen_colour.h"

namespace gridwright {

namespace {

constexpr int kColumns = 8;
constexpr int kInHand = 3;  // points of the ring round the colour in hand
constexpr int kDot = 6;     // points across

/// Black or white, whichever is seen on a colour.
QColor seenOn(const QColor& colour) { return qGray(colour.rgb()) < 128 ? Qt::white : Qt::black; }

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
    painter.setBrush(seenOn(colour));
    painter.drawEllipse(QRectF(rect()).center(), kDot / 2.0, kDot / 2.0);
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(seenOn(colour), 1, Qt::DotLine));
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

void InkButtons::mirror(int inHand, const ColourSets& sets) {
  for (int ink = 0; ink < kInks; ++ink) {
    button(ink)->setRole(roleOf(ink, sets));
    if (ink == inHand) button(ink)->setChecked(true);
  }
}

}  // namespace gridwright
