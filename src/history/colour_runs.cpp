#include "history/colour_runs.h"

#include <utility>

namespace gridwright {

namespace {

constexpr int kColourBytes = 4;
constexpr unsigned kSevenBits = 0x7F, kMore = 0x80;

}  // namespace

void RunWriter::add(const Colour* pixels, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (length_ > 0 && pixels[i] != colour_) endRun();
    colour_ = pixels[i];
    ++length_;
  }
}

void RunWriter::endRun() {
  for (int i = 0; i < kColourBytes; ++i)
    runs_.push_back(static_cast<std::uint8_t>(static_cast<std::uint32_t>(colour_) >> (8 * i)));
  for (; length_ > kSevenBits; length_ >>= 7)
    runs_.push_back(static_cast<std::uint8_t>((length_ & kSevenBits) | kMore));
  runs_.push_back(static_cast<std::uint8_t>(length_));
  length_ = 0;
}

Runs RunWriter::take() {
  if (length_ > 0) endRun();
  runs_.shrink_to_fit();
  return std::exchange(runs_, {});
}

std::vector<Colour> unpacked(const Runs& runs) {
  std::vector<Colour> pixels;
  for (std::size_t at = 0; at < runs.size();) {
    std::uint32_t colour = 0;
    for (int i = 0; i < kColourBytes; ++i) colour |= static_cast<std::uint32_t>(runs[at++]) << (8 * i);
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
      const std::uint8_t byte = runs[at++];
      length |= static_cast<std::size_t>(byte & kSevenBits) << shift;
      if ((byte & kMore) == 0) break;
    }
    pixels.insert(pixels.end(), length, static_cast<Colour>(colour));
  }
  return pixels;
}

}  // namespace gridwright
