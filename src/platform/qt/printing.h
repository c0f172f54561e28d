// Pages on paper, or in a document where there is no paper.
#pragma once

#include <QPageLayout>
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

/// The paper that this desktop's language and country use, and margins that any printer has.
UsualPaper paperOfDesktop();

/// A run's pages are one document. What the printer refuses goes into a PDF in the folder,
/// under the next free name of gridwright-0001.pdf and so on.
class Printing {
 public:
  using FindPrinter = std::function<std::unique_ptr<QPrinter>()>;

  /// \param pdfPaper of PDFs for which nobody has set another.
  explicit Printing(HeldFolder folder, FindPrinter find = defaultPrinter, UsualPaper pdfPaper = {});
  ~Printing();

  /// \returns a Fault when neither the printer nor a PDF takes the page; the document is lost then.
  Outcome<Done> page(const BitmapView& picture, const PageLook& look = {});

  /// One page as a document of its own; an open document stays open.
  /// \returns where it went, or a Fault when its PDF could not be written.
  [[nodiscard]] Outcome<PagesWent> pageAlone(const BitmapView& picture, const PageLook& look = {});

  /// The document is complete: the printer may begin, or the PDF gets its name.
  /// \returns as `pageAlone` does; nowhere when there was no page. After a Fault nothing of the document is
  /// left.
  [[nodiscard]] Outcome<PagesWent> endOfPages();

  /// The default printer, else one that would write a PDF, its page laid; for dialogs.
  [[nodiscard]] std::unique_ptr<QPrinter> printerFor(const BitmapView& picture, const PageSetup& setup) const;

  /// What pages are printed on where nobody has set anything.
  [[nodiscard]] UsualPaper usualPaper() const;

 private:
  bool toPrinter(const BitmapView& picture, const PageLook& look);
  [[nodiscard]] PagesWent wherePagesWent() const;

  HeldFolder folder_;
  FindPrinter findPrinter_;
  UsualPaper pdfPaper_;
  std::unique_ptr<QPrinter> printer_;
  QPageLayout printersOwn_;                // as the printer had its page when the document began
  QPainter painter_;                       // paints on the printer, so it goes first
  std::unique_ptr<PdfDocument> document_;  // of what the printer refused
  std::string paper_;                      // that it took pages of the document, and its name
  bool documentOpen_ = false, documentFailed_ = false;
};

}  // namespace gridwright
