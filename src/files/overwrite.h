// How a file's new bytes take the place of the old ones.
#pragma once

namespace gridwright {

enum class Overwrite {
  atOnce,   ///< The file is the old or the new one, whole, at any moment: for what a person keeps.
  inPlace,  ///< A file of the same length is written over: for the pictures in progress, because a new file
            ///< for each of them would keep the disk busy for longer than a maze takes.
};

}  // namespace gridwright
