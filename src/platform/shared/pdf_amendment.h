// What Qt's writer of documents has no words for: a subject, keywords, and labels of pages. They follow the
// document, as such files let who changes one do it: nothing of what was written needs to be kept or read
// again.
#pragma once

#include <QIODevice>
#include <cstdint>
#include <string>
#include <vector>

#include "state/page_setup.h"

namespace gridwright {

/// Labels of a document's pages, by which viewers name them: "maze 3", "answer 3", and "maze 3, sheet 2" of a
/// page that is spread over sheets. A page that belongs to no run has its number in the document.
class PageLabels {
 public:
  /// The next page of the document.
  /// \param sheet from 1, of a page that has several; 0 of a page that is one sheet.
  void add(const MazeInRun& maze, int sheet);

  /// Whether any page is named by more than its number.
  [[nodiscard]] bool sayMore() const { return sayMore_; }
  /// The tree of labels, as a document has it.
  [[nodiscard]] std::string tree() const { return "<< /Nums [" + ranges_ + " ] >>"; }

 private:
  std::string ranges_;  // one for all pages that are counted on
  std::string prefix_;
  int number_ = -1, pages_ = 0;
  bool sayMore_ = false;
};

/// What a document says of itself.
struct PdfAbout {
  std::string title, subject, keywords;  ///< UTF-8.
};

/// Passes a document on as Qt writes it, and can go on behind its end.
class AmendedPdf : public QIODevice {
 public:
  /// \param onto is open, and stays so.
  explicit AmendedPdf(QIODevice& onto);

  /// Adds a new version of what the document says of itself, once its last byte was written.
  /// \returns whether the document's end was what is known of Qt's, and all was taken.
  bool amend(const PdfAbout& about, const PageLabels& labels);

  [[nodiscard]] bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* /*bytes*/, qint64 /*most*/) override { return -1; }
  qint64 writeData(const char* bytes, qint64 count) override;

 private:
  QIODevice& onto_;
  std::string head_, tail_;  // its first bytes and its last ones
  std::int64_t written_ = 0;
};

}  // namespace gridwright
