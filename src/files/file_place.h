// Where a file lies: a name in a folder that is held open, or a path.
//
// Who may rename a folder, or put a link in its place, could lead a program elsewhere that goes by the
// folder's path: between a look and a write, or between two files that belong together. So a folder that the
// program works in is opened once, and its files are reached from there. It stays the same folder whatever it
// is called.
#pragma once

#include <concepts>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/open_file.h"

namespace gridwright {

/// A folder that is held open; copies hold the same. One that could not be opened holds nothing, and nothing
/// is reached in it.
class HeldFolder {
 public:
  HeldFolder() = default;
  template <std::convertible_to<std::filesystem::path> Path>
  HeldFolder(const Path& folder) : HeldFolder(std::filesystem::path(folder), ByPath{}) {}
  /// The folder that is open already, called `folder`; nothing where none is open.
  HeldFolder(const OpenFile& open, std::filesystem::path folder);

  explicit operator bool() const { return open_ != nullptr && *open_; }
  /// For the system's calls that begin at a folder; none of them reaches anything from a folder that is none.
  [[nodiscard]] int descriptor() const { return open_ == nullptr ? -1 : open_->descriptor(); }

  /// What it was called when it was opened. It stays, and so tells it from another.
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  /// What it is called now, for a person and for other programs; what it was called, where it has no name.
  [[nodiscard]] std::filesystem::path presentPath() const;

  /// Whether this path leads to it.
  [[nodiscard]] bool isCalled(const std::filesystem::path& path) const;

  /// The names of all that lies in it, in no order.
  [[nodiscard]] std::vector<std::string> names() const;

 private:
  struct ByPath {};
  HeldFolder(const std::filesystem::path& folder, ByPath);

  std::shared_ptr<const OpenFile> open_;
  std::filesystem::path path_;
};

class FilePlace {
 public:
  /// The place that the path leads to, each time anew.
  template <std::convertible_to<std::filesystem::path> Path>
  FilePlace(const Path& path) : FilePlace(std::filesystem::path(path), ByPath{}) {}
  FilePlace(HeldFolder folder, std::string name);

  /// For the system's calls that begin at a folder: this one, and this name.
  [[nodiscard]] int folder() const;
  [[nodiscard]] const char* name() const { return name_.c_str(); }

  /// The file's own name, without any folder.
  [[nodiscard]] std::string filename() const { return std::filesystem::path(name_).filename().string(); }
  /// Its path at present, for a person and for other programs.
  [[nodiscard]] std::filesystem::path path() const;

  /// The place beside it whose name has these letters behind it.
  [[nodiscard]] FilePlace with(std::string_view ending) const;
  /// The same place in a folder that is held from now on.
  [[nodiscard]] FilePlace held() const;
  /// The folder that it lies in; a path's is opened for it.
  [[nodiscard]] HeldFolder heldFolder() const;

 private:
  struct ByPath {};
  FilePlace(const std::filesystem::path& path, ByPath);

  HeldFolder folder_;
  bool byPath_;
  std::string name_;
};

}  // namespace gridwright
