#include "files/file_place.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <utility>

namespace gridwright {

namespace fs = std::filesystem;

namespace {

// Held to be gone through, not to be read: that takes less than the right to list what lies in it.
constexpr int kToGoThrough = O_PATH | O_DIRECTORY | O_CLOEXEC;

std::shared_ptr<const OpenFile> openFolder(int at, const char* name) {
  return std::make_shared<const OpenFile>(::openat(at, name, kToGoThrough));
}

}  // namespace

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
  if (this != &other) {
    close();
    descriptor_ = other.release();
  }
  return *this;
}

int OpenFile::release() { return std::exchange(descriptor_, -1); }

void OpenFile::close() {
  if (descriptor_ >= 0) ::close(release());
}

HeldFolder::HeldFolder(const fs::path& folder, ByPath /*by*/)
    : open_(openFolder(AT_FDCWD, folder.c_str())), path_(folder) {}

HeldFolder::HeldFolder(const OpenFile& open, fs::path folder)
    : open_(openFolder(open.descriptor(), ".")), path_(std::move(folder)) {}

bool HeldFolder::isCalled(const fs::path& path) const {
  struct stat held {};
  struct stat named {};
  return ::fstat(descriptor(), &held) == 0 && ::stat(path.c_str(), &named) == 0 &&
         held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

fs::path HeldFolder::presentPath() const {
  if (!*this || isCalled(path_)) return path_;
  const std::string own = "/proc/self/fd/" + std::to_string(descriptor());
  std::array<char, PATH_MAX> name{};
  const ssize_t length = ::readlink(own.c_str(), name.data(), name.size());
  if (length <= 0) return path_;
  fs::path present(std::string(name.data(), static_cast<std::size_t>(length)));
  return isCalled(present) ? present : path_;
}

std::vector<std::string> HeldFolder::names() const {
  std::vector<std::string> names;
  OpenFile list(::openat(descriptor(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  DIR* entries = list ? ::fdopendir(list.descriptor()) : nullptr;
  if (entries == nullptr) return names;
  list.release();  // it closes with the entries
  while (const dirent* entry = ::readdir(entries)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  ::closedir(entries);
  return names;
}

FilePlace::FilePlace(const fs::path& path, ByPath /*by*/) : byPath_(true), name_(path.native()) {}

FilePlace::FilePlace(HeldFolder folder, std::string name)
    : folder_(std::move(folder)), byPath_(false), name_(std::move(name)) {}

int FilePlace::folder() const { return byPath_ ? AT_FDCWD : folder_.descriptor(); }

fs::path FilePlace::path() const { return byPath_ ? fs::path(name_) : folder_.presentPath() / name_; }

FilePlace FilePlace::with(std::string_view ending) const {
  FilePlace beside = *this;
  beside.name_ += ending;
  return beside;
}

HeldFolder FilePlace::heldFolder() const {
  if (!byPath_) return folder_;
  const fs::path above = fs::path(name_).parent_path();
  return above.empty() ? fs::path(".") : above;
}

FilePlace FilePlace::held() const { return byPath_ ? FilePlace(heldFolder(), filename()) : *this; }

}  // namespace gridwright
