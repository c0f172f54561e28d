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

#include "canvas/bitmap_decode.h"
#include "canvas/canvas.h"

namespace gridwright {

namespace {

constexpr qint64 kLargestFile = 512LL * 1024 * 1024;  // 100 million pixels of 32 bits, and some

QString nameOf(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

}  // namespace

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
  QImage image(picture.width, picture.height, QImage::Format_RGB32);
  auto in = picture.pixels.begin();
  for (int y = 0; y < picture.height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < picture.width; ++x, ++in) row[x] = qRgb(*in & 255, *in >> 8 & 255, *in >> 16 & 255);
  }
  return image;
}

Outcome<Done> writeBitmapFile(const Bitmap& picture, const std::filesystem::path& path) {
  QFile file(nameOf(path));
  if (!file.open(QIODevice::WriteOnly) || !imageOf(picture).save(&file, "BMP") || !file.flush()) {
    return Fault{Fault::Kind::notWritable, path.string()};
  }
  return Done{};
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

Outcome<Done> writePdf(const std::vector<Bitmap>& pages, const std::filesystem::path& path) {
  QFile file(nameOf(path));
  if (!file.open(QIODevice::WriteOnly)) return Fault{Fault::Kind::notWritable, path.string()};
  {
    QPdfWriter writer(&file);
    writer.setCreator("Gridwright");
    writer.setTitle("Gridwright");
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    writer.setResolution(600);
    QPainter painter;
    for (std::size_t page = 0; page < pages.size(); ++page) {
      turnPageTo(writer, pages[page]);
      if (page == 0 ? !painter.begin(&writer) : !writer.newPage()) {
        return Fault{Fault::Kind::notWritable, path.string()};
      }
      paintPage(painter, pages[page]);
    }
  }
  if (!file.flush() || file.error() != QFileDevice::NoError)
    return Fault{Fault::Kind::notWritable, path.string()};
  return Done{};
}

}  // namespace gridwright
