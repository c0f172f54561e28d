// Any bytes to the readers of pictures, and what they give through the prepare step. What comes out is ready
// for a maze, whatever came in.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "pictures/prepare.h"
#include "pictures/ready.h"
#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/read_picture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace gridwright;
  constexpr std::int64_t kMost = 20'000;  // pixels
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto picture = readPictureBytes(bytes, {60, 50}, "it", kMost);
  if (!picture) {
    if (picture.fault().words.empty()) std::abort();
    return 0;
  }
  LeptonicaWork work;
  PrepareSettings settings;
  settings.detail = 1 + static_cast<int>(size % 5);
  settings.colours = 2 + static_cast<int>(size % 15);
  settings.asItsSize = size % 2 == 0;
  const Prepared prepared = prepare(picture.value(), settings, {{60, 50}, 5, MazeKind::regular}, work);
  if (!isReady(prepared.picture, startingSets())) std::abort();
  return 0;
}
