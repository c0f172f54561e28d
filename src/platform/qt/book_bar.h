// How far a book is, in the status line's row: a bar, the pages made so far, and Cancel.
#pragma once

#include <QBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <functional>

#include "state/book_panel.h"

namespace gridwright {

/// Shown while a book is made. It takes no height of its own, and the keyboard by Tab alone, so that the
/// Canvas keeps its size and its keys; without a status line it lies in the corner over the Canvas.
class BookBar : public QWidget {
 public:
  /// \param row of the status line, at whose end it stands.
  BookBar(QWidget* parent, QBoxLayout* row);

  std::function<void()> onCancel;
  std::function<void(bool shown)> onPages;

  /// Brings it in line with the book, if that has changed since.
  /// \param alone without a status line.
  void mirror(const BookMaking& making, bool alone);

  [[nodiscard]] QPushButton& pages() const { return *pages_; }
  [[nodiscard]] QPushButton& cancel() const { return *cancel_; }
  [[nodiscard]] QProgressBar& progress() const { return *progress_; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {sizeHint().width(), 0}; }

 private:
  void placeInCorner();

  QBoxLayout* row_;
  QProgressBar* progress_;
  QPushButton *pages_, *cancel_;
  std::uint64_t shown_ = 0;
  bool alone_ = false;
};

}  // namespace gridwright
