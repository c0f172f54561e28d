// Taking a complete pair of new files over the old pair.
#pragma once

#include <filesystem>

#include "canvas/outcome.h"

namespace gridwright {

/// The steps of a save. Both files are written under `building` names; the old ones are held; giving the
/// record its `ready` name says that both are complete; then they take their targets' places, bitmap first,
/// and the old ones become NAME~.
struct PairPaths {
  std::filesystem::path record, bitmap;

  [[nodiscard]] std::filesystem::path buildingRecord() const { return with(record, ".building"); }
  [[nodiscard]] std::filesystem::path buildingBitmap() const { return with(bitmap, ".building"); }
  [[nodiscard]] std::filesystem::path readyRecord() const { return with(record, ".ready"); }

 private:
  static std::filesystem::path with(std::filesystem::path path, const char* ending) { return path += ending; }
};

/// Expects both building files complete on disk. The old pair stays as the one before, each file that there
/// was with a "~" behind its name. On failure both pairs stand as they were.
Outcome<Done> takePairOver(const PairPaths& paths);

/// Takes a ready pair over, or removes what is left of one that was not ready.
void recoverPair(const PairPaths& paths);

}  // namespace gridwright
