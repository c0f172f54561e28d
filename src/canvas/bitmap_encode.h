// A picture as the bytes of a 24-bit bitmap file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "canvas/bitmap_view.h"

namespace gridwright {

/// The file in pieces, for a system that writes pieces one after the other: what rows that are alike have in
/// common lies in memory once.
class BitmapFilePieces {
 public:
  /// Rows from the bottom, blue, green and red a byte each, rows filled up to four bytes.
  explicit BitmapFilePieces(const BitmapView& picture);
  BitmapFilePieces(const BitmapFilePieces&) = delete;  // the pieces lie in this very one
  BitmapFilePieces& operator=(const BitmapFilePieces&) = delete;

  [[nodiscard]] const std::vector<std::string_view>& pieces() const { return pieces_; }

 private:
  std::string bytes_;
  std::vector<std::string_view> pieces_;
};

/// The same as a whole.
std::string encodeBitmapFile(const BitmapView& picture);

}  // namespace gridwright
