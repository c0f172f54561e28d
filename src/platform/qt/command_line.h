// What the window is started with, understood before Qt is asked for anything: help, the version and wrong
// use are answered without a screen.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace gridwright {

struct CommandLine {
  std::optional<std::filesystem::path> file;        ///< A picture or a drawing to begin with.
  std::optional<std::filesystem::path> workFolder;  ///< Where it works instead of where it was started.
  std::vector<char*> forQt;                         ///< The program's name and Qt's own options.
  bool wantsHelp = false, wantsVersion = false;
  std::string complaint;  ///< One line; empty when all was understood, else nothing else counts.
};

/// \param words the program's name first; they stand for as long as what is returned.
CommandLine readCommandLine(const std::vector<char*>& words);

inline constexpr const char* kUsage =
    "usage: gridwright [--work DIR] [FILE]\n"
    "       FILE is a picture or a drawing (NAME.maze) to begin with; Qt's own options are understood too";

}  // namespace gridwright
