#include "platform/shared/picture_files.h"

#include "platform/shared/growing_file.h"
#include "platform/shared/image_files.h"
#include "platform/shared/png_writer.h"

namespace gridwright {

namespace {

bool writePngTo(const PictureFile& wanted, const std::filesystem::path& path) {
  GrowingFile file(path);
  if (!file.isOpen()) return false;
  const bool written = writePng(wanted.picture, wanted.scale, wanted.dpi, [&](std::string_view bytes) {
    const auto count = static_cast<qint64>(bytes.size());
    return file.write(bytes.data(), count) == count;
  });
  return written && file.takeName(path);
}

bool writePdfTo(const PictureFile& wanted, const std::filesystem::path& path) {
  PdfDocument document(path, wanted.usual);
  return document.addPage(wanted.picture, wanted.look) && document.finish();
}

}  // namespace

Outcome<Done> writePictureFile(const PictureFile& wanted, const std::filesystem::path& path) {
  const bool written =
      wanted.format == PictureFormat::pdf ? writePdfTo(wanted, path) : writePngTo(wanted, path);
  if (!written) return Fault{Fault::Kind::notWritable, path.string()};
  return Done{};
}

}  // namespace gridwright
