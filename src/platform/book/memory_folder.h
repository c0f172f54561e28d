// A working folder that lies in memory: texts by their names, and nothing of it on any disk.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/work_folder.h"

namespace gridwright::book {

/// Below a device no file can lie: whoever asks the system for a path of this folder finds nothing, and can
/// make nothing.
inline constexpr const char* kNowhere = "/dev/null/book";

class MemoryFolder : public WorkFolder {
 public:
  MemoryFolder() : WorkFolder(kNowhere) {}

  void put(std::string_view name, std::string text) {
    texts_[inLowerCase(std::string(name))] = std::move(text);
  }

  [[nodiscard]] FilePlace resolve(std::string_view name) const override { return at(name); }
  [[nodiscard]] Outcome<std::string> readText(std::string_view name) const override {
    const auto found = texts_.find(inLowerCase(std::string(name)));
    if (found == texts_.end()) return Fault{Fault::Kind::notFound, std::string(name)};
    return found->second;
  }
  Outcome<Done> writeText(std::string_view name, std::string_view text, Overwrite /*how*/) override {
    put(name, std::string(text));
    return Done{};
  }
  [[nodiscard]] bool takesFiles() const override { return true; }
  [[nodiscard]] std::vector<std::string> list(std::string_view ending) const override {
    std::vector<std::string> names;
    for (const auto& [name, text] : texts_) {
      if (std::string_view(name).ends_with(ending)) names.push_back(name);
    }
    return names;
  }

 private:
  std::map<std::string, std::string> texts_;  // by their names in small letters
};

}  // namespace gridwright::book
