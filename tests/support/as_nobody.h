// A person who may read a folder and not write it, whoever runs the tests: root is asked for no permission.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <utility>

namespace gridwright::test {

/// While one lives, this program has no more rights than an ordinary person, who owns the folder and may not
/// write it.
class ReadOnly {
 public:
  explicit ReadOnly(std::filesystem::path folder) : folder_(std::move(folder)), root_(geteuid() == 0) {
    if (root_) giveAway(folder_);
    if ((root_ && seteuid(kNobody) != 0) || chmod(folder_.c_str(), 0555) != 0) std::abort();
  }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;
  ~ReadOnly() {
    if (chmod(folder_.c_str(), 0755) != 0 || (root_ && seteuid(0) != 0)) std::abort();
  }

  /// Makes the person the owner of a folder, where this program is somebody else.
  static void giveAway(const std::filesystem::path& folder) {
    if (geteuid() == 0 && chown(folder.c_str(), kNobody, kNobody) != 0) std::abort();
  }

 private:
  static constexpr uid_t kNobody = 65534;
  std::filesystem::path folder_;
  bool root_;
};

}  // namespace gridwright::test
