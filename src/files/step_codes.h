// The numbers that step files hold, and arrow keys stand for.
#pragma once

/// Step codes of patterns and keys: directions are always tried and named in this order.
namespace gridwright::step {
inline constexpr int none = 0;
inline constexpr int left = 1;
inline constexpr int right = 2;
inline constexpr int up = 3;
inline constexpr int down = 4;
inline constexpr int walkBack = 5;    ///< No move: turns the walker to walking back.
inline constexpr int endMark = 9999;  ///< Ends a pattern.
inline constexpr int closing = 88;    ///< Closing value after the end mark.

/// Whether a number of a file is a step at all.
constexpr bool isCode(int number) { return number >= left && number <= walkBack; }
}  // namespace gridwright::step
