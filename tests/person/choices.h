// Where a made-up person's choices come from: a number that repeats them, or the bytes of a fuzzer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace gridwright::person {

class Choices {
 public:
  virtual ~Choices() = default;

  /// 0 to `count` - 1.
  virtual int below(int count) = 0;

  [[nodiscard]] bool oneIn(int count) { return below(count) == 0; }
  [[nodiscard]] int between(int least, int most) { return least + below(most - least + 1); }
  [[nodiscard]] std::string numberBetween(int least, int most) {
    return std::to_string(between(least, most));
  }
  template <class Rows>
  [[nodiscard]] const auto& oneOf(const Rows& rows) {
    return rows[static_cast<std::size_t>(below(static_cast<int>(std::size(rows))))];
  }
};

class SeededChoices : public Choices {
 public:
  explicit SeededChoices(std::uint32_t seed) : random_(seed) {}
  int below(int count) override { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

 private:
  std::mt19937 random_;
};

/// One byte a choice, two where there is more to choose from; behind the last byte it is always the first.
class ByteChoices : public Choices {
 public:
  ByteChoices(const std::uint8_t* bytes, std::size_t count) : next_(bytes), end_(bytes + count) {}
  int below(int count) override {
    constexpr unsigned kByte = 256;
    unsigned value = byte();
    if (count > static_cast<int>(kByte)) value = value * kByte + byte();
    return static_cast<int>(value % static_cast<unsigned>(count));
  }
  [[nodiscard]] bool isOver() const { return next_ == end_; }

 private:
  unsigned byte() { return isOver() ? 0U : *next_++; }

  const std::uint8_t *next_, *end_;
};

}  // namespace gridwright::person
