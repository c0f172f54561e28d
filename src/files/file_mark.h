// What tells whether a file is still as it was.
#pragma once

#include <cstdint>

namespace gridwright {

/// What tells the state of a file: another one under its name, or the same one written to since, has another
/// mark. A write within one tick of the file system's clock, some milliseconds, is not told by it.
struct FileMark {
  std::uintmax_t device = 0, number = 0, bytes = 0;
  std::int64_t seconds = 0, nanoseconds = 0;  ///< When its bytes were last changed.
  friend bool operator==(const FileMark&, const FileMark&) = default;
};

}  // namespace gridwright
