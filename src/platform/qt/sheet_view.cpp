// What the sheet looks like on the screen; what a person does on it stands in sheet_pointer.cpp.
#include "platform/qt/sheet_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/qt/screen_colour.h"

namespace gridwright {

namespace {

constexpr std::array kZooms = {1, 2, 3, 4, 6, 8, 12, 16};
constexpr int kLine = 24;   // screen pixels that an arrow of a scroll bar goes
constexpr int kHandle = 7;  // the side of a handle, in points
constexpr int kCross = 9;   // how far the arms of the pointer reach, in points
constexpr QColor kGrid(128, 128, 128, 130);

std::size_t stepOf(int zoom) {
  return static_cast<std::size_t>(std::upper_bound(kZooms.begin(), kZooms.end(), zoom) - kZooms.begin()) - 1;
}

}  // namespace

SheetView::SheetView(QWidget* parent) : QAbstractScrollArea(parent) {
  setObjectName("Sheet");
  setAccessibleName("Sheet");
  setAccessibleDescription("arrows move the pointer, with Ctrl by a cell; Space is the button");
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  horizontalScrollBar()->setSingleStep(kLine);
  verticalScrollBar()->setSingleStep(kLine);
  for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()}) bar->setFocusPolicy(Qt::NoFocus);
  showCursor();
}

int SheetView::scale() const {
  return zoom_ * std::max(1, static_cast<int>(std::floor(devicePixelRatioF())));
}

QSize SheetView::screenSize() const {
  const double ratio = devicePixelRatioF();
  return {static_cast<int>(std::lround(viewport()->width() * ratio)),
          static_cast<int>(std::lround(viewport()->height() * ratio))};
}

QPoint SheetView::origin() const {
  const QSize screen = screenSize();
  const QSize sheet = picture_.size() * scale();
  return {sheet.width() <= screen.width() ? (screen.width() - sheet.width()) / 2
                                          : -horizontalScrollBar()->value(),
          sheet.height() <= screen.height() ? (screen.height() - sheet.height()) / 2
                                            : -verticalScrollBar()->value()};
}

QPoint SheetView::pixelAt(QPointF place) const {
  const QPointF on = place * devicePixelRatioF() - origin();
  return {static_cast<int>(std::floor(on.x() / scale())), static_cast<int>(std::floor(on.y() / scale()))};
}

QPoint SheetView::placeOf(Corner pixel) const {
  const QPointF middle = (QPointF(pixel.x + 0.5, pixel.y + 0.5) * scale() + origin()) / devicePixelRatioF();
  return {static_cast<int>(std::floor(middle.x())), static_cast<int>(std::floor(middle.y()))};
}

QRect SheetView::screenOf(const QRect& box) const {
  const double ratio = devicePixelRatioF();
  const QPointF at = (QPointF(box.topLeft()) * scale() + origin()) / ratio;
  return QRectF(at, QSizeF(box.size()) * scale() / ratio).toAlignedRect();
}

void SheetView::updateBox(const QRect& box) {
  const int around = kHandle + kCross;
  viewport()->update(screenOf(box).adjusted(-around, -around, around, around));
}

void SheetView::placeBars() {
  const QSize screen = screenSize();
  const QSize sheet = picture_.size() * scale();
  horizontalScrollBar()->setRange(0, std::max(0, sheet.width() - screen.width()));
  verticalScrollBar()->setRange(0, std::max(0, sheet.height() - screen.height()));
  horizontalScrollBar()->setPageStep(screen.width());
  verticalScrollBar()->setPageStep(screen.height());
}

/// What lies under the anchor, in screen pixels, stays under it.
void SheetView::zoomAt(int zoom, QPoint anchor) {
  if (zoom == zoom_) return;
  const QPointF under = QPointF(anchor - origin()) / scale();
  zoom_ = zoom;
  placeBars();
  horizontalScrollBar()->setValue(static_cast<int>(std::lround(under.x() * scale())) - anchor.x());
  verticalScrollBar()->setValue(static_cast<int>(std::lround(under.y() * scale())) - anchor.y());
  viewport()->update();
  if (onPointer) onPointer();
}

void SheetView::zoomBy(int steps) {
  const int at = std::clamp(static_cast<int>(stepOf(zoom_)) + steps, 0, static_cast<int>(kZooms.size()) - 1);
  zoomTo(kZooms.at(static_cast<std::size_t>(at)));
}

/// About the pointer where keys have moved it.
void SheetView::zoomTo(int zoom) {
  const QPoint middle(screenSize().width() / 2, screenSize().height() / 2);
  zoomAt(zoom,
         byKeys_ ? (QPointF(placeOf({pointer_.x(), pointer_.y()})) * devicePixelRatioF()).toPoint() : middle);
  if (byKeys_) showPointer();
}

void SheetView::wheelEvent(QWheelEvent* event) {
  event->accept();
  wheel_ += event->angleDelta().y();
  const int steps = wheel_ / QWheelEvent::DefaultDeltasPerStep;
  wheel_ -= steps * QWheelEvent::DefaultDeltasPerStep;
  const int at = std::clamp(static_cast<int>(stepOf(zoom_)) + steps, 0, static_cast<int>(kZooms.size()) - 1);
  zoomAt(kZooms.at(static_cast<std::size_t>(at)), (event->position() * devicePixelRatioF()).toPoint());
}

void SheetView::mirror(Workshop& workshop) {
  Sheet& sheet = *workshop.sheet;
  pitch_ = sheet.pitch();
  const QSize size(sheet.size().width, sheet.size().height);
  if (picture_.size() != size) {
    picture_ = QImage(size, QImage::Format_RGB32);
    sheet.takeChanged();
    for (int y = 0; y < size.height(); ++y) {
      std::transform(sheet.picture().row(y), sheet.picture().row(y) + size.width(),
                     reinterpret_cast<QRgb*>(picture_.scanLine(y)), screenPixel);
    }
    layer_ = {};
    placeBars();
    viewport()->update();
  } else {
    takeChanges(sheet);
  }
  mirrorFrame(workshop);
}

void SheetView::takeChanges(Sheet& sheet) {
  const Square part = sheet.takeChanged();
  if (part.right < part.left) return;
  for (int y = part.top; y <= part.bottom; ++y) {
    const Colour* from = sheet.picture().row(y);
    std::transform(from + part.left, from + part.right + 1,
                   reinterpret_cast<QRgb*>(picture_.scanLine(y)) + part.left, screenPixel);
  }
  updateBox({QPoint(part.left, part.top), QPoint(part.right, part.bottom)});
}

/// What a person drags goes ahead of the model, which follows with the next pump.
void SheetView::mirrorFrame(const Workshop& workshop) {
  const auto& placed = workshop.placed;
  if (!placed || placed->revision != workshop.sheet->revision() || frameLeft_) return dropFrame();
  if (frameShown_ == placed->revision) return;
  frameShown_ = placed->revision;
  if (held_ != Held::frame) showFrame({placed->at.x, placed->at.y, placed->size.width, placed->size.height});
}

void SheetView::showFrame(const QRect& box) {
  if (frame_) updateBox(frame_->box());
  frame_.emplace(box);
  updateBox(box);
  showCursor();
}

void SheetView::dropFrame() {
  if (!frame_) return;
  updateBox(frame_->box());
  frame_.reset();
  frameShown_ = 0;
  if (held_ == Held::frame) held_ = Held::nothing;
  showCursor();
  if (onPointer) onPointer();
}

void SheetView::leaveFrame() {
  frameLeft_ = true;
  dropFrame();
}

void SheetView::layOver(QImage layer) {
  if (layer.isNull() && layer_.isNull()) return;
  layer_ = std::move(layer);
  viewport()->update();
}

// Laid out in screen pixels, as the Canvas is: with a broken scale factor Qt's own coordinates hit them
// between two.
void SheetView::paintEvent(QPaintEvent* event) {
  const double ratio = devicePixelRatioF();
  QPainter painter(viewport());
  const QRect sheet = screenOf(picture_.rect());
  for (const QRect& part : QRegion(event->rect()).subtracted(sheet.adjusted(1, 1, -1, -1)))
    painter.fillRect(part, palette().color(QPalette::Mid));
  const QTransform toScreen = painter.deviceTransform();
  painter.translate((std::round(toScreen.dx()) - toScreen.dx()) / ratio,
                    (std::round(toScreen.dy()) - toScreen.dy()) / ratio);
  painter.scale(1 / ratio, 1 / ratio);
  const QPoint begin = origin();
  const QRectF wanted(QPointF(event->rect().topLeft()) * ratio - begin, QSizeF(event->rect().size()) * ratio);
  const QRect part =
      QRectF(wanted.topLeft() / scale(), wanted.size() / scale()).toAlignedRect().adjusted(-1, -1, 1, 1) &
      picture_.rect();
  painter.translate(begin);
  const QRect target(part.topLeft() * scale(), part.size() * scale());
  painter.drawImage(target, picture_, part);
  if (!layer_.isNull()) painter.drawImage(target, layer_, part);
  if (zoom_ >= kGridZoom) paintGrid(painter, part);
  painter.resetTransform();
  if (frame_) paintFrame(painter);
  if (byKeys_ && hasFocus()) paintPointer(painter);
}

/// A line along the left and the top of each cell that is seen, and where the last ones end.
void SheetView::paintGrid(QPainter& painter, const QRect& part) const {
  const int each = scale();
  const auto first = [](int from, int wall, int step) {
    return from <= wall ? wall : wall + (from - wall + step - 1) / step * step;
  };
  for (int x = first(part.left(), pitch_.wall, pitch_.stepX); x <= part.right(); x += pitch_.stepX)
    painter.fillRect(x * each, part.top() * each, 1, part.height() * each, kGrid);
  for (int y = first(part.top(), pitch_.wall, pitch_.stepY); y <= part.bottom(); y += pitch_.stepY)
    painter.fillRect(part.left() * each, y * each, part.width() * each, 1, kGrid);
}

void SheetView::paintFrame(QPainter& painter) const {
  const QRect box = screenOf(frame_->box()).adjusted(-1, -1, 0, 0);
  painter.setPen(QPen(palette().color(QPalette::Base)));
  painter.drawRect(box);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
  painter.drawRect(box);
  for (const QPoint& corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
    const QRect handle(corner.x() - kHandle / 2, corner.y() - kHandle / 2, kHandle, kHandle);
    painter.fillRect(handle, palette().color(QPalette::Base));
    painter.fillRect(handle.adjusted(1, 1, -1, -1), palette().color(QPalette::Highlight));
  }
}

/// A cross that leaves its pixel free, seen on dark and on light.
void SheetView::paintPointer(QPainter& painter) const {
  const QRect pixel = screenOf({pointer_, QSize(1, 1)}).adjusted(-1, -1, 0, 0);
  const QPoint middle = pixel.center();
  const std::array lines = {QLine(pixel.left() - kCross, middle.y(), pixel.left() - 1, middle.y()),
                            QLine(pixel.right() + 1, middle.y(), pixel.right() + kCross, middle.y()),
                            QLine(middle.x(), pixel.top() - kCross, middle.x(), pixel.top() - 1),
                            QLine(middle.x(), pixel.bottom() + 1, middle.x(), pixel.bottom() + kCross)};
  for (const auto& [colour, width] : {std::pair(Qt::white, 3), std::pair(Qt::black, 1)}) {
    painter.setPen(QPen(QColor(colour), width));
    painter.drawLines(lines.data(), static_cast<int>(lines.size()));
  }
}

void SheetView::resizeEvent(QResizeEvent* /*event*/) { placeBars(); }

void SheetView::scrollContentsBy(int /*dx*/, int /*dy*/) { viewport()->update(); }

}  // namespace gridwright
