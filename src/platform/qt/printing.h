// Pages on paper, or in a document where there is no paper.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "canvas/bitmap_view.h"
#include "platform/shared/image_files.h"
#include "state/platform.h"

namespace gridwright {

/// The default printer, or nothing.
std::unique_ptr<QPrinter> defaultPrinter();

/// A run's pages are one document. What the printer refuses goes into a PDF in the folder,
/// under the next free name of gridwright-0001.pdf and so on.
class Printing {
 public:
  using FindPrinter = std::function<std::unique_ptr<QPrinter>()>;

  explicit Printing(std::filesystem::path folder, FindPrinter find = defaultPrinter);
  ~Printing();

  /// \returns a Fault when neither the printer nor a PDF takes the page; the document is lost then.
  Outcome<Done> page(const BitmapView& picture);

  /// One page as a document of its own; an open document stays open.
  /// \returns where it went, or a Fault when its PDF could not be written.
  [[nodiscard]] Outcome<PagesWent> pageAlone(const BitmapView& picture);

  /// The document is complete: the printer may begin, or the PDF gets its name.
  /// \returns as `pageAlone` does; nowhere when there was no page. After a Fault nothing of the document is
  /// left.
  [[nodiscard]] Outcome<PagesWent> endOfPages();

 private:
  bool toPrinter(const BitmapView& picture);
  [[nodiscard]] PagesWent wherePagesWent() const;

  std::filesystem::path folder_;
  FindPrinter findPrinter_;
  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;                       // paints on the printer, so it goes first
  std::unique_ptr<PdfDocument> document_;  // of what the printer refused
  std::string paper_;                      // that it took pages of the document, and its name
  bool documentOpen_ = false, documentFailed_ = false;
};

}  // namespace gridwright
