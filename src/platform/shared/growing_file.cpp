#include "platform/shared/growing_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

#include "files/plain_file.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostWaiting = 16 * 1024;
constexpr int kTries = 100;  // at a name that is not taken; the first nearly always is none

}  // namespace

GrowingFile::GrowingFile(const fs::path& target) {
  for (int i = 0; i < kTries && descriptor_ < 0; ++i) {
    path_ = freshBuildingName(target);
    descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (descriptor_ < 0 && errno != EEXIST) return;
  }
  if (descriptor_ < 0) return;
  ::flock(descriptor_, LOCK_EX | LOCK_NB);  // where the file system knows no locks it grows without
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

GrowingFile::~GrowingFile() { remove(); }

void GrowingFile::remove() {
  if (descriptor_ < 0) return;
  ::unlink(path_.c_str());
  ::close(std::exchange(descriptor_, -1));
}

qint64 GrowingFile::writeData(const char* bytes, qint64 count) {
  if (!isWhole()) return -1;
  waiting_.append(bytes, static_cast<std::size_t>(count));
  if (waiting_.size() >= kMostWaiting && !writeThrough()) return -1;
  return count;
}

bool GrowingFile::writeThrough() {
  std::string_view left = waiting_;
  while (!left.empty() && !refused_) {
    const ssize_t taken = ::write(descriptor_, left.data(), left.size());
    if (taken < 0 && errno == EINTR) continue;
    refused_ = taken <= 0;
    if (!refused_) left.remove_prefix(static_cast<std::size_t>(taken));
  }
  waiting_.clear();
  return !refused_;
}

bool GrowingFile::takeName(const fs::path& target) {
  if (!isWhole()) return false;
  close();
  // Some file systems tell only here that there was no room.
  const bool onDisk = writeThrough() && !isNoPlainFile(target) &&
                      (::fsync(descriptor_) == 0 || errno == EINVAL || errno == EROFS);
  if (!onDisk || ::rename(path_.c_str(), target.c_str()) != 0) {
    remove();
    return false;
  }
  ::close(std::exchange(descriptor_, -1));
  return true;
}

bool isGrowing(const fs::path& target) {
  const std::string wanted = target.filename().string();
  std::error_code failed;
  const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed)) {
    if (targetOfBuilding(entry->path().filename().string()) == wanted) return true;
  }
  return false;
}

}  // namespace gridwright
