// Everything on the window that is not a menu, as the model has it: title buttons, panels, the two
// timers, the caption, and who has the keyboard.
#pragma once

#include <QTimer>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "platform/qt/input_queue.h"
#include "platform/qt/panels.h"
#include "platform/qt/swatch_frame.h"
#include "state/controls.h"

namespace gridwright {

class CanvasView;

class ControlMirror {
 public:
  using SwatchPress = std::function<void(ControlId, Qt::MouseButton)>;

  /// Builds a widget for every control, as children of the view.
  ControlMirror(CanvasView& view, InputQueue& inputs, SwatchPress onSwatch);

  /// Brings every control in line with the model, if that has changed since.
  void mirror(const ControlModel& model);

  /// Puts buttons and panels where they belong over the Canvas.
  void place();

  /// Gives the keyboard to the text box that the model names, else to the uppermost panel of swatches,
  /// else to the Canvas; unless a menu has it just now.
  void keepFocus(const ControlModel& model);

  /// A frame that has the keyboard while it is shown, and in it this part at first, which may change.
  void setHolder(QWidget* frame, QWidget* first);

  /// A button that Tab may give the keyboard while nothing but the Canvas wants it.
  void addGuest(QWidget* guest);

  [[nodiscard]] std::uint64_t shown() const { return shown_; }
  /// The widget of a control; a timer has none.
  [[nodiscard]] QWidget* widget(ControlId id) const { return widgets_[static_cast<std::size_t>(id)]; }
  [[nodiscard]] const QTimer& timer(ControlId id) const;

 private:
  struct Timer {
    explicit Timer(ControlId which) : id(which) {}
    ControlId id;
    QTimer clock;
    std::uint64_t starts = 0;
  };

  void buildButtons();
  void buildPanels();
  void listenToBox(const TextPanel& panel);
  void listenToSwatches();
  void mirrorOne(ControlId id, const Control& control);
  void mirrorTimer(Timer& timer, const ControlModel& model);
  void mirrorPanels(const ControlModel& model);
  void takeKeyboardFromHidden(const ControlModel& model);
  [[nodiscard]] QWidget* wantedFocus(const ControlModel& model) const;
  [[nodiscard]] QWidget* canvasOrGuest() const;
  [[nodiscard]] QWidget* boxOrList(ControlId box) const;

  CanvasView& view_;
  InputQueue& inputs_;
  SwatchPress onSwatch_;
  ControlWidgets widgets_{};
  std::array<PanelFrame*, kTextPanels.size()> textFrames_{};
  std::array<SwatchFrame*, kSwatchPanels.size()> swatchFrames_{};
  std::array<Timer, 2> timers_;
  std::vector<QWidget*> guests_;
  std::map<QWidget*, QWidget*> holders_;  // frames, and what of each has the keyboard first
  std::uint64_t shown_ = 0;
};

}  // namespace gridwright
