// Pixels packed as runs of one colour: drawings are plain, so that a stroke takes a few bytes and a whole
// Canvas of one colour no more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "canvas/colour.h"

namespace gridwright {

using Runs = std::vector<std::uint8_t>;

/// Adds one pixel after the other; `runs` is whole when it is asked for.
class RunWriter {
 public:
  void add(const Colour* pixels, std::size_t count);
  Runs take();

 private:
  void endRun();

  Runs runs_;
  Colour colour_ = 0;
  std::size_t length_ = 0;
};

/// The pixels again; `runs` is what a `RunWriter` gave.
std::vector<Colour> unpacked(const Runs& runs);

}  // namespace gridwright
