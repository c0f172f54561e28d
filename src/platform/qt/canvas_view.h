// The part of the window that shows the Canvas, and that has the keyboard unless a text box has it.
//
// The Canvas takes the view's size in points, of which a logical inch has 96, so that what is made does not
// depend on the screen. It is shown by the largest whole or half number of screen pixels a Canvas pixel at
// which all of it is seen, in the middle of a neutral surround; nothing is smoothed unless two pixels share
// one.
#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

#include "canvas/canvas.h"
#include "canvas/geometry.h"
#include "state/key_codes.h"

class QPainter;

namespace gridwright {

/// The squares that bear a shape, in Canvas pixels.
struct EndMarks {
  std::optional<QRect> start, finish;
  friend bool operator==(const EndMarks&, const EndMarks&) = default;
};

class CanvasView : public QWidget {
 public:
  static constexpr Size kUsual{800,
                               600};  ///< Of the Canvas in a window that was just opened, and of the title.
  static constexpr Size kSmallest{50, 50};

  explicit CanvasView(QWidget* parent);

  std::function<void(int code, KeyGo go)> onKey;
  std::function<void(int button)> onMouse;  ///< 1 left, 2 right.
  std::function<void()> onPlaced;           ///< The Canvas lies elsewhere in the view now.

  /// The size that the Canvas takes in this view, in its own pixels.
  [[nodiscard]] Size clientSize() const;

  /// Where a box of the Canvas lies in the view.
  [[nodiscard]] QRectF placeOf(const QRect& box) const;

  /// The part of the view in which the Canvas is seen.
  [[nodiscard]] QRect visibleCanvas() const;

  /// Takes over what changed on the shown plane, and has it on the screen when it returns.
  /// \returns whether the screen looks different.
  bool showChanges(Canvas& canvas);

  /// At the title its picture and the slides are what is shown, whole, however large the Canvas is.
  void setAtTitle(bool on) { atTitle_ = on; }

  /// Lays colours over the Canvas, with a line under them; the next key or click is `onDismiss` then and
  /// nothing else. An empty picture takes them away.
  void layOver(const Bitmap& colours, const QString& line);
  std::function<void()> onDismiss;

  /// Something of another widget lies over it: the next key is `onDismiss` and nothing else.
  void cover(bool on) { covered_ = on; }

  /// Lays shapes over both ends, on no plane of the Canvas.
  void markEnds(const EndMarks& marks);
  [[nodiscard]] const EndMarks& endMarks() const { return marks_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] const QImage& overlay() const { return overlay_; }
  [[nodiscard]] const QImage& picture() const { return picture_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  /// Tab leads nowhere from the Canvas, but to what can have the keyboard beside it just now. From a part of
  /// a panel that stands on it, it goes on; not from one that was just hidden.
  bool focusNextPrevChild(bool next) override {
    const QWidget* has = window()->focusWidget();
    const bool leads = has == this || has == nullptr ? focusPolicy() != Qt::NoFocus : has->isVisible();
    return leads && QWidget::focusNextPrevChild(next);
  }

 private:
  [[nodiscard]] double dotsOfPoint() const;  ///< Screen pixels a point.
  [[nodiscard]] double zoom() const;         ///< Screen pixels a Canvas pixel, along each axis.
  [[nodiscard]] QPoint origin() const;       ///< Of the Canvas in the view, in screen pixels.
  [[nodiscard]] QSize screenSize() const;
  KeyGo goOf(const QKeyEvent& event);
  QRect copyChanges(const Canvas& canvas, const Canvas::Dirty& part);
  void repaintStroke(const QRect& changed);

  void paintOverlay(QPainter& painter) const;
  void paintEnds(QPainter& painter) const;
  [[nodiscard]] QRectF markOn(const QRect& square) const;

  EndMarks marks_;
  bool covered_ = false, atTitle_ = false;

  QImage overlay_;  // null for none
  QString line_;
  QImage picture_;  // the shown plane as Qt paints it
  uchar* pixels_;   // its memory, which nobody shares
  Size canvasSize_ = kUsual;
  QRect lastStroke_;           // in the view's coordinates
  int strokesRemembered_ = 0;  // by Qt, see repaintStroke
  int lastReleased_ = 0;
  std::uint64_t lastKeyAt_ = 0, lastReleaseAt_ = 0;  // in milliseconds, as the window system counts them
};

}  // namespace gridwright
