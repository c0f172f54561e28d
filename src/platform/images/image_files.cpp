#include "platform/images/image_files.h"

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <algorithm>
#include <system_error>
#include <utility>

#include "canvas/bitmap_decode.h"
#include "canvas/bitmap_encode.h"
#include "canvas/canvas.h"

namespace gridwright {

namespace {

constexpr qint64 kLargestFile = 512LL * 1024 * 1024;  // 100 million pixels of 32 bits, and some

QString nameOf(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

/// Whether a file lies there that is as long as the new one, and is nobody else's under another name.
bool hasRoomFor(const std::filesystem::path& path, const std::string& bytes) {
  std::error_code failed;
  return std::filesystem::is_regular_file(std::filesystem::symlink_status(path, failed)) &&
         std::filesystem::hard_link_count(path, failed) == 1 &&
         std::filesystem::file_size(path, failed) == bytes.size();
}

bool writeBytes(const std::filesystem::path& path, QIODevice::OpenMode mode, const std::string& bytes) {
  const auto length = static_cast<qint64>(bytes.size());
  QFile file(nameOf(path));
  const bool written = file.open(mode | QIODevice::Unbuffered) && file.write(bytes.data(), length) == length;
  file.close();
  return written && file.error() == QFileDevice::NoError;
}

}  // namespace

std::filesystem::path buildingName(std::filesystem::path path) { return path += ".building"; }

Outcome<Bitmap> readBitmapFile(const std::filesystem::path& path) {
  QFile file(nameOf(path));
  std::error_code failed;
  if (!std::filesystem::is_regular_file(path, failed)) return Fault{Fault::Kind::notFound, path.string()};
  if (!file.open(QIODevice::ReadOnly)) return Fault{Fault::Kind::notReadable, path.string()};
  if (file.size() > kLargestFile) return Fault{Fault::Kind::malformed, "too large"};
  const QByteArray bytes = file.readAll();
  return decodeBitmapFile({bytes.constData(), static_cast<std::size_t>(bytes.size())}, Canvas::kSide);
}

QImage imageOf(const Bitmap& picture) {
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

Outcome<Done> writeBitmapFile(const Bitmap& picture, const std::filesystem::path& path, Overwrite how) {
  const std::string bytes = encodeBitmapFile(picture);
  if (how == Overwrite::inPlace && hasRoomFor(path, bytes) && writeBytes(path, QIODevice::ReadWrite, bytes))
    return Done{};
  const std::filesystem::path building = buildingName(path);
  std::error_code failed;
  if (writeBytes(building, QIODevice::WriteOnly, bytes)) {
    std::filesystem::rename(building, path, failed);
    if (!failed) return Done{};
  }
  std::filesystem::remove(building, failed);
  return Fault{Fault::Kind::notWritable, path.string()};
}

void turnPageTo(QPagedPaintDevice& device, const Bitmap& picture) {
  device.setPageOrientation(picture.width > picture.height ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void paintPage(QPainter& painter, const Bitmap& picture) {
  if (picture.pixels.empty()) return;
  painter.setRenderHint(QPainter::LosslessImageRendering, true);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  const QRectF paper(0, 0, painter.device()->width(), painter.device()->height());
  const double scale = std::min(paper.width() / picture.width, paper.height() / picture.height);
  QRectF place(0, 0, picture.width * scale, picture.height * scale);
  place.moveCenter(paper.center());
  painter.drawImage(place, imageOf(picture));
}

struct PdfDocument::Writer {
  explicit Writer(const std::filesystem::path& path) : file(nameOf(path)) {
    if (!file.open(QIODevice::WriteOnly)) return;
    pdf = std::make_unique<QPdfWriter>(&file);
    pdf->setCreator("Gridwright");
    pdf->setTitle("Gridwright");
    pdf->setPageSize(QPageSize(QPageSize::A4));
    pdf->setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    pdf->setResolution(600);
  }

  QFile file;
  std::unique_ptr<QPdfWriter> pdf;
  QPainter painter;  // ends before the writer and the file do
};

PdfDocument::PdfDocument(std::filesystem::path path)
    : path_(std::move(path)), building_(buildingName(path_)), writer_(std::make_unique<Writer>(building_)) {}

PdfDocument::~PdfDocument() {
  if (writer_ == nullptr) return;
  writer_.reset();
  std::error_code ignored;
  std::filesystem::remove(building_, ignored);
}

Outcome<Done> PdfDocument::addPage(const Bitmap& picture) {
  const Fault fault{Fault::Kind::notWritable, path_.string()};
  if (writer_ == nullptr || writer_->pdf == nullptr) return fault;
  turnPageTo(*writer_->pdf, picture);
  const bool begun =
      writer_->painter.isActive() ? writer_->pdf->newPage() : writer_->painter.begin(writer_->pdf.get());
  if (!begun) return fault;
  paintPage(writer_->painter, picture);
  if (writer_->file.error() != QFileDevice::NoError) return fault;
  return Done{};
}

Outcome<Done> PdfDocument::finish() {
  const Fault fault{Fault::Kind::notWritable, path_.string()};
  if (writer_ == nullptr || writer_->pdf == nullptr) return fault;
  const bool ended = writer_->painter.end();
  writer_->pdf.reset();
  const bool written = writer_->file.flush() && writer_->file.error() == QFileDevice::NoError;
  writer_->file.close();
  if (!ended || !written) return fault;
  writer_.reset();
  std::error_code failed;
  std::filesystem::rename(building_, path_, failed);
  if (!failed) return Done{};
  std::filesystem::remove(building_, failed);
  return fault;
}

std::filesystem::path contentFolderFor(const std::filesystem::path& executableFolder) {
  std::error_code failed;
  for (const auto& folder :
       {executableFolder / ".." / "share" / "gridwright", executableFolder / "content"}) {
    if (std::filesystem::is_directory(folder, failed)) return folder;
  }
  return {};
}

}  // namespace gridwright
