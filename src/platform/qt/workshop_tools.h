// The tools of the workshop as buttons, with what is set for them: how thick, outline or full, snapped,
// mirrored, in which colour.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "platform/qt/ink_buttons.h"
#include "state/workshop.h"

class QCheckBox;
class QComboBox;
class QSpinBox;
class QToolButton;

namespace gridwright {

/// What a person has in hand, in the order of the buttons: a tool of the sheet, words or a stamp.
enum class Hand { pencil, line, rectangle, ellipse, fill, eraser, pick, words, stamp };
inline constexpr int kHands = 9;

class WorkshopTools : public QWidget {
 public:
  /// \param words, stamps what is shown in place of the tools' settings for these two.
  WorkshopTools(QWidget* words, QWidget* stamps, QWidget* parent);

  std::function<void(const ToolSettings&)> onSettings;
  std::function<void(Hand)> onHand;  ///< Chosen, or chosen again.

  void choose(Hand hand);
  [[nodiscard]] Hand hand() const { return hand_; }
  /// Whether that is put down as a whole.
  [[nodiscard]] bool putsDown() const { return hand_ == Hand::words || hand_ == Hand::stamp; }
  [[nodiscard]] const ToolSettings& settings() const { return settings_; }

  /// \param letters colours are told apart by letters too.
  void mirror(const Workshop& workshop, bool letters);

  [[nodiscard]] QToolButton* button(Hand hand) const { return buttons_.at(static_cast<std::size_t>(hand)); }
  [[nodiscard]] InkButtons& inks() const { return *inks_; }

 private:
  QWidget* buildHands();
  QWidget* buildStroke();
  void listen();
  void changed(const std::function<void(ToolSettings&)>& change);

  std::array<QToolButton*, kHands> buttons_{};
  InkButtons* inks_;
  QWidget *stroke_, *words_, *stamps_;
  QSpinBox* size_;
  QCheckBox *oneCell_, *outline_, *snap_;
  QComboBox* mirror_;
  Hand hand_ = Hand::pencil;
  ToolSettings settings_;   // as a person has them
  bool mirroring_ = false;  // what changes now, no person has changed
};

}  // namespace gridwright
