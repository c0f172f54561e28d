// From a desktop's key event to the program's key codes.
#pragma once

#include <QtCore/qnamespace.h>

#include <cstdint>
#include <optional>

namespace gridwright {

/// The code of a key, or nothing for one that the program has no use for.
///
/// Arrows, and the keypad's 4, 8, 6, 2 with its lock on or off, are 37 to 40. A letter is the code of
/// its capital: the layout's Latin letter, else, where the layout writes another script, the letter that
/// stands at the same place of a US keyboard. Comma, period, slash and quote go by the character, shifted
/// or not; Escape and Space are 27 and 32. Shift changes nothing; with Ctrl, Alt or Meta a key belongs to the
/// desktop or to the menus.
///
/// \param key the event's Qt::Key, \param scanCode its native scan code.
std::optional<int> keyCodeOf(int key, Qt::KeyboardModifiers modifiers, std::uint32_t scanCode);

}  // namespace gridwright
