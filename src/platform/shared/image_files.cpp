#include "platform/shared/image_files.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <system_error>
#include <utility>

#include "canvas/bitmap_decode.h"
#include "canvas/bitmap_encode.h"
#include "canvas/canvas.h"
#include "platform/shared/growing_file.h"

namespace gridwright {

namespace {

constexpr std::uintmax_t kLargestFile = 512U << 20;  // 100 million pixels of 32 bits, and some

}  // namespace

Outcome<Bitmap> readBitmapFile(const std::filesystem::path& path) {
  const auto bytes = readPlainFile(path, kLargestFile);
  if (!bytes) return bytes.fault();
  return decodeBitmapFile(bytes.value(), Canvas::kSide);
}

QImage imageOf(const BitmapView& picture) {
  const int width = picture.width;  // a copy: the compiler can't tell that no pixel written changes it
  QImage image(width, picture.height, QImage::Format_RGB32);
  for (int y = 0; y < picture.height; ++y) {
    const Colour* in = picture.row(y);
    auto* out = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < width; ++x) {
      const auto pixel = static_cast<QRgb>(in[x]);
      out[x] = 0xFF000000U | (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
    }
  }
  return image;
}

Outcome<FileMark> writeBitmapFile(const BitmapView& picture, const std::filesystem::path& path,
                                  Overwrite how) {
  return replacePlainFile(path, BitmapFilePieces(picture).pieces(), how);
}

Outcome<Done> writePngFile(const BitmapView& picture, const std::filesystem::path& path) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::WriteOnly) || !imageOf(picture).save(&buffer, "PNG"))
    return Fault{Fault::Kind::notWritable, path.string()};
  const auto written =
      replacePlainFile(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())}, Overwrite::atOnce);
  if (!written) return written.fault();
  return Done{};
}

void turnPageTo(QPagedPaintDevice& device, const BitmapView& picture) {
  device.setPageOrientation(picture.width > picture.height ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void paintPage(QPainter& painter, const BitmapView& picture) {
  if (picture.isEmpty()) return;
  painter.setRenderHint(QPainter::LosslessImageRendering, true);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  const QRectF paper(0, 0, painter.device()->width(), painter.device()->height());
  const double scale = std::min(paper.width() / picture.width, paper.height() / picture.height);
  QRectF place(0, 0, picture.width * scale, picture.height * scale);
  place.moveCenter(paper.center());
  painter.drawImage(place, imageOf(picture));
}

struct PdfDocument::Writer {
  explicit Writer(const std::filesystem::path& path) : file(path) {
    if (!file.isOpen()) return;
    pdf = std::make_unique<QPdfWriter>(&file);
    pdf->setCreator("Gridwright");
    pdf->setTitle("Gridwright");
    pdf->setPageSize(QPageSize(QPageSize::A4));
    pdf->setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    pdf->setResolution(600);
  }

  GrowingFile file;
  std::unique_ptr<QPdfWriter> pdf;
  QPainter painter;  // ends before the writer and the file do
};

PdfDocument::PdfDocument(std::filesystem::path path)
    : path_(std::move(path)),
      writer_(path_.empty() || isNoPlainFile(path_) ? nullptr : std::make_unique<Writer>(path_)) {}

PdfDocument::~PdfDocument() = default;

Outcome<Done> PdfDocument::addPage(const BitmapView& picture) {
  const Fault fault{Fault::Kind::notWritable, path_.string()};
  if (writer_ == nullptr || writer_->pdf == nullptr) return fault;
  turnPageTo(*writer_->pdf, picture);
  const bool begun =
      writer_->painter.isActive() ? writer_->pdf->newPage() : writer_->painter.begin(writer_->pdf.get());
  if (!begun) return fault;
  paintPage(writer_->painter, picture);
  if (!writer_->file.isWhole()) return fault;
  return Done{};
}

Outcome<Done> PdfDocument::finish() {
  const Fault fault{Fault::Kind::notWritable, path_.string()};
  if (writer_ == nullptr || writer_->pdf == nullptr) return fault;
  const bool ended = writer_->painter.end();
  writer_->pdf.reset();  // writes what makes a document of the pages
  const bool taken = ended && writer_->file.takeName(path_);
  writer_.reset();
  if (!taken) return fault;
  return Done{};
}

std::filesystem::path contentFolderFor(const std::filesystem::path& executableFolder) {
  std::error_code failed;
  for (const auto& folder :
       {executableFolder / ".." / "share" / "gridwright", executableFolder / "content"}) {
    if (std::filesystem::is_directory(folder, failed)) return folder;
  }
  return {};
}

std::filesystem::path contentFolderOfProgram() {
  std::error_code unknown;
  return contentFolderFor(std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path());
}

}  // namespace gridwright
