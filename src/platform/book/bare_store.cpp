#include "platform/book/bare_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

/// A file without a name. Not all file systems know that: there it gets one, and loses it at once.
OpenFile nameless(const HeldFolder& folder) {
  OpenFile file(::openat(folder.descriptor(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
  if (file) return file;
  BuildingFile named = makeBuildingFile({folder, ".gridwright-book"}, 0600);
  if (named.file) removeFile(named.place);
  return std::move(named.file);
}

}  // namespace

BareStore::BareStore(const fs::path& folder) : file_(nameless(folder.empty() ? fs::path(".") : folder)) {}

Outcome<Done> BareStore::put(int number, const BarePage& page) {
  const std::uint64_t mazeBytes = page.maze.bytes.size();
  const std::uint64_t answerBytes = page.answer ? page.answer->bytes.size() : 0;
  std::uint64_t at = 0;
  {
    const std::lock_guard mine(turn_);
    at = std::exchange(end_, end_ + mazeBytes + answerBytes);
  }
  // Each has its own place in the file, so that nobody waits for another's bytes.
  const bool taken =
      file_ && write(page.maze.bytes, at) && (!page.answer || write(page.answer->bytes, at + mazeBytes));
  if (!taken) return Fault{Fault::Kind::notWritable, "the disk takes no more pages"};
  StoredPage stored{
      {page.maze.dictionary, at, mazeBytes, page.maze.isImage}, {}, page.isAnswerOverMaze, page.notVector};
  if (page.answer) {
    stored.answer = StoredDrawing{page.answer->dictionary, at + mazeBytes, answerBytes, page.answer->isImage};
  }
  const std::lock_guard mine(turn_);
  pages_.insert_or_assign(number, std::move(stored));
  return Done{};
}

bool BareStore::write(const std::string& bytes, std::uint64_t at) const {
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count =
        ::pwrite(file_.descriptor(), bytes.data() + done, bytes.size() - done, static_cast<off_t>(at + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    done += static_cast<std::size_t>(count);
  }
  return true;
}

std::optional<std::string> BareStore::bytesOf(const StoredDrawing& drawing) const {
  std::string bytes(drawing.length, '\0');
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = ::pread(file_.descriptor(), bytes.data() + done, bytes.size() - done,
                                  static_cast<off_t>(drawing.at + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return std::nullopt;
    done += static_cast<std::size_t>(count);
  }
  return bytes;
}

}  // namespace gridwright::book
