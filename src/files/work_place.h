// The folder that one run of the program works in: it has it for itself.
//
// Two programs in one folder would take each other's pictures in progress and step files for their own.
// So a program locks its folder; the lock is the system's, on the open folder, and goes with the program,
// also with one that is killed. A file system that knows no locks goes without.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "files/file_place.h"
#include "files/plain_file.h"

namespace gridwright {

struct WorkPlace {
  std::filesystem::path folder;  ///< Empty where none at all can be had.
  OpenFile lock;                 ///< Holds the folder for as long as it lives.
  std::string words;             ///< What a person must know of it, said once; empty when it is as expected.
  bool saysUnwritable = false;   ///< These words say already that nothing can be written.

  /// The folder that is locked, whatever its path leads to by now.
  [[nodiscard]] HeldFolder held() const;
};

/// Locks a folder. \returns nothing when another program works in it.
std::optional<OpenFile> lockFolder(const std::filesystem::path& folder);

/// Where the window works that was started in a folder: there; where another program does, in "NAME 2"
/// beside it (or "NAME 3" and so on up to 99), which is made where it is missing; else in a new temporary
/// folder, or none. A window that was started in a folder that is gone, told by an empty path, works in
/// `data`.
WorkPlace placeForWindow(const std::filesystem::path& startedIn, const std::filesystem::path& data);

/// The folder where a person's programs keep what belongs to no other folder: gridwright in XDG_DATA_HOME,
/// or in .local/share of the person's home. Empty when there is no home; it may not be there yet.
std::filesystem::path personalDataFolder();

/// Makes a folder, and those above it, for this person alone. \returns whether it is there.
bool makePersonalFolder(const std::filesystem::path& folder);

/// What a person is told of a folder that takes no files, once.
/// \param data where the drawing is kept instead; empty for nowhere.
std::string wordsOnUnwritableFolder(const std::filesystem::path& data);

}  // namespace gridwright
