#include "files/work_pictures.h"

#include "files/bitmap_files.h"
#include "files/plain_file.h"
#include "files/work_folder.h"

namespace gridwright {

bool WorkPictures::Copy::isIn(const FilePlace& place) const { return file && file == markOf(place); }

bool WorkPictures::save(std::string_view name, const BitmapView& picture, Overwrite how) {
  Copy& copy = copies_[std::string(name)];
  const FilePlace place = folder_.resolve(name);
  if (!copy.isPart && copy.isIn(place) && picture.isSameAs(copy.picture.view())) return true;
  copy.picture.take(picture);
  copy.isPart = false;
  copy.file.reset();
  const auto saved = bitmaps_.saveBitmap(copy.picture.view(), place, how);
  copy.lastWriteFailed = !saved;
  if (saved) {
    copy.file = saved.value();
  } else {
    folder_.tellIfNoPlainFile(saved.fault());
  }
  return !copy.lastWriteFailed;
}

bool WorkPictures::holds(std::string_view name, const BitmapView& picture) const {
  const auto copy = copies_.find(name);
  return copy != copies_.end() && copy->second.isIn(folder_.resolve(name)) &&
         picture.isSameAs(copy->second.picture.view());
}

BitmapView WorkPictures::load(std::string_view name) {
  Copy& copy = copies_[std::string(name)];
  if (copy.lastWriteFailed) return copy.picture.view();
  const FilePlace place = folder_.resolve(name);
  if (copy.isIn(place)) return copy.picture.view();
  const auto before = markOf(place);
  const auto read = bitmaps_.loadBitmap(place);
  if (!read) return copy.picture.view();
  copy.picture.take(read.value());
  copy.isPart = read.value().cutFrom != Size{};
  copy.file.reset();
  if (before == markOf(place)) copy.file = before;  // else it was changed while it was read
  return copy.picture.view();
}

}  // namespace gridwright
