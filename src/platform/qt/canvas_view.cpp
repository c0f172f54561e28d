#include "platform/qt/canvas_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/qt/key_codes.h"
#include "platform/qt/screen_colour.h"

namespace gridwright {

namespace {

constexpr int kMostRemembered = 32;
constexpr double kPointsOfInch = 96;
constexpr double kRounding = 1e-6;    // 800 points must not become 799 by a broken scale factor
constexpr std::uint64_t kSoon = 300;  // milliseconds between keys of one go
constexpr std::uint64_t kAtOnce = 5;  // no finger lets go and presses again so soon

/// A plain widget counts as layout to a screen reader, and one that no click gives the keyboard as none that
/// could have it.
class CanvasAccessible : public QAccessibleWidget {
 public:
  explicit CanvasAccessible(QWidget* view) : QAccessibleWidget(view, QAccessible::Canvas) {}
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = true;
    return state;
  }
};

QAccessibleInterface* accessibleCanvas(const QString& /*kind*/, QObject* object) {
  auto* view = dynamic_cast<CanvasView*>(object);
  return view == nullptr ? nullptr : new CanvasAccessible(view);
}

}  // namespace

CanvasView::CanvasView(QWidget* parent)
    : QWidget(parent), picture_(Canvas::kSide, Canvas::kSide, QImage::Format_RGB32) {
  QAccessible::installFactory(accessibleCanvas);  // before anything is told of the view
  setObjectName("Canvas");
  setAccessibleName("Picture");
  setAttribute(Qt::WA_OpaquePaintEvent);
  // It gets the keyboard from the control mirror, never from a click, and by Tab only beside what else takes
  // it.
  setFocusPolicy(Qt::NoFocus);
  picture_.fill(Qt::white);
  pixels_ = picture_.bits();
}

double CanvasView::dotsOfPoint() const { return devicePixelRatioF() * logicalDpiX() / kPointsOfInch; }

double CanvasView::zoom() const {
  const QSize screen = screenSize();
  const int halves =
      std::min(2 * screen.width() / canvasSize_.width, 2 * screen.height() / canvasSize_.height);
  return std::max(1, halves) / 2.0;
}

QSize CanvasView::screenSize() const {
  return {static_cast<int>(std::lround(width() * devicePixelRatioF())),
          static_cast<int>(std::lround(height() * devicePixelRatioF()))};
}

QPoint CanvasView::origin() const {
  const QSizeF room = screenSize() - QSizeF(canvasSize_.width, canvasSize_.height) * zoom();
  return {std::max(0, static_cast<int>(room.width() / 2)), std::max(0, static_cast<int>(room.height() / 2))};
}

Size CanvasView::clientSize() const {
  const auto points = [this](int dots) { return static_cast<int>(dots / dotsOfPoint() + kRounding); };
  const QSize screen = screenSize();
  return {std::clamp(points(screen.width()), kSmallest.width, Canvas::kSide),
          std::clamp(points(screen.height()), kSmallest.height, Canvas::kSide)};
}

QSize CanvasView::sizeHint() const {
  const double scale = dotsOfPoint() / devicePixelRatioF();
  return {static_cast<int>(std::ceil(kUsual.width * scale)),
          static_cast<int>(std::ceil(kUsual.height * scale))};
}

QRectF CanvasView::placeOf(const QRect& box) const {
  const double ratio = devicePixelRatioF();
  const QPointF at = QPointF(origin()) + QPointF(box.topLeft()) * zoom();
  return {at.x() / ratio, at.y() / ratio, box.width() * zoom() / ratio, box.height() * zoom() / ratio};
}

QRect CanvasView::visibleCanvas() const {
  return placeOf({0, 0, canvasSize_.width, canvasSize_.height}).toAlignedRect() & rect();
}

/// \returns the box of pixels that look different now. The routines draw over what stands already more
/// often than not, and a stroke that changes nothing must not cost a turn of the window system.
QRect CanvasView::copyChanges(const Canvas& canvas, const Canvas::Dirty& part) {
  int left = part.right, right = part.left, top = part.bottom, bottom = part.top;
  for (int y = part.top; y < part.bottom; ++y) {
    const Colour* from = canvas.shownRow(y);
    auto* to = reinterpret_cast<QRgb*>(pixels_ + static_cast<std::ptrdiff_t>(y) * picture_.bytesPerLine());
    const auto differs = [&](int x) { return to[x] != screenPixel(from[x]); };
    int first = part.left;
    while (first < part.right && !differs(first)) ++first;
    if (first == part.right) continue;
    int last = part.right - 1;
    while (!differs(last)) --last;
    for (int x = first; x <= last; ++x) to[x] = screenPixel(from[x]);
    left = std::min(left, first);
    right = std::max(right, last);
    top = std::min(top, y);
    bottom = y;
  }
  return {QPoint(left, top), QPoint(right, bottom)};
}

bool CanvasView::showChanges(Canvas& canvas) {
  Canvas::Dirty part = canvas.takeDirty();
  if (atTitle_ && !part.empty())
    part = {0, 0, kUsual.width, kUsual.height};  // also what lies beyond the Canvas
  QRect changed;
  if (!part.empty()) changed = copyChanges(canvas, part);
  const Size size = atTitle_ ? kUsual : Size{canvas.scaleWidth(), canvas.scaleHeight()};
  if (size != canvasSize_) {
    canvasSize_ = size;
    if (onPlaced) onPlaced();
    repaint();
    return true;
  }
  if (changed.isEmpty()) return false;
  repaintStroke(placeOf(changed).toAlignedRect());
  return true;
}

/// Qt remembers as a region what the window system may still be reading, and asks of each part that is
/// painted whether it lies in there; only one that does makes it wait for the window system, once, and forget
/// them all. A maze never paints twice in one place, so each stroke would be slower than the one before: now
/// and then one is painted with its predecessor.
void CanvasView::repaintStroke(const QRect& changed) {
  QRegion part(changed);
  if (++strokesRemembered_ == kMostRemembered) {
    part += lastStroke_;
    strokesRemembered_ = 0;
  }
  lastStroke_ = changed;
  repaint(part);
}

// Everything is laid out in screen pixels here: with a broken scale factor Qt's own coordinates hit them
// between two, and the picture would blur or crawl.
void CanvasView::paintEvent(QPaintEvent* event) {
  const double ratio = devicePixelRatioF();
  QPainter painter(this);
  // A point at the Canvas's edge may belong to it only in part: what is left of it is surround.
  const QRect inner = visibleCanvas().adjusted(1, 1, -1, -1);
  for (const QRect& part : QRegion(event->rect()).subtracted(inner)) {
    painter.fillRect(part, palette().color(QPalette::Mid));
  }
  const QTransform toScreen = painter.deviceTransform();
  painter.translate((std::round(toScreen.dx()) - toScreen.dx()) / ratio,
                    (std::round(toScreen.dy()) - toScreen.dy()) / ratio);
  painter.scale(1 / ratio, 1 / ratio);
  painter.translate(origin());
  painter.scale(zoom(), zoom());
  const QRect canvas(0, 0, canvasSize_.width, canvasSize_.height);
  const QRect wanted = painter.worldTransform().inverted().mapRect(QRectF(event->rect())).toAlignedRect();
  // Pairs of pixels: at a half number each of them is whole screen pixels, whatever part is painted.
  const QRect near = wanted.adjusted(-1, -1, 1, 1) & canvas;
  const QRect part =
      QRect(QPoint(near.left() & ~1, near.top() & ~1), QPoint(near.right() | 1, near.bottom() | 1)) & canvas;
  painter.setRenderHint(QPainter::SmoothPixmapTransform, zoom() < 1);
  painter.drawImage(part.topLeft(), picture_, part);
  painter.drawImage(part.topLeft(), overlay_, part);
  painter.resetTransform();
  paintEnds(painter);
  if (overlay_.isNull()) return;
  paintOverlay(painter);
}

void CanvasView::layOver(const Bitmap& colours, const QString& line) {
  overlay_ = layerOf(colours);
  line_ = line;
  update();
}

namespace {

constexpr double kSmallestMark = 11;  // points: a shape in the smallest cells must still be told

void drawRing(QPainter& painter, const QRectF& box) { painter.drawEllipse(box); }

void drawCross(QPainter& painter, const QRectF& box) {
  painter.drawLine(box.topLeft(), box.bottomRight());
  painter.drawLine(box.topRight(), box.bottomLeft());
}

}  // namespace

QRectF CanvasView::markOn(const QRect& square) const {
  QRectF box = placeOf(square);
  const QPointF centre = box.center();
  box.setSize(box.size().expandedTo({kSmallestMark, kSmallestMark}));
  box.moveCenter(centre);
  return box;
}

void CanvasView::markEnds(const EndMarks& marks) {
  if (marks == marks_) return;
  for (const EndMarks& which : {marks_, marks}) {
    for (const std::optional<QRect>& square : {which.start, which.finish}) {
      if (square) update(markOn(*square).toAlignedRect().adjusted(-1, -1, 1, 1));
    }
  }
  marks_ = marks;
}

/// Black on white, so that it stands out from any colour: a ring for the start, a cross for the finish.
void CanvasView::paintEnds(QPainter& painter) const {
  if (!marks_.start && !marks_.finish) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  for (const auto& [colour, width] : {std::pair{Qt::white, 4}, std::pair{Qt::black, 2}}) {
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
    if (marks_.start) drawRing(painter, markOn(*marks_.start).adjusted(2, 2, -2, -2));
    if (marks_.finish) drawCross(painter, markOn(*marks_.finish).adjusted(2, 2, -2, -2));
  }
  painter.restore();
}

/// The line stands on a band along the foot of the Canvas.
void CanvasView::paintOverlay(QPainter& painter) const {
  const QRect room = visibleCanvas();
  QRect band(room.left(), 0, room.width(), 2 * painter.fontMetrics().height());
  band.moveBottom(room.bottom());
  painter.fillRect(band, palette().color(QPalette::Window));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(band, Qt::AlignCenter | Qt::TextWordWrap, line_);
}

void CanvasView::resizeEvent(QResizeEvent* /*event*/) {
  if (onPlaced) onPlaced();
}

/// By the window system's own clock: a busy program hands keys over later than they were pressed. A key that
/// repeats comes as released and pressed, which Qt sees as one only when both are there when it looks.
KeyGo CanvasView::goOf(const QKeyEvent& event) {
  const std::uint64_t now = event.timestamp();  // differences wrap to huge numbers where a clock began anew
  const std::uint64_t since = now - lastKeyAt_;
  lastKeyAt_ = now;
  const bool repeats = event.key() == lastReleased_ && now - lastReleaseAt_ <= kAtOnce;
  if (event.isAutoRepeat() || repeats) return KeyGo::held;
  return since <= kSoon ? KeyGo::soon : KeyGo::fresh;
}

void CanvasView::keyReleaseEvent(QKeyEvent* event) {
  lastReleased_ = event->key();
  lastReleaseAt_ = event->timestamp();
  QWidget::keyReleaseEvent(event);
}

namespace {

/// A key that is pressed for the sake of the next one closes nothing: that would be heard then.
bool isModifier(int key) {
  constexpr std::array kModifiers = {Qt::Key_Shift,   Qt::Key_Control, Qt::Key_Alt,     Qt::Key_Meta,
                                     Qt::Key_AltGr,   Qt::Key_Super_L, Qt::Key_Super_R, Qt::Key_CapsLock,
                                     Qt::Key_NumLock, Qt::Key_Hyper_L, Qt::Key_Hyper_R};
  return std::find(kModifiers.begin(), kModifiers.end(), key) != kModifiers.end();
}

}  // namespace

void CanvasView::keyPressEvent(QKeyEvent* event) {
  if (!overlay_.isNull() || covered_) {
    if (!isModifier(event->key())) onDismiss();
    return;
  }
  const auto code = keyCodeOf(event->key(), event->modifiers(), event->nativeScanCode());
  if (code && onKey) {
    onKey(*code, goOf(*event));
  } else {
    QWidget::keyPressEvent(event);
  }
}

void CanvasView::mousePressEvent(QMouseEvent* event) {
  if (!overlay_.isNull()) return onDismiss();
  if (!onMouse) return;
  if (event->button() == Qt::LeftButton) onMouse(1);
  if (event->button() == Qt::RightButton) onMouse(2);
}

}  // namespace gridwright
