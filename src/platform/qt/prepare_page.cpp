#include "platform/qt/prepare_page.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "menus/status_words.h"
#include "pictures/on_paper.h"
#include "platform/qt/panels.h"
#include "platform/qt/screen_colour.h"
#include "platform/shared/image_files.h"

namespace gridwright {

namespace {

constexpr int kListHeight = 150;
constexpr int kSwatch = 16;
constexpr std::array kOutlineChoices = {Outlines::none, Outlines::thin, Outlines::thick};

QSpinBox* numberFrom(int least, int most, QWidget* parent) {
  auto* box = new QSpinBox(parent);
  box->setRange(least, most);
  return box;
}

QWidget* titled(const QString& title, PictureBox* box, QWidget* parent) {
  auto* part = new QWidget(parent);
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(new QLabel(title, part));
  column->addWidget(box, 1);
  box->setAccessibleName(title);
  return part;
}

/// "teal, 12,345 pixels": the colour that it becomes, since that is what a person will see.
QString wordsOf(const FoundColour& found) {
  const QLocale english(QLocale::English);
  return qString(colourWords(found.becomes)) + ", " + english.toString(static_cast<qlonglong>(found.area)) +
         " pixels" + (found.isLines ? ", lines" : "");
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureBox::show(QImage picture) {
  picture_ = std::move(picture);
  update();
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Mid));
  if (picture_.isNull()) return;
  const QSize fitted = picture_.size().scaled(size(), Qt::KeepAspectRatio);
  const QSize shown = fitted.width() > picture_.width() ? picture_.size() : fitted;
  QRect place(QPoint(), shown);
  place.moveCenter(rect().center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, picture_);
}

PreparePage::PreparePage(QWidget* parent)
    : QWidget(parent), before_(new PictureBox(this)), after_(new PictureBox(this)), line_(new QLabel(this)) {
  before_->setObjectName("before");
  after_->setObjectName("after");
  auto* column = new QVBoxLayout(this);
  auto* pictures = new QHBoxLayout;
  pictures->addWidget(titled("The picture", before_, this), 1);
  pictures->addWidget(titled("What the maze will be made of", after_, this), 1);
  column->addLayout(pictures, 1);
  column->addWidget(buildSettings());
  line_->setObjectName("prepareline");
  line_->setTextFormat(Qt::PlainText);
  column->addWidget(line_);
  column->addWidget(buildButtons());
}

QWidget* PreparePage::buildSettings() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  auto* form = new QFormLayout;
  size_ = new QComboBox(part);
  size_->addItems({"fit the window", "as it is"});
  colours_ = numberFrom(kFewestColours, kMostColours, part);
  detail_ = numberFrom(kCoarsest, kFinest, part);
  outlines_ = new QComboBox(part);
  outlines_->addItems({"none", "thin", "thick"});
  form->addRow("Si&ze", size_);
  form->addRow("&Colours", colours_);
  form->addRow("&Detail", detail_);
  form->addRow("Out&lines", outlines_);
  row->addLayout(form);
  auto* colours = new QVBoxLayout;
  auto* label = new QLabel("A maze &grows in the colours that are ticked:", part);
  found_ = new QListWidget(part);
  found_->setFixedHeight(kListHeight);
  found_->setAccessibleName("Colours in which a maze grows");
  label->setBuddy(found_);
  colours->addWidget(label);
  colours->addWidget(found_);
  row->addLayout(colours, 1);
  connect(size_, &QComboBox::currentIndexChanged, this, [this](int choice) {
    changed([choice](PrepareSettings& settings) { settings.asItsSize = choice == 1; });
  });
  connect(colours_, &QSpinBox::valueChanged, this,
          [this](int count) { changed([count](PrepareSettings& settings) { settings.colours = count; }); });
  connect(detail_, &QSpinBox::valueChanged, this,
          [this](int detail) { changed([detail](PrepareSettings& settings) { settings.detail = detail; }); });
  connect(outlines_, &QComboBox::currentIndexChanged, this, [this](int choice) {
    changed([choice](PrepareSettings& settings) {
      settings.outlines = kOutlineChoices.at(static_cast<std::size_t>(choice));
    });
  });
  connect(found_, &QListWidget::itemChanged, this, [this] { ticksChanged(); });
  return part;
}

QWidget* PreparePage::buildButtons() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  place_ = new QPushButton("Plac&e", part);
  auto* away = new QPushButton("Put awa&y", part);
  use_ = new QPushButton("&Use", part);
  asItIs_ = new QPushButton("&As it is", part);
  cancel_ = new QPushButton("Ca&ncel", part);
  place_->setToolTip("it is put on the sheet, where it can be moved and scaled");
  away->setToolTip("the sheet stays as it is");
  use_->setToolTip("Enter: this becomes the drawing");
  asItIs_->setToolTip("the picture becomes the drawing without a change");
  cancel_->setToolTip("Escape: everything stays as it was");
  row->addStretch(1);
  for (QPushButton* button : {place_, away, use_, asItIs_, cancel_}) row->addWidget(button);
  connect(place_, &QPushButton::clicked, this, [this] { onPlace(); });
  connect(away, &QPushButton::clicked, this, [this] { onPutAway(); });
  connect(use_, &QPushButton::clicked, this, [this] { onUse(); });
  connect(asItIs_, &QPushButton::clicked, this, [this] { onAsItIs(); });
  connect(cancel_, &QPushButton::clicked, this, [this] { onCancel(); });
  onEnter(*this, [this] { onUse(); });
  return part;
}

QWidget* PreparePage::first() const { return colours_; }

// Other settings find other colours, so the ticks begin anew.
void PreparePage::changed(const std::function<void(PrepareSettings&)>& change) {
  if (mirroring_) return;
  settings_.grow.reset();
  change(settings_);
  onChange(settings_);
}

void PreparePage::ticksChanged() {
  if (mirroring_) return;
  std::vector<int> ticked;
  for (int row = 0; row < found_->count(); ++row) {
    if (found_->item(row)->checkState() == Qt::Checked) ticked.push_back(row + 1);
  }
  settings_.grow = std::move(ticked);
  onChange(settings_);
}

void PreparePage::mirror(const PreparePanel& panel) {
  if (shown_ == panel.revision) return;
  shown_ = panel.revision;
  mirroring_ = true;
  if (shownPicture_ != panel.picture.get()) {
    shownPicture_ = panel.picture.get();
    before_->show(panel.picture ? imageOf(onPaper(panel.picture->whole)) : QImage());
  }
  if (shownMade_ != panel.made.get()) {
    shownMade_ = panel.made.get();
    after_->show(panel.made ? imageOf(panel.made->picture) : QImage());
    if (panel.made) showColours(*panel.made);
  }
  showSettings(panel);
  mirroring_ = false;
}

void PreparePage::showSettings(const PreparePanel& panel) {
  settings_ = panel.settings;
  size_->setCurrentIndex(settings_.asItsSize ? 1 : 0);
  colours_->setValue(settings_.colours);
  detail_->setValue(settings_.detail);
  const Outlines came = panel.made ? panel.made->outlines : Outlines::thin;
  const Outlines outlines = settings_.outlines == Outlines::automatic ? came : settings_.outlines;
  const auto* choice = std::find(kOutlineChoices.begin(), kOutlineChoices.end(), outlines);
  outlines_->setCurrentIndex(static_cast<int>(choice - kOutlineChoices.begin()));
  place_->setEnabled(panel.made && !panel.working);
  asItIs_->setEnabled(panel.fitsAsItIs());
  line_->setText(panel.made ? qString(panel.line) : QString("The picture is being prepared"));
}

void PreparePage::showColours(const Prepared& made) {
  const int row = found_->currentRow();
  found_->clear();
  for (const FoundColour& found : made.found) {
    auto* item = new QListWidgetItem(wordsOf(found), found_);
    QPixmap swatch(kSwatch, kSwatch);
    swatch.fill(screenColour(found.becomes));
    item->setIcon(swatch);
    item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setCheckState(found.grows ? Qt::Checked : Qt::Unchecked);
  }
  found_->setCurrentRow(std::clamp(row, 0, std::max(0, found_->count() - 1)));
}

}  // namespace gridwright
