#include "files/work_pictures.h"

#include <system_error>
#include <utility>

#include "files/bitmap_files.h"
#include "files/work_folder.h"

namespace gridwright {

std::optional<WorkPictures::Stamp> WorkPictures::stampOf(const std::filesystem::path& path) {
  std::error_code noTime;
  std::error_code noSize;
  const Stamp stamp{std::filesystem::last_write_time(path, noTime), std::filesystem::file_size(path, noSize)};
  if (noTime || noSize) return std::nullopt;
  return stamp;
}

bool WorkPictures::isAsWritten(const Copy& copy, const std::filesystem::path& path) {
  return !copy.lastWriteFailed && copy.written && copy.written == stampOf(path);
}

bool WorkPictures::save(std::string_view name, Bitmap picture, Overwrite how) {
  Copy& copy = copies_[std::string(name)];
  const std::filesystem::path path = folder_.resolve(name);
  if (isAsWritten(copy, path) && copy.picture == picture) return true;
  copy.picture = std::move(picture);
  const auto saved = bitmaps_.saveBitmap(copy.picture, path, how);
  if (!saved) folder_.tellIfNoPlainFile(saved.fault());
  copy.lastWriteFailed = !saved;
  copy.written = stampOf(path);
  return !copy.lastWriteFailed;
}

const Bitmap& WorkPictures::load(std::string_view name) {
  const auto kept = copies_.find(name);
  const bool known = kept != copies_.end();
  if (known && kept->second.lastWriteFailed) return kept->second.picture;
  const std::filesystem::path path = folder_.resolve(name);
  if (known && isAsWritten(kept->second, path)) return kept->second.picture;
  fromFile_ = {};
  if (auto read = bitmaps_.loadBitmap(path)) {
    fromFile_ = std::move(read.value());
  } else if (known) {
    return kept->second.picture;
  }
  return fromFile_;
}

}  // namespace gridwright
