#include "platform/qt/export_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
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

// What an entry of the answers stands for.
constexpr int kAsItStands = -1, kWithout = 0, kWith = 1;

constexpr int kNameWidth = 26;  // in letters: longer names scroll

QPushButton* button(const QString& words, const char* name, const QString& tip, QWidget* parent) {
  auto* made = new QPushButton(words, parent);
  made->setObjectName(name);
  made->setToolTip(tip);
  return made;
}

}  // namespace

ExportPage::ExportPage(QWidget* parent)
    : QWidget(parent),
      file_(new QLineEdit(this)),
      dpi_(new QSpinBox(this)),
      answer_(new QComboBox(this)),
      clear_(new QCheckBox("T&ransparent ground", this)),
      line_(new QLabel(this)) {
  file_->setObjectName("file");
  file_->setMinimumWidth(kNameWidth * fontMetrics().averageCharWidth());
  file_->setToolTip("its ending says what it becomes: .png, .svg or .pdf");
  dpi_->setObjectName("dpi");
  dpi_->setRange(kLeastDpi, kMostDpi);
  dpi_->setToolTip("of a PNG: as large as the page takes");
  answer_->setObjectName("answer");
  clear_->setObjectName("clear");
  clear_->setToolTip("paper and the ground round the picture are see-through");
  line_->setObjectName("line");
  line_->setWordWrap(true);
  line_->setTextFormat(Qt::PlainText);
  auto* column = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  QWidget* name = buildName();
  form->addRow("Fi&le", name);
  static_cast<QLabel*>(form->labelForField(name))->setBuddy(file_);
  form->addRow("&Dots an inch", dpi_);
  form->addRow("&Answer", answer_);
  form->addRow(QString(), clear_);
  column->addLayout(form);
  column->addWidget(line_);
  column->addWidget(buildButtons());
}

QWidget* ExportPage::buildName() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  auto* choose = button("C&hoose…", "choose", "another folder, or a file that is there", part);
  row->addWidget(file_, 1);
  row->addWidget(choose);
  connect(choose, &QPushButton::clicked, this, [this] { onChoose(); });
  return part;
}

QWidget* ExportPage::buildButtons() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  auto* write = button("&Export", "export", "Enter: the file is written", part);
  auto* cancel = button("&Cancel", "cancel", "Escape: nothing is written", part);
  row->addStretch(1);
  row->addWidget(write);
  row->addWidget(cancel);
  const auto accept = [this] { onAccept(wish()); };
  connect(write, &QPushButton::clicked, this, accept);
  connect(cancel, &QPushButton::clicked, this, [this] { onCancel(); });
  onEnter(*this, accept);
  onEscape(*this, [this] { onCancel(); });
  return part;
}

QWidget* ExportPage::first() const { return file_; }

void ExportPage::mirror(const ExportPanel& panel) {
  if (shown_ == panel.revision) return;
  shown_ = panel.revision;
  if (panel.open && !wasOpen_) {
    file_->setText(QFile::decodeName(panel.wish.file.c_str()));
    file_->selectAll();
    dpi_->setValue(panel.wish.dpi);
    clear_->setChecked(panel.wish.clear);
    offerAnswers(panel);
  }
  wasOpen_ = panel.open;
  line_->setText(qString(panel.line).replace("/", "/" + QString(QChar(0x200B))));  // long paths may break
  line_->setVisible(!panel.line.empty());
}

/// What the Canvas does not have is not offered.
void ExportPage::offerAnswers(const ExportPanel& panel) {
  answer_->clear();
  answer_->addItem("as it stands", kAsItStands);
  if (panel.mazeStands) answer_->addItem("without it", kWithout);
  if (panel.answerStands) answer_->addItem("with it", kWith);
  const int wished = panel.wish.answer ? static_cast<int>(*panel.wish.answer) : kAsItStands;
  answer_->setCurrentIndex(std::max(0, answer_->findData(wished)));
  answer_->setEnabled(answer_->count() > 1);
}

ExportWish ExportPage::wish() const {
  ExportWish wish;
  wish.file = QFile::encodeName(file_->text()).toStdString();
  wish.dpi = dpi_->value();
  wish.clear = clear_->isChecked();
  const int answer = answer_->currentData().toInt();
  if (answer != kAsItStands) wish.answer = answer == kWith;
  return wish;
}

void ExportPage::setFile(const QString& name) { file_->setText(name); }

}  // namespace gridwright
