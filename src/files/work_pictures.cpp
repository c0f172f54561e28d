#include "files/work_pictures.h"

#include "files/work_folder.h"
#include "platform/platform.h"

namespace gridwright {

void WorkPictures::save(std::string_view name, const Bitmap& picture) {
  Copy& copy = copies_[std::string(name)];
  copy.width = picture.width;
  copy.height = picture.height;
  copy.channels.resize(picture.pixels.size() * 3);
  std::uint8_t* out = copy.channels.data();
  for (const Colour pixel : picture.pixels) {
    for (const int shift : {0, 8, 16}) *out++ = static_cast<std::uint8_t>(pixel >> shift);
  }
  copy.lastWriteFailed = !platform_.saveBitmap(picture, folder_.resolve(name));
}

Bitmap WorkPictures::load(std::string_view name) {
  const auto kept = copies_.find(name);
  if (kept == copies_.end() || !kept->second.lastWriteFailed) {
    if (auto fromFile = platform_.loadBitmap(folder_.resolve(name))) return std::move(fromFile.value());
  }
  if (kept == copies_.end()) return {};
  const Copy& copy = kept->second;
  Bitmap picture = plainBitmap(copy.width, copy.height, 0);
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    picture.pixels[i] = copy.channels[3 * i] | copy.channels[3 * i + 1] << 8 | copy.channels[3 * i + 2] << 16;
  }
  return picture;
}

}  // namespace gridwright
