// Plain files: the one way from a name to what lies under it, for texts, pictures and documents alike.
//
// A name is its bytes, whatever language they are in. Who can put a name into the working folder can make
// it a link to a file elsewhere, or a pipe that nobody reads: so nothing is written through a link or into
// anything but a plain file, no open waits, and what was opened is looked at before a byte of it changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "canvas/outcome.h"
#include "files/overwrite.h"

namespace gridwright {

/// An open file or folder, or none; it closes itself.
class OpenFile {
 public:
  OpenFile() = default;
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(other.release()) {}
  OpenFile& operator=(OpenFile&& other) noexcept;
  ~OpenFile() { close(); }

  explicit operator bool() const { return descriptor_ >= 0; }
  [[nodiscard]] int descriptor() const { return descriptor_; }
  /// Leaves the closing to the caller.
  int release();
  void close();

 private:
  int descriptor_ = -1;
};

/// Whether something other than a plain file bears the name: a link, a folder, a pipe, a device. A name
/// that nothing bears is free.
bool isNoPlainFile(const std::filesystem::path& path);

/// The whole of a plain file, also of one that a link leads to. Nothing is waited for.
/// \returns a Fault: notFound where no plain file is, notReadable, or malformed when it has more than
/// `most` bytes.
Outcome<std::string> readPlainFile(const std::filesystem::path& path, std::uintmax_t most = UINTMAX_MAX);

/// How many bytes of a file are wanted, by those that it begins with and by its length; or why none are.
using WantedBytes = std::function<Outcome<std::uint64_t>(std::string_view beginning, std::uint64_t length)>;

/// A plain file as far as it is wanted: no more of it comes into memory.
/// \param beginning as many of its first bytes are shown to `wanted`, or all that there are.
/// \returns the bytes, fewer than wanted where the file has become shorter; or a Fault as above, or that of
/// `wanted`.
Outcome<std::string> readWantedBytes(const std::filesystem::path& path, std::size_t beginning,
                                     const WantedBytes& wanted);

/// Opens a file for new content; it is empty, and made when nothing was there. A file that has another name
/// too keeps its content under that one.
/// \returns a Fault: notPlain when something else bears the name, else notWritable.
Outcome<OpenFile> openForNewContent(const std::filesystem::path& path);

/// The same for a file that grows under a name of its own until it is whole: held for this program, so that
/// no other takes it for a left-over. One that another holds is notWritable.
Outcome<OpenFile> openHeld(const std::filesystem::path& path);

/// Bytes that lie in several places, one after the other as a file will hold them.
using Pieces = std::span<const std::string_view>;

/// Writes the bytes at the end of what was written to an open file. \returns whether all were taken.
bool writeAll(const OpenFile& file, Pieces pieces);
bool writeAll(const OpenFile& file, std::string_view bytes);

/// Writes the bytes over what was there; they may be cut off by a full disk. Faults as above.
Outcome<Done> writePlainFile(const std::filesystem::path& path, std::string_view bytes);

/// What tells the state of a file: another one under its name, or the same one written to since, has another
/// mark. A write within one tick of the file system's clock, some milliseconds, is not told by it.
struct FileMark {
  std::uintmax_t device = 0, number = 0, bytes = 0;
  std::int64_t seconds = 0, nanoseconds = 0;  ///< When its bytes were last changed.
  friend bool operator==(const FileMark&, const FileMark&) = default;
};

/// The mark of the plain file that bears the name; nothing where there is none.
std::optional<FileMark> markOf(const std::filesystem::path& path);

/// Writes the bytes by way of a file beside it that is renamed: the old bytes or the new ones are there,
/// whole, at any moment, and on failure nothing is left behind. Faults as above.
/// \returns the mark of the file with just these bytes, whatever another hand does to it meanwhile.
Outcome<FileMark> replacePlainFile(const std::filesystem::path& path, Pieces pieces,
                                   Overwrite how = Overwrite::atOnce);
Outcome<FileMark> replacePlainFile(const std::filesystem::path& path, std::string_view bytes,
                                   Overwrite how = Overwrite::atOnce);

/// What a file is called until it is whole.
std::filesystem::path buildingName(std::filesystem::path path);

/// The same, with letters in it that nobody can know before: NAME.XXXXXXXX.building. Two programs that write
/// one file meet in its name alone.
std::filesystem::path freshBuildingName(const std::filesystem::path& path);

/// The file name that such a name of either kind leads to; empty when it is none.
std::string targetOfBuilding(std::string_view name);

/// Holds an open file or folder for this program until it is closed, also by the end of a killed program.
/// \returns false when another holds it; true too where the file system knows no locks.
bool hold(const OpenFile& file);

/// Removes a plain file that a killed program left behind, unless somebody holds it: it is being written.
void removeLeftOver(const std::filesystem::path& path);

}  // namespace gridwright
