#include "platform/qt/workshop_words.h"

#include <QBitmap>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/qt/panels.h"

namespace gridwright {

namespace {

constexpr int kTextLines = 3;
constexpr int kStampSide = 28;
constexpr int kStampColumns = 4;

QSpinBox* heightBox(int cells, QWidget* parent) {
  auto* box = new QSpinBox(parent);
  box->setRange(1, kMostCellsHigh);
  box->setValue(cells);
  box->setSuffix(" cells");
  box->setAccessibleName("Height in cells");
  return box;
}

/// "Height" and what is set for it.
QHBoxLayout* heightRow(QSpinBox* box, QWidget* parent) {
  auto* label = new QLabel("&Height", parent);
  label->setBuddy(box);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(box, 1);
  return row;
}

QPushButton* putButton(QWidget* parent) {
  auto* button = new QPushButton("Put do&wn", parent);
  button->setAutoDefault(false);
  button->setToolTip("in the middle of the sheet; a click on the sheet puts it there");
  return button;
}

QVBoxLayout* columnIn(QWidget* page) {
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  return column;
}

/// A stamp in the middle of a square.
QIcon iconOf(const BitPlane& plane, const QColor& colour) {
  QPixmap picture(kStampSide, kStampSide);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  const QPoint at((kStampSide - plane.width()) / 2, (kStampSide - plane.height()) / 2);
  forRuns(plane, [&](int y, int left, int right) {
    painter.fillRect(at.x() + left, at.y() + y, right - left + 1, 1, colour);
  });
  painter.end();
  return picture;
}

}  // namespace

WordsPage::WordsPage(InkWork& ink, QWidget* parent) : QWidget(parent), ink_(ink) {
  const WordSettings first;
  text_ = new QPlainTextEdit(this);
  text_->setObjectName("words");
  text_->setAccessibleName("Words");
  text_->setPlaceholderText("the words");
  text_->setTabChangesFocus(true);
  text_->setAcceptDrops(false);
  text_->setFixedHeight(kTextLines * text_->fontMetrics().lineSpacing() + 12);
  font_ = new QComboBox(this);
  font_->setAccessibleName("Font");
  font_->setToolTip("the font of the words");
  font_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  font_->setMinimumContentsLength(8);
  bold_ = new QCheckBox("&Bold", this);
  bold_->setChecked(first.bold);
  height_ = heightBox(first.height.value_or(1), this);
  height_->setToolTip("of a capital");
  fit_ = new QCheckBox("as large as fits", this);
  fit_->setToolTip("as large as the sheet holds");
  turn_ = new QCheckBox("letters in turn", this);
  turn_->setToolTip("each letter has another of the colours that a maze fills");
  join_ = new QCheckBox("&Join letters", this);
  join_->setChecked(first.join);
  join_->setToolTip("so that one way leads through all of them");
  frame_ = new QCheckBox("Frame", this);
  frame_->setToolTip("two cells thick, two cells away");
  put_ = putButton(this);
  auto* column = columnIn(this);
  column->addWidget(text_);
  column->addWidget(font_);
  column->addLayout(heightRow(height_, this));
  for (QCheckBox* tick : {fit_, bold_, join_, turn_, frame_}) column->addWidget(tick);
  column->addWidget(put_);
  connect(fit_, &QCheckBox::toggled, this, [this](bool on) { height_->setEnabled(!on); });
  connect(put_, &QPushButton::clicked, this, [this] { onPutDown(); });
}

// A desktop's fonts take a moment to be listed, so they are asked for when words are wanted.
void WordsPage::showEvent(QShowEvent* event) {
  if (font_->count() == 0) listFonts();
  QWidget::showEvent(event);
}

void WordsPage::listFonts() {
  for (const std::string& name : ink_.fontNames()) font_->addItem(qString(name));
  font_->setCurrentIndex(std::max(0, font_->findText(qString(WordSettings().font))));
}

WordSettings WordsPage::settings(int ink) const {
  WordSettings made;
  made.text = text_->toPlainText().toStdString();
  if (font_->count() > 0) made.font = font_->currentText().toStdString();
  made.bold = bold_->isChecked();
  made.height = fit_->isChecked() ? std::nullopt : std::optional(height_->value());
  made.colour = turn_->isChecked() ? std::nullopt : std::optional(ink);
  made.join = join_->isChecked();
  made.frame = frame_->isChecked();
  return made;
}

void WordsPage::setCanPut(int ink) { put_->setEnabled(turn_->isChecked() || ink != kPaperInk); }

StampPage::StampPage(InkWork& ink, QWidget* parent) : QWidget(parent), ink_(ink) {
  auto* column = columnIn(this);
  auto* grid = new QGridLayout;
  grid->setSpacing(1);
  for (std::size_t i = 0; i < kStamps.size(); ++i) {
    auto* button = new QToolButton(this);
    stamps_.at(i) = button;
    const QString name = qString(kStamps.at(i));
    button->setObjectName(name);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setIconSize({kStampSide, kStampSide});
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const int place = static_cast<int>(i);
    grid->addWidget(button, place / kStampColumns, place % kStampColumns);
  }
  stamps_.front()->setChecked(true);
  column->addLayout(grid);
  height_ = heightBox(StampSettings().height, this);
  column->addLayout(heightRow(height_, this));
  put_ = putButton(this);
  column->addWidget(put_);
  connect(put_, &QPushButton::clicked, this, [this] { onPutDown(); });
}

void StampPage::showEvent(QShowEvent* event) {
  if (stamps_.front()->icon().isNull()) paintIcons();
  QWidget::showEvent(event);
}

void StampPage::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && !stamps_.front()->icon().isNull()) paintIcons();
  QWidget::changeEvent(event);
}

void StampPage::paintIcons() {
  for (QToolButton* button : stamps_) {
    const std::string name = button->objectName().toStdString();
    // One that is wider than high is made to fit too.
    BitPlane plane = ink_.stamp(name, kStampSide);
    if (plane.width() > kStampSide) plane = ink_.stamp(name, kStampSide * kStampSide / plane.width());
    button->setIcon(iconOf(plane, palette().color(QPalette::ButtonText)));
  }
}

StampSettings StampPage::settings(int ink) const {
  const auto chosen = std::find_if(stamps_.begin(), stamps_.end(),
                                   [](const QToolButton* button) { return button->isChecked(); });
  StampSettings made;
  made.name = (*chosen)->objectName().toStdString();
  made.height = height_->value();
  made.colour = ink;
  return made;
}

void StampPage::setCanPut(int ink) { put_->setEnabled(ink != kPaperInk); }

}  // namespace gridwright
