// A file system of its own, a few kilobytes large, for a child process: the real thing, where the system
// lets one be made.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>

namespace gridwright::test {

enum class OnSmallDisk { passed, failed, notAllowed };

namespace small_disk {

constexpr int kNotAllowed = 77;

inline bool put(const char* file, const std::string& text) {
  const int handle = ::open(file, O_WRONLY);
  const bool done =
      handle >= 0 && ::write(handle, text.data(), text.size()) == static_cast<ssize_t>(text.size());
  if (handle >= 0) ::close(handle);
  return done;
}

/// A name space in which this process may mount, as an ordinary user too where that is allowed.
inline bool enterOwnNameSpace() {
  const auto user = std::to_string(::geteuid());
  const auto group = std::to_string(::getegid());
  if (::geteuid() == 0) return ::unshare(CLONE_NEWNS) == 0;
  return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && put("/proc/self/uid_map", "0 " + user + " 1") &&
         put("/proc/self/setgroups", "deny") && put("/proc/self/gid_map", "0 " + group + " 1");
}

inline bool mountAt(const std::filesystem::path& folder, int kilobytes) {
  const std::string size = "size=" + std::to_string(kilobytes) + "k";
  return enterOwnNameSpace() && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

}  // namespace small_disk

/// Runs the expectations in a child process in which `folder` is a disk of so many kilobytes.
inline OnSmallDisk onSmallDisk(const std::filesystem::path& folder, int kilobytes,
                               const std::function<void()>& expectations) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    if (!small_disk::mountAt(folder, kilobytes)) ::_exit(small_disk::kNotAllowed);
    expectations();
    std::fflush(nullptr);
    ::_exit(::testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return OnSmallDisk::notAllowed;
  if (WIFEXITED(status) && WEXITSTATUS(status) == small_disk::kNotAllowed) return OnSmallDisk::notAllowed;
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? OnSmallDisk::passed : OnSmallDisk::failed;
}

}  // namespace gridwright::test
