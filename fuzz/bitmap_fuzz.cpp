// Any bytes to the reader of bitmap files. It stays inside the file, and what it accepts is a picture of
// the size that the check told, cut at the side.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "canvas/bitmap_check.h"
#include "canvas/bitmap_decode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gridwright;
  constexpr int kSide = 100;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto told = checkBitmapFile(bytes);
  const auto picture = decodeBitmapFile(bytes, kSide);
  if (static_cast<bool>(told) != static_cast<bool>(picture)) std::abort();
  if (!picture) return 0;
  const Bitmap& p = picture.value();
  if (p.width != std::min(told.value().width, kSide) || p.height != std::min(told.value().height, kSide))
    std::abort();
  for (const Colour c : p.pixels) {
    if (c < 0 || c > 0xFFFFFF) std::abort();
  }
  return 0;
}
