#include "platform/qt/workshop_tools.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace gridwright {

namespace {

constexpr int kColumns = 2;
constexpr std::array<const char*, kHands> kNames = {"Pencil", "Line",        "Rectangle", "Ellipse", "Fill",
                                                    "Eraser", "Pick colour", "Words",     "Stamp"};

}  // namespace

WorkshopTools::WorkshopTools(QWidget* words, QWidget* stamps, QWidget* parent)
    : QWidget(parent), words_(words), stamps_(stamps) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(buildHands());
  inks_ = new InkButtons(this);
  column->addWidget(inks_);
  stroke_ = buildStroke();
  column->addWidget(stroke_);
  for (QWidget* part : {words_, stamps_}) {
    part->hide();
    column->addWidget(part);
  }
  auto* mirrorRow = new QHBoxLayout;
  mirror_ = new QComboBox(this);
  mirror_->addItems({"none", "left-right", "top-bottom", "both"});
  mirror_->setToolTip("everything is painted a second time, mirrored about the middle of the sheet");
  auto* label = new QLabel("Mirror", this);
  label->setBuddy(mirror_);
  mirror_->setAccessibleName("Mirror");
  mirrorRow->addWidget(label);
  mirrorRow->addWidget(mirror_, 1);
  column->addLayout(mirrorRow);
  column->addStretch(1);
  listen();
}

QWidget* WorkshopTools::buildHands() {
  auto* part = new QWidget(this);
  auto* grid = new QGridLayout(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(2);
  for (int i = 0; i < kHands; ++i) {
    const auto place = static_cast<std::size_t>(i);
    auto* button = new QToolButton(part);
    buttons_.at(place) = button;
    button->setText(kNames.at(place));
    button->setAccessibleName(kNames.at(place));
    button->setToolTip(QString("Ctrl+%1").arg(i + 1));
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    grid->addWidget(button, i / kColumns, i % kColumns);
    connect(button, &QToolButton::toggled, button,
            [button](bool on) {  // dark themes hardly show a pressed one
              QFont face = button->font();
              face.setBold(on);
              button->setFont(face);
            });
    connect(button, &QToolButton::clicked, this, [this, hand = static_cast<Hand>(i)] { choose(hand); });
  }
  button(Hand::pencil)->setChecked(true);
  return part;
}

QWidget* WorkshopTools::buildStroke() {
  auto* part = new QWidget(this);
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins(0, 0, 0, 0);
  auto* row = new QHBoxLayout;
  size_ = new QSpinBox(part);
  size_->setRange(1, kThickest);
  size_->setAccessibleName("Size in pixels");
  size_->setToolTip("how thick, in pixels");
  auto* label = new QLabel("Si&ze", part);
  label->setBuddy(size_);
  oneCell_ = new QCheckBox("one ce&ll", part);
  oneCell_->setToolTip("as thick as a cell of the maze");
  row->addWidget(label);
  row->addWidget(size_);
  row->addWidget(oneCell_);
  row->addStretch(1);
  column->addLayout(row);
  outline_ = new QCheckBox("Outline", part);
  outline_->setToolTip("rectangles and ellipses are not full; their outline is as thick as the size");
  snap_ = new QCheckBox("Snap to cells", part);
  snap_->setToolTip("what is painted is whole cells");
  column->addWidget(outline_);
  column->addWidget(snap_);
  return part;
}

void WorkshopTools::listen() {
  inks_->onChoose = [this](int ink) { changed([ink](ToolSettings& settings) { settings.colour = ink; }); };
  connect(size_, &QSpinBox::valueChanged, this,
          [this](int size) { changed([size](ToolSettings& settings) { settings.size = size; }); });
  connect(oneCell_, &QCheckBox::toggled, this,
          [this](bool on) { changed([on](ToolSettings& settings) { settings.oneCell = on; }); });
  connect(outline_, &QCheckBox::toggled, this,
          [this](bool on) { changed([on](ToolSettings& settings) { settings.outline = on; }); });
  connect(snap_, &QCheckBox::toggled, this,
          [this](bool on) { changed([on](ToolSettings& settings) { settings.snap = on; }); });
  connect(mirror_, &QComboBox::currentIndexChanged, this, [this](int choice) {
    changed([choice](ToolSettings& settings) { settings.mirror = static_cast<Mirror>(choice); });
  });
}

void WorkshopTools::changed(const std::function<void(ToolSettings&)>& change) {
  if (mirroring_) return;
  change(settings_);
  onSettings(settings_);
}

void WorkshopTools::choose(Hand hand) {
  hand_ = hand;
  button(hand)->setChecked(true);
  stroke_->setVisible(!putsDown());
  words_->setVisible(hand == Hand::words);
  stamps_->setVisible(hand == Hand::stamp);
  if (!putsDown()) changed([hand](ToolSettings& settings) { settings.tool = static_cast<Tool>(hand); });
  onHand(hand);
}

// A colour that was picked is the one that can come from elsewhere while something is set here.
void WorkshopTools::mirror(const Workshop& workshop, bool letters) {
  mirroring_ = true;
  settings_ = workshop.sheet->settings();
  inks_->mirror(settings_.colour, workshop.sets(), letters);
  size_->setValue(settings_.size);
  size_->setEnabled(!settings_.oneCell);
  oneCell_->setChecked(settings_.oneCell);
  outline_->setChecked(settings_.outline);
  snap_->setChecked(settings_.snap);
  mirror_->setCurrentIndex(static_cast<int>(settings_.mirror));
  mirroring_ = false;
}

}  // namespace gridwright
