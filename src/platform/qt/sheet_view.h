// The sheet of the workshop on the screen: zoomed, scrolled, with a grid of cells and what is laid over it;
// and the places on it that a mouse, or keys in its stead, are at. It shows a model and reports what a person
// does.
//
// A pixel of the sheet is a whole number of screen pixels, never smoothed.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <functional>
#include <optional>

#include "canvas/cell_grid.h"
#include "pictures/tool.h"
#include "platform/qt/placed_frame.h"
#include "state/workshop.h"

class QPainter;

namespace gridwright {

class SheetView : public QAbstractScrollArea {
 public:
  static constexpr int kMostZoom = 16, kGridZoom = 4;

  explicit SheetView(QWidget* parent);

  /// The left button, or Space, goes down at a place of the sheet, is dragged and comes up again, also off
  /// the sheet. \param straight Shift is held.
  std::function<void(Corner at)> onPress;
  std::function<void(Corner at, bool straight)> onDrag, onRelease;
  std::function<void()> onEnd;            ///< What was begun ends where it is.
  std::function<void(Corner at)> onPick;  ///< The right button.
  std::function<void(Corner at, Size size)> onMovePlaced;
  std::function<void()> onPointer;  ///< The pointer or the zoom is another, or the frame was left.

  /// Brings the picture in line with the sheet; what of it has changed is painted anew.
  void mirror(Workshop& workshop);

  /// Laid over the sheet, as large as it; a null image for nothing.
  void layOver(QImage layer);

  void zoomBy(int steps);  ///< About the middle.
  void zoomTo(int zoom);
  [[nodiscard]] int zoom() const { return zoom_; }

  /// What a person began here ends where it stands.
  void endStroke();
  [[nodiscard]] bool isHeld() const { return held_ != Held::nothing; }

  /// The frame round the placed picture goes, and the tools work again.
  void leaveFrame();
  [[nodiscard]] const std::optional<PlacedFrame>& frame() const { return frame_; }

  /// The pixel of the sheet under the pointer.
  [[nodiscard]] std::optional<Corner> pointer() const;
  [[nodiscard]] const QImage& picture() const { return picture_; }
  [[nodiscard]] const QImage& layer() const { return layer_; }
  /// The middle of a pixel of the sheet, in the viewport.
  [[nodiscard]] QPoint placeOf(Corner pixel) const;
  [[nodiscard]] QSize minimumSizeHint() const override { return {160, 90}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  enum class Held { nothing, byMouse, byKey, frame };

  [[nodiscard]] int scale() const;  ///< Screen pixels a pixel of the sheet.
  [[nodiscard]] QSize screenSize() const;
  [[nodiscard]] QPoint origin() const;  ///< Of the sheet in the viewport, in screen pixels.
  [[nodiscard]] QPoint pixelAt(QPointF place) const;
  [[nodiscard]] QRect screenOf(const QRect& box) const;  ///< In the viewport's coordinates.
  void placeBars();
  void zoomAt(int zoom, QPoint anchor);
  void takeChanges(Sheet& sheet);
  void mirrorFrame(const Workshop& workshop);
  void showFrame(const QRect& box);
  void dropFrame();
  void moveFrame(const QRect& box);
  void updateBox(const QRect& box);
  void paintGrid(QPainter& painter, const QRect& part) const;
  void paintFrame(QPainter& painter) const;
  void paintPointer(QPainter& painter) const;
  void pressFrame();
  void dragTo(QPoint pixel, Qt::KeyboardModifiers modifiers);
  bool keyOnFrame(const QKeyEvent& event);
  bool keyMoves(const QKeyEvent& event);
  void movePointer(QPoint pixel, bool byKeys);
  void movePointerByKeys(QPoint by);
  void showPointer();
  [[nodiscard]] Qt::CursorShape cursorShape() const;
  void showCursor();

  QImage picture_, layer_;
  CellPitch pitch_;
  int zoom_ = 1;
  int wheel_ = 0;  // eighths of a degree that have made no step yet
  QPoint pointer_;
  bool hasPointer_ = false, byKeys_ = false;
  Held held_ = Held::nothing;
  std::optional<PlacedFrame> frame_;
  std::uint64_t frameShown_ = 0;        // the revision of the sheet that it is of
  bool frameLeft_ = false;              // until another picture is placed, which happens on the other page
  std::optional<PlacedFrame> grabbed_;  // as it was when the drag began
  PlacedFrame::Part grip_ = PlacedFrame::Part::inside;
  QPoint grabbedAt_;
};

}  // namespace gridwright
