// The one before: what a save replaces stays beside it as NAME~, one generation.
//
// Until the save is through it bears a name of its own, NAME~.building: a save that fails gives it up, and
// the NAME~ of the save before is still there.
#pragma once

#include <type_traits>

#include "files/file_place.h"

namespace gridwright {

/// What a file is called once another was saved over it.
FilePlace earlierName(const FilePlace& target);
/// What it is called until the save is through.
FilePlace heldName(const FilePlace& target);

/// Gives what lies under the target's name its held name too; the target stays where it is.
/// \returns false when it cannot be held, or could not become NAME~ later; true where nothing lies there.
bool holdEarlier(const FilePlace& target);

/// Whether something is held for the target.
bool isHeld(const FilePlace& target);

/// The target is a new file now: what is held becomes NAME~.
void keepEarlier(const FilePlace& target);

/// The target keeps what it has: nothing is held any more.
void dropEarlier(const FilePlace& target);

/// Writes over the target by `save`, which says by what it returns whether it did: what was there becomes
/// NAME~. \returns what `save` does, or `refused` where what is there cannot be held; nothing is written
/// then.
template <class Save>
std::invoke_result_t<Save> saveOverEarlier(const FilePlace& target, const Save& save,
                                           std::invoke_result_t<Save> refused) {
  if (!holdEarlier(target)) return refused;
  auto saved = save();
  if (saved) {
    keepEarlier(target);
  } else {
    dropEarlier(target);
  }
  return saved;
}

/// The target was a new file already and must not be: what is held takes its place again; where nothing is
/// held nothing was there, and the target goes. \returns whether all is as it was.
bool putEarlierBack(const FilePlace& target);

/// After a save of a single file that was cut off: what it held is kept if the target is a new file by now.
void recoverEarlier(const FilePlace& target);

}  // namespace gridwright
