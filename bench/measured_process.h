// The program without a window as a process of its own, on a picture that is all ground but for its frame.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/shared/image_files.h"
#include "spent.h"

namespace gridwright::bench {

inline constexpr int kProcessWidth = 800, kProcessHeight = 600, kProcessWall = 10;

/// The first lines of each script: the picture is imported.
inline constexpr const char* kImport =
    "seed 7\nclick Command2\nmenu importdrawing\ntype Text8 \"full\"\nenter Text8\n";

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
    std::vector<std::string> words = {"--work", path_.string()};
    words.insert(words.end(), options.begin(), options.end());
    words.push_back(file.string());
    return spentBy(GRIDWRIGHT_HEADLESS, std::move(words));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace gridwright::bench
