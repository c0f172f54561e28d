// Rnd: one uniform draw in 0 up to but not including 1, the same on every machine for a seed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace gridwright {

/// Draws from the standard's 32-bit Mersenne Twister, two of its outputs each. They are made in blocks,
/// which a compiler does four at a time.
class Random {
 public:
  Random() { seed(0); }
  void seed(std::uint32_t number);
  /// What it was seeded with last.
  [[nodiscard]] std::uint32_t lastSeed() const { return lastSeed_; }

  /// One draw of 53 bits.
  double rnd() {
    const std::size_t first = draw();
    const std::uint32_t a = outputs_[first] >> 5;
    const std::uint32_t b = outputs_[first + 1] >> 6;
    return (a * 67108864.0 + b) / 9007199254740992.0;
  }
  /// Int(Rnd * count) + 1: a whole number from 1 to `count`.
  int oneTo(int count) { return static_cast<int>(rnd() * count) + 1; }
  /// The same with a count of 4, whose result is the first two bits of the draw.
  int oneToFour() { return static_cast<int>(outputs_[draw()] >> 30) + 1; }

  /// Whether both will draw the same from now on.
  friend bool operator==(const Random& a, const Random& b) {
    return a.next_ == b.next_ && a.words_ == b.words_;
  }

 private:
  static constexpr std::size_t kWords = 624;  // an even number: no draw lies in two blocks

  std::size_t draw() {
    if (next_ == kWords) renew();
    const std::size_t first = next_;
    next_ += 2;
    return first;
  }
  void renew();

  std::array<std::uint32_t, kWords> words_{}, outputs_{};
  std::size_t next_ = kWords;
  std::uint32_t lastSeed_ = 0;
};

}  // namespace gridwright
