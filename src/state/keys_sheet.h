// The sheet of keys, as it stands: what the keys of the present phase do. A tenant lays it over the window
// and on no plane of the Canvas.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gridwright {

struct KeysSheet {
  struct Row {
    std::vector<std::string> caps;  ///< What stands on the keys, one a key.
    std::string words;              ///< What they do, in the order of the keys.
  };
  bool shown = false;
  std::string title;
  std::vector<Row> rows;
  std::uint64_t revision = 1;  ///< Grows with every change, so that a tenant shows it anew.
};

}  // namespace gridwright
