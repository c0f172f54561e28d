// The line under the Canvas. On its left what the program tells in passing, each notice for eight
// seconds or until the next; on its right what a person has in hand. At the title both are empty, and
// the line keeps its place, so that the Canvas has one size in all phases. A person can take it away.
#pragma once

#include <QLabel>
#include <QTimer>
#include <cstdint>
#include <filesystem>
#include <functional>

#include "menus/status_words.h"
#include "platform/qt/status_meter.h"
#include "state/program.h"

class QProgressBar;

namespace gridwright {

/// A label that never asks for room: what does not fit ends in dots, and is told in full as its tip.
class ElidedLabel : public QLabel {
 public:
  using Click = std::function<void()>;

  explicit ElidedLabel(QWidget* parent);

  /// \param click what a click does; words that can be clicked are underlined.
  void tell(const QString& words, Click click);
  [[nodiscard]] const QString& words() const { return words_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QString words_;
  Click onClick_;
};

class StatusLine : public QWidget {
 public:
  static constexpr int kNoticeTime = 8000;  // milliseconds

  explicit StatusLine(QWidget* parent);

  /// A click on a notice that says where a file is.
  std::function<void(const std::filesystem::path&)> onOpen;

  /// Brings both sides in line with the program, if anything has changed since.
  void mirror(const Program& program);

  /// A dialog stood over everything until now: its time is no time of a maze.
  void skipTime() { meter_.skip(StatusMeter::Clock::now()); }
  [[nodiscard]] const StatusMeter& meter() const { return meter_; }
  [[nodiscard]] QString notice() const { return notice_->words(); }
  [[nodiscard]] QString status() const { return status_->words(); }

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fixHeight();
  void showNotice(const Notices& notices);
  void dropNotice();
  void showStatus(const Status& status, bool letters);
  void shareRoom();

  ElidedLabel* notice_;
  QLabel* swatch_;
  QProgressBar* run_;
  ElidedLabel* status_;
  QTimer noticeTime_{this};
  std::uint64_t told_ = 0;
  Status shown_;
  bool lettersShown_ = false;
  StatusMeter meter_;
  QTimer meterTime_{this};
};

}  // namespace gridwright
