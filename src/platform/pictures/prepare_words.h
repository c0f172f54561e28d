// The command line of gridwright-prepare.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "canvas/outcome.h"
#include "pictures/prepare.h"
#include "pictures/words.h"

namespace gridwright {

struct PrepareWords {
  std::filesystem::path in, out;
  std::optional<WordSettings>
      words;                 ///< What is painted instead of a picture that is read: `in` is empty then.
  std::optional<Size> size;  ///< Of the Canvas; left out: the picture's shape.
  int wallSize = 10;
  MazeKind kind = MazeKind::regular;
  PrepareSettings settings;
  bool mayReplace = false;  ///< Whether a file that is there may be written over.
};

extern const std::string kPrepareUsage;

/// \param words without the program's name. \returns a Fault whose words say in one line what is wrong.
Outcome<PrepareWords> readPrepareWords(const std::vector<std::string>& words);

}  // namespace gridwright
