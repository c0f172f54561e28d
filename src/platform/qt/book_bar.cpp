#include "platform/qt/book_bar.h"

#include <algorithm>

namespace gridwright {

namespace {

constexpr int kBarLetters = 16;  // wide at least
constexpr int kRoundWords = 3;   // letters that stay free beside its words

}  // namespace

BookBar::BookBar(QWidget* parent, QBoxLayout* row)
    : QWidget(parent),
      row_(row),
      progress_(new QProgressBar(this)),
      pages_(new QPushButton("Pages", this)),
      cancel_(new QPushButton("Cancel book", this)) {
  row_->addWidget(this);
  setObjectName("BookBar");
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  setAutoFillBackground(true);
  auto* inside = new QHBoxLayout(this);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->setSpacing(2);
  progress_->setObjectName("BookProgress");
  progress_->setAccessibleName("mazes of the book that are made");
  progress_->setFormat("%v of %m");
  pages_->setObjectName("BookPages");
  pages_->setCheckable(true);
  pages_->setToolTip("the pages made so far, as small pictures");
  cancel_->setObjectName("BookCancel");
  cancel_->setToolTip("ends the book; nothing is left of it");
  for (QWidget* part :
       {static_cast<QWidget*>(progress_), static_cast<QWidget*>(pages_), static_cast<QWidget*>(cancel_)}) {
    part->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    inside->addWidget(part);
  }
  for (QPushButton* button : {pages_, cancel_}) button->setFocusPolicy(Qt::TabFocus);
  connect(pages_, &QPushButton::clicked, this, [this](bool shown) { onPages(shown); });
  connect(cancel_, &QPushButton::clicked, this, [this] { onCancel(); });
  hide();
}

void BookBar::mirror(const BookMaking& making, bool alone) {
  if (shown_ != making.revision) {
    shown_ = making.revision;
    progress_->setRange(0, static_cast<int>(making.all));  // 0 of 0 moves to and fro: files are read
    progress_->setValue(static_cast<int>(making.done));
    const QFontMetrics letters = progress_->fontMetrics();
    const int words = letters.horizontalAdvance(QString("%1 of %1").arg(making.all));
    progress_->setFixedWidth(
        std::max(kBarLetters * letters.averageCharWidth(), words + kRoundWords * letters.averageCharWidth()));
    pages_->setChecked(making.pagesShown);
    cancel_->setEnabled(!making.stopping);
    setVisible(making.underWay);
  }
  if (alone_ != alone) {
    alone_ = alone;
    alone ? row_->removeWidget(this) : row_->addWidget(this);
  }
  if (alone_ && making.underWay) placeInCorner();
}

/// The left one: a run of mazes has the other.
void BookBar::placeInCorner() {
  QRect place({}, sizeHint());
  place.moveBottomLeft(parentWidget()->rect().bottomLeft());
  if (geometry() != place) setGeometry(place);
  raise();
}

}  // namespace gridwright
