#include "files/work_pictures.h"

#include <utility>

#include "files/bitmap_files.h"
#include "files/work_folder.h"

namespace gridwright {

bool WorkPictures::save(std::string_view name, const BitmapView& picture, Overwrite how) {
  Copy& copy = copies_[std::string(name)];
  const std::filesystem::path path = folder_.resolve(name);
  if (copy.isIn(path) && picture.isSameAs(copy.picture)) return true;
  picture.copyTo(copy.picture);
  copy.file.reset();
  const auto saved = bitmaps_.saveBitmap(copy.picture, path, how);
  copy.lastWriteFailed = !saved;
  if (saved) {
    copy.file = saved.value();
  } else {
    folder_.tellIfNoPlainFile(saved.fault());
  }
  return !copy.lastWriteFailed;
}

const Bitmap& WorkPictures::load(std::string_view name) {
  Copy& copy = copies_[std::string(name)];
  if (copy.lastWriteFailed) return copy.picture;
  const std::filesystem::path path = folder_.resolve(name);
  if (copy.isIn(path)) return copy.picture;
  const auto before = markOf(path);
  auto read = bitmaps_.loadBitmap(path);
  if (!read) return copy.picture;
  copy.picture = std::move(read.value());
  copy.file.reset();
  if (before == markOf(path)) copy.file = before;  // else it was changed while it was read
  return copy.picture;
}

}  // namespace gridwright
