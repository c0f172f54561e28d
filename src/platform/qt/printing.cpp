#include "platform/qt/printing.h"

#include <QPrinterInfo>
#include <QtDebug>
#include <array>
#include <cstdio>
#include <system_error>
#include <utility>

#include "platform/shared/growing_file.h"
#include "platform/shared/image_files.h"

namespace gridwright {

namespace {

constexpr int kMostDocuments = 9999;

bool isTaken(const std::filesystem::path& path) {
  std::error_code failed;
  return std::filesystem::exists(std::filesystem::symlink_status(path, failed)) ||
         (failed && failed != std::errc::no_such_file_or_directory);
}

/// The first name that nothing bears yet, not even a document that is still growing; empty when all
/// are taken.
std::filesystem::path freeName(const std::filesystem::path& folder) {
  for (int number = 1; number <= kMostDocuments; ++number) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "gridwright-%04d.pdf", number);
    std::filesystem::path path = folder / name.data();
    if (!isTaken(path) && !isGrowing(path)) return path;
  }
  return {};
}

}  // namespace

std::unique_ptr<QPrinter> defaultPrinter() {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) return nullptr;
  return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

Printing::Printing(std::filesystem::path folder, FindPrinter find)
    : folder_(std::move(folder)), findPrinter_(std::move(find)) {}

Printing::~Printing() { static_cast<void>(endOfPages()); }

Outcome<Done> Printing::page(const BitmapView& picture) {
  if (!documentOpen_) {
    documentOpen_ = true;
    printer_ = findPrinter_();
  }
  if (printer_ != nullptr && toPrinter(picture)) {
    const std::string name = printer_->printerName().toStdString();
    paper_ = "on the printer" + (name.empty() ? name : " " + name);
    return Done{};
  }
  if (painter_.isActive()) painter_.end();
  printer_.reset();  // once it has refused, the rest of the document follows into the PDF
  if (document_ == nullptr) document_ = std::make_unique<PdfDocument>(freeName(folder_));
  auto added = document_->addPage(picture);
  if (!added) documentFailed_ = true;
  return added;
}

Outcome<PagesWent> Printing::pageAlone(const BitmapView& picture) {
  Printing alone(folder_, findPrinter_);
  static_cast<void>(alone.page(picture));  // the end tells whether it was kept
  return alone.endOfPages();
}

bool Printing::toPrinter(const BitmapView& picture) {
  turnPageTo(*printer_, picture);
  if (painter_.isActive() ? !printer_->newPage() : !painter_.begin(printer_.get())) return false;
  paintPage(painter_, picture);
  return printer_->printerState() != QPrinter::Error;
}

Outcome<PagesWent> Printing::endOfPages() {
  if (painter_.isActive()) painter_.end();
  printer_.reset();
  documentOpen_ = false;
  bool whole = !documentFailed_;
  if (document_ != nullptr) {
    // Something else may have got the name since the first page.
    if (isTaken(document_->path())) document_->setPath(freeName(folder_));
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
  const std::filesystem::path& file = document_->path();
  const std::string pdf = "to " + file.filename().string() + ", in " + folder_.string();
  return {paper_.empty() ? pdf : paper_ + ", and the rest " + pdf, file};
}

}  // namespace gridwright
