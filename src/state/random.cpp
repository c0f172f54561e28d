#include "state/random.h"

namespace gridwright {

namespace {

constexpr std::size_t kAhead = 397;  // how far ahead lies the word that a new one is mixed with

std::uint32_t mixed(std::uint32_t upper, std::uint32_t lower, std::uint32_t ahead) {
  const std::uint32_t both = (upper & 0x80000000U) | (lower & 0x7FFFFFFFU);
  return ahead ^ (both >> 1) ^ ((0U - (both & 1U)) & 0x9908B0DFU);
}

std::uint32_t tempered(std::uint32_t word) {
  word ^= word >> 11;
  word ^= (word << 7) & 0x9D2C5680U;
  word ^= (word << 15) & 0xEFC60000U;
  return word ^ (word >> 18);
}

}  // namespace

void Random::seed(std::uint32_t number) {
  words_[0] = number;
  for (std::uint32_t i = 1; i < kWords; ++i) {
    words_[i] = 1812433253U * (words_[i - 1] ^ (words_[i - 1] >> 30)) + i;
  }
  next_ = kWords;
  lastSeed_ = number;
}

void Random::renew() {
  std::uint32_t* const w = words_.data();
  const std::size_t wrap = kWords - kAhead;
  for (std::size_t i = 0; i < wrap; ++i) w[i] = mixed(w[i], w[i + 1], w[i + kAhead]);
  for (std::size_t i = wrap; i < kWords - 1; ++i) w[i] = mixed(w[i], w[i + 1], w[i - wrap]);
  w[kWords - 1] = mixed(w[kWords - 1], w[0], w[kAhead - 1]);
  for (std::size_t i = 0; i < kWords; ++i) outputs_[i] = tempered(w[i]);
  next_ = 0;
}

}  // namespace gridwright
