#include <gtest/gtest.h>

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/qt/printing.h"
#include "platform/shared/page_paint.h"
#include "support/full_disk.h"

namespace gridwright {
namespace {

std::unique_ptr<QPrinter> noPrinter() { return nullptr; }

/// A printer that writes what it prints to a file; without one it refuses.
Printing::FindPrinter printerTo(const std::filesystem::path& file) {
  return [file] {
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(file.string()));
    return printer;
  };
}

struct Folder {
  QTemporaryDir dir;
  [[nodiscard]] std::filesystem::path path() const { return dir.path().toStdString(); }
  [[nodiscard]] bool has(const char* name) const { return std::filesystem::exists(path() / name); }
  [[nodiscard]] int pagesIn(const char* name) const {
    std::ifstream in(path() / name, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    int pages = 0;
    const std::string mark = "/Type /Page\n";
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) ++pages;
    return pages;
  }
};

const Bitmap kPage = plainBitmap(80, 60, kPalette[1]);

TEST(PagesWithoutAPrinter, BecomeOnePdfWhenTheRunEnds) {
  Folder folder;
  Printing printing(folder.path(), noPrinter);
  printing.page(kPage);
  printing.page(kPage);
  EXPECT_FALSE(folder.has("gridwright-0001.pdf"));
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_EQ(folder.pagesIn("gridwright-0001.pdf"), 2);
}

TEST(ASecondRun, TakesTheNextFreeNumberAndOverwritesNothing) {
  Folder folder;
  std::ofstream(folder.path() / "gridwright-0001.pdf") << "mine";
  Printing printing(folder.path(), noPrinter);
  for (int run = 0; run < 2; ++run) {
    printing.page(kPage);
    EXPECT_TRUE(printing.endOfPages());
  }
  EXPECT_EQ(std::filesystem::file_size(folder.path() / "gridwright-0001.pdf"), 4U);
  EXPECT_EQ(folder.pagesIn("gridwright-0002.pdf"), 1);
  EXPECT_EQ(folder.pagesIn("gridwright-0003.pdf"), 1);
}

TEST(APdfThatCannotBeWritten, IsTold) {
  Folder folder;
  Printing printing(folder.path() / "no such folder", noPrinter);
  EXPECT_FALSE(printing.page(kPage));
  EXPECT_FALSE(printing.endOfPages());
  EXPECT_TRUE(printing.endOfPages()) << "told once";
}

TEST(APdfOnADiskThatFillsUp, IsToldAndLeavesNothingBehind) {
  Folder folder;
  Bitmap noise = plainBitmap(80, 60, 0);
  for (std::size_t i = 0; i < noise.pixels.size(); ++i)
    noise.pixels[i] = static_cast<Colour>(i * 2654435 % 0xFFFFFF);
  {
    bool last = true;
    const test::FullDisk full(5000);
    Printing printing(folder.path(), noPrinter);
    for (int page = 0; page < 9; ++page) last = static_cast<bool>(printing.page(noise));
    EXPECT_FALSE(last);
    EXPECT_FALSE(printing.endOfPages());
    printing.page(kPage);
    EXPECT_TRUE(printing.endOfPages()) << "the next run is another one, and fits";
  }
  EXPECT_EQ(folder.pagesIn("gridwright-0001.pdf"), 1);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(AnEndWithoutPages, WritesNothing) {
  Folder folder;
  Printing printing(folder.path(), noPrinter);
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(ADefaultPrinter, GetsTheRunAsOneDocument) {
  Folder folder;
  Printing printing(folder.path(), printerTo(folder.path() / "paper.pdf"));
  for (int page = 0; page < 3; ++page) printing.page(kPage);
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_EQ(folder.pagesIn("paper.pdf"), 3);
  EXPECT_FALSE(folder.has("gridwright-0001.pdf"));
}

TEST(APrinterThatRefuses, LosesNoPage) {
  Folder folder;
  Printing printing(folder.path(), printerTo(folder.path() / "no such folder" / "paper.pdf"));
  printing.page(kPage);
  printing.page(kPage);
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_EQ(folder.pagesIn("gridwright-0001.pdf"), 2);
}

/// A printer that refuses to begin its k-th page.
class RefusingPrinter : public QPrinter {
 public:
  explicit RefusingPrinter(int refused) : left_(refused - 1) {}
  bool newPage() override { return --left_ > 0 && QPrinter::newPage(); }

 private:
  int left_;
};

TEST(APrinterThatRefusesAnyPage, HasTheOnesBeforeItAndTheRestIsInThePdf) {
  constexpr int kPages = 5;
  for (int refused = 2; refused <= kPages; ++refused) {
    SCOPED_TRACE(refused);
    Folder folder;
    Printing printing(folder.path(), [&] {
      auto printer = std::make_unique<RefusingPrinter>(refused);
      printer->setOutputFormat(QPrinter::PdfFormat);
      printer->setOutputFileName(QString::fromStdString((folder.path() / "paper.pdf").string()));
      return printer;
    });
    for (int page = 0; page < kPages; ++page) EXPECT_TRUE(printing.page(kPage));
    EXPECT_TRUE(printing.endOfPages());
    EXPECT_EQ(folder.pagesIn("paper.pdf"), refused - 1);
    EXPECT_EQ(folder.pagesIn("gridwright-0001.pdf"), kPages - refused + 1);
  }
}

TEST(APageAlone, IsADocumentOfItsOwnInTheMiddleOfARun) {
  Folder folder;
  Printing printing(folder.path(), noPrinter);
  printing.page(kPage);
  EXPECT_TRUE(printing.pageAlone(kPage));
  printing.page(kPage);
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_EQ(folder.pagesIn("gridwright-0001.pdf"), 2);
  EXPECT_EQ(folder.pagesIn("gridwright-0002.pdf"), 1);
}

TEST(ANameTakenDuringARun, IsLeftToItsOwner) {
  Folder folder;
  Printing printing(folder.path(), noPrinter);
  printing.page(kPage);
  std::ofstream(folder.path() / "gridwright-0001.pdf") << "mine";
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_EQ(std::filesystem::file_size(folder.path() / "gridwright-0001.pdf"), 4U);
  EXPECT_EQ(folder.pagesIn("gridwright-0002.pdf"), 1);
}

std::string sizesIn(const std::filesystem::path& file) {
  QProcess told;
  told.start("pdfinfo", {"-f", "1", "-l", "9", QString::fromStdString(file.string())});
  told.waitForFinished();
  return told.readAllStandardOutput().toStdString();
}

TEST(APrinter, HasThePaperThatIsSetUpAndItsOwnAgainWhereNoneIs) {
  Folder folder;
  const auto file = folder.path() / "paper.pdf";
  Printing printing(folder.path(), printerTo(file));
  PageLook letter;
  letter.setup.paper = paperNamed("letter");
  printing.page(kPage, letter);
  printing.page(kPage);
  EXPECT_TRUE(printing.endOfPages());
  const std::string sizes = sizesIn(file);
  EXPECT_NE(sizes.find("Page    1 size:  792 x 612 pts (letter)"), std::string::npos) << sizes;
  EXPECT_NE(sizes.find("Page    2 size:  842 x 595 pts (A4)"), std::string::npos) << sizes;
}

TEST(APdfInPlaceOfAPrinter, HasTheDesktopsPaper) {
  Folder folder;
  Printing printing(folder.path(), noPrinter, {*paperNamed("letter"), allRound(10), "the desktop"});
  printing.page(kPage);
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_TRUE(printing.pageAlone(kPage));
  for (const char* name : {"gridwright-0001.pdf", "gridwright-0002.pdf"})
    EXPECT_NE(sizesIn(folder.path() / name).find("792 x 612 pts (letter)"), std::string::npos) << name;
}

TEST(ThePaperOfTheDesktop, IsA4UnlessItsLocaleHasAnother) {
  EXPECT_EQ(paperOfDesktop().size, (PaperSize{2100, 2970}));
  EXPECT_EQ(paperOfDesktop().margins, allRound(10));
}

TEST(TheUsualPaper, IsThePrintersAndElseTheOneOfPdfs) {
  Folder folder;
  const UsualPaper legal{*paperNamed("legal"), allRound(12), "the desktop"};
  const UsualPaper ofPdfs = Printing(folder.path(), noPrinter, legal).usualPaper();
  EXPECT_EQ(ofPdfs.size, legal.size);
  EXPECT_EQ(ofPdfs.margins, legal.margins);
  EXPECT_EQ(ofPdfs.whose, "the desktop");
  const auto withLetter = [] {
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setPageSize(QPageSize(QPageSize::Letter));
    printer->setPageOrientation(QPageLayout::Landscape);
    return printer;
  };
  const UsualPaper printers = Printing(folder.path(), withLetter, legal).usualPaper();
  EXPECT_EQ(printers.size, (PaperSize{2159, 2794})) << "upright, however its pages lie";
  EXPECT_EQ(printers.whose.substr(0, 11), "the printer");
}

TEST(APrinterForDialogs, IsLaidAsThePageWouldBe) {
  Folder folder;
  const Printing printing(folder.path(), noPrinter, {*paperNamed("legal"), allRound(12), "the desktop"});
  PageSetup setup;
  const auto usual = printing.printerFor(kPage, setup);
  EXPECT_EQ(usual->pageLayout().pageSize().id(), QPageSize::Legal);
  EXPECT_EQ(marginsOf(usual->pageLayout()), allRound(12));
  EXPECT_EQ(usual->pageLayout().orientation(), QPageLayout::Landscape);
  setup = {paperNamed("a5"), false, allRound(20), {}};
  const auto set = printing.printerFor(kPage, setup);
  EXPECT_EQ(set->pageLayout().pageSize().id(), QPageSize::A5);
  EXPECT_EQ(marginsOf(set->pageLayout()), allRound(20));
  EXPECT_EQ(set->pageLayout().orientation(), QPageLayout::Portrait);
}

/// A document but for the moment that it was written in.
std::string withoutDate(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const auto date = text.find("/CreationDate");
  if (date != std::string::npos) text.erase(date, text.find('\n', date) - date);
  return text;
}

TEST(APrinter, GetsASheetAsPixelsAsQtPaintsAnImage) {
  Folder folder;
  const auto plain = printerTo(folder.path() / "plain.pdf")();
  plain->setPageOrientation(QPageLayout::Landscape);
  QPainter painter(plain.get());
  painter.setRenderHint(QPainter::LosslessImageRendering, true);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  const double scale = std::min(plain->width() / 80.0, plain->height() / 60.0);
  QRectF place(0, 0, 80 * scale, 60 * scale);
  place.moveCenter(QRectF(0, 0, plain->width(), plain->height()).center());
  painter.drawImage(place, imageOf(kPage));
  painter.end();
  Printing printing(folder.path(), printerTo(folder.path() / "paper.pdf"));
  printing.page(kPage);
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_EQ(withoutDate(folder.path() / "paper.pdf"), withoutDate(folder.path() / "plain.pdf"));
}

TEST(APrinter, GetsEverySheetOfAPageThatIsSpreadAndDrawsIt) {
  Folder folder;
  Printing printing(folder.path(), printerTo(folder.path() / "paper.pdf"));
  PageLook look;
  look.setup.tiles = {3, 2};
  printing.page(kPage, look);
  EXPECT_TRUE(printing.endOfPages());
  EXPECT_EQ(folder.pagesIn("paper.pdf"), 6);
  EXPECT_EQ(withoutDate(folder.path() / "paper.pdf").find("/Subtype /Image"), std::string::npos);
}

}  // namespace
}  // namespace gridwright
