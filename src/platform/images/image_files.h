// Bitmap files and printed pages by way of Qt, for both tenants.
#pragma once

#include <filesystem>
#include <vector>

#include "canvas/bitmap.h"
#include "core/outcome.h"

class QImage;
class QPainter;
class QPageLayout;
class QPagedPaintDevice;

namespace gridwright {

/// Decodes a bitmap file by content to exact 24-bit colour, alpha dropped, cut at 1000 by 1000.
Outcome<Bitmap> readBitmapFile(const std::filesystem::path& path);

/// Writes a 24-bit bitmap file.
Outcome<Done> writeBitmapFile(const Bitmap& picture, const std::filesystem::path& path);

QImage imageOf(const Bitmap& picture);

/// Turns the device's page to the picture's shape; to be called before its page begins.
void turnPageTo(QPagedPaintDevice& device, const Bitmap& picture);

/// Paints the picture fitted to the printable area, aspect kept, pixel for pixel sharp.
void paintPage(QPainter& painter, const Bitmap& picture);

/// One document of the pages. \returns a Fault when the file could not be written whole.
Outcome<Done> writePdf(const std::vector<Bitmap>& pages, const std::filesystem::path& path);

}  // namespace gridwright
