// Plain files: the one way from a name to what lies under it, for texts, pictures and documents alike.
//
// A name is its bytes, whatever language they are in. Who can put a name into the working folder can make
// it a link to a file elsewhere, or a pipe that nobody reads: so nothing is written through a link or into
// anything but a plain file, and no open waits. What is written grows under a name that nobody can know
// before and takes its own when it is whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "canvas/outcome.h"
#include "files/file_mark.h"
#include "files/file_place.h"
#include "files/open_file.h"
#include "files/overwrite.h"

namespace gridwright {

/// Whether something other than a plain file bears the name: a link, a folder, a pipe, a device. A name
/// that nothing bears is free.
bool isNoPlainFile(const FilePlace& place);

/// Whether the name leads to a plain file, also by a link.
bool leadsToFile(const FilePlace& place);

/// The whole of a plain file, also of one that a link leads to. Nothing is waited for.
/// \returns a Fault: notFound where no plain file is, notReadable, or malformed when it has more than
/// `most` bytes.
Outcome<std::string> readPlainFile(const FilePlace& place, std::uintmax_t most = UINTMAX_MAX);

/// How many bytes of a file are wanted, by those that it begins with and by its length; or why none are.
using WantedBytes = std::function<Outcome<std::uint64_t>(std::string_view beginning, std::uint64_t length)>;

/// A plain file as far as it is wanted: no more of it comes into memory.
/// \param beginning as many of its first bytes are shown to `wanted`, or all that there are.
/// \returns the bytes, fewer than wanted where the file has become shorter; or a Fault as above, or that of
/// `wanted`.
Outcome<std::string> readWantedBytes(const FilePlace& place, std::size_t beginning,
                                     const WantedBytes& wanted);

/// Bytes that lie in several places, one after the other as a file will hold them.
using Pieces = std::span<const std::string_view>;

/// Writes the bytes at the end of what was written to an open file. \returns whether all were taken.
bool writeAll(const OpenFile& file, Pieces pieces);
bool writeAll(const OpenFile& file, std::string_view bytes);

/// The mark of the plain file that bears the name; nothing where there is none.
std::optional<FileMark> markOf(const FilePlace& place);

/// When the file that the name leads to was last changed, in the order of time; nothing where there is none.
std::optional<std::pair<std::int64_t, std::int64_t>> changedAt(const FilePlace& place);

/// Whether anything bears the name, also a link that leads nowhere.
bool isThere(const FilePlace& place);

/// Whether both names are of one file.
bool isSameFile(const FilePlace& a, const FilePlace& b);

/// Writes the bytes by way of a file beside it that is renamed: the old bytes or the new ones are there,
/// whole, at any moment, and on failure nothing is left behind. A file that has another name too keeps its
/// bytes under that one.
/// \returns the mark of the file with just these bytes, whatever another hand does to it meanwhile; else a
/// Fault: notPlain when something other than a plain file bears the name, or notWritable.
Outcome<FileMark> replacePlainFile(const FilePlace& place, Pieces pieces, Overwrite how = Overwrite::atOnce);
Outcome<FileMark> replacePlainFile(const FilePlace& place, std::string_view bytes,
                                   Overwrite how = Overwrite::atOnce);

/// Another name for a file, or another place; what lies there gives way. \returns whether it was done.
bool renameFile(const FilePlace& from, const FilePlace& to);

/// The same where nothing bears the other name; what came there a moment ago stays. \returns whether it was
/// done.
bool renameToFree(const FilePlace& from, const FilePlace& to);

/// Removes a name, of whatever but a folder that holds anything. \returns whether nothing bears it any more.
bool removeFile(const FilePlace& place);

/// Letters and figures that the system draws, so that nobody knows them before; none where it draws none.
std::string freshLetters();

/// What a file is called while it is not whole, as long as its name may be known.
FilePlace buildingName(const FilePlace& place);

/// The same, with letters in it that nobody can know before: NAME.XXXXXXXX.building. Two programs that write
/// one file meet in its name alone. Nothing where the system draws none.
std::optional<FilePlace> freshBuildingName(const FilePlace& place);

/// A new file beside another that will take its name.
struct BuildingFile {
  OpenFile file;    ///< Held, open for reading and writing; none where none could be made.
  FilePlace place;  ///< Where it lies meanwhile.
};

/// Makes a file under a fresh building name; none that was there is ever opened. It is held for this program,
/// so that no other takes it for a left-over.
/// \param rights of the file, as far as the system's mask leaves them.
BuildingFile makeBuildingFile(const FilePlace& target, unsigned rights = 0666);

/// The file name that such a name of either kind leads to; empty when it is none.
std::string targetOfBuilding(std::string_view name);

/// The files that grow towards a target, in this program or another, and those that a killed program left
/// behind of it.
std::vector<FilePlace> growingTowards(const FilePlace& target);

/// Removes what killed programs left behind of a file's building names, unless somebody holds it. To be
/// called where the folder is none that a program works in.
void removeLeftOversOf(const FilePlace& target);

/// Holds an open file or folder for this program until it is closed, also by the end of a killed program.
/// \returns false when another holds it; true too where the file system knows no locks.
bool hold(const OpenFile& file);

/// Removes a plain file that a killed program left behind, unless somebody holds it: it is being written.
void removeLeftOver(const FilePlace& place);

}  // namespace gridwright
