// One colour of a swatch panel: a box of the colour, a plate with its caption, and its tick.
#pragma once

#include <QAbstractButton>
#include <QColor>
#include <functional>

namespace gridwright {

class SwatchButton : public QAbstractButton {
 public:
  /// \param i palette index 0 to 15.
  SwatchButton(int i, QWidget* parent);

  std::function<void(Qt::MouseButton)> onPress;

  /// Shows its letter beside the tick, or not.
  void setMarked(bool on);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void nextCheckState() override {}  // the model ticks, not the click

 private:
  QColor colour_;
  QChar letter_;
  bool marked_ = false;
};

/// Black or white, whichever is read better on a colour.
QColor inkOn(const QColor& ground);

}  // namespace gridwright
