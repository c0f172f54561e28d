// The bare pages of a book, on the disk from the moment that they come until the book is written.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "files/plain_file.h"
#include "platform/book/bare_page.h"

namespace gridwright::book {

/// A drawing whose bytes lie in the store.
struct StoredDrawing {
  std::string dictionary;
  std::uint64_t at = 0, length = 0;  ///< Of its bytes, in the store's file.
  bool isImage = false;
};

struct StoredPage {
  StoredDrawing maze;
  std::optional<StoredDrawing> answer;
  bool isAnswerOverMaze = false;
  std::optional<std::string> notVector;
};

/// Its file has no name, so that it goes with the program, however that ends.
class BareStore {
 public:
  /// The file lies in `folder`, where the book will lie too: room for the one is room for the other.
  explicit BareStore(const std::filesystem::path& folder);

  /// Keeps the page of the maze with this number. Threads may do so at once.
  /// \returns a notWritable Fault where the disk takes no more, or there is no file.
  Outcome<Done> put(int number, const BarePage& page);

  /// The page of a maze that was put here. Nobody puts any meanwhile.
  [[nodiscard]] const StoredPage& page(int number) const { return pages_.at(number); }
  [[nodiscard]] bool has(int number) const { return pages_.contains(number); }

  /// The bytes of a drawing. \returns nothing where the disk does not give them back.
  [[nodiscard]] std::optional<std::string> bytesOf(const StoredDrawing& drawing) const;

 private:
  [[nodiscard]] bool write(const std::string& bytes, std::uint64_t at) const;

  OpenFile file_;
  mutable std::mutex turn_;  ///< For what follows.
  std::uint64_t end_ = 0;
  std::map<int, StoredPage> pages_;
};

}  // namespace gridwright::book
