// A script that fails, cut down by halving to the lines that it takes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace gridwright::person {

using Lines = std::vector<std::string>;

/// Leaves out halves, then quarters and so on down to single lines, for as long as the rest fails.
/// \param fails whether these lines fail, in the same way; asked at most `tries` times.
/// \returns lines that fail. With tries enough none of them can be left out alone.
inline Lines shortest(Lines lines, const std::function<bool(const Lines&)>& fails, int tries = 3000) {
  for (std::size_t chunk = std::max<std::size_t>(lines.size() / 2, 1); chunk > 0; chunk /= 2) {
    bool cutAny = true;
    while (cutAny) {
      cutAny = false;
      for (std::size_t at = 0; at < lines.size() && tries > 0;) {
        const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = begin + static_cast<std::ptrdiff_t>(std::min(chunk, lines.size() - at));
        Lines rest(lines.begin(), begin);
        rest.insert(rest.end(), end, lines.end());
        --tries;
        if (fails(rest)) {
          lines = std::move(rest);
          cutAny = true;
        } else {
          at += chunk;
        }
      }
    }
  }
  return lines;
}

}  // namespace gridwright::person
