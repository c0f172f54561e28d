// Which routine an item of the menu runs.
#pragma once

#include "state/program.h"

namespace gridwright {

using Command = void (*)(Program&);

/// Null for titles, submenus and lines that only inform.
Command commandOf(Item item);

}  // namespace gridwright
