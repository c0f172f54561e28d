// The key codes by which scripts and tenants name keys: letters by their capital, whatever the shift.
#pragma once

#include "files/step_codes.h"

namespace gridwright::key {

inline constexpr int enter = 13, escape = 27, space = 32;
inline constexpr int left = 37, up = 38, right = 39, down = 40;
inline constexpr int A = 65, C = 67, D = 68, F = 70, G = 71, H = 72, I = 73, J = 74, K = 75, L = 76, M = 77,
                     N = 78, S = 83, T = 84, W = 87, X = 88, Z = 90;
inline constexpr int comma = 188, period = 190, slash = 191, quote = 222;

}  // namespace gridwright::key

namespace gridwright {

/// How a key came after the one before, for the steps of undoing.
enum class KeyGo {
  fresh,  ///< A step of its own.
  soon,   ///< Within 300 ms: one step with it, unless either fills the screen or jumps.
  held,   ///< It is held down: one step, whatever it does.
};

/// The step code that an arrow key stands for, 0 for any other key.
constexpr int stepOfArrow(int code) {
  switch (code) {
    case key::left:
      return step::left;
    case key::right:
      return step::right;
    case key::up:
      return step::up;
    case key::down:
      return step::down;
    default:
      return step::none;
  }
}

}  // namespace gridwright
