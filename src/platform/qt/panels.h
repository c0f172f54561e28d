// The frames that lie over the Canvas: a text panel with its label, box and list, and the three panels
// of swatches. They know what they hold; what is shown and enabled the control mirror tells them.
#pragma once

#include <QFrame>
#include <QLineEdit>
#include <QListWidget>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "state/controls.h"

class QLabel;

namespace gridwright {

struct TextPanel {
  ControlId label, box;
  std::optional<ControlId> list;
};

inline constexpr std::array kTextPanels = {
    TextPanel{ControlId::Label1, ControlId::Text3, std::nullopt},
    TextPanel{ControlId::Label2, ControlId::text1, ControlId::File1},
    TextPanel{ControlId::Label3, ControlId::Text4, ControlId::File2},
    TextPanel{ControlId::Label4, ControlId::Text2, std::nullopt},
    TextPanel{ControlId::Label8, ControlId::Text5, ControlId::File3},
    TextPanel{ControlId::Label9, ControlId::Text6, ControlId::File4},
    TextPanel{ControlId::Label10, ControlId::Text7, std::nullopt},
    TextPanel{ControlId::Label11, ControlId::Text8, ControlId::File5},
};

/// A panel of sixteen swatches under a prompt.
struct SwatchPanel {
  ControlId label, firstSwatch;
  bool classifies;  ///< Holds `Check33`, `Check34` and `Command1` too.
};

inline constexpr std::array kSwatchPanels = {
    SwatchPanel{ControlId::Label5, ControlId::Check1, true},
    SwatchPanel{ControlId::Label6, ControlId::Check17, false},
    SwatchPanel{ControlId::Label7, ControlId::Check35, false},
};

/// Enter anywhere on a page does this, but on a button what that does.
void onEnter(QWidget& page, std::function<void()> accept);
/// Escape anywhere on a page does this.
void onEscape(QWidget& page, std::function<void()> cancel);

/// A frame in the window's own colours that keeps mouse presses from the Canvas under it.
class PanelFrame : public QFrame {
 public:
  explicit PanelFrame(QWidget* parent);
};

class SwatchFrame;

/// A panel's list. Tab gives it the keyboard from the box and back; Enter and Escape are the box's.
class EntryList : public QListWidget {
 public:
  explicit EntryList(QWidget* parent);

  std::function<void()> onEnter, onEscape, onTab;
  std::function<void(int by)> onStep;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
};

/// A panel's text box. It keeps the keyboard: Tab leads to its list, and nowhere where there is none.
class EntryBox : public QLineEdit {
 public:
  explicit EntryBox(QWidget* parent);

  std::function<void()> onEnter, onEscape;
  std::function<void(int by)> onStep;  ///< Up and down: through the list, if there is one.
  std::function<void()> onTab;         ///< To the list.

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
};

/// Where the parts of a panel are found by the mirror: one widget a control.
using ControlWidgets = std::array<QWidget*, kControlCount>;

PanelFrame* buildTextPanel(const TextPanel& panel, QWidget* parent, ControlWidgets& widgets);
SwatchFrame* buildSwatchPanel(const SwatchPanel& panel, QWidget* parent, ControlWidgets& widgets);

/// What a button shows for its caption: one letter opens it together with Alt.
QString buttonText(ControlId id, std::string_view caption);

QString qString(std::string_view text);

}  // namespace gridwright
