// The model of everything on the window that is not a menu: check boxes, labels, text boxes, file
// lists, buttons, the two timers, and the caption. Handlers write it; the tenants
// mirror it to widgets and report what a person does through session/input.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gridwright {

enum class ControlId : int {
#define ROW(control, kind, caption) control,
#include "state/control_rows.inc"
#undef ROW
  count,
};

inline constexpr std::size_t kControlCount = static_cast<std::size_t>(ControlId::count);

enum class ControlKind { checkBox, button, label, textBox, fileList, timer };

struct ControlRow {
  std::string_view name;
  ControlKind kind;
  std::string_view caption;
};

inline constexpr std::array<ControlRow, kControlCount> kControlRows = {{
#define ROW(control, kind, caption) {#control, ControlKind::kind, caption},
#include "state/control_rows.inc"
#undef ROW
}};

constexpr const ControlRow& rowOf(ControlId id) { return kControlRows[static_cast<std::size_t>(id)]; }
constexpr ControlId controlAt(std::size_t row) { return static_cast<ControlId>(row); }
std::optional<ControlId> controlNamed(std::string_view name);

/// The three families of swatches, by palette index 0 to 15.
constexpr ControlId classifySwatch(int i) {
  return static_cast<ControlId>(static_cast<int>(ControlId::Check1) + i);
}
constexpr ControlId drawingSwatch(int i) {
  return static_cast<ControlId>(static_cast<int>(ControlId::Check17) + i);
}
constexpr ControlId mazeSwatch(int i) {
  return static_cast<ControlId>(static_cast<int>(ControlId::Check35) + i);
}

/// One control as it stands. For a timer `enabled` is whether it runs.
struct Control {
  bool visible = false, enabled = true;
  int value = 0;                     ///< A check box's tick, 0 or 1.
  std::string text;                  ///< Caption, or a text box's content.
  std::vector<std::string> entries;  ///< A file list's names.
  int selected = -1;                 ///< A file list's chosen entry, -1 none.
  int interval = 0;                  ///< A timer's milliseconds; 0 never fires.
};

class ControlModel {
 public:
  ControlModel();  ///< Every control in its start state, hidden.

  [[nodiscard]] const Control& operator[](ControlId id) const { return controls_[index(id)]; }

  void setVisible(ControlId id, bool on) { set(controls_[index(id)].visible, on); }
  void setEnabled(ControlId id, bool on) { set(controls_[index(id)].enabled, on); }
  void setValue(ControlId id, int value) { set(controls_[index(id)].value, value); }
  void setText(ControlId id, std::string_view text);
  void setEntries(ControlId id, const std::vector<std::string>& entries);
  void setSelected(ControlId id, int entry) { set(controls_[index(id)].selected, entry); }
  void setInterval(ControlId id, int milliseconds) { set(controls_[index(id)].interval, milliseconds); }
  void show(ControlId id) { setVisible(id, true), setEnabled(id, true); }
  void hide(ControlId id) { setVisible(id, false), setEnabled(id, false); }
  /// Starts a timer's wait over, or stops it.
  void runTimer(ControlId id, bool on);

  /// The text box that has the keyboard, or nothing: then the Canvas has it.
  [[nodiscard]] std::optional<ControlId> focus() const { return focus_; }
  void setFocus(std::optional<ControlId> id);

  [[nodiscard]] const std::string& caption() const { return caption_; }
  void setCaption(std::string_view caption);

  [[nodiscard]] std::uint64_t revision() const { return revision_; }
  /// Grows with each start of a timer, so that a tenant starts its own wait over.
  [[nodiscard]] std::uint64_t timerStarts(ControlId id) const { return timerStarts_[index(id)]; }

 private:
  static std::size_t index(ControlId id) { return static_cast<std::size_t>(id); }
  template <class T>
  void set(T& field, const T& value) {
    if (field == value) return;
    field = value;
    ++revision_;
  }

  std::array<Control, kControlCount> controls_;
  std::array<std::uint64_t, kControlCount> timerStarts_{};
  std::optional<ControlId> focus_;
  std::string caption_;
  std::uint64_t revision_ = 1;
};

}  // namespace gridwright
