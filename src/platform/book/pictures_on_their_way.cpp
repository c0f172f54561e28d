#include "platform/book/pictures_on_their_way.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "files/plain_file.h"

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kWithin = ".gridwright-pictures-";
constexpr std::size_t kLetters = 8;   // behind it, drawn by the system
constexpr mode_t kForUsAlone = 0700;  // until the pictures have their names

OpenFile openFolderIn(const HeldFolder& folder, const std::string& name) {
  return OpenFile(
      ::openat(folder.descriptor(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// Between its making and its hold another run may have taken it for a left-over.
bool isStillThere(const OpenFile& file) {
  struct stat known {};
  return ::fstat(file.descriptor(), &known) == 0 && known.st_nlink > 0;
}

bool isLeftOver(const std::string& name) {
  return name.starts_with(kWithin) && name.size() == kWithin.size() + kLetters;
}

/// A folder of files, with all that lies in it.
void removeFolder(const HeldFolder& above, const std::string& name, const HeldFolder& folder) {
  for (const std::string& file : folder.names()) removeFile({folder, file});
  removeFile({above, name});
}

void removeLeftOvers(const HeldFolder& folder) {
  for (const std::string& name : folder.names()) {
    if (!isLeftOver(name)) continue;
    const OpenFile left = openFolderIn(folder, name);
    if (left && hold(left)) removeFolder(folder, name, HeldFolder(left, name));
  }
}

/// The file gets a name that is free, or changes places with what bears it. \returns whether it did.
enum class Taken { no, free, exchanged };
Taken takeName(const FilePlace& from, const FilePlace& to, bool mayReplace) {
  if (renameToFree(from, to)) return Taken::free;
  if (!mayReplace || isNoPlainFile(to)) return Taken::no;
  if (::renameat2(from.folder(), from.name(), to.folder(), to.name(), RENAME_EXCHANGE) == 0)
    return Taken::exchanged;
  return renameFile(from, to) ? Taken::free : Taken::no;
}

}  // namespace

PicturesOnTheirWay::~PicturesOnTheirWay() {
  if (within_) removeFolder(folder_, withinName_, within_);
  if (made_ && named_.empty()) ::rmdir(called_.c_str());
}

Fault PicturesOnTheirWay::fault(const std::string& why) const {
  return {Fault::Kind::notWritable, called_.string() + " " + why};
}

Outcome<Done> PicturesOnTheirWay::begin(bool mayReplace,
                                        const std::function<bool(const std::string&)>& isOurs) {
  if (!isThere(called_)) {
    std::error_code failed;
    made_ = fs::create_directory(called_, failed);
    if (!made_) return fault("can't be made");
  }
  folder_ = called_;
  if (!folder_) return fault("is no folder");
  if (::faccessat(folder_.descriptor(), ".", R_OK, 0) != 0) return fault("can't be read");
  removeLeftOvers(folder_);
  for (const std::string& name : folder_.names()) {
    if (!isOurs(name)) continue;
    const std::string path = (called_ / name).string();
    if (isNoPlainFile({folder_, name})) return Fault{Fault::Kind::notPlain, path + " is no plain file"};
    if (!mayReplace)
      return Fault{Fault::Kind::notWritable, path + " is there already; --force writes over it"};
  }
  return beginWithin();
}

Outcome<Done> PicturesOnTheirWay::beginWithin() {
  constexpr int kTries = 100;
  for (int i = 0; i < kTries && !within_; ++i) {
    withinName_ = std::string(kWithin) + freshLetters();
    if (!isLeftOver(withinName_)) break;  // no letters were drawn
    if (::mkdirat(folder_.descriptor(), withinName_.c_str(), kForUsAlone) != 0) {
      if (errno != EEXIST) break;
      continue;
    }
    lock_ = openFolderIn(folder_, withinName_);
    if (lock_ && hold(lock_) && isStillThere(lock_)) within_ = HeldFolder(lock_, called_ / withinName_);
  }
  if (!within_) return fault("takes no files");
  return Done{};
}

Outcome<Done> PicturesOnTheirWay::put(const std::string& name,
                                      const std::function<bool(const TakeBytes&)>& write) const {
  const OpenFile file(::openat(within_.descriptor(), name.c_str(),
                               O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
  const bool written = file && write([&](std::string_view bytes) { return writeAll(file, bytes); });
  if (!written) return fault("takes no more pictures");
  return Done{};
}

Outcome<Done> PicturesOnTheirWay::takeNames(bool mayReplace) {
  if (::syncfs(lock_.descriptor()) != 0 && errno != EINVAL && errno != EROFS && errno != ENOSYS)
    return fault("takes no more pictures");
  std::vector<std::string> names = within_.names();
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    const Taken taken = takeName({within_, name}, {folder_, name}, mayReplace);
    if (taken == Taken::no)
      return Fault{Fault::Kind::notWritable, (called_ / name).string() + " can't be written"};
    named_.push_back({name, taken == Taken::exchanged});
  }
  return Done{};
}

void PicturesOnTheirWay::giveBack() {
  for (const Named& named : named_) {
    const FilePlace place(folder_, named.name);
    if (named.replaced) {
      renameFile({within_, named.name}, place);
    } else {
      removeFile(place);
    }
  }
  named_.clear();
}

}  // namespace gridwright::book
