#include "files/plain_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr int kOwnWay = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
constexpr std::string_view kBuilding = ".building";
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz234567";
constexpr std::size_t kFreshLetters = 8;
constexpr int kMostTries = 8;                    // at a name that others keep taking away
constexpr std::ptrdiff_t kMostPieces = IOV_MAX;  // that the system takes at once

Fault notWritable(const fs::path& path) { return {Fault::Kind::notWritable, path.string()}; }
Fault notPlain(const fs::path& path) { return {Fault::Kind::notPlain, path.string()}; }

/// What is known of an open file; nothing plain when that is nothing.
struct stat about(const OpenFile& file) {
  struct stat known {};
  if (::fstat(file.descriptor(), &known) != 0) known = {};
  return known;
}

/// A whole file takes its name. Where two files change names none is renamed over another, and the file
/// system has nothing to hurry with; the old file is gone before it was ever on the disk.
bool takePlace(const fs::path& building, const fs::path& path, Overwrite how) {
  if (how == Overwrite::unhurried &&
      ::renameat2(AT_FDCWD, building.c_str(), AT_FDCWD, path.c_str(), RENAME_EXCHANGE) == 0) {
    ::unlink(building.c_str());
    return true;
  }
  return ::rename(building.c_str(), path.c_str()) == 0;
}

FileMark markIn(const struct stat& known) {
  return {known.st_dev, known.st_ino, static_cast<std::uintmax_t>(known.st_size), known.st_mtim.tv_sec,
          known.st_mtim.tv_nsec};
}

/// Whether the name leads to this open file, and no other name does.
bool isNamed(const fs::path& path, const OpenFile& file) {
  const struct stat open = about(file);
  struct stat named {};
  return open.st_nlink == 1 && ::lstat(path.c_str(), &named) == 0 && named.st_dev == open.st_dev &&
         named.st_ino == open.st_ino;
}

/// A plain file, also one that a link leads to.
Outcome<OpenFile> openForReading(const fs::path& path) {
  OpenFile file(::open(path.c_str(), O_RDONLY | kOwnWay));
  if (!file) {
    std::error_code failed;
    return Fault{fs::is_regular_file(path, failed) ? Fault::Kind::notReadable : Fault::Kind::notFound,
                 path.string()};
  }
  if (!S_ISREG(about(file).st_mode)) return Fault{Fault::Kind::notFound, path.string()};
  return file;
}

/// Reads on where it stands until there are so many bytes, or no more. \returns false when the system
/// refuses.
bool readUpTo(const OpenFile& file, std::uintmax_t most, std::string& bytes) {
  std::array<char, 65536> block{};
  while (bytes.size() < most) {
    const std::uintmax_t wanted = std::min<std::uintmax_t>(block.size(), most - bytes.size());
    const ssize_t count = ::read(file.descriptor(), block.data(), static_cast<std::size_t>(wanted));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) break;
    bytes.append(block.data(), static_cast<std::size_t>(count));
  }
  return true;
}

/// Opens a plain file as it is; an empty one is made when nothing was there.
Outcome<OpenFile> openAsItIs(const fs::path& path) {
  OpenFile file(::open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | kOwnWay, 0666));
  if (!file) return isNoPlainFile(path) ? notPlain(path) : notWritable(path);
  if (!S_ISREG(about(file).st_mode)) return notPlain(path);
  return file;
}

/// The same; but a file that has another name too is left to that one, and a new one made.
Outcome<OpenFile> openUnshared(const fs::path& path) {
  auto file = openAsItIs(path);
  if (!file || about(file.value()).st_nlink <= 1) return file;
  ::unlink(path.c_str());
  file = openAsItIs(path);
  if (file && about(file.value()).st_nlink > 1) return notWritable(path);
  return file;
}

/// A file that is empty already is left alone: ext4 takes any cut to nothing for a file that is written anew
/// in place, and hurries it to the disk at its close.
Outcome<OpenFile> emptied(Outcome<OpenFile> file, const fs::path& path) {
  if (file && about(file.value()).st_size != 0 && ::ftruncate(file.value().descriptor(), 0) != 0)
    return notWritable(path);
  return file;
}

/// The pieces that hold anything, as the system takes them.
std::vector<iovec> ioVectorsOf(Pieces pieces) {
  std::vector<iovec> vectors;
  vectors.reserve(pieces.size());
  for (const std::string_view piece : pieces) {
    // The system only reads them; its one type is for reading and writing.
    if (!piece.empty()) vectors.push_back({const_cast<char*>(piece.data()), piece.size()});
  }
  return vectors;
}

/// \returns the first vector that is not written yet, cut to what is left of it.
std::vector<iovec>::iterator afterBytes(std::vector<iovec>::iterator next, std::size_t count) {
  while (count > 0 && count >= next->iov_len) count -= (next++)->iov_len;
  if (count > 0) {
    next->iov_base = static_cast<char*>(next->iov_base) + count;
    next->iov_len -= count;
  }
  return next;
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

bool isNoPlainFile(const fs::path& path) {
  struct stat known {};
  return ::lstat(path.c_str(), &known) == 0 && !S_ISREG(known.st_mode);
}

Outcome<std::string> readPlainFile(const fs::path& path, std::uintmax_t most) {
  const auto file = openForReading(path);
  if (!file) return file.fault();
  std::string bytes;
  bytes.reserve(std::min(static_cast<std::uintmax_t>(about(file.value()).st_size), most));
  // One byte more tells that there are more.
  if (!readUpTo(file.value(), most == UINTMAX_MAX ? most : most + 1, bytes))
    return Fault{Fault::Kind::notReadable, path.string()};
  if (bytes.size() > most) return Fault{Fault::Kind::malformed, "too large"};
  return bytes;
}

Outcome<std::string> readWantedBytes(const fs::path& path, std::size_t beginning, const WantedBytes& wanted) {
  const auto file = openForReading(path);
  if (!file) return file.fault();
  const Fault notReadable{Fault::Kind::notReadable, path.string()};
  std::string bytes;
  if (!readUpTo(file.value(), beginning, bytes)) return notReadable;
  const auto count = wanted(bytes, static_cast<std::uint64_t>(about(file.value()).st_size));
  if (!count) return count.fault();
  bytes.reserve(count.value());
  if (!readUpTo(file.value(), count.value(), bytes)) return notReadable;
  return bytes;
}

Outcome<OpenFile> openForNewContent(const fs::path& path) { return emptied(openUnshared(path), path); }

Outcome<OpenFile> openHeld(const fs::path& path) {
  for (int tries = 0; tries < kMostTries; ++tries) {
    auto file = openUnshared(path);
    if (!file) return file;
    if (!hold(file.value())) break;
    // Between the open and the hold it may have been taken for a left-over, or have become whole under its
    // own name.
    if (isNamed(path, file.value())) return emptied(std::move(file), path);
  }
  return notWritable(path);
}

bool writeAll(const OpenFile& file, Pieces pieces) {
  std::vector<iovec> left = ioVectorsOf(pieces);
  for (auto next = left.begin(); next != left.end();) {
    const auto most = std::min<std::ptrdiff_t>(left.end() - next, kMostPieces);
    const ssize_t count = ::writev(file.descriptor(), &*next, static_cast<int>(most));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    next = afterBytes(next, static_cast<std::size_t>(count));
  }
  // Some file systems tell what went wrong only at a close; a second descriptor's leaves the file held.
  const int twin = ::fcntl(file.descriptor(), F_DUPFD_CLOEXEC, 0);
  return twin >= 0 && ::close(twin) == 0;
}

bool writeAll(const OpenFile& file, std::string_view bytes) { return writeAll(file, Pieces(&bytes, 1)); }

Outcome<Done> writePlainFile(const fs::path& path, std::string_view bytes) {
  const auto file = openForNewContent(path);
  if (!file) return file.fault();
  if (!writeAll(file.value(), bytes)) return notWritable(path);
  return Done{};
}

std::optional<FileMark> markOf(const fs::path& path) {
  struct stat known {};
  if (::lstat(path.c_str(), &known) != 0 || !S_ISREG(known.st_mode)) return std::nullopt;
  return markIn(known);
}

Outcome<FileMark> replacePlainFile(const fs::path& path, std::string_view bytes, Overwrite how) {
  return replacePlainFile(path, Pieces(&bytes, 1), how);
}

Outcome<FileMark> replacePlainFile(const fs::path& path, Pieces pieces, Overwrite how) {
  if (isNoPlainFile(path)) return notPlain(path);
  const fs::path building = buildingName(path);
  const auto file = openHeld(building);
  if (!file) return file.fault();
  if (writeAll(file.value(), pieces)) {
    const FileMark mark = markIn(about(file.value()));  // from here on everybody can reach it by its name
    if (takePlace(building, path, how)) return mark;
  }
  ::unlink(building.c_str());
  return notWritable(path);
}

fs::path buildingName(fs::path path) { return path += kBuilding; }

fs::path freshBuildingName(const fs::path& path) {
  std::random_device chance;
  std::string letters;
  for (std::size_t i = 0; i < kFreshLetters; ++i) letters += kLetters[chance() % kLetters.size()];
  return buildingName(path.native() + "." + letters);
}

std::string targetOfBuilding(std::string_view name) {
  if (name.size() <= kBuilding.size() || name.substr(name.size() - kBuilding.size()) != kBuilding) return {};
  name.remove_suffix(kBuilding.size());
  const std::size_t point = name.rfind('.');
  const bool fresh = point != std::string_view::npos && name.size() - point - 1 == kFreshLetters &&
                     name.find_first_not_of(kLetters, point + 1) == std::string_view::npos;
  return std::string(fresh ? name.substr(0, point) : name);
}

bool hold(const OpenFile& file) {
  return ::flock(file.descriptor(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void removeLeftOver(const fs::path& path) {
  if (isNoPlainFile(path)) return;
  const OpenFile file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | kOwnWay));
  if (file && !hold(file)) return;
  ::unlink(path.c_str());
}

}  // namespace gridwright
