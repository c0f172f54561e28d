// What the window remembers between runs, in a file of the person's configuration.
#pragma once

#include <QSettings>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace gridwright {

/// A file that is broken, cannot be read or is no file holds nothing; one that cannot be written keeps what
/// it has. Neither is told: there is nothing in it that a person would miss for long.
class Memory {
 public:
  explicit Memory(const std::filesystem::path& file);

  /// Bytes as they were put there; empty for none.
  [[nodiscard]] std::string value(std::string_view key) const;
  /// Written at once, so that a program that is killed remembers too. Empty forgets.
  void put(std::string_view key, const std::string& value);

 private:
  std::unique_ptr<QSettings> settings_;  // null where there is no plain file to be had
};

/// Where the program's own is: gridwright/gridwright.conf among the person's configuration.
std::filesystem::path memoryFile();

}  // namespace gridwright
