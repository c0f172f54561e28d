#include "platform/book/joined_list.h"

#include <algorithm>

#include "platform/book/page_plan.h"

namespace gridwright::book {

namespace {

Fault fault(std::string words) { return {Fault::Kind::malformed, std::move(words)}; }

std::string wordsOf(const Part& part) {
  return "part " + std::to_string(part.number) + "/" + std::to_string(part.of);
}

/// What keeps a part from being joined with the first.
std::optional<Fault> whyNot(const PartList& part, const PartList& first) {
  const std::string than = " than " + first.name;
  if (!part.list.part) return fault(part.name + " is no part of a book");
  if (part.list.part->of != first.list.part->of)
    return fault(part.name + " is " + wordsOf(*part.list.part) + ", but " + first.name + " is " +
                 wordsOf(*first.list.part));
  if (part.list.plan != first.list.plan || part.list.mazesAsked != first.list.mazesAsked)
    return fault(part.name + " was made with other options" + than);
  if (part.list.sums != first.list.sums) return fault(part.name + " was made of other pictures" + than);
  return std::nullopt;
}

}  // namespace

Outcome<BookList> joinLists(const std::vector<PartList>& parts) {
  if (parts.empty()) return fault("no part is named");
  const PartList& first = parts.front();
  if (!first.list.part) return fault(first.name + " is no part of a book");
  const auto count = static_cast<std::size_t>(first.list.part->of);
  std::vector<const PartList*> places(count);
  BookList whole = first.list;
  whole.part.reset();
  whole.mazes.clear();
  whole.notMade.clear();
  for (const PartList& part : parts) {
    if (auto why = whyNot(part, first)) return *std::move(why);
    const PartList*& place = places.at(static_cast<std::size_t>(part.list.part->number - 1));
    if (place != nullptr)
      return fault(part.name + " is " + wordsOf(*part.list.part) + ", and so is " + place->name);
    place = &part;
    whole.mazes.insert(whole.mazes.end(), part.list.mazes.begin(), part.list.mazes.end());
    whole.notMade.insert(whole.notMade.end(), part.list.notMade.begin(), part.list.notMade.end());
  }
  const auto missing = std::find(places.begin(), places.end(), nullptr);
  if (missing != places.end())
    return fault(wordsOf({static_cast<int>(missing - places.begin()) + 1, first.list.part->of}) +
                 " is missing");
  std::sort(whole.notMade.begin(), whole.notMade.end());
  putInOrder(whole.mazes, whole.plan);
  return whole;
}

}  // namespace gridwright::book
