// Rows of palette indices as the runs of a coded bitmap, in each way that the format leaves to its writers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/bitmap_files.h"

namespace gridwright::test {

/// From the bottom, as the format has them.
using IndexRows = std::vector<std::vector<std::uint32_t>>;

struct RunForm {
  int bits;  ///< 4 or 8.
  RunStyle style;
  bool endless;  ///< No mark ends the picture.
};

/// The runs of all rows with their marks. A run of single pixels is padded to words, as the format wants it.
std::string runsOf(const IndexRows& rows, const RunForm& form);

}  // namespace gridwright::test
