#include "platform/pictures/svg_weight.h"

#include <algorithm>

namespace gridwright {

void SvgWeight::begin(const QString& id, const QString& use) {
  const std::size_t number = elements_.size();
  elements_.push_back({use, {}, -1, false});
  if (!open_.empty()) elements_[open_.back()].children.push_back(number);
  if (!id.isEmpty()) byId_[id].push_back(number);
  open_.push_back(number);
}

void SvgWeight::end() {
  if (!open_.empty()) open_.pop_back();
}

bool SvgWeight::isBearable() { return elements_.empty() || weightOf(0, 0) <= kMost; }

// NOLINTBEGIN(misc-no-recursion): no deeper than kDeepest
// What is too deep counts as too much. A use of what it stands in draws nothing more.
std::int64_t SvgWeight::weightOf(std::size_t number, int depth) {
  if (depth > kDeepest) return kMost + 1;
  Element& element = elements_[number];
  if (element.weight >= 0) return element.weight;
  if (element.isBeingSummed) return 0;
  element.isBeingSummed = true;
  std::int64_t sum = 1;
  const auto add = [&](std::size_t part) { sum = std::min(sum + weightOf(part, depth + 1), kMost + 1); };
  for (const std::size_t child : element.children) add(child);
  if (const auto used = byId_.constFind(element.use); used != byId_.constEnd()) {
    for (const std::size_t part : *used) add(part);
  }
  element.isBeingSummed = false;
  element.weight = sum;
  return sum;
}
// NOLINTEND(misc-no-recursion)

}  // namespace gridwright
