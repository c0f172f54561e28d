// A part of a book, read back.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/book/bare_store.h"
#include "platform/book/book_record.h"

class QPDF;

namespace gridwright::book {

class PartDocument {
 public:
  /// Opens a part that `writePart` has written. \returns a Fault that names the file: it is no part, or is
  /// cut.
  static Outcome<PartDocument> open(const std::filesystem::path& path);
  PartDocument(PartDocument&&) noexcept;
  PartDocument& operator=(PartDocument&&) noexcept;
  ~PartDocument();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] const BookList& list() const { return list_; }

  /// Puts all its bare pages into the store, byte for byte. \returns a Fault where one of them is damaged, or
  /// the store takes no more.
  Outcome<Done> copyInto(BareStore& store) const;

 private:
  PartDocument(std::filesystem::path path, std::unique_ptr<QPDF> pdf, BookList list);

  std::filesystem::path path_;
  std::unique_ptr<QPDF> pdf_;
  BookList list_;
};

}  // namespace gridwright::book
