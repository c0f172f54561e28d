// The colours of the workshop's sheet as buttons: which one is in hand, and which of them a maze fills.
#pragma once

#include <QAbstractButton>
#include <QWidget>
#include <array>
#include <functional>

#include "state/workshop.h"

namespace gridwright {

/// "navy", "paper".
const char* inkName(int ink);

/// One colour. A dot in its middle says that a maze fills it.
class InkButton : public QAbstractButton {
 public:
  InkButton(int ink, QWidget* parent);

  void setRole(InkRole role);
  /// The colour's letter stands on it; paper has none.
  void showLetter(bool shown);
  [[nodiscard]] bool showsLetter() const { return lettered_; }
  [[nodiscard]] bool isFilled() const { return filled_; }
  [[nodiscard]] QSize sizeHint() const override { return {22, 22}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int ink_;
  bool filled_ = false, lettered_ = false;
};

class InkButtons : public QWidget {
 public:
  explicit InkButtons(QWidget* parent);

  std::function<void(int ink)> onChoose;

  /// Colours that the maze is carved in are not offered.
  void mirror(int inHand, const ColourSets& sets, bool letters);

  [[nodiscard]] InkButton* button(int ink) const { return buttons_.at(static_cast<std::size_t>(ink)); }

 private:
  std::array<InkButton*, kInks> buttons_{};
};

}  // namespace gridwright
