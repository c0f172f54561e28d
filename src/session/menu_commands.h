// Which routine an item of the menu runs.
#pragma once

#include "state/program.h"

namespace gridwright {

using Command = void (*)(Program&);

/// For an entry of an item's submenu, by its place from 0.
using EntryCommand = void (*)(Program&, int entry);

/// Null for items without entries.
EntryCommand entryCommandOf(Item item);

/// Null for titles, submenus and lines that only inform.
Command commandOf(Item item);

}  // namespace gridwright
