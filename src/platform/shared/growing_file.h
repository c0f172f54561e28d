// A file that grows beside its target and takes its name when it is whole.
//
// Qt's writers drop what a full disk does not take and say nothing of it. Here every byte is counted: once
// one is refused, the file is broken for good and never takes the name.
#pragma once

#include <QIODevice>
#include <string>

#include "files/plain_file.h"

namespace gridwright {

/// What becomes of a file that bears the target's name already.
enum class Taking {
  replaces,  ///< It is gone.
  onlyFree,  ///< It stays, and the name is not taken, also when it came a moment ago.
};

/// Bears a name of its own while it grows, NAME.XXXXXXXX.building, that nobody can know before: two programs
/// that write one target meet in its name alone, where the later one wins whole. It is held meanwhile by a
/// lock, which tells it from what a killed program has left behind.
class GrowingFile : public QIODevice {
 public:
  /// Opens a new file beside the target, if that can be done: see `isOpen`. What killed programs left behind
  /// of the same target goes; the target's folder need not be one that a program works in.
  explicit GrowingFile(const FilePlace& target);
  /// Removes the file unless it has taken its name.
  ~GrowingFile() override;

  /// Whether every byte so far was taken; what still waits in memory counts as taken.
  [[nodiscard]] bool isWhole() const { return file_ && !refused_; }

  /// Writes what still waits, through to the disk. Who makes several files asks each, before the first takes
  /// its name. \returns false when a byte was refused.
  [[nodiscard]] bool isOnDisk();

  /// The same, and takes the name. Nothing can be written from then on.
  /// \returns false when a byte was refused or the name cannot be taken; what was there stays as it was.
  [[nodiscard]] bool takeName(const FilePlace& target, Taking how = Taking::replaces);

  [[nodiscard]] bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* /*bytes*/, qint64 /*most*/) override { return -1; }
  qint64 writeData(const char* bytes, qint64 count) override;

 private:
  bool writeThrough();
  void remove();

  FilePlace place_;      // where it lies while it grows
  std::string waiting_;  // a writer of pages writes a few bytes at a time
  OpenFile file_;
  bool refused_ = false;
};

/// Whether a file grows towards this target, in this program or another.
bool isGrowing(const FilePlace& target);

}  // namespace gridwright
