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
    const std::uint32_t a = engine_() >> 5;
    const std::uint32_t b = engine_() >> 6;
    return (a * 67108864.0 + b) / 9007199254740992.0;
  }
  /// Int(Rnd * count) + 1: a whole number from 1 to `count`.
  int oneTo(int count) { return static_cast<int>(rnd() * count) + 1; }

 private:
  /// The standard's 32-bit Mersenne Twister over words of 32 bits: its own name for it takes the
  /// fastest word instead, which is twice as long here, and slower to renew.
  using Engine = std::mersenne_twister_engine<std::uint32_t, 32, 624, 397, 31, 0x9908B0DFU, 11, 0xFFFFFFFFU,
                                              7, 0x9D2C5680U, 15, 0xEFC60000U, 18, 1812433253U>;

  Engine engine_{0};
};

}  // namespace gridwright
