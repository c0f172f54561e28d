// The working folder: every file name of the program is resolved here, text and bitmap alike.
//
// Names are matched without regard to case, since the writers and readers of a step file spell it
// differently and each pair must reach one file: the exact spelling, else the one entry that is equal
// but for case.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/outcome.h"

namespace gridwright {

class WorkFolder {
 public:
  explicit WorkFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}
  virtual ~WorkFolder() = default;

  [[nodiscard]] const std::filesystem::path& path() const { return folder_; }

  /// Where a name leads: an existing file, or where a new one will be written.
  [[nodiscard]] std::filesystem::path resolve(std::string_view name) const;

  /// The whole text of a file.
  [[nodiscard]] virtual Outcome<std::string> readText(std::string_view name) const;

  /// Writes the whole text, over what was there.
  virtual Outcome<Done> writeText(std::string_view name, std::string_view text);

  /// The same by way of a temporary file beside it that is renamed: the old text or the new one is
  /// there, whole, whatever happens.
  Outcome<Done> replaceText(std::string_view name, std::string_view text);

  /// The names that end in `ending` (".bmp"), without regard to case, sorted likewise.
  [[nodiscard]] std::vector<std::string> list(std::string_view ending) const;

 private:
  std::filesystem::path folder_;
};

/// Whether two names are equal but for the case of their letters.
bool equalButForCase(std::string_view a, std::string_view b);

/// Whether a typed name is not empty and leads to no other folder.
bool staysInFolder(std::string_view name);

/// The base name in a panel's box: leading blanks trimmed, all before the first point.
std::string baseName(std::string_view typed);

}  // namespace gridwright
