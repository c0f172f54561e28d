// Working folders for tests: one of memory that records and can refuse, and one on disk that is gone
// when the test ends.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <system_error>
#include <vector>

#include "files/work_folder.h"

namespace gridwright::test {

/// Texts in memory. Counts what was read and written, and fails when told to.
class MemoryFolder : public WorkFolder {
 public:
  MemoryFolder() : WorkFolder("/no/such/folder") {}

  Outcome<std::string> readText(std::string_view name) const override {
    reads.emplace_back(name);
    const auto found = texts.find(std::string(name));
    if (readsFail || found == texts.end()) return Fault{Fault::Kind::notFound, std::string(name)};
    return found->second;
  }
  Outcome<Done> writeText(std::string_view name, std::string_view text, Overwrite /*how*/) override {
    writes.emplace_back(name);
    if (writesFail) return Fault{Fault::Kind::notWritable, std::string(name)};
    texts[std::string(name)] = text;
    return Done{};
  }

  bool takesFiles() const override { return !writesFail; }

  std::map<std::string, std::string> texts;
  mutable std::vector<std::string> reads;
  std::vector<std::string> writes;
  bool readsFail = false, writesFail = false;
};

/// A folder of its own on disk, removed with all it holds.
class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "gridwright-test-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  void put(const std::string& name, const std::string& bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
  }
  [[nodiscard]] std::string get(const std::string& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace gridwright::test
