// What a name can stand for that is no plain file, as somebody else may have put it there.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <array>
#include <filesystem>

namespace gridwright::test {

enum class NoPlainFile { link, linkToNothing, pipe, folder, device };
inline constexpr std::array kNoPlainFiles = {NoPlainFile::link, NoPlainFile::linkToNothing, NoPlainFile::pipe,
                                             NoPlainFile::folder, NoPlainFile::device};

inline const char* nameOf(NoPlainFile kind) {
  constexpr std::array kNames = {"a link", "a link that leads nowhere", "a pipe", "a folder", "a device"};
  return kNames.at(static_cast<std::size_t>(kind));
}

/// \param elsewhere the file that a link leads to; one that leads nowhere names "made" beside it.
inline void put(NoPlainFile kind, const std::filesystem::path& path, const std::filesystem::path& elsewhere) {
  switch (kind) {
    case NoPlainFile::link:
      std::filesystem::create_symlink(elsewhere, path);
      break;
    case NoPlainFile::linkToNothing:
      std::filesystem::create_symlink(elsewhere.parent_path() / "made", path);
      break;
    case NoPlainFile::pipe:
      ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0);
      break;
    case NoPlainFile::folder:
      std::filesystem::create_directory(path);
      break;
    case NoPlainFile::device:
      // One of the test's own: the machine's is not to be risked. Who may make none makes a socket.
      if (::mknod(path.c_str(), S_IFCHR | 0666, ::makedev(1, 7)) != 0) {
        ASSERT_EQ(::mknod(path.c_str(), S_IFSOCK | 0666, 0), 0);
      }
      break;
  }
}

}  // namespace gridwright::test
