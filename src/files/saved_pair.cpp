#include "files/saved_pair.h"

#include "files/earlier_one.h"
#include "files/plain_file.h"

namespace gridwright {

namespace {

bool takeBitmapOver(const PairPaths& paths) {
  return !isThere(paths.buildingBitmap()) || renameFile(paths.buildingBitmap(), paths.bitmap);
}

/// Nothing of a save is left. The building record goes last: it says that what is held was not replaced.
void forgetSave(const PairPaths& paths) {
  // No promise any more, before anything goes.
  if (isThere(paths.readyRecord()) && !isNoPlainFile(paths.readyRecord()))
    renameFile(paths.readyRecord(), paths.buildingRecord());
  dropEarlier(paths.record);
  dropEarlier(paths.bitmap);
  removeLeftOver(paths.buildingBitmap());
  removeFile(paths.readyRecord());  // nobody holds it: it was whole
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

/// The record's ready name is the promise that both are whole; it goes last. A link of that name is none.
bool finishTakingOver(const PairPaths& paths) {
  return takeBitmapOver(paths) && !isNoPlainFile(paths.readyRecord()) &&
         renameFile(paths.readyRecord(), paths.record);
}

}  // namespace

Outcome<Done> takePairOver(const PairPaths& paths) {
  const Fault refused{Fault::Kind::notWritable, paths.record.path().string()};
  if (isNoPlainFile(paths.record) || isNoPlainFile(paths.bitmap) || !holdEarlier(paths.record) ||
      !holdEarlier(paths.bitmap) || !renameFile(paths.buildingRecord(), paths.readyRecord()) ||
      !takeBitmapOver(paths)) {
    forgetSave(paths);
    return refused;
  }
  if (!renameFile(paths.readyRecord(), paths.record)) {
    // A ready record stays only where the old bitmap cannot come back, so that a recovery completes the pair.
    if (putEarlierBack(paths.bitmap)) forgetSave(paths);
    return refused;
  }
  forgetOlderOnes(paths);
  keepEarlierPair(paths);
  return Done{};
}

void recoverPair(const PairPaths& paths) {
  if (isThere(paths.readyRecord())) {
    if (finishTakingOver(paths)) keepEarlierPair(paths);
    return;
  }
  if (!isThere(paths.buildingRecord())) keepEarlierPair(paths);  // the new ones are in place
  forgetSave(paths);
}

}  // namespace gridwright
