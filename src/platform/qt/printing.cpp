#include "platform/qt/printing.h"

#include <langinfo.h>

#include <QPrinterInfo>
#include <QtDebug>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <utility>

#include "platform/shared/growing_file.h"
#include "platform/shared/image_files.h"
#include "platform/shared/page_paint.h"
#include "platform/shared/page_sheets.h"

namespace gridwright {

namespace {

constexpr int kMostDocuments = 9999;

/// The first name that nothing bears yet, not even a document that is still growing; nothing when all are
/// taken.
std::optional<FilePlace> freePlace(const HeldFolder& folder) {
  for (int number = 1; number <= kMostDocuments; ++number) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "gridwright-%04d.pdf", number);
    FilePlace place(folder, name.data());
    if (!isThere(place) && !isGrowing(place)) return place;
  }
  return std::nullopt;
}

}  // namespace

std::unique_ptr<QPrinter> defaultPrinter() {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) return nullptr;
  return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

// The C library knows a locale's paper; its numbers come in the place of pointers.
UsualPaper paperOfDesktop() {
  const auto tenths = [](nl_item item) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(nl_langinfo(item))) * kTenths;
  };
  const PaperSize told = knownPaper({tenths(_NL_PAPER_WIDTH), tenths(_NL_PAPER_HEIGHT)});
  UsualPaper paper;
  if (told.width > 0 && told.height > 0) paper.size = told;
  return paper;
}

Printing::Printing(HeldFolder folder, FindPrinter find, UsualPaper pdfPaper)
    : folder_(std::move(folder)), findPrinter_(std::move(find)), pdfPaper_(std::move(pdfPaper)) {}

Printing::~Printing() { static_cast<void>(endOfPages()); }

Outcome<Done> Printing::page(const BitmapView& picture, const PageLook& look) {
  if (!documentOpen_) {
    documentOpen_ = true;
    printer_ = findPrinter_();
    if (printer_ != nullptr) printersOwn_ = printer_->pageLayout();
  }
  if (printer_ != nullptr && toPrinter(picture, look)) {
    const std::string name = printer_->printerName().toStdString();
    paper_ = "on the printer" + (name.empty() ? name : " " + name);
    return Done{};
  }
  if (painter_.isActive()) painter_.end();
  printer_.reset();  // once it has refused, the rest of the document follows into the PDF
  if (document_ == nullptr) {
    const auto place = freePlace(folder_);
    if (!place) {
      documentFailed_ = true;
      return Fault{Fault::Kind::notWritable, folder_.presentPath().string()};
    }
    document_ = std::make_unique<PdfDocument>(*place, pdfPaper_);
  }
  auto added = document_->addPage(picture, look);
  if (!added) documentFailed_ = true;
  return added;
}

Outcome<PagesWent> Printing::pageAlone(const BitmapView& picture, const PageLook& look) {
  Printing alone(folder_, findPrinter_, pdfPaper_);
  static_cast<void>(alone.page(picture, look));  // the end tells whether it was kept
  return alone.endOfPages();
}

std::unique_ptr<QPrinter> Printing::printerFor(const BitmapView& picture, const PageSetup& setup) const {
  auto printer = findPrinter_();
  if (printer == nullptr) {
    printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    PageSetup pdf;
    pdf.paper = pdfPaper_.size;
    pdf.margins = pdfPaper_.margins;
    layPage(*printer, printer->pageLayout(), picture, pdf);
  }
  layPage(*printer, printer->pageLayout(), picture, setup);
  return printer;
}

UsualPaper Printing::usualPaper() const {
  const auto printer = findPrinter_();
  if (printer == nullptr) return pdfPaper_;
  QPageLayout layout = printer->pageLayout();
  layout.setOrientation(QPageLayout::Portrait);
  const std::string name = printer->printerName().toStdString();
  return {paperOf(layout.pageSize()), marginsOf(layout), "the printer" + (name.empty() ? name : " " + name)};
}

bool Printing::toPrinter(const BitmapView& picture, const PageLook& look) {
  layPage(*printer_, printersOwn_, picture, look.setup);
  if (painter_.isActive() ? !printer_->newPage() : !painter_.begin(printer_.get())) return false;
  if (!paintSheets(painter_, picture, look, PictureInk::pixels, [this] { return printer_->newPage(); }))
    return false;
  return printer_->printerState() != QPrinter::Error;
}

Outcome<PagesWent> Printing::endOfPages() {
  if (painter_.isActive()) painter_.end();
  printer_.reset();
  documentOpen_ = false;
  bool whole = !documentFailed_;
  if (document_ != nullptr) {
    // Something else may have got the name since the first page.
    if (isThere(document_->place())) {
      const auto place = freePlace(folder_);
      if (place) document_->setPlace(*place);
      whole = whole && place;
    }
    if (whole) whole = static_cast<bool>(document_->finish());
  }
  PagesWent went = wherePagesWent();
  document_.reset();
  paper_.clear();
  documentFailed_ = false;
  if (!whole) return Fault{Fault::Kind::notWritable, went.file.string()};
  return went;
}

PagesWent Printing::wherePagesWent() const {
  if (document_ == nullptr) return {paper_, {}};
  const std::filesystem::path file = document_->place().path();
  const std::string pdf = "to " + file.filename().string() + ", in " + file.parent_path().string();
  return {paper_.empty() ? pdf : paper_ + ", and the rest " + pdf, file};
}

}  // namespace gridwright
