#include "platform/qt/printing.h"

#include <QPrinterInfo>
#include <QtDebug>
#include <array>
#include <cstdio>
#include <system_error>
#include <utility>

#include "platform/images/image_files.h"

namespace gridwright {

namespace {

constexpr int kMostDocuments = 9999;

/// The first name that nothing bears yet; empty when all are taken.
std::filesystem::path freeName(const std::filesystem::path& folder) {
  for (int number = 1; number <= kMostDocuments; ++number) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "gridwright-%04d.pdf", number);
    std::error_code failed;
    if (!std::filesystem::exists(std::filesystem::symlink_status(folder / name.data(), failed)) &&
        (!failed || failed == std::errc::no_such_file_or_directory)) {
      return folder / name.data();
    }
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

Printing::~Printing() { endOfPages(); }

void Printing::page(const Bitmap& picture) {
  if (!documentOpen_) {
    documentOpen_ = true;
    printer_ = findPrinter_();
  }
  if (printer_ != nullptr && toPrinter(picture)) return;
  if (painter_.isActive()) painter_.end();
  printer_.reset();  // once it has refused, the rest of the document follows into the PDF
  refused_.push_back(picture);
}

bool Printing::toPrinter(const Bitmap& picture) {
  turnPageTo(*printer_, picture);
  if (painter_.isActive() ? !printer_->newPage() : !painter_.begin(printer_.get())) return false;
  paintPage(painter_, picture);
  return printer_->printerState() != QPrinter::Error;
}

void Printing::endOfPages() {
  if (painter_.isActive()) painter_.end();
  printer_.reset();
  documentOpen_ = false;
  writeRefused();
}

void Printing::writeRefused() {
  if (refused_.empty()) return;
  const std::filesystem::path path = freeName(folder_);
  if (path.empty() || !writePdf(refused_, path)) {
    qWarning("gridwright: no page could be printed, and no PDF written in %s", folder_.c_str());
  }
  refused_.clear();
}

}  // namespace gridwright
