#include "pictures/pairing.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <limits>

#include "pictures/lab.h"

namespace gridwright {

std::vector<Colour> paired(const std::vector<Colour>& colours, const std::vector<Colour>& choices) {
  assert(!choices.empty());
  std::vector<Colour> result(colours.size());
  std::vector<bool> done(colours.size(), false);
  std::vector<bool> taken(choices.size(), false);
  for (std::size_t round = 0; round < colours.size(); ++round) {
    if (std::find(taken.begin(), taken.end(), false) == taken.end()) taken.assign(choices.size(), false);
    double least = std::numeric_limits<double>::max();
    std::size_t colour = 0;
    std::size_t choice = 0;
    for (std::size_t i = 0; i < colours.size(); ++i) {
      for (std::size_t j = 0; j < choices.size(); ++j) {
        if (done[i] || taken[j]) continue;
        const double distance = apart(labOf(colours[i]), labOf(choices[j]));
        if (distance >= least) continue;
        least = distance;
        colour = i;
        choice = j;
      }
    }
    result[colour] = choices[choice];
    done[colour] = taken[choice] = true;
  }
  return result;
}

}  // namespace gridwright
