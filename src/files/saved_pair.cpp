#include "files/saved_pair.h"

#include <system_error>

#include "files/earlier_one.h"
#include "files/plain_file.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

bool moveOver(const fs::path& from, const fs::path& to) {
  std::error_code failed;
  fs::rename(from, to, failed);
  return !failed;
}

bool takeBitmapOver(const PairPaths& paths) {
  std::error_code failed;
  return !fs::exists(paths.buildingBitmap(), failed) || moveOver(paths.buildingBitmap(), paths.bitmap);
}

/// Nothing of a save is left. The building record goes last: it says that what is held was not replaced.
void forgetSave(const PairPaths& paths) {
  dropEarlier(paths.record);
  dropEarlier(paths.bitmap);
  removeLeftOver(paths.buildingBitmap());
  std::error_code ignored;
  fs::remove(paths.readyRecord(), ignored);  // nobody holds it: it was whole
  removeLeftOver(paths.buildingRecord());
}

void keepEarlierPair(const PairPaths& paths) {
  keepEarlier(paths.bitmap);
  keepEarlier(paths.record);
}

/// One generation: where only one file of the pair was there, the other's "~" is of an older one.
void forgetOlderOnes(const PairPaths& paths) {
  const bool record = isHeld(paths.record);
  const bool bitmap = isHeld(paths.bitmap);
  if (bitmap && !record) removeLeftOver(earlierName(paths.record));
  if (record && !bitmap) removeLeftOver(earlierName(paths.bitmap));
}

/// The record's ready name is the promise that both are whole; it goes last.
bool finishTakingOver(const PairPaths& paths) {
  return takeBitmapOver(paths) && moveOver(paths.readyRecord(), paths.record);
}

}  // namespace

Outcome<Done> takePairOver(const PairPaths& paths) {
  const Fault refused{Fault::Kind::notWritable, paths.record.string()};
  std::error_code failed;
  if (fs::is_directory(paths.record, failed) || fs::is_directory(paths.bitmap, failed) ||
      !holdEarlier(paths.record) || !holdEarlier(paths.bitmap) ||
      !moveOver(paths.buildingRecord(), paths.readyRecord()) || !takeBitmapOver(paths)) {
    forgetSave(paths);
    return refused;
  }
  if (!moveOver(paths.readyRecord(), paths.record)) {
    // A ready record stays only where the old bitmap cannot come back, so that a recovery completes the pair.
    if (putEarlierBack(paths.bitmap)) forgetSave(paths);
    return refused;
  }
  forgetOlderOnes(paths);
  keepEarlierPair(paths);
  return Done{};
}

void recoverPair(const PairPaths& paths) {
  std::error_code failed;
  if (fs::exists(paths.readyRecord(), failed)) {
    if (finishTakingOver(paths)) keepEarlierPair(paths);
    return;
  }
  if (!fs::exists(paths.buildingRecord(), failed)) keepEarlierPair(paths);  // the new ones are in place
  forgetSave(paths);
}

}  // namespace gridwright
