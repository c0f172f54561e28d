#include "state/page_setup.h"

#include <algorithm>
#include <cstdlib>

namespace gridwright {

namespace {

std::string millimetres(int tenths) {
  const std::string whole = std::to_string(tenths / kTenths);
  return tenths % kTenths == 0 ? whole : whole + "." + std::to_string(tenths % kTenths);
}

}  // namespace

std::optional<PaperSize> paperNamed(std::string_view name) {
  const auto* row =
      std::find_if(kPapers.begin(), kPapers.end(), [&](const NamedPaper& p) { return p.name == name; });
  if (row == kPapers.end()) return std::nullopt;
  return row->size;
}

std::optional<PageTiles> tilesNamed(std::string_view name) {
  const auto digit = [&](std::size_t at) { return name[at] - '0'; };
  const auto isSome = [](int count) { return count >= 1 && count <= kMostTiles; };
  if (name.size() != 3 || name[1] != 'x' || !isSome(digit(0)) || !isSome(digit(2))) return std::nullopt;
  return PageTiles{digit(0), digit(2)};
}

std::string paperWords(const PaperSize& size) {
  const auto* row =
      std::find_if(kPapers.begin(), kPapers.end(), [&](const NamedPaper& p) { return p.size == size; });
  if (row != kPapers.end()) return std::string(row->words);
  return millimetres(size.width) + " x " + millimetres(size.height) + " mm";
}

PaperSize knownPaper(const PaperSize& about) {
  const auto* row = std::find_if(kPapers.begin(), kPapers.end(), [&](const NamedPaper& p) {
    return std::abs(p.size.width - about.width) <= kTenths &&
           std::abs(p.size.height - about.height) <= kTenths;
  });
  return row == kPapers.end() ? about : row->size;
}

}  // namespace gridwright
