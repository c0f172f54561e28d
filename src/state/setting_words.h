// The words by which options, lists and documents say the settings of a maze.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "canvas/maze_kind.h"

namespace gridwright {

template <class Value, std::size_t kCount>
using SettingWords = std::array<std::pair<Value, std::string_view>, kCount>;

inline constexpr SettingWords<MazeKind, 3> kMazeKindWords = {
    {{MazeKind::regular, "regular"}, {MazeKind::threeD, "3d"}, {MazeKind::pipe, "pipe"}}};
inline constexpr SettingWords<bool, 2> kPathsWords = {{{false, "normal"}, {true, "large"}}};
inline constexpr SettingWords<bool, 2> kUnderpassesWords = {{{true, "short"}, {false, "long"}}};

/// \param value one that the table has.
template <class Value, std::size_t kCount>
std::string_view wordIn(const SettingWords<Value, kCount>& words, Value value) {
  return std::find_if(words.begin(), words.end(), [&](const auto& pair) { return pair.first == value; })
      ->second;
}

}  // namespace gridwright
