// Bitmap files and documents of pages by way of Qt, for both tenants.
#pragma once

#include <filesystem>
#include <memory>

#include "canvas/bitmap.h"
#include "canvas/bitmap_view.h"
#include "canvas/outcome.h"
#include "files/plain_file.h"
#include "state/page_setup.h"

class QImage;

namespace gridwright {

/// Decodes a bitmap file by content to exact 24-bit colour, alpha dropped, cut at 1000 by 1000.
Outcome<Bitmap> readBitmapFile(const FilePlace& place);

/// Writes a 24-bit bitmap file, by `replacePlainFile`: what was there or the new one is there, whole, at any
/// moment. Nothing is written to what is no plain file: a notPlain Fault.
Outcome<FileMark> writeBitmapFile(const BitmapView& picture, const FilePlace& place,
                                  Overwrite how = Overwrite::atOnce);

/// Writes a PNG of just these pixels by way of a file beside it that is renamed.
Outcome<Done> writePngFile(const BitmapView& picture, const FilePlace& place);

QImage imageOf(const BitmapView& picture);

/// A document that grows page by page on disk, so that a book of any length costs no memory. It gets
/// its name when it is finished, and leaves nothing behind when it is not.
class PdfDocument {
 public:
  /// Nothing but a plain file, or a free name, is taken: else there is a Fault from the first page on.
  /// \param paper of pages for which nobody has set another.
  explicit PdfDocument(const FilePlace& place, const UsualPaper& paper = {});
  ~PdfDocument();
  PdfDocument(const PdfDocument&) = delete;
  PdfDocument& operator=(const PdfDocument&) = delete;

  /// \returns a Fault from the first page on of which a byte could not be written.
  Outcome<Done> addPage(const BitmapView& picture, const PageLook& look = {});
  /// Every byte is on the disk and the document has its name; else a Fault, and what was there under the
  /// name stays as it was.
  Outcome<Done> finish();

  /// The name that it will have.
  [[nodiscard]] const FilePlace& place() const { return place_; }
  void setPlace(FilePlace place) { place_ = std::move(place); }

 private:
  struct Writer;
  FilePlace place_;
  std::unique_ptr<Writer> writer_;
};

/// The pictures that came with the program, for an executable in this folder: in the share folder of
/// an installed one, beside one that was just built. Empty when there are none.
std::filesystem::path contentFolderFor(const std::filesystem::path& executableFolder);

/// The same for the executable that runs.
std::filesystem::path contentFolderOfProgram();

}  // namespace gridwright
