#include "pictures/letters.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace gridwright {

namespace {

struct Part {
  BitPlane ink;
  Square box;
  std::int64_t pixels;
};

/// What hangs together by sides, the largest first.
std::vector<Part> partsOf(BitPlane ink) {
  std::vector<Part> parts;
  for (int y = 0; y < ink.height(); ++y) {
    for (int x = ink.next(y, 0, true); x < ink.width(); x = ink.next(y, x, true)) {
      Part part{floodedFrom(ink, x, y), {}, 0};
      ink.without(part.ink);
      part.box = part.ink.bounds();
      part.pixels = part.ink.count();
      parts.push_back(std::move(part));
    }
  }
  std::stable_sort(parts.begin(), parts.end(),
                   [](const Part& one, const Part& other) { return one.pixels > other.pixels; });
  return parts;
}

struct Group {
  std::vector<BitPlane> parts;
  int left, right;
};

/// Whether most of the narrower of two stands above or below the other.
bool standsOver(const Group& group, const Square& box) {
  const int shared = std::min(group.right, box.right) - std::max(group.left, box.left) + 1;
  return 2 * shared > std::min(group.right - group.left, box.right - box.left) + 1;
}

std::vector<Group> groupsOf(const BitPlane& ink) {
  std::vector<Group> groups;
  for (Part& part : partsOf(ink)) {
    const auto found = std::find_if(groups.begin(), groups.end(),
                                    [&](const Group& group) { return standsOver(group, part.box); });
    if (found == groups.end()) {
      groups.push_back({{std::move(part.ink)}, part.box.left, part.box.right});
    } else {
      found->parts.push_back(std::move(part.ink));
    }
  }
  return groups;
}

/// Which of the letters a reader knows stand in a group, by their numbers.
std::vector<std::size_t> readIn(const Group& group, const std::vector<LetterExtent>& letters) {
  std::vector<std::size_t> numbers;
  std::size_t nearest = 0;
  int least = 1 << 30;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const int middle = (letters[i].left + letters[i].right) / 2;
    if (middle >= group.left && middle <= group.right) numbers.push_back(i);
    const int far = std::max({0, group.left - middle, middle - group.right});
    if (far >= least) continue;
    least = far;
    nearest = i;
  }
  if (numbers.empty() && !letters.empty()) numbers.push_back(nearest);
  return numbers;
}

}  // namespace

BitPlane Letter::ink() const {
  BitPlane all = parts.front();
  for (const BitPlane& part : parts) all |= part;
  return all;
}

std::vector<Letter> lettersOf(const LineInk& line, Size plane, int x, int y) {
  struct Placed {
    std::size_t first;  // in the order of reading
    int left;
    Letter letter;
  };
  std::vector<Placed> placed;
  for (Group& group : groupsOf(line.ink)) {
    const std::vector<std::size_t> read = readIn(group, line.letters);
    Placed next{read.empty() ? 0 : read.front(), group.left, {}};
    for (const std::size_t number : read) next.letter.name += line.letters[number].text;
    for (const BitPlane& part : group.parts) {
      next.letter.parts.emplace_back(plane);
      next.letter.parts.back().lay(part, x, y);
    }
    placed.push_back(std::move(next));
  }
  std::stable_sort(placed.begin(), placed.end(), [](const Placed& one, const Placed& other) {
    return std::pair(one.first, one.left) < std::pair(other.first, other.left);
  });
  std::vector<Letter> letters;
  letters.reserve(placed.size());
  for (Placed& one : placed) letters.push_back(std::move(one.letter));
  return letters;
}

}  // namespace gridwright
