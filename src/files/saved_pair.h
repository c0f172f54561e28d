// Taking a complete pair of new files over the old pair.
#pragma once

#include "canvas/outcome.h"
#include "files/file_place.h"

namespace gridwright {

/// The steps of a save. Both files are written under `building` names; the old ones are held; giving the
/// record its `ready` name says that both are complete; then they take their targets' places, bitmap first,
/// and the old ones become NAME~.
struct PairPaths {
  FilePlace record, bitmap;

  [[nodiscard]] FilePlace buildingRecord() const { return record.with(".building"); }
  [[nodiscard]] FilePlace buildingBitmap() const { return bitmap.with(".building"); }
  [[nodiscard]] FilePlace readyRecord() const { return record.with(".ready"); }
};

/// Expects both building files complete on disk. The old pair stays as the one before, each file that there
/// was with a "~" behind its name. On failure both pairs stand as they were.
Outcome<Done> takePairOver(const PairPaths& paths);

/// Takes a ready pair over, or removes what is left of one that was not ready.
void recoverPair(const PairPaths& paths);

}  // namespace gridwright
