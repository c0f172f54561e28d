// What a name can stand for that is no plain file, as somebody else may have put it there.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>

namespace gridwright::test {

enum class NoPlainFile { link, linkToNothing, pipe, folder };
inline constexpr std::array kNoPlainFiles = {NoPlainFile::link, NoPlainFile::linkToNothing, NoPlainFile::pipe,
                                             NoPlainFile::folder};

inline const char* nameOf(NoPlainFile kind) {
  constexpr std::array kNames = {"a link", "a link that leads nowhere", "a pipe", "a folder"};
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
  }
}

}  // namespace gridwright::test
