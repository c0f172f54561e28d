#include "platform/pictures/read_picture.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <string>

#include "canvas/bitmap_check.h"
#include "canvas/bitmap_decode.h"
#include "files/plain_file.h"
#include "pictures/fit.h"
#include "platform/pictures/gif_shape.h"
#include "platform/pictures/jpeg_shape.h"
#include "platform/pictures/plain_font.h"
#include "platform/pictures/reduced_image.h"
#include "platform/pictures/svg_cleaner.h"

namespace gridwright {

namespace {

constexpr int kTimesByRows = 8;              // more pixels of a JPEG, which is never whole in memory
constexpr int kMegabytesForOne = 256;        // 32 million pixels of 16 bits a channel
constexpr qint64 kLargestSvg = 16 << 20;     // bytes
constexpr qint64 kLargestBitmap = 64 << 20;  // bytes: beyond, a bitmap goes the way of all formats
constexpr qint64 kEnoughToTell = 4096;       // bytes, of what a file is
constexpr int kDotsAMetre = 3780;            // 96 to the inch, whatever a desktop's screen has
constexpr int kJpegEighths = 8;              // a JPEG is decoded at so many eighths of its size

Fault noPicture(const std::string& name, const char* why) {
  return {Fault::Kind::malformed, name + " " + why};
}

std::int64_t pixelsOf(QSize size) { return std::int64_t{size.width()} * size.height(); }

Fault tooLarge(const std::string& name) { return noPicture(name, "has more than 32 million pixels"); }

Fault notWhole(const std::string& name) { return noPicture(name, "is cut off or broken"); }

Picture pictureOfWhole(const QImage& image) {
  Picture picture;
  picture.own = {image.width(), image.height()};
  picture.whole = reducedLayerOf(image);
  if (picture.whole.size() != picture.own) picture.middle = layerOf(image, middleOf(picture.own));
  return picture;
}

bool isTurned(QImageReader& reader) {
  return (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
}

template <class Prepare>
QImage decodedJpeg(QIODevice& device, Prepare prepare) {
  device.seek(0);
  QImageReader reader(&device, "jpeg");
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  prepare(reader);
  return reader.read();
}

/// A JPEG that is larger than a Canvas: once small; its middle only when it is asked for, from the bytes.
Outcome<Picture> readLargeJpeg(QIODevice& device, Size size, const std::string& name) {
  const Size target = fittedInto({kLongestSide, kLongestSide}, size);
  int eighths = 1;
  while (eighths < kJpegEighths && (size.width * eighths < target.width * kJpegEighths ||
                                    size.height * eighths < target.height * kJpegEighths))
    ++eighths;
  const auto part = [&](int length) { return (length * eighths + kJpegEighths - 1) / kJpegEighths; };
  Picture picture;
  picture.own = size;
  const QImage small = decodedJpeg(device, [&](QImageReader& reader) {
    reader.setScaledSize({part(size.width), part(size.height)});
    if (isTurned(reader)) picture.own = {size.height, size.width};
  });
  if (small.isNull()) return notWhole(name);
  picture.whole = reducedLayerOf(small);
  device.seek(0);
  const QByteArray read = device.readAll();
  const QByteArray bytes(read.constData(), read.size());  // of its own: what was pasted may go
  picture.readMiddle = [bytes, size] {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    const QImage middle =
        decodedJpeg(buffer, [&](QImageReader& reader) { reader.setClipRect(middleOf(size)); });
    return middle.isNull() ? Layer{} : layerOf(middle, middle.rect());
  };
  return picture;
}

Outcome<Picture> readJpeg(QIODevice& device, std::int64_t most, const std::string& name) {
  const JpegShape shape = shapeOfJpeg(device);
  const QSize size(shape.size.width, shape.size.height);
  if (size.isEmpty() || !shape.whole) return notWhole(name);
  if (pixelsOf(size) > (shape.oneScan ? kTimesByRows * most : most)) return tooLarge(name);
  if (std::max(size.width(), size.height()) > kLongestSide) return readLargeJpeg(device, shape.size, name);
  const QImage image = decodedJpeg(device, [](QImageReader&) {});
  if (image.isNull()) return notWhole(name);
  return pictureOfWhole(image);
}

/// Bitmaps have exact colours that mean something, so they are read as an import reads them.
Outcome<Picture> readBitmap(QIODevice& device, std::int64_t most, const std::string& name) {
  device.seek(0);
  const auto viewOf = [](const QByteArray& bytes) {
    return std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  };
  const QByteArray head = device.peek(kBitmapHead);
  const auto wanted = bytesOfBitmap(viewOf(head), static_cast<std::uint64_t>(device.size()));
  if (!wanted) return notWhole(name);
  const QByteArray bytes = device.read(static_cast<qint64>(wanted.value()));
  const std::string_view view = viewOf(bytes);
  const auto size = checkBitmapFile(view);
  if (!size) return notWhole(name);
  const int longest = std::max(size.value().width, size.value().height);
  if (pixelsOf({size.value().width, size.value().height}) > most) return tooLarge(name);
  auto bitmap = decodeBitmapFile(view, longest);
  if (!bitmap) return notWhole(name);
  Picture picture;
  picture.own = size.value();
  if (longest <= kLongestSide) {
    picture.whole.colours = std::move(bitmap.value());
    return picture;
  }
  const Bitmap& b = bitmap.value();  // lies in memory as Qt has it but for the order of the channels
  const QImage image(reinterpret_cast<const uchar*>(b.pixels.data()), b.width, b.height, 4LL * b.width,
                     QImage::Format_RGB32);
  picture.whole = reducedLayerOf(image.rgbSwapped());
  picture.middle = layerOf(image.copy(middleOf(picture.own)).rgbSwapped(), middleOf(picture.own));
  return picture;
}

Outcome<Picture> readAny(QIODevice& device, const QByteArray& format, std::int64_t most,
                         const std::string& name) {
  device.seek(0);
  QImageReader reader(&device, format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  if (pixelsOf(reader.size()) > most) return tooLarge(name);
  QImageReader::setAllocationLimit(kMegabytesForOne);
  const QImage image = reader.read();
  if (image.isNull()) return notWhole(name);
  if (pixelsOf(image.size()) > most) return tooLarge(name);
  return pictureOfWhole(image);
}

/// A part of the drawing, when all of it is drawn at this size.
Layer rendered(QSvgRenderer& renderer, Size size, const QRect& part) {
  QImage image(part.size(), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return {};
  image.fill(Qt::transparent);
  image.setDotsPerMeterX(kDotsAMetre);
  image.setDotsPerMeterY(kDotsAMetre);
  QPainter painter(&image);
  painter.setFont(plainFont());  // for words that name none
  painter.setLayoutDirection(Qt::LeftToRight);
  renderer.render(&painter, QRectF(-part.left(), -part.top(), size.width, size.height));
  painter.end();
  return layerOf(image, image.rect());
}

Outcome<Picture> readSvg(QIODevice& device, Size fitTo, const std::string& name) {
  if (device.size() > kLargestSvg) return noPicture(name, "is too large an SVG");
  device.seek(0);
  const auto clean = cleanedSvg(device.readAll());
  if (!clean) return noPicture(name, clean.fault().words.c_str());
  QSvgRenderer renderer(clean.value());
  if (!renderer.isValid()) return notWhole(name);
  QSize said = renderer.defaultSize();
  if (said.isEmpty()) said = renderer.viewBoxF().size().toSize();
  if (said.isEmpty()) return noPicture(name, "is an empty SVG");
  constexpr int kLongestSaid = 100'000;
  const Size shape{std::min(said.width(), kLongestSaid), std::min(said.height(), kLongestSaid)};
  Picture picture;
  picture.own = shape;
  const Size fitted = fittedInto(fitTo, shape);
  picture.whole = rendered(renderer, fitted, {0, 0, fitted.width, fitted.height});
  if (shape != fitted) picture.middle = rendered(renderer, shape, middleOf(shape));
  return picture;
}

bool looksLikeSvg(const QByteArray& beginning) {
  QByteArray text = beginning;
  text.replace('\0', "");  // in two bytes a letter
  return text.contains("<svg") || text.contains(":svg");
}

/// What phones store their pictures in. People take it for a JPEG, so they are told what it is.
bool isHeic(QIODevice& device) {
  constexpr std::array kBrands = {"ftypheic", "ftypheix", "ftypheim", "ftypheis",
                                  "ftyphevc", "ftypmif1", "ftypmsf1"};
  constexpr qsizetype kBox = 4;  // bytes, which say how long the first box is
  device.seek(0);
  const QByteArray beginning = device.peek(kEnoughToTell).mid(kBox);
  return std::any_of(kBrands.begin(), kBrands.end(),
                     [&](const char* brand) { return beginning.startsWith(brand); });
}

/// What a device holds, by its first bytes; "svg" also for what Qt's SVG reader would take.
QByteArray formatOf(QIODevice& device) {
  device.seek(0);
  const QByteArray beginning = device.peek(kEnoughToTell);
  if (beginning.startsWith("BM")) return device.size() <= kLargestBitmap ? "bitmap" : "bmp";
  QByteArray format = QImageReader::imageFormat(&device);
  if (format.startsWith("svg") || (format.isEmpty() && looksLikeSvg(beginning))) return "svg";
  return format;
}

Outcome<Picture> readFrom(QIODevice& device, Size fitTo, std::int64_t most, const std::string& name) {
  const QByteArray format = formatOf(device);
  if (format.isEmpty()) {
    const char* why =
        isHeic(device) ? " is HEIC, which is not read" : " is no picture of a kind that is read";
    return Fault{Fault::Kind::anotherFormat, name + why};
  }
  if (format == "svg") return readSvg(device, fitTo, name);
  if (format == "bitmap") return readBitmap(device, most, name);
  if (format == "gif" && !hasWholeFirstPicture(device)) return notWhole(name);
  if (format == "jpeg") return readJpeg(device, most, name);
  return readAny(device, format, most, name);
}

}  // namespace

Outcome<Picture> readPicture(const std::filesystem::path& path, Size fitTo) {
  const std::string name = path.filename().string();
  OpenFile open(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat known {};
  if (!open) return Fault{Fault::Kind::notFound, name + " can't be opened"};
  if (::fstat(open.descriptor(), &known) != 0 || !S_ISREG(known.st_mode))
    return Fault{Fault::Kind::notFound, name + " is no file"};
  QFile file;
  if (!file.open(open.descriptor(), QIODevice::ReadOnly, QFileDevice::DontCloseHandle))
    return Fault{Fault::Kind::notReadable, name + " can't be read"};
  return readFrom(file, fitTo, kMostPixels, name);
}

Outcome<Picture> readPictureBytes(std::string_view bytes, Size fitTo, std::string_view name,
                                  std::int64_t most) {
  QByteArray held = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&held);
  buffer.open(QIODevice::ReadOnly);
  return readFrom(buffer, fitTo, most, std::string(name));
}

Outcome<Picture> pictureOf(const QImage& image, std::string_view name) {
  if (image.isNull()) return noPicture(std::string(name), "is no picture");
  if (pixelsOf(image.size()) > kMostPixels) return tooLarge(std::string(name));
  return pictureOfWhole(image);
}

}  // namespace gridwright
