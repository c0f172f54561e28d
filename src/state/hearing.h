// What a person has done that only the ears can notice: the record of it grows, and who listens compares.
#pragma once

#include <cstdint>

namespace gridwright {

struct Hearing {
  std::uint64_t asked = 0;   ///< How often the surroundings were asked for.
  std::uint64_t arrows = 0;  ///< How many arrow keys were taken while a person carved or played,
  int arrow = 0;             ///< and the step code of the last one.
};

}  // namespace gridwright
