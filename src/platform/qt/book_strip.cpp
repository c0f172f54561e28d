#include "platform/qt/book_strip.h"

#include <QPainter>

#include "platform/shared/image_files.h"

namespace gridwright {

namespace {

constexpr int kGap = 6;  // round each picture

}  // namespace

BookStrip::BookStrip(QWidget* parent) : QWidget(parent) {
  setObjectName("BookStrip");
  setAccessibleName("pages of the book");
  setAutoFillBackground(true);
  hide();
}

QSize BookStrip::sizeHint() const {
  return {kSmallPageSide + 2 * kGap, kSmallPageSide + 3 * kGap + fontMetrics().height()};
}

QSize BookStrip::minimumSizeHint() const { return {0, sizeHint().height()}; }

void BookStrip::mirror(const BookMaking& making, bool shown) {
  if (isHidden() == shown) setVisible(shown);
  if (!shown || shown_ == making.revision) return;
  shown_ = making.revision;
  pages_.clear();
  for (const SmallPage& page : making.pages) pages_.push_back({page.number, imageOf(page.picture)});
  setAccessibleDescription(QString("%1 pages, the last of maze %2")
                               .arg(pages_.size())
                               .arg(pages_.empty() ? 0 : pages_.back().number));
  update();
}

void BookStrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  int right = width() - kGap;
  for (auto page = pages_.rbegin(); page != pages_.rend() && right > 0; ++page) {
    const QSize size = page->picture.size();
    const QRect place(right - size.width(), kGap + (kSmallPageSide - size.height()) / 2, size.width(),
                      size.height());
    painter.drawImage(place, page->picture);
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
    const QRect below(place.left() - kGap, kSmallPageSide + 2 * kGap, place.width() + 2 * kGap,
                      fontMetrics().height());
    painter.drawText(below, Qt::AlignCenter, QString::number(page->number));
    right = place.left() - 2 * kGap;
  }
}

}  // namespace gridwright
