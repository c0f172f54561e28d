#include "platform/book/pictures_on_their_way.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kWithin = ".gridwright-pictures-";
constexpr std::size_t kLetters = 6;  // behind it, by chance

OpenFile openFolder(const fs::path& path) {
  return OpenFile(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// Between its making and its hold another run may have taken it for a left-over.
bool isThere(const OpenFile& file) {
  struct stat known {};
  return ::fstat(file.descriptor(), &known) == 0 && known.st_nlink > 0;
}

bool isLeftOver(const std::string& name) {
  return name.starts_with(kWithin) && name.size() == kWithin.size() + kLetters;
}

bool bearsName(const fs::path& path) {
  std::error_code failed;
  return fs::exists(fs::symlink_status(path, failed));
}

void removeLeftOvers(const fs::path& folder) {
  std::vector<fs::path> left;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed)) {
    if (isLeftOver(entry->path().filename().string())) left.push_back(entry->path());
  }
  for (const fs::path& path : left) {
    const OpenFile file = openFolder(path);
    if (file && hold(file)) fs::remove_all(path, failed);
  }
}

/// The file gets a name that is free, or changes places with what bears it. \returns whether it did.
enum class Taken { no, free, exchanged };
Taken takeName(const fs::path& from, const fs::path& to, bool mayReplace) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return Taken::free;
  // Where the file system knows no such thing a second name does the same.
  if (errno == EINVAL && ::link(from.c_str(), to.c_str()) == 0 && ::unlink(from.c_str()) == 0)
    return Taken::free;
  if (!mayReplace || isNoPlainFile(to)) return Taken::no;
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_EXCHANGE) == 0)
    return Taken::exchanged;
  return ::rename(from.c_str(), to.c_str()) == 0 ? Taken::free : Taken::no;
}

}  // namespace

PicturesOnTheirWay::~PicturesOnTheirWay() {
  std::error_code ignored;
  if (!within_.empty()) fs::remove_all(within_, ignored);
  if (made_ && named_.empty()) fs::remove(folder_, ignored);
}

Fault PicturesOnTheirWay::fault(const std::string& why) const {
  return {Fault::Kind::notWritable, folder_.string() + " " + why};
}

Outcome<Done> PicturesOnTheirWay::begin(bool mayReplace,
                                        const std::function<bool(const std::string&)>& isOurs) {
  std::error_code failed;
  if (!bearsName(folder_)) {
    made_ = fs::create_directory(folder_, failed);
    if (!made_) return fault("can't be made");
  }
  if (!fs::is_directory(folder_, failed)) return fault("is no folder");
  removeLeftOvers(folder_);
  for (fs::directory_iterator entry(folder_, failed), end; !failed && entry != end; entry.increment(failed)) {
    const fs::path& path = entry->path();
    if (!isOurs(path.filename().string())) continue;
    if (isNoPlainFile(path)) return Fault{Fault::Kind::notPlain, path.string() + " is no plain file"};
    if (!mayReplace)
      return Fault{Fault::Kind::notWritable, path.string() + " is there already; --force writes over it"};
  }
  if (failed) return fault("can't be read");
  return beginWithin();
}

Outcome<Done> PicturesOnTheirWay::beginWithin() {
  constexpr int kTries = 100;
  for (int i = 0; i < kTries && !held_; ++i) {
    std::string name = (folder_ / kWithin).string() + std::string(kLetters, 'X');
    if (::mkdtemp(name.data()) == nullptr) return fault("takes no files");
    within_ = name;
    held_ = openFolder(within_);
    if (held_ && !(hold(held_) && isThere(held_))) held_.close();
  }
  if (!held_) return fault("takes no files");
  return Done{};
}

Outcome<Done> PicturesOnTheirWay::put(const std::string& name,
                                      const std::function<bool(const TakeBytes&)>& write) const {
  const OpenFile file(
      ::open((within_ / name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
  const bool written = file && write([&](std::string_view bytes) { return writeAll(file, bytes); });
  if (!written) return fault("takes no more pictures");
  return Done{};
}

Outcome<Done> PicturesOnTheirWay::takeNames(bool mayReplace) {
  if (::syncfs(held_.descriptor()) != 0 && errno != EINVAL && errno != EROFS && errno != ENOSYS)
    return fault("takes no more pictures");
  std::vector<std::string> names;
  std::error_code failed;
  for (fs::directory_iterator entry(within_, failed), end; !failed && entry != end; entry.increment(failed))
    names.push_back(entry->path().filename().string());
  if (failed) return fault("can't be read");
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    const Taken taken = takeName(within_ / name, folder_ / name, mayReplace);
    if (taken == Taken::no)
      return Fault{Fault::Kind::notWritable, (folder_ / name).string() + " can't be written"};
    named_.push_back({name, taken == Taken::exchanged});
  }
  return Done{};
}

void PicturesOnTheirWay::giveBack() {
  std::error_code ignored;
  for (const Named& named : named_) {
    if (named.replaced) {
      fs::rename(within_ / named.name, folder_ / named.name, ignored);
    } else {
      fs::remove(folder_ / named.name, ignored);
    }
  }
  named_.clear();
}

}  // namespace gridwright::book
