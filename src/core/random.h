// Rnd: one uniform draw in 0 up to but not including 1, the same on every machine for a seed.
#pragma once

#include <cstdint>
#include <random>

namespace gridwright {

class Random {
 public:
  void seed(std::uint32_t number) { engine_.seed(number); }

  /// One draw of 53 bits; takes two outputs of the engine.
  double rnd() {
    const auto a = static_cast<std::uint32_t>(engine_()) >> 5;
    const auto b = static_cast<std::uint32_t>(engine_()) >> 6;
    return (a * 67108864.0 + b) / 9007199254740992.0;
  }
  /// Int(Rnd * count) + 1: a whole number from 1 to `count`.
  int oneTo(int count) { return static_cast<int>(rnd() * count) + 1; }

 private:
  std::mt19937 engine_{0};
};

}  // namespace gridwright
