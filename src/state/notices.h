// What the program tells in passing, without holding anybody up: the tenant shows the last notice for a
// while, the script reads it however old it is.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

namespace gridwright {

class Notices {
 public:
  /// Replaces the notice before, also when the words are the same: they were said again.
  /// \param opens a file that a click on the notice opens; empty for none.
  void tell(std::string words, std::filesystem::path opens = {}) {
    words_ = std::move(words);
    opens_ = std::move(opens);
    ++revision_;
  }

  [[nodiscard]] const std::string& words() const { return words_; }
  [[nodiscard]] const std::filesystem::path& opens() const { return opens_; }
  /// Grows with each notice, so that a tenant shows it anew; 0 before the first.
  [[nodiscard]] std::uint64_t revision() const { return revision_; }

 private:
  std::string words_;
  std::filesystem::path opens_;
  std::uint64_t revision_ = 0;
};

}  // namespace gridwright
