#include "platform/shared/picture_files.h"

#include "platform/shared/growing_file.h"
#include "platform/shared/image_files.h"
#include "platform/shared/png_writer.h"

namespace gridwright {

namespace {

bool writePngTo(const PictureFile& wanted, const FilePlace& place) {
  GrowingFile file(place);
  if (!file.isOpen()) return false;
  const bool written = writePng(wanted.picture, wanted.scale, wanted.dpi, [&](std::string_view bytes) {
    const auto count = static_cast<qint64>(bytes.size());
    return file.write(bytes.data(), count) == count;
  });
  return written && file.takeName(place);
}

bool writePdfTo(const PictureFile& wanted, const FilePlace& place) {
  PdfDocument document(place, wanted.usual);
  return document.addPage(wanted.picture, wanted.look) && document.finish();
}

}  // namespace

Outcome<Done> writePictureFile(const PictureFile& wanted, const FilePlace& place) {
  const bool written =
      wanted.format == PictureFormat::pdf ? writePdfTo(wanted, place) : writePngTo(wanted, place);
  if (!written) return Fault{Fault::Kind::notWritable, place.path().string()};
  return Done{};
}

}  // namespace gridwright
