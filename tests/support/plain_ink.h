// Letters and stamps as plain as can be: each is a full box, as high as asked for.
#pragma once

#include <algorithm>

#include "pictures/ink_work.h"

namespace gridwright::test {

class PlainInk : public InkWork {
 public:
  LineInk line(const std::string& line, const LetterFont& font) override {
    LineInk made;
    const int side = font.capital;
    const int apart = side + std::max(1, side / 2);
    const auto letters = static_cast<int>(line.size());
    if (letters == 0) return made;
    made.ink = BitPlane({letters * apart - (apart - side), side});
    made.baseline = side;
    for (int i = 0; i < letters; ++i) {
      made.letters.push_back({line.substr(static_cast<std::size_t>(i), 1), i * apart, i * apart + side});
      fill(made.ink, i * apart, side, side);
    }
    return made;
  }
  std::vector<std::string> fontNames() override { return {"Boxes"}; }
  BitPlane stamp(const std::string& /*name*/, int height) override {
    BitPlane plane({height, height});
    fill(plane, 0, height, height);
    return plane;
  }

 private:
  static void fill(BitPlane& plane, int left, int width, int height) {
    plane.setBox({left, 0, left + width - 1, height - 1});
  }
};

}  // namespace gridwright::test
