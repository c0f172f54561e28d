#include "platform/qt/status_line.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <utility>

#include "platform/qt/panels.h"
#include "platform/qt/swatch_button.h"

namespace gridwright {

namespace {

constexpr int kSide = 6;      // free at both ends of the line,
constexpr int kEdge = 3;      // above and below,
constexpr int kBarLines = 4;  // a bar is so many times as wide as high
constexpr int kGap = 12;      // and between notice and status

QLabel* swatchIn(QWidget* parent) {
  auto* swatch = new QLabel(parent);
  swatch->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
  swatch->setAutoFillBackground(true);
  swatch->setAlignment(Qt::AlignCenter);
  swatch->hide();
  return swatch;
}

void paintSwatch(QLabel& swatch, Colour colour, bool letters) {
  QPalette palette = swatch.palette();
  const QColor ground(colour & 255, colour >> 8 & 255, colour >> 16 & 255);
  palette.setColor(QPalette::Window, ground);
  palette.setColor(QPalette::WindowText, inkOn(ground));
  const std::optional<char> letter = letters ? colourLetter(colour) : std::nullopt;
  swatch.setText(letter ? QString(QLatin1Char(*letter)) : QString());
  swatch.setPalette(palette);
}

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void ElidedLabel::tell(const QString& words, Click click) {
  onClick_ = std::move(click);
  setCursor(onClick_ ? Qt::PointingHandCursor : Qt::ArrowCursor);
  update();
  if (words == words_) return;
  words_ = words;
  setAccessibleName(words);
  setToolTip(words);
  updateGeometry();
}

QSize ElidedLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(words_) + 1, fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QFont face = font();
  face.setUnderline(static_cast<bool>(onClick_));
  painter.setFont(face);
  painter.drawText(rect(), static_cast<int>(Qt::AlignVCenter) | static_cast<int>(Qt::AlignLeft),
                   fontMetrics().elidedText(words_, Qt::ElideRight, width()));
}

void ElidedLabel::mousePressEvent(QMouseEvent* event) {
  if (onClick_ && event->button() == Qt::LeftButton) onClick_();
}

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent),
      notice_(new ElidedLabel(this)),
      swatch_(swatchIn(this)),
      run_(new QProgressBar(this)),
      status_(new ElidedLabel(this)) {
  setObjectName("StatusLine");
  setAccessibleName("Status line");
  notice_->setObjectName("Notice");
  notice_->setAccessibleDescription("what the program told last");
  status_->setObjectName("Status");
  status_->setAccessibleDescription("colour and square in hand");
  notice_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kSide, kEdge, kSide, kEdge);
  row->setSpacing(kSide);
  row->addWidget(notice_, 1);
  row->addSpacing(kGap);
  row->addWidget(run_);
  row->addWidget(swatch_);
  row->addWidget(status_);
  run_->setObjectName("Run");
  run_->setAccessibleName("mazes done");
  run_->setTextVisible(false);
  run_->hide();
  fixHeight();
  meterTime_.setObjectName("MeterTime");
  meterTime_.setSingleShot(true);  // it only wakes up a window that waits, which looks then
  noticeTime_.setObjectName("NoticeTime");
  noticeTime_.setSingleShot(true);
  connect(&noticeTime_, &QTimer::timeout, this, [this] { dropNotice(); });
}

// Whatever is told, the line is as high: the Canvas above it must not change.
void StatusLine::fixHeight() {
  const int line = fontMetrics().height();
  swatch_->setFixedSize(line, line);
  run_->setFixedSize(kBarLines * line, line);
  setFixedHeight(line + 2 * kEdge);
}

void StatusLine::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fixHeight();
  QWidget::changeEvent(event);
}

void StatusLine::mirror(const Program& program) {
  if (isHidden() != program.statusLineOff) setVisible(!program.statusLineOff);
  const bool seen = isVisible() && !window()->isMinimized();
  const Status status = statusOf(program.state, meter_.look(program, seen, StatusMeter::Clock::now()));
  if (meter_.isRunning() && seen && !meterTime_.isActive()) meterTime_.start(StatusMeter::kBetweenCounts);
  const bool atTitle = status.tells == Status::Tells::nothing;
  if (atTitle && noticeTime_.isActive()) dropNotice();
  // What is told at the title waits until there is room for it.
  if (!atTitle && told_ != program.notices.revision()) showNotice(program.notices);
  if (status != shown_ || lettersShown_ != program.markColours) showStatus(status, program.markColours);
}

void StatusLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  shareRoom();
}

/// What is in hand leaves a quarter to what is told in passing, while there is anything.
void StatusLine::shareRoom() {
  status_->setMaximumWidth(notice().isEmpty() ? QWIDGETSIZE_MAX : width() * 3 / 4);
}

void StatusLine::showNotice(const Notices& notices) {
  told_ = notices.revision();
  ElidedLabel::Click click;
  if (!notices.opens().empty()) {
    click = [this, file = notices.opens()] {
      if (onOpen) onOpen(file);
    };
  }
  notice_->tell(qString(notices.words()), std::move(click));
  shareRoom();
  noticeTime_.start(kNoticeTime);
  QAccessibleEvent alert(notice_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void StatusLine::dropNotice() {
  noticeTime_.stop();
  notice_->tell({}, {});
  shareRoom();
}

void StatusLine::showStatus(const Status& status, bool letters) {
  shown_ = status;
  lettersShown_ = letters;
  status_->tell(qString(statusWords(status)), {});
  swatch_->setVisible(status.colour.has_value());
  if (status.colour) paintSwatch(*swatch_, *status.colour, letters);
  run_->setVisible(status.run.total > 0);
  if (status.run.total == 0) return;
  run_->setRange(0, status.run.total);
  run_->setValue(status.run.done);
}

}  // namespace gridwright
