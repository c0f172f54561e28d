// Picture files of every format that Qt's plugins read, and SVG, as pictures of exact colours.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "canvas/outcome.h"
#include "pictures/picture.h"

class QImage;

namespace gridwright {

/// What a picture may hold.
inline constexpr std::int64_t kMostPixels = 32'000'000;

/// Reads a picture: PNG, JPEG turned by its EXIF, GIF (the first picture), SVG rendered as large as fits,
/// WebP, TIFF, BMP and what else Qt's plugins know, told by its content and not by its name.
/// \param fitTo where an SVG is to fit; it has no pixels of its own. Each side 1 to 1000.
/// \returns a Fault whose words are a line for a person, with the file's name: nothing plain bears the name,
/// it is no picture or is cut, it has more than 32 million pixels. Nothing is waited for, and nothing that
/// the file names is opened. An SVG with words needs a QGuiApplication, for its fonts. May be called from
/// any thread.
Outcome<Picture> readPicture(const std::filesystem::path& path, Size fitTo);

/// The same from bytes, with the name by which a line calls them; `most` pixels are read.
Outcome<Picture> readPictureBytes(std::string_view bytes, Size fitTo, std::string_view name,
                                  std::int64_t most = kMostPixels);

/// A picture that Qt has decoded already, from the clipboard say.
Outcome<Picture> pictureOf(const QImage& image, std::string_view name);

}  // namespace gridwright
