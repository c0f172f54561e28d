// Pages on paper, or in a document where there is no paper.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "canvas/bitmap.h"

namespace gridwright {

/// The default printer, or nothing.
std::unique_ptr<QPrinter> defaultPrinter();

/// A run's pages are one document. What the printer refuses is kept and becomes a PDF in the folder,
/// under the next free name of gridwright-0001.pdf and so on.
class Printing {
 public:
  using FindPrinter = std::function<std::unique_ptr<QPrinter>()>;

  explicit Printing(std::filesystem::path folder, FindPrinter find = defaultPrinter);
  ~Printing();

  void page(const Bitmap& picture);

  /// The document is complete: the printer may begin, or the PDF is written.
  void endOfPages();

 private:
  bool toPrinter(const Bitmap& picture);
  void writeRefused();

  std::filesystem::path folder_;
  FindPrinter findPrinter_;
  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;  // paints on the printer, so it goes first
  std::vector<Bitmap> refused_;
  bool documentOpen_ = false;
};

}  // namespace gridwright
