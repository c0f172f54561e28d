#include "files/plain_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <utility>
#include <vector>

namespace gridwright {

namespace {

constexpr int kOwnWay = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
constexpr std::string_view kBuilding = ".building";
constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz234567";
constexpr std::size_t kFreshLetters = 8;
constexpr std::uintmax_t kMostTrusted = 1 << 24;  // bytes that memory is made ready for unseen
constexpr int kMostTries = 100;  // at a name that is not taken; the first nearly always is none
constexpr std::ptrdiff_t kMostPieces = IOV_MAX;  // that the system takes at once

Fault notWritable(const FilePlace& place) { return {Fault::Kind::notWritable, place.path().string()}; }
Fault notPlain(const FilePlace& place) { return {Fault::Kind::notPlain, place.path().string()}; }

/// What is known of an open file; nothing plain when that is nothing.
struct stat about(const OpenFile& file) {
  struct stat known {};
  if (::fstat(file.descriptor(), &known) != 0) known = {};
  return known;
}

/// What is known of the name itself, or of what it leads to; nothing where that is nothing.
std::optional<struct stat> named(const FilePlace& place, int flags = AT_SYMLINK_NOFOLLOW) {
  struct stat known {};
  if (::fstatat(place.folder(), place.name(), &known, flags) != 0) return std::nullopt;
  return known;
}

/// A whole file takes its name. Where two files change names none is renamed over another, and the file
/// system has nothing to hurry with; the old file is gone before it was ever on the disk.
bool takePlace(const FilePlace& building, const FilePlace& place, Overwrite how) {
  if (how == Overwrite::unhurried &&
      ::renameat2(building.folder(), building.name(), place.folder(), place.name(), RENAME_EXCHANGE) == 0) {
    removeFile(building);
    return true;
  }
  return renameFile(building, place);
}

FileMark markIn(const struct stat& known) {
  return {known.st_dev, known.st_ino, static_cast<std::uintmax_t>(known.st_size), known.st_mtim.tv_sec,
          known.st_mtim.tv_nsec};
}

/// Whether the open file still has its one name: between its making and its hold another program may have
/// taken it for a left-over.
bool hasName(const OpenFile& file) { return about(file).st_nlink > 0; }

/// A plain file, also one that a link leads to.
Outcome<OpenFile> openForReading(const FilePlace& place) {
  OpenFile file(::openat(place.folder(), place.name(), O_RDONLY | kOwnWay));
  if (!file) {
    return Fault{leadsToFile(place) ? Fault::Kind::notReadable : Fault::Kind::notFound,
                 place.path().string()};
  }
  if (!S_ISREG(about(file).st_mode)) return Fault{Fault::Kind::notFound, place.path().string()};
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

bool isNoPlainFile(const FilePlace& place) {
  const auto known = named(place);
  return known && !S_ISREG(known->st_mode);
}

bool leadsToFile(const FilePlace& place) {
  const auto known = named(place, 0);
  return known && S_ISREG(known->st_mode);
}

bool isThere(const FilePlace& place) { return named(place).has_value(); }

bool isSameFile(const FilePlace& a, const FilePlace& b) {
  const auto first = named(a);
  const auto second = named(b);
  return first && second && first->st_dev == second->st_dev && first->st_ino == second->st_ino;
}

std::optional<std::pair<std::int64_t, std::int64_t>> changedAt(const FilePlace& place) {
  const auto known = named(place, 0);
  if (!known) return std::nullopt;
  return std::pair<std::int64_t, std::int64_t>(known->st_mtim.tv_sec, known->st_mtim.tv_nsec);
}

bool renameFile(const FilePlace& from, const FilePlace& to) {
  return ::renameat(from.folder(), from.name(), to.folder(), to.name()) == 0;
}

bool renameToFree(const FilePlace& from, const FilePlace& to) {
  if (::renameat2(from.folder(), from.name(), to.folder(), to.name(), RENAME_NOREPLACE) == 0) return true;
  // Where the file system knows no such thing a second name does the same.
  return errno == EINVAL && ::linkat(from.folder(), from.name(), to.folder(), to.name(), 0) == 0 &&
         removeFile(from);
}

bool removeFile(const FilePlace& place) {
  return ::unlinkat(place.folder(), place.name(), 0) == 0 || errno == ENOENT ||
         ::unlinkat(place.folder(), place.name(), AT_REMOVEDIR) == 0;
}

Outcome<std::string> readPlainFile(const FilePlace& place, std::uintmax_t most) {
  const auto file = openForReading(place);
  if (!file) return file.fault();
  std::string bytes;
  // A file says that it is as long as it likes, and need not have a byte.
  bytes.reserve(std::min({static_cast<std::uintmax_t>(about(file.value()).st_size), most, kMostTrusted}));
  // One byte more tells that there are more.
  if (!readUpTo(file.value(), most == UINTMAX_MAX ? most : most + 1, bytes))
    return Fault{Fault::Kind::notReadable, place.path().string()};
  if (bytes.size() > most) return Fault{Fault::Kind::malformed, "too large"};
  return bytes;
}

Outcome<std::string> readWantedBytes(const FilePlace& place, std::size_t beginning,
                                     const WantedBytes& wanted) {
  const auto file = openForReading(place);
  if (!file) return file.fault();
  const Fault notReadable{Fault::Kind::notReadable, place.path().string()};
  std::string bytes;
  if (!readUpTo(file.value(), beginning, bytes)) return notReadable;
  const auto count = wanted(bytes, static_cast<std::uint64_t>(about(file.value()).st_size));
  if (!count) return count.fault();
  bytes.reserve(count.value());
  if (!readUpTo(file.value(), count.value(), bytes)) return notReadable;
  return bytes;
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

std::optional<FileMark> markOf(const FilePlace& place) {
  const auto known = named(place);
  if (!known || !S_ISREG(known->st_mode)) return std::nullopt;
  return markIn(*known);
}

Outcome<FileMark> replacePlainFile(const FilePlace& place, std::string_view bytes, Overwrite how) {
  return replacePlainFile(place, Pieces(&bytes, 1), how);
}

Outcome<FileMark> replacePlainFile(const FilePlace& place, Pieces pieces, Overwrite how) {
  const FilePlace target = place.held();  // all of it in one folder, wherever its path leads meanwhile
  if (isNoPlainFile(target)) return notPlain(place);
  const BuildingFile building = makeBuildingFile(target);
  if (!building.file) return notWritable(place);
  if (writeAll(building.file, pieces)) {
    const FileMark mark = markIn(about(building.file));  // from here on everybody can reach it by its name
    if (takePlace(building.place, target, how)) return mark;
  }
  removeFile(building.place);
  return notWritable(place);
}

std::string freshLetters() {
  std::array<unsigned char, kFreshLetters> drawn{};
  if (::getrandom(drawn.data(), drawn.size(), 0) != static_cast<ssize_t>(drawn.size())) return {};
  std::string letters(kFreshLetters, 'a');
  std::transform(drawn.begin(), drawn.end(), letters.begin(),
                 [](unsigned char byte) { return kLetters[byte % kLetters.size()]; });
  return letters;
}

FilePlace buildingName(const FilePlace& place) { return place.with(kBuilding); }

std::optional<FilePlace> freshBuildingName(const FilePlace& place) {
  const std::string letters = freshLetters();
  if (letters.empty()) return std::nullopt;
  return buildingName(place.with("." + letters));
}

BuildingFile makeBuildingFile(const FilePlace& target, unsigned rights) {
  for (int tries = 0; tries < kMostTries; ++tries) {
    const auto place = freshBuildingName(target);
    if (!place) break;
    OpenFile file(
        ::openat(place->folder(), place->name(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights));
    if (!file && errno != EEXIST) break;
    if (file && hold(file) && hasName(file)) return {std::move(file), *place};
  }
  return {OpenFile(), target};
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

void removeLeftOver(const FilePlace& place) {
  if (isNoPlainFile(place)) return;
  const OpenFile file(::openat(place.folder(), place.name(), O_RDONLY | O_NOFOLLOW | kOwnWay));
  if (!file || !hold(file)) return;  // what cannot be opened may be held too
  removeFile(place);
}

void removeLeftOversOf(const FilePlace& target) {
  for (const FilePlace& place : growingTowards(target)) removeLeftOver(place);
}

std::vector<FilePlace> growingTowards(const FilePlace& target) {
  const HeldFolder folder = target.heldFolder();
  const std::string wanted = target.filename();
  std::vector<FilePlace> places;
  for (const std::string& name : folder.names()) {
    if (targetOfBuilding(name) == wanted) places.emplace_back(folder, name);
  }
  return places;
}

}  // namespace gridwright
