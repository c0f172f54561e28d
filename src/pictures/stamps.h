// The stamps that come with the program.
#pragma once

#include <array>
#include <string_view>

namespace gridwright {

/// In the order in which they are offered; each is an outline of its name in content/stamps.
inline constexpr std::array<std::string_view, 12> kStamps = {"heart", "star",   "circle",  "arrow",
                                                             "cloud", "flower", "tree",    "house",
                                                             "fish",  "cat",    "balloon", "crown"};

}  // namespace gridwright
