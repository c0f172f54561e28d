// Which commands are enabled: one table over the phase, the panels, the pattern editor and the print
// job. Nothing else enables or disables the items it lists, so no order of panels, editors and quits
// can leave one disabled for good.
#pragma once

#include <string_view>

#include "state/program.h"

namespace gridwright {

/// What the table says of an item now; items it does not list keep the state that their own rules give.
bool tableEnables(const Program& program, Item item);

/// Why nothing can be taken back, or done again, now: the tip of an item that is off. Empty when something
/// can.
std::string_view whyNoUndo(const Program& program);
std::string_view whyNoRedo(const Program& program);

/// Whether the table lists the item.
bool tableLists(Item item);

/// Writes the table into the menu model.
void applyEnableTable(Program& program);

/// Whether nothing that the table reads has changed since it was written, so that the menus stand.
bool enableTableStands(const Program& program);

/// The same, when something that the table reads has changed since; costs a comparison otherwise.
void applyEnableTableIfChanged(Program& program);

}  // namespace gridwright
