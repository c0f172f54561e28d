#include "platform/shared/image_files.h"

#include <QBuffer>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "canvas/bitmap_check.h"
#include "canvas/bitmap_decode.h"
#include "canvas/bitmap_encode.h"
#include "canvas/canvas.h"
#include "platform/shared/growing_file.h"
#include "platform/shared/page_paint.h"
#include "platform/shared/page_sheets.h"
#include "platform/shared/pdf_amendment.h"

namespace gridwright {

Outcome<Bitmap> readBitmapFile(const FilePlace& place) {
  const auto bytes = readWantedBytes(place, kBitmapHead, bytesOfBitmap);
  if (!bytes) return bytes.fault();
  return decodeBitmapFile(bytes.value(), Canvas::kSide);
}

QImage imageOf(const BitmapView& picture) {
  const int width = picture.width;  // a copy: the compiler can't tell that no pixel written changes it
  QImage image(width, picture.height, QImage::Format_RGB32);
  for (int y = 0; y < picture.height; ++y) {
    const Colour* in = picture.row(y);
    auto* out = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < width; ++x) {
      const auto pixel = static_cast<QRgb>(in[x]);
      out[x] = 0xFF000000U | (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
    }
  }
  return image;
}

Outcome<FileMark> writeBitmapFile(const BitmapView& picture, const FilePlace& place, Overwrite how) {
  return replacePlainFile(place, BitmapFilePieces(picture).pieces(), how);
}

Outcome<Done> writePngFile(const BitmapView& picture, const FilePlace& place) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::WriteOnly) || !imageOf(picture).save(&buffer, "PNG"))
    return Fault{Fault::Kind::notWritable, place.path().string()};
  const auto written =
      replacePlainFile(place, {bytes.constData(), static_cast<std::size_t>(bytes.size())}, Overwrite::atOnce);
  if (!written) return written.fault();
  return Done{};
}

struct PdfDocument::Writer {
  Writer(const FilePlace& place, const UsualPaper& paper) : file(place), amended(file) {
    if (!file.isOpen()) return;
    pdf = std::make_unique<QPdfWriter>(&amended);
    pdf->setCreator("Gridwright");
    pdf->setTitle("Gridwright");
    pdf->setPageSize(qtPaper(paper.size));
    const auto millimetres = [](int tenths) { return static_cast<double>(tenths) / kTenths; };
    const Margins& m = paper.margins;
    pdf->setPageMargins(
        {millimetres(m.left), millimetres(m.top), millimetres(m.right), millimetres(m.bottom)},
        QPageLayout::Millimeter);
    pdf->setResolution(1200);
    usual = pdf->pageLayout();
  }

  /// What the document will say of this page.
  void note(const PageLook& look) {
    if (!first) first = look.about;
    mazes = std::max(mazes, look.about.maze.number);
    const int sheets = look.setup.tiles.count();
    for (int sheet = 1; sheet <= sheets; ++sheet) labels.add(look.about.maze, sheets == 1 ? 0 : sheet);
  }
  [[nodiscard]] PdfAbout about() const {
    const PageAbout page = first.value_or(PageAbout{});
    const std::string what =
        mazes == 0 ? "A page" : std::to_string(mazes) + (mazes == 1 ? " maze" : " mazes");
    const std::string seed = std::to_string(page.seed);
    return {page.title, what + " from seed " + seed, "seed " + seed + "; " + page.settings};
  }

  GrowingFile file;
  AmendedPdf amended;
  PageLabels labels;
  std::optional<PageAbout> first;
  int mazes = 0;  // the highest number of the run
  std::unique_ptr<QPdfWriter> pdf;
  QPageLayout usual;
  QPainter painter;  // ends before the writer and the file do
};

PdfDocument::PdfDocument(const FilePlace& place, const UsualPaper& paper)
    : place_(place.held()),
      writer_(isNoPlainFile(place_) ? nullptr : std::make_unique<Writer>(place_, paper)) {}

PdfDocument::~PdfDocument() = default;

Outcome<Done> PdfDocument::addPage(const BitmapView& picture, const PageLook& look) {
  const Fault fault{Fault::Kind::notWritable, place_.path().string()};
  if (writer_ == nullptr || writer_->pdf == nullptr) return fault;
  layPage(*writer_->pdf, writer_->usual, picture, look.setup);
  const bool begun =
      writer_->painter.isActive() ? writer_->pdf->newPage() : writer_->painter.begin(writer_->pdf.get());
  if (!begun) return fault;
  const bool painted = paintSheets(writer_->painter, picture, look, PictureInk::rectangles,
                                   [this] { return writer_->pdf->newPage(); });
  if (!painted) return fault;
  writer_->note(look);
  if (!writer_->file.isWhole()) return fault;
  return Done{};
}

Outcome<Done> PdfDocument::finish() {
  const Fault fault{Fault::Kind::notWritable, place_.path().string()};
  if (writer_ == nullptr || writer_->pdf == nullptr) return fault;
  const bool ended = writer_->painter.end();
  writer_->pdf.reset();  // writes what makes a document of the pages
  // A document that says less of itself is whole all the same.
  static_cast<void>(writer_->amended.amend(writer_->about(), writer_->labels));
  const bool taken = ended && writer_->file.takeName(place_);
  writer_.reset();
  if (!taken) return fault;
  return Done{};
}

std::filesystem::path contentFolderFor(const std::filesystem::path& executableFolder) {
  std::error_code failed;
  for (const auto& folder :
       {executableFolder / ".." / "share" / "gridwright", executableFolder / "content"}) {
    if (std::filesystem::is_directory(folder, failed)) return folder;
  }
  return {};
}

std::filesystem::path contentFolderOfProgram() {
  std::error_code unknown;
  return contentFolderFor(std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path());
}

}  // namespace gridwright
