#include "platform/qt/page_setup_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/panels.h"

namespace gridwright {

namespace {

constexpr int kUsualMargin = -1;    // what the box of margins holds for those that nobody has set,
constexpr int kUnequalMargin = -2;  // and for margins that differ, which the dialog alone can give
constexpr int kLongestTitle = 200;

bool areAlike(const Margins& m) {
  return m.left == m.top && m.left == m.right && m.left == m.bottom && m.left % kTenths == 0;
}

std::string marginWords(const Margins& m) {
  return areAlike(m) ? std::to_string(m.left / kTenths) + " mm" : "each its own";
}

/// The two below the numbers have words in place of a number.
class MarginBox : public QSpinBox {
 public:
  explicit MarginBox(QWidget* parent) : QSpinBox(parent) { setRange(kUsualMargin, kMostMargin); }
  void setUsual(QString words) { usual_ = std::move(words); }

 protected:
  [[nodiscard]] QString textFromValue(int value) const override {
    if (value == kUsualMargin) return usual_;
    return value == kUnequalMargin ? QString("each its own") : QSpinBox::textFromValue(value);
  }

 private:
  QString usual_;
};

}  // namespace

PageSetupPage::PageSetupPage(QWidget* parent)
    : QWidget(parent),
      title_(new QLineEdit(this)),
      nameLine_(new QCheckBox("A line for a &name", this)),
      endWords_(new QCheckBox("The &words Start and Finish beside the ends", this)),
      paper_(new QComboBox(this)),
      orientation_(new QComboBox(this)),
      margin_(new MarginBox(this)),
      columns_(new QSpinBox(this)),
      rows_(new QSpinBox(this)) {
  title_->setObjectName("title");
  title_->setMaxLength(kLongestTitle);
  title_->setPlaceholderText("none");
  nameLine_->setObjectName("nameline");
  endWords_->setObjectName("endwords");
  paper_->setObjectName("paper");
  orientation_->setObjectName("orientation");
  margin_->setObjectName("margin");
  orientation_->addItems({"as the picture lies", "upright", "lying on its side"});
  auto* column = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  form->addRow("Tit&le", title_);
  form->addRow(QString(), nameLine_);
  form->addRow(QString(), endWords_);
  form->addRow("P&aper", paper_);
  form->addRow("Ori&entation", orientation_);
  form->addRow("Mar&gins in mm", margin_);
  auto* tiles = buildTiles();
  form->addRow("T&iles", tiles);
  static_cast<QLabel*>(form->labelForField(tiles))->setBuddy(columns_);
  column->addLayout(form);
  column->addWidget(buildButtons());
}

/// Sheets beside each other, and one below the other.
QWidget* PageSetupPage::buildTiles() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  columns_->setObjectName("columns");
  rows_->setObjectName("rows");
  columns_->setAccessibleName("Sheets across");
  rows_->setAccessibleName("Sheets down");
  for (QSpinBox* box : {columns_, rows_}) {
    box->setRange(1, kMostTiles);
    box->setToolTip("a poster: the page is spread over so many sheets, with marks where they are cut");
  }
  row->addWidget(columns_);
  row->addWidget(new QLabel("sheets across,", part));
  row->addWidget(rows_);
  row->addWidget(new QLabel("down", part));
  row->addStretch(1);
  return part;
}

QWidget* PageSetupPage::buildButtons() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  auto* more = new QPushButton("Mo&re…", part);
  auto* use = new QPushButton("&Use", part);
  auto* cancel = new QPushButton("&Cancel", part);
  more->setObjectName("more");
  use->setObjectName("use");
  cancel->setObjectName("cancel");
  more->setToolTip("what the desktop knows of paper and margins");
  use->setToolTip("Enter: pages look so from now on");
  cancel->setToolTip("Escape: everything stays as it was");
  row->addWidget(more);
  row->addStretch(1);
  row->addWidget(use);
  row->addWidget(cancel);
  const auto accept = [this] { onAccept(setup()); };
  connect(more, &QPushButton::clicked, this, [this] { onMore(); });
  connect(use, &QPushButton::clicked, this, accept);
  connect(cancel, &QPushButton::clicked, this, [this] { onCancel(); });
  onEnter(*this, accept);
  onEscape(*this, [this] { onCancel(); });
  return part;
}

QWidget* PageSetupPage::first() const { return title_; }

void PageSetupPage::mirror(const PagePanel& panel) {
  if (shown_ == panel.revision) return;
  shown_ = panel.revision;
  if (!panel.open) return;
  usual_ = panel.usual;
  show(panel.setup);
}

void PageSetupPage::show(const PageSetup& setup) {
  title_->setText(qString(setup.title));
  nameLine_->setChecked(setup.nameLine);
  endWords_->setChecked(setup.endWords);
  orientation_->setCurrentIndex(!setup.landscape ? 0 : *setup.landscape ? 2 : 1);
  columns_->setValue(setup.tiles.columns);
  rows_->setValue(setup.tiles.rows);
  showPapers(setup);
  showMargins(setup);
}

/// Paper without a name is one more entry.
void PageSetupPage::showPapers(const PageSetup& setup) {
  paper_->clear();
  const auto add = [this](const QString& words, const PaperSize& size) {
    paper_->addItem(words, QSize(size.width, size.height));
    return paper_->count() - 1;
  };
  paper_->addItem(qString(paperWords(usual_.size) + ", as " + usual_.whose + " has it"));
  int chosen = setup.paper ? -1 : 0;
  for (const NamedPaper& paper : kPapers) {
    const int entry = add(qString(paper.words), paper.size);
    if (setup.paper == paper.size) chosen = entry;
  }
  if (chosen < 0) chosen = add(qString(paperWords(*setup.paper)), *setup.paper);
  paper_->setCurrentIndex(chosen);
}

void PageSetupPage::showMargins(const PageSetup& setup) {
  const QString usual = qString(marginWords(usual_.margins) + ", as " + usual_.whose + " has them");
  auto* box = static_cast<MarginBox*>(margin_);
  box->setUsual(usual);
  box->setSpecialValueText(usual);
  unequal_.reset();
  int value = kUsualMargin;
  if (setup.margins && areAlike(*setup.margins)) value = setup.margins->left / kTenths;
  if (setup.margins && !areAlike(*setup.margins)) {
    unequal_ = setup.margins;
    value = kUnequalMargin;
    box->setSpecialValueText("each its own");
  }
  box->setMinimum(std::min(value, kUsualMargin));
  box->setValue(value);
}

PageSetup PageSetupPage::setup() const {
  PageSetup setup;
  setup.title = title_->text().toStdString();
  setup.nameLine = nameLine_->isChecked();
  setup.endWords = endWords_->isChecked();
  if (paper_->currentIndex() > 0) {
    const QSize size = paper_->currentData().toSize();
    setup.paper = {size.width(), size.height()};
  }
  if (orientation_->currentIndex() > 0) setup.landscape = orientation_->currentIndex() == 2;
  if (margin_->value() >= 0) setup.margins = allRound(margin_->value());
  if (margin_->value() == kUnequalMargin) setup.margins = unequal_;
  setup.tiles = {columns_->value(), rows_->value()};
  return setup;
}

}  // namespace gridwright
