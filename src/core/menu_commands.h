// Which routine an item of the menu runs.
#pragma once

#include "core/program.h"

namespace gridwright {

using Command = void (*)(Program&);

/// Null for titles, submenus, lines that only inform, and items whose subsystem is still to come.
Command commandOf(Item item);

}  // namespace gridwright
