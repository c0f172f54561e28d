// Text panels: a box, a label and perhaps a list over the Canvas, which hold the program until Enter
// or Escape. Every panel opens and closes through the same two halves.
#pragma once

#include <optional>
#include <string_view>

#include "state/program.h"

namespace gridwright {

/// Why nothing of another kind can be done now: patterns are made, the pattern editor is open, or a panel is.
/// Empty where none of them holds the program.
std::string_view whyHeld(const Program& program);

struct Panel {
  ControlId box, label;
  std::optional<ControlId> list;
};

inline constexpr Panel kWallSizePanel{ControlId::Text2, ControlId::Label4, std::nullopt};
inline constexpr Panel kRandomSizePanel{ControlId::Text7, ControlId::Label10, std::nullopt};
inline constexpr Panel kSavePanel{ControlId::text1, ControlId::Label2, ControlId::File1};
inline constexpr Panel kLoadPanel{ControlId::Text4, ControlId::Label3, ControlId::File2};
inline constexpr Panel kSaveSetPanel{ControlId::Text5, ControlId::Label8, ControlId::File3};
inline constexpr Panel kLoadSetPanel{ControlId::Text6, ControlId::Label9, ControlId::File4};
inline constexpr Panel kPrintPanel{ControlId::Text3, ControlId::Label1, std::nullopt};
inline constexpr Panel kImportPanel{ControlId::Text8, ControlId::Label11, ControlId::File5};

/// What every panel begins with: the running loop stands still, and the long list of commands is off.
void holdWindow(Program& program);

/// The same, with strokes going to the screen alone until the window is given back.
void holdWindowOverScreen(Program& program);

/// Gives the window back, and the drawing mode that the holding kept.
void releaseWindow(Program& program);

/// Holds the window, and shows the panel.
void openPanel(Program& program, const Panel& panel, std::string_view content);

/// The same, with strokes going to the screen alone until the panel closes.
void openPanelOverScreen(Program& program, const Panel& panel, std::string_view content);

/// Hides the panel, and gives the window back.
void closePanel(Program& program, const Panel& panel);

void hideTextPanels(Program& program);

/// The number a box begins with, as a person means it: leading blanks, a sign, digits and a fraction;
/// anything else ends it. Rounded down; no digits give 0, huge values are held at the limits.
int numberTyped(std::string_view text);

/// Fills a list with the names that end so, keeping the chosen one where it is still there.
void refreshList(Program& program, ControlId list, std::string_view ending);

/// What a file panel's box shows at its opening: the chosen entry, else `lastName`, else the first.
std::string nameToOffer(const Program& program, ControlId list, std::string_view lastName);

}  // namespace gridwright
