// Which letter of each item opens it together with Alt, or alone while its menu is open.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace gridwright {

inline constexpr std::size_t kNoMnemonic = std::string::npos;

/// For each caption of one menu the place of its letter or digit, none twice whatever its case; the first of
/// a word where that can be. A caption without a letter of A to Z or a digit has none, and where there are
/// more captions than letters in them some have none.
std::vector<std::size_t> mnemonicPlaces(const std::vector<std::string>& captions);

}  // namespace gridwright
