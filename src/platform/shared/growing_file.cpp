#include "platform/shared/growing_file.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace gridwright {

namespace {

constexpr std::size_t kMostWaiting = 16384;  // bytes

}  // namespace

GrowingFile::GrowingFile(const FilePlace& target) : place_(target.held()) {
  removeLeftOversOf(place_);
  BuildingFile building = makeBuildingFile(place_);
  place_ = std::move(building.place);
  file_ = std::move(building.file);
  if (file_) open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

GrowingFile::~GrowingFile() { remove(); }

void GrowingFile::remove() {
  if (!file_) return;
  removeFile(place_);
  file_.close();
}

qint64 GrowingFile::writeData(const char* bytes, qint64 count) {
  if (!isWhole()) return -1;
  waiting_.append(bytes, static_cast<std::size_t>(count));
  if (waiting_.size() >= kMostWaiting && !writeThrough()) return -1;
  return count;
}

bool GrowingFile::writeThrough() {
  refused_ = refused_ || !writeAll(file_, waiting_);
  waiting_.clear();
  return !refused_;
}

bool GrowingFile::isOnDisk() {
  if (!isWhole() || !writeThrough()) return false;
  // Some file systems tell only here that there was no room.
  return ::fsync(file_.descriptor()) == 0 || errno == EINVAL || errno == EROFS;
}

bool GrowingFile::takeName(const FilePlace& target, Taking how) {
  if (!isWhole()) return false;
  close();
  const auto rename = how == Taking::replaces ? renameFile : renameToFree;
  const bool taken = isOnDisk() && !isNoPlainFile(target) && rename(place_, target);
  if (!taken) {
    remove();
    return false;
  }
  file_.close();
  return true;
}

bool isGrowing(const FilePlace& target) { return !growingTowards(target).empty(); }

}  // namespace gridwright
