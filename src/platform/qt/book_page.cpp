#include "platform/qt/book_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "files/work_folder.h"
#include "platform/qt/book_strip.h"
#include "platform/qt/panels.h"

namespace gridwright {

namespace {

constexpr int kListRows = 3;  // of pictures that are seen at once
constexpr int kInAll = 1;     // entry of what the number is of

QString nameOf(const std::filesystem::path& file) { return QFile::decodeName(file.c_str()); }

std::string fileOf(const QString& name) { return QFile::encodeName(name.trimmed()).toStdString(); }

std::string wordsOf(const QString& text) { return text.trimmed().toStdString(); }

QWidget* inARow(QWidget* parent, std::initializer_list<QWidget*> parts) {
  auto* part = new QWidget(parent);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  for (QWidget* each : parts) row->addWidget(each, each == *parts.begin() ? 1 : 0);
  return part;
}

QPushButton* button(QWidget* parent, const char* name, const char* words, const char* tip) {
  auto* made = new QPushButton(words, parent);
  made->setObjectName(name);
  made->setToolTip(tip);
  return made;
}

/// It is as wide as what it holds, and moves up and down alone.
class FormArea : public QScrollArea {
 public:
  explicit FormArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
  }
  [[nodiscard]] QSize sizeHint() const override {
    const QSize inner = widget() == nullptr ? QSize() : widget()->sizeHint();
    return {inner.width() + verticalScrollBar()->sizeHint().width(), inner.height()};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }
};

}  // namespace

BookPage::BookPage(QWidget* parent)
    : QWidget(parent),
      pictures_(new QListWidget(this)),
      drawing_(new QCheckBox("The dra&wing on the Canvas", this)),
      sheet_(new QCheckBox("The s&heet of the workshop", this)),
      names_(box("names", "none; a text with a name in each line")),
      number_(box("number", "1")),
      share_(new QComboBox(this)),
      kinds_(choices("kinds", "as each picture has it", {"regular", "3d", "pipe", "regular,3d,pipe"})),
      walls_(box("walls", "10; or 14,10,8 in turn")),
      patterns_(choices("patterns", "each picture's own", {"none", "random", "random:8", "none,random"})),
      paper_(choices("paper", "a4", {"a4", "a3", "a5", "letter", "legal", "180x240mm"})),
      perPage_(choices("perpage", "1x1", {"1x1", "1x2", "2x2", "2x3", "3x4"})),
      answers_(choices("answers", "end", {"end", "after", "none", "answers.pdf"})),
      answersPerPage_(
          choices("answersperpage", "3x4; behind each as the mazes", {"1x1", "1x2", "2x2", "3x4", "4x6"})),
      title_(box("title", "none")),
      caption_(box("caption", "none; {n} {picture} {seed} {cells} {difficulty}")),
      seed_(box("seed", "0 to 4294967295")),
      file_(box("file", "the book")),
      line_(new QLineEdit(this)),
      why_(new QLabel(this)),
      strip_(new BookStrip(this)) {
  drawing_->setObjectName("drawing");
  sheet_->setObjectName("sheet");
  auto* column = new QVBoxLayout(this);
  auto* area = new FormArea(this);
  area->setWidget(buildForm());
  column->addWidget(area, 1);
  column->addWidget(strip_);
  why_->setObjectName("why");
  why_->setTextFormat(Qt::PlainText);
  why_->setWordWrap(true);
  QFont strong = why_->font();
  strong.setBold(true);
  why_->setFont(strong);
  why_->hide();
  column->addWidget(why_);
  column->addWidget(buildLine());
  column->addWidget(buildButtons());
  listenToChanges();
  orderTabs();
}

/// Buttons beside what they belong to; all else is made in its order, which Tab follows.
void BookPage::orderTabs() {
  const auto named = [this](const char* name) { return findChild<QWidget*>(name); };
  setTabOrder(pictures_, named("add"));
  setTabOrder(named("add"), named("remove"));
  setTabOrder(named("remove"), drawing_);
  setTabOrder(names_, named("choosenames"));
  setTabOrder(named("choosenames"), number_);
}

QLineEdit* BookPage::box(const char* name, const char* placeholder) {
  auto* made = new QLineEdit(this);
  made->setObjectName(name);
  made->setPlaceholderText(placeholder);
  return made;
}

QComboBox* BookPage::choices(const char* name, const char* placeholder, const QStringList& words) {
  auto* made = new QComboBox(this);
  made->setObjectName(name);
  made->setEditable(true);
  made->setInsertPolicy(QComboBox::NoInsert);
  made->addItems(words);
  made->setCurrentIndex(-1);
  made->lineEdit()->setPlaceholderText(placeholder);
  return made;
}

// No letter is one that opens a menu.
QWidget* BookPage::buildForm() {
  auto* part = new QWidget(this);
  auto* form = new QFormLayout(part);
  form->setContentsMargins(0, 0, 0, 0);
  form->addRow("Pict&ures", buildPictures());
  form->addRow(QString(), drawing_);
  form->addRow(QString(), sheet_);
  form->addRow("&Names", buildNames());
  form->addRow("Ma&zes", buildNumber());
  form->addRow("Kinds", kinds_);
  form->addRow("Wall sizes in pi&xels", walls_);
  form->addRow("Patte&rns", patterns_);
  form->addRow("Paper", paper_);
  form->addRow("Mazes a pa&ge", perPage_);
  form->addRow("&Answers", answers_);
  form->addRow("Answers a page", answersPerPage_);
  form->addRow("Tit&le", title_);
  form->addRow("Captions", caption_);
  form->addRow("S&eed", seed_);
  form->addRow("File", file_);
  static_cast<QLabel*>(form->labelForField(pictures_->parentWidget()))->setBuddy(pictures_);
  static_cast<QLabel*>(form->labelForField(names_->parentWidget()))->setBuddy(names_);
  static_cast<QLabel*>(form->labelForField(number_->parentWidget()))->setBuddy(number_);
  return part;
}

QWidget* BookPage::buildPictures() {
  pictures_->setObjectName("pictures");
  pictures_->setAccessibleName("Pictures");
  pictures_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  pictures_->setTextElideMode(Qt::ElideLeft);
  pictures_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  pictures_->setFixedHeight(kListRows * (pictures_->fontMetrics().height() + 4) +
                            2 * pictures_->frameWidth());
  pictures_->setToolTip("pictures and drawings; they can be dropped here too");
  auto* add = button(this, "add", "A&dd…", "pictures and drawings, from any folder");
  auto* remove = button(this, "remove", "Remo&ve", "takes those that are marked off the list");
  connect(add, &QPushButton::clicked, this, [this] { onAddPictures(); });
  connect(remove, &QPushButton::clicked, this, [this] { removePictures(); });
  auto* buttons = new QWidget(this);
  auto* column = new QVBoxLayout(buttons);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(add);
  column->addWidget(remove);
  column->addStretch(1);
  return inARow(this, {pictures_, buttons});
}

QWidget* BookPage::buildNames() {
  auto* choose = button(this, "choosenames", "Choose…", "a text file with a name in each line");
  connect(choose, &QPushButton::clicked, this, [this] { onChooseNames(); });
  return inARow(this, {names_, choose});
}

QWidget* BookPage::buildNumber() {
  share_->setObjectName("share");
  share_->setAccessibleName("what the number of mazes is of");
  share_->addItems({"for each picture", "in the whole book"});
  return inARow(this, {number_, share_});
}

QWidget* BookPage::buildLine() {
  line_->setObjectName("line");
  line_->setReadOnly(true);
  line_->setAccessibleName("Command line");
  line_->setToolTip("the command that makes the same book");
  auto* copy =
      button(this, "copy", "Cop&y", "the command that makes the same book, to paste into a terminal");
  connect(copy, &QPushButton::clicked, this, [this] { onCopy(wish()); });
  return inARow(this, {line_, copy});
}

QWidget* BookPage::buildButtons() {
  auto* part = new QWidget(this);
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  auto* make = button(this, "make", "Ma&ke", "Enter: the book is made while you go on");
  auto* cancel = button(this, "cancel", "&Cancel", "Escape: no book is made");
  row->addStretch(1);
  row->addWidget(make);
  row->addWidget(cancel);
  const auto accept = [this] { onAccept(wish()); };
  connect(make, &QPushButton::clicked, this, accept);
  connect(cancel, &QPushButton::clicked, this, [this] { onCancel(); });
  onEnter(*this, accept);
  onEscape(*this, [this] { onCancel(); });
  connect(new QShortcut(Qt::Key_Delete, pictures_, nullptr, nullptr, Qt::WidgetShortcut),
          &QShortcut::activated, this, [this] { removePictures(); });
  return part;
}

void BookPage::listenToChanges() {
  const auto changed = [this] { showLine(); };
  for (QLineEdit* each : {names_, number_, walls_, title_, caption_, seed_, file_})
    connect(each, &QLineEdit::textChanged, this, changed);
  for (QComboBox* each : {kinds_, patterns_, paper_, perPage_, answers_, answersPerPage_})
    connect(each, &QComboBox::editTextChanged, this, changed);
  connect(share_, &QComboBox::currentIndexChanged, this, changed);
  for (QCheckBox* each : {drawing_, sheet_}) connect(each, &QCheckBox::toggled, this, changed);
  connect(pictures_->model(), &QAbstractItemModel::rowsInserted, this, changed);
  connect(pictures_->model(), &QAbstractItemModel::rowsRemoved, this, changed);
}

QWidget* BookPage::first() const { return number_; }

void BookPage::removePictures() { qDeleteAll(pictures_->selectedItems()); }

void BookPage::mirror(const BookPanel& panel) {
  strip_->mirror(panel.making, panel.open && !panel.making.pages.empty());
  if (shown_ == panel.revision) return;
  shown_ = panel.revision;
  if (!panel.open) return;
  files_ = panel.files;
  folder_ = panel.folder;
  sheet_->setEnabled(panel.hasSheet);
  show(panel.wish);
  why_->setText(qString(panel.line));
  why_->setVisible(!panel.line.empty());
}

void BookPage::show(const BookWish& wish) {
  drawing_->setChecked(wish.drawing);
  sheet_->setChecked(wish.sheet);
  pictures_->clear();
  for (const std::string& picture : wish.pictures) pictures_->addItem(nameOf(picture));
  names_->setText(nameOf(wish.names));
  number_->setText(qString(wish.number));
  share_->setCurrentIndex(wish.inAll ? kInAll : 0);
  kinds_->setEditText(qString(wish.kinds));
  walls_->setText(qString(wish.walls));
  patterns_->setEditText(nameOf(wish.patterns));
  paper_->setEditText(qString(wish.paper));
  perPage_->setEditText(qString(wish.perPage));
  answers_->setEditText(nameOf(wish.answers));
  answersPerPage_->setEditText(qString(wish.answersPerPage));
  title_->setText(qString(wish.title));
  caption_->setText(qString(wish.caption));
  seed_->setText(qString(wish.seed));
  file_->setText(nameOf(wish.file));
  showLine();
}

BookWish BookPage::wish() const {
  BookWish wish;
  wish.drawing = drawing_->isChecked();
  wish.sheet = sheet_->isChecked();
  for (int i = 0; i < pictures_->count(); ++i) wish.pictures.push_back(fileOf(pictures_->item(i)->text()));
  wish.names = fileOf(names_->text());
  wish.number = wordsOf(number_->text());
  wish.inAll = share_->currentIndex() == kInAll;
  wish.kinds = wordsOf(kinds_->currentText());
  wish.walls = wordsOf(walls_->text());
  wish.patterns = fileOf(patterns_->currentText());
  wish.paper = wordsOf(paper_->currentText());
  wish.perPage = wordsOf(perPage_->currentText());
  wish.answers = fileOf(answers_->currentText());
  wish.answersPerPage = wordsOf(answersPerPage_->currentText());
  wish.title = wordsOf(title_->text());
  wish.caption = wordsOf(caption_->text());
  wish.seed = wordsOf(seed_->text());
  wish.file = fileOf(file_->text());
  return wish;
}

void BookPage::showLine() {
  line_->setText(nameOf(bookLine(wish(), files_, folder_)));
  line_->setCursorPosition(0);
}

void BookPage::add(const std::vector<std::filesystem::path>& files) {
  for (const std::filesystem::path& file : files) {
    if (inLowerCase(file.extension().string()) == ".txt") {
      setNames(file);
    } else {
      pictures_->addItem(nameOf(file));
    }
  }
  pictures_->scrollToBottom();
}

void BookPage::setNames(const std::filesystem::path& file) { names_->setText(nameOf(file)); }

}  // namespace gridwright
