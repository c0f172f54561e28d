// A panel of swatches as the keyboard walks it. Arrows and Tab move over what can be chosen in it and
// never leave it, and a ring shows where it is; Space and Enter are the left button, Shift+Space and the menu
// key the right one on a swatch, and Escape leaves the panel.
#pragma once

#include <functional>
#include <vector>

#include "platform/qt/panels.h"

class QAbstractButton;

namespace gridwright {

class SwatchFrame : public PanelFrame {
 public:
  static constexpr int kBetweenStops = 8;  ///< Pixels that leave room for the ring.

  explicit SwatchFrame(QWidget* parent);

  /// Adds what can have the keyboard, in the order of Tab.
  void addStop(QAbstractButton* stop);

  std::function<void(QAbstractButton* stop)> onEscape;

  /// Begins at the ticked stop, or at the first one.
  void begin(bool atTicked);

  /// What has the keyboard in this panel: what had it last, else the first stop that can have it; null
  /// when there is none.
  [[nodiscard]] QAbstractButton* stop() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QRect placeOf(const QAbstractButton& stop) const;
  [[nodiscard]] bool canHaveKeyboard(const QAbstractButton& stop) const;
  bool keyPressed(QAbstractButton& stop, const QKeyEvent& event);
  void step(const QAbstractButton& from, int by);
  void moveTowards(const QAbstractButton& from, int key);
  void give(QAbstractButton* stop);

  std::vector<QAbstractButton*> stops_;
  QAbstractButton* last_ = nullptr;
};

}  // namespace gridwright
