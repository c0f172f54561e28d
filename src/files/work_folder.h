// The working folder: every file name of the program is resolved here, text and bitmap alike.
//
// A name is its bytes, whatever language they are in. Names are matched without regard to case, since the
// writers and readers of a step file spell it differently and each pair must reach one file: the exact
// spelling, else the one entry that is equal but for case. Only the letters A to Z have a case here, whatever
// language the system speaks.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/outcome.h"
#include "files/file_place.h"
#include "files/overwrite.h"

namespace gridwright {

class WorkFolder {
 public:
  /// Opens the folder, and works in it from then on whatever it is called. Where there is none nothing is
  /// read and nothing can be written.
  explicit WorkFolder(HeldFolder folder) : folder_(std::move(folder)), knownAs_(folder_.path()) {}
  virtual ~WorkFolder() = default;

  /// What it was called when it was opened; it tells this folder from others.
  [[nodiscard]] const std::filesystem::path& path() const { return folder_.path(); }
  /// What it is called now, for a person and for other programs.
  [[nodiscard]] std::filesystem::path presentPath() const { return folder_.presentPath(); }

  /// The place of an entry by its exact name.
  [[nodiscard]] FilePlace at(std::string_view name) const { return {folder_, std::string(name)}; }
  /// Where a name leads: an existing file, or where a new one will be written.
  [[nodiscard]] virtual FilePlace resolve(std::string_view name) const;

  /// The whole text of a plain file, also of one that a link leads to; a Fault too for one of more than
  /// 64 MiB.
  [[nodiscard]] virtual Outcome<std::string> readText(std::string_view name) const;

  /// Writes the whole text by way of a temporary file beside it that is renamed: the old text or the new one
  /// is there, whole, whatever happens. \returns a notPlain Fault, and writes nothing, when something other
  /// than a plain file bears the name; notWritable when the system refuses.
  virtual Outcome<Done> writeText(std::string_view name, std::string_view text,
                                  Overwrite how = Overwrite::unhurried);

  /// Whether a new file can be written here: a trial that leaves nothing behind.
  [[nodiscard]] virtual bool takesFiles() const;

  /// Removes what a killed program left behind of its files that were not whole, unless somebody holds it.
  void removeLeftOvers() const;

  /// To be asked about the fault of each write: a name that no plain file bears is told, once for as long
  /// as the folder lives. \returns whether it was told now.
  bool tellIfNoPlainFile(const Fault& fault);

  /// Has a person told that the folder bears another name now, once for each: what is saved goes there. Where
  /// it has no name any more it takes no files, which is told elsewhere.
  void tellIfMoved();

  /// Tells a person a line, or keeps it until somebody can be told.
  void tell(std::string words);

  /// How a person is told; what there was to tell before is told now. With nothing in it, all waits.
  void tellThrough(std::function<void(std::string_view)> tell);

  /// The names that end in `ending` (".bmp"), without regard to case, sorted likewise.
  [[nodiscard]] virtual std::vector<std::string> list(std::string_view ending) const;

 private:
  HeldFolder folder_;
  std::filesystem::path knownAs_;  // to a person
  std::set<std::string> told_;
  std::vector<std::string> untold_;
  std::function<void(std::string_view)> tell_;
};

/// Whether two names are equal but for the case of their letters.
bool equalButForCase(std::string_view a, std::string_view b);

/// The text with small letters for the capitals A to Z.
std::string inLowerCase(std::string text);

/// Whether a typed name is not empty and leads to no other folder.
bool staysInFolder(std::string_view name);

/// The base name in a panel's box: leading blanks trimmed, all before the first point.
std::string baseName(std::string_view typed);

}  // namespace gridwright
