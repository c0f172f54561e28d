#include "platform/shared/growing_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <vector>

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostWaiting = 16384;  // bytes
constexpr int kTries = 100;                  // at a name that is not taken; the first nearly always is none

/// Between its making and its hold another may have taken it for a left-over.
bool hasName(const OpenFile& file) {
  struct stat known {};
  return ::fstat(file.descriptor(), &known) == 0 && known.st_nlink > 0;
}

/// The files that grow towards a target, and those that a killed program left behind of it.
std::vector<fs::path> growingTowards(const fs::path& target) {
  const std::string wanted = target.filename().string();
  std::vector<fs::path> paths;
  std::error_code failed;
  const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed)) {
    if (targetOfBuilding(entry->path().filename().string()) == wanted) paths.push_back(entry->path());
  }
  return paths;
}

bool rename(const fs::path& from, const fs::path& to, Taking how) {
  if (how == Taking::replaces) return ::rename(from.c_str(), to.c_str()) == 0;
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  // Where the file system knows no such thing a second name does the same.
  return errno == EINVAL && ::link(from.c_str(), to.c_str()) == 0 && ::unlink(from.c_str()) == 0;
}

}  // namespace

GrowingFile::GrowingFile(const fs::path& target) {
  for (const fs::path& path : growingTowards(target)) removeLeftOver(path);
  for (int i = 0; i < kTries && !file_; ++i) {
    path_ = freshBuildingName(target);
    file_ = OpenFile(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (!file_ && errno != EEXIST) return;
    if (file_ && !(hold(file_) && hasName(file_))) file_.close();
  }
  if (file_) open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

GrowingFile::~GrowingFile() { remove(); }

void GrowingFile::remove() {
  if (!file_) return;
  ::unlink(path_.c_str());
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

bool GrowingFile::takeName(const fs::path& target, Taking how) {
  if (!isWhole()) return false;
  close();
  const bool taken = isOnDisk() && !isNoPlainFile(target) && rename(path_, target, how);
  if (!taken) {
    remove();
    return false;
  }
  file_.close();
  return true;
}

bool isGrowing(const fs::path& target) { return !growingTowards(target).empty(); }

}  // namespace gridwright
