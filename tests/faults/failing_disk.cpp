// A disk that gives up, loaded before a program: it counts what the program asks of files, and from the n-th
// on answers as a full disk does, or a read-only one; or a kill comes at just that moment.
//
//   GRIDWRIGHT_FAULT=KIND:N   full      no room from the n-th on; the n-th, if it is a write, takes half
//                             readonly  nothing can be changed from the n-th on
//                             once      the n-th alone fails, as a worn disk does
//                             kill      SIGKILL before the n-th; in the middle of it, if it is a write
//                             vanish    all files of the folder are gone before the n-th
//                             count     nothing fails
//   GRIDWRIGHT_FAULT_FOLDER   the folder whose files vanish
//   GRIDWRIGHT_FAULT_COUNT    a file that gets how many there were, when the program ends
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

enum class Kind { count, full, readonly, once, kill, vanish };
enum class Change { writes, makes, removes };
enum class Answer { yes, half, no };

struct Fault {
  Kind kind = Kind::count;
  long at = 0;
  std::string folder;
};

template <class Function>
Function real(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

Fault told() {
  const char* words = std::getenv("GRIDWRIGHT_FAULT");
  const char* folder = std::getenv("GRIDWRIGHT_FAULT_FOLDER");
  if (words == nullptr) return {};
  const std::string_view all(words);
  const std::string_view name = all.substr(0, all.find(':'));
  Fault fault{Kind::count, 0, folder == nullptr ? "" : folder};
  if (name == "full") fault.kind = Kind::full;
  if (name == "readonly") fault.kind = Kind::readonly;
  if (name == "once") fault.kind = Kind::once;
  if (name == "kill") fault.kind = Kind::kill;
  if (name == "vanish") fault.kind = Kind::vanish;
  if (name.size() < all.size()) fault.at = std::strtol(words + name.size() + 1, nullptr, 10);
  return fault;
}

const Fault& fault() {
  static const Fault known = told();
  return known;
}

std::atomic<long> changes = 0;

void removeAll(const std::string& folder) {
  DIR* entries = ::opendir(folder.c_str());
  if (entries == nullptr) return;
  const auto unlinkThere = real<int (*)(int, const char*, int)>("unlinkat");
  while (const dirent* entry = ::readdir(entries)) unlinkThere(::dirfd(entries), entry->d_name, 0);
  ::closedir(entries);
}

/// What becomes of the next change that the program asks for; `errno` says why where it is none.
Answer next(Change change) {
  const long number = ++changes;
  const Fault& f = fault();
  if (f.kind == Kind::count || number < f.at) return Answer::yes;
  const bool isIt = number == f.at;
  switch (f.kind) {
    case Kind::full:
      if (change == Change::removes) return Answer::yes;  // a full disk takes nothing and gives all
      errno = ENOSPC;
      return isIt && change == Change::writes ? Answer::half : Answer::no;
    case Kind::readonly:
      errno = EROFS;
      return Answer::no;
    case Kind::once:
      errno = EIO;
      return isIt ? Answer::no : Answer::yes;
    case Kind::kill:
      if (change == Change::writes) return Answer::half;
      ::kill(::getpid(), SIGKILL);
      return Answer::no;
    case Kind::vanish:
      if (isIt) removeAll(f.folder);
      return Answer::yes;
    default:
      return Answer::yes;
  }
}

bool isFile(int descriptor) {
  struct stat known {};
  return ::fstat(descriptor, &known) == 0 && S_ISREG(known.st_mode);
}

/// After half of a write: what is left of it, or of the program.
ssize_t afterHalf(ssize_t count) {
  if (fault().kind == Kind::kill) ::kill(::getpid(), SIGKILL);
  return count;
}

/// Counted at the end, by calls that count nothing.
struct AtTheEnd {
  AtTheEnd() = default;
  AtTheEnd(const AtTheEnd&) = delete;
  AtTheEnd& operator=(const AtTheEnd&) = delete;
  ~AtTheEnd() {
    const char* file = std::getenv("GRIDWRIGHT_FAULT_COUNT");
    if (file == nullptr) return;
    const std::string words = std::to_string(changes.load()) + "\n";
    const int open = real<int (*)(const char*, int, ...)>("open")(file, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (open >= 0) real<ssize_t (*)(int, const void*, size_t)>("write")(open, words.data(), words.size());
  }
} atTheEnd;

bool changesByOpening(int flags) {
  return (flags & O_ACCMODE) != O_RDONLY && (flags & (O_CREAT | O_TRUNC)) != 0;
}

template <class Open>
int opened(int flags, const Open& open) {
  const bool asks = changesByOpening(flags) || (flags & O_TMPFILE) == O_TMPFILE;
  return asks && next(Change::makes) != Answer::yes ? -1 : open();
}

template <class Act>
int done(Change change, const Act& act) {
  return next(change) == Answer::yes ? act() : -1;
}

template <class Write>
ssize_t written(int descriptor, size_t size, const Write& write) {
  if (!isFile(descriptor)) return write(size);
  switch (next(Change::writes)) {
    case Answer::yes:
      return write(size);
    case Answer::half:
      return size > 1 ? afterHalf(write(size / 2)) : afterHalf(-1);
    default:
      return -1;
  }
}

mode_t modeOf(int flags, va_list more) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(more, int)) : 0;
}

}  // namespace

// The names and their arguments are the C library's.
extern "C" {

#define GRIDWRIGHT_OPEN(name)                                                                             \
  int name(const char* path, int flags, ...) {                                                            \
    va_list more;                                                                                         \
    va_start(more, flags);                                                                                \
    const mode_t mode = modeOf(flags, more);                                                              \
    va_end(more);                                                                                         \
    return opened(flags, [&] { return real<int (*)(const char*, int, ...)>(#name)(path, flags, mode); }); \
  }
#define GRIDWRIGHT_OPEN_AT(name)                                                                            \
  int name(int at, const char* path, int flags, ...) {                                                      \
    va_list more;                                                                                           \
    va_start(more, flags);                                                                                  \
    const mode_t mode = modeOf(flags, more);                                                                \
    va_end(more);                                                                                           \
    return opened(flags,                                                                                    \
                  [&] { return real<int (*)(int, const char*, int, ...)>(#name)(at, path, flags, mode); }); \
  }
GRIDWRIGHT_OPEN(open)
GRIDWRIGHT_OPEN(open64)
GRIDWRIGHT_OPEN_AT(openat)
GRIDWRIGHT_OPEN_AT(openat64)

ssize_t write(int descriptor, const void* bytes, size_t size) {
  return written(descriptor, size, [&](size_t count) {
    return real<ssize_t (*)(int, const void*, size_t)>("write")(descriptor, bytes, count);
  });
}

ssize_t pwrite(int descriptor, const void* bytes, size_t size, off_t at) {
  return written(descriptor, size, [&](size_t count) {
    return real<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite")(descriptor, bytes, count, at);
  });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t at) {
  return pwrite(descriptor, bytes, size, at);
}

/// Half of it is the first half of its first piece.
ssize_t writev(int descriptor, const iovec* pieces, int count) {
  size_t size = 0;
  for (int i = 0; i < count; ++i) size += pieces[i].iov_len;
  return written(descriptor, size, [&](size_t wanted) {
    if (wanted == size) return real<ssize_t (*)(int, const iovec*, int)>("writev")(descriptor, pieces, count);
    return real<ssize_t (*)(int, const void*, size_t)>("write")(descriptor, pieces[0].iov_base,
                                                                pieces[0].iov_len / 2);
  });
}

int ftruncate(int descriptor, off_t size) noexcept {
  return done(Change::writes, [&] { return real<int (*)(int, off_t)>("ftruncate")(descriptor, size); });
}

int fsync(int descriptor) {
  return done(Change::writes, [&] { return real<int (*)(int)>("fsync")(descriptor); });
}

int rename(const char* from, const char* to) noexcept {
  return done(Change::makes, [&] { return real<int (*)(const char*, const char*)>("rename")(from, to); });
}

int renameat(int at, const char* from, int there, const char* to) noexcept {
  return done(Change::makes, [&] {
    return real<int (*)(int, const char*, int, const char*)>("renameat")(at, from, there, to);
  });
}

int renameat2(int at, const char* from, int there, const char* to, unsigned flags) noexcept {
  return done(Change::makes, [&] {
    return real<int (*)(int, const char*, int, const char*, unsigned)>("renameat2")(at, from, there, to,
                                                                                    flags);
  });
}

int linkat(int at, const char* from, int there, const char* to, int flags) noexcept {
  return done(Change::makes, [&] {
    return real<int (*)(int, const char*, int, const char*, int)>("linkat")(at, from, there, to, flags);
  });
}

int unlink(const char* path) noexcept {
  return done(Change::removes, [&] { return real<int (*)(const char*)>("unlink")(path); });
}

int unlinkat(int at, const char* path, int flags) noexcept {
  return done(Change::removes,
              [&] { return real<int (*)(int, const char*, int)>("unlinkat")(at, path, flags); });
}

int mkdir(const char* path, mode_t mode) noexcept {
  return done(Change::makes, [&] { return real<int (*)(const char*, mode_t)>("mkdir")(path, mode); });
}
}
