#include "platform/book/maze_counts.h"

#include <algorithm>

namespace gridwright::book {

int mazesAsked(const BookPlan& plan, std::size_t pictures) {
  if (plan.total) return pictures == 0 ? 0 : *plan.total;
  const std::size_t asked = static_cast<std::size_t>(plan.mazesAPicture.value_or(1)) * pictures;
  return static_cast<int>(std::min(asked, std::size_t{kMostMazes} + 1));
}

std::optional<std::string> whyTooMany(const BookPlan& plan, std::size_t pictures) {
  if (mazesAsked(plan, pictures) <= kMostMazes) return std::nullopt;
  return "a book has at most " + std::to_string(kMostMazes) + " mazes";
}

std::size_t pictureOf(const BookPlan& plan, std::size_t pictures, int index) {
  return plan.total ? static_cast<std::size_t>(index) % pictures
                    : static_cast<std::size_t>(index / plan.mazesAPicture.value_or(1));
}

}  // namespace gridwright::book
