#include "files/saved_pair.h"

#include <system_error>

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

/// The record's ready name is the promise that both are whole; it goes last.
bool finishTakingOver(const PairPaths& paths) {
  return takeBitmapOver(paths) && moveOver(paths.readyRecord(), paths.record);
}

}  // namespace

Outcome<Done> takePairOver(const PairPaths& paths) {
  const Fault refused{Fault::Kind::notWritable, paths.record.string()};
  std::error_code failed;
  if (fs::is_directory(paths.record, failed) || fs::is_directory(paths.bitmap, failed) ||
      !moveOver(paths.buildingRecord(), paths.readyRecord()) || !takeBitmapOver(paths)) {
    removeLeftOver(paths.buildingRecord());
    removeLeftOver(paths.readyRecord());
    removeLeftOver(paths.buildingBitmap());
    return refused;
  }
  // The old bitmap is gone now: a ready record that cannot move yet stays, so that a recovery does.
  if (!moveOver(paths.readyRecord(), paths.record)) return refused;
  return Done{};
}

void recoverPair(const PairPaths& paths) {
  std::error_code failed;
  if (fs::exists(paths.readyRecord(), failed)) {
    finishTakingOver(paths);
    return;
  }
  removeLeftOver(paths.buildingRecord());
  removeLeftOver(paths.buildingBitmap());
}

}  // namespace gridwright
