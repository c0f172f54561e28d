// How hard a file's new bytes are driven to the disk when they take the place of the old ones.
#pragma once

namespace gridwright {

/// Either way the file is the old or the new one, whole, at any moment, whoever kills the program.
enum class Overwrite {
  atOnce,  ///< For what a person keeps: file systems hurry to write out a file that is renamed over another,
           ///< so that a power cut leaves one of the two as well.
  unhurried,  ///< For the pictures in progress: that hurry would take longer than a maze does, and keep the
              ///< disk busy with pictures that are gone before they are there.
};

}  // namespace gridwright
