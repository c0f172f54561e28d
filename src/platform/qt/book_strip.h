// The pages of a book as they are made, as small pictures in a row.
#pragma once

#include <QImage>
#include <QWidget>
#include <cstdint>
#include <vector>

#include "state/book_panel.h"

namespace gridwright {

/// As many of the newest as there is room for, the last one on the right.
class BookStrip : public QWidget {
 public:
  explicit BookStrip(QWidget* parent);

  /// Brings it in line with the book, if that has changed since it was last shown.
  void mirror(const BookMaking& making, bool shown);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] std::size_t count() const { return pages_.size(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Page {
    int number;
    QImage picture;
  };
  std::vector<Page> pages_;
  std::uint64_t shown_ = 0;
};

}  // namespace gridwright
