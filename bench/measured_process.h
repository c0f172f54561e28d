// The program without a window as a process of its own, on a picture that is all ground but for its frame.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/shared/image_files.h"

namespace gridwright::bench {

inline constexpr int kProcessWidth = 800, kProcessHeight = 600, kProcessWall = 10;

inline double millisecondsSince(std::chrono::steady_clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// The first lines of each script: the picture is imported.
inline constexpr const char* kImport =
    "seed 7\nclick Command2\nmenu importdrawing\ntype Text8 \"full\"\nenter Text8\n";

/// The processor's time alone: what other programs take meanwhile does not count.
inline double millisecondsIn(const rusage& used) {
  const auto milliseconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}

/// The processor's time of this process so far.
inline double millisecondsSoFar() {
  rusage used{};
  ::getrusage(RUSAGE_SELF, &used);
  return millisecondsIn(used);
}

/// By the clock and by the processor.
struct Spent {
  double milliseconds = 0, processor = 0, megabytes = 0;
  bool succeeded = false;
};

/// A folder that holds the picture, full.bmp, and goes with this.
class ProcessFolder {
 public:
  explicit ProcessFolder(const std::string& name) : path_(std::filesystem::temp_directory_path() / name) {
    std::filesystem::create_directories(path_);
    Bitmap picture = plainBitmap(kProcessWidth, kProcessHeight, kPalette[14]);
    for (int y = 4; y < kProcessHeight - 4; ++y) {
      for (int x = 4; x < kProcessWidth - 4; ++x)
        picture.pixels[static_cast<std::size_t>(y) * kProcessWidth + static_cast<std::size_t>(x)] =
            kPalette[1];
    }
    if (!writeBitmapFile(picture, path_ / "full.bmp")) std::abort();
  }
  ~ProcessFolder() { std::filesystem::remove_all(path_); }
  ProcessFolder(const ProcessFolder&) = delete;
  ProcessFolder& operator=(const ProcessFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Runs the program here on a script that begins with the import. \returns what the whole process took.
  [[nodiscard]] Spent run(const std::string& script, const std::vector<std::string>& options = {}) const {
    const std::filesystem::path file = path_ / "script.txt";
    std::ofstream(file) << kImport << script;
    std::vector<std::string> words = {GRIDWRIGHT_HEADLESS, "--work", path_.string()};
    words.insert(words.end(), options.begin(), options.end());
    words.push_back(file.string());
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
      ::execv(GRIDWRIGHT_HEADLESS, arguments.data());
      ::_exit(127);
    }
    int status = 0;
    rusage used{};
    const bool ended = ::wait4(child, &status, 0, &used) == child && WIFEXITED(status);
    return {millisecondsSince(begin), millisecondsIn(used), static_cast<double>(used.ru_maxrss) / 1024,
            ended && WEXITSTATUS(status) == 0};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace gridwright::bench
