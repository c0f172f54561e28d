// How a file's new bytes take the place of the old ones.
#pragma once

namespace gridwright {

enum class Overwrite {
  atOnce,   ///< The file is the old or the new one, whole, at any moment: for what a person keeps.
  inPlace,  ///< A file of the same length is written over: for what the program alone reads back, because
            ///< a new file a maze would keep the disk busy for longer than the maze takes.
};

}  // namespace gridwright
