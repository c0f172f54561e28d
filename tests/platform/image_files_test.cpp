#include "platform/shared/image_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <iterator>

#include "files/work_folder.h"
#include "support/bitmap_files.h"
#include "support/no_plain_files.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

Outcome<Bitmap> decode(const std::string& bytes) {
  const TempFolder temp;
  temp.put("picture.bmp", bytes);
  return readBitmapFile(temp.path() / "picture.bmp");
}

::testing::AssertionResult decodesTo(const Bitmap& expected, const BitmapFile& form) {
  const auto picture = decode(fileOf(expected, form));
  if (!picture) return ::testing::AssertionFailure() << form.bits << " bits: " << picture.fault().words;
  return samePicture(picture.value(), expected) << "\n" << form.bits << " bits";
}

TEST(ABitmapFile, IsDecodedExactlyAtEveryDepthAndInEitherRowOrder) {
  for (const bool fromTop : {false, true}) {
    EXPECT_TRUE(decodesTo(motley(13, 5, 2), {1, fromTop}));
    EXPECT_TRUE(decodesTo(motley(13, 5, 16), {4, fromTop}));
    EXPECT_TRUE(decodesTo(motley(40, 21, 60), {8, fromTop}));
    EXPECT_TRUE(decodesTo(motley(13, 5, 60), {24, fromTop}));
    EXPECT_TRUE(decodesTo(motley(13, 5, 60), {32, fromTop}));
  }
}

TEST(ARunLengthCodedFile, IsDecodedExactly) {
  EXPECT_TRUE(decodesTo(motley(13, 5, 11), {8, false, false, true}));
  EXPECT_TRUE(decodesTo(motley(13, 5, 7), {4, false, false, true}));
  EXPECT_TRUE(decodesTo(drawing({"..##..", "#.#.#."}, 7), {8, false, false, true}));
  EXPECT_TRUE(decodesTo(drawing({"..##..", "#.#.#."}, 7), {4, false, false, true}));
}

TEST(ARunLengthCodedFile, IsDecodedExactlyWhereRunsFillTheRowsPadding) {
  for (int width = 5; width <= 16; ++width) {
    EXPECT_TRUE(decodesTo(motley(width, 5, 11), {8, false, false, true, false, false, true})) << width;
    EXPECT_TRUE(decodesTo(motley(width, 5, 7), {4, false, false, true, false, false, true})) << width;
    EXPECT_TRUE(decodesTo(plainBitmap(width, 3, 255), {8, false, false, true, false, false, true})) << width;
    EXPECT_TRUE(decodesTo(plainBitmap(width, 3, 255), {4, false, false, true, false, false, true})) << width;
  }
}

TEST(AFileWithTheShortHeader, IsDecodedExactly) {
  EXPECT_TRUE(decodesTo(motley(13, 5, 9), {8, false, true}));
  EXPECT_TRUE(decodesTo(motley(13, 5, 9), {24, false, true}));
}

TEST(AFileWithTheCutHeader, IsDecodedExactly) {
  EXPECT_TRUE(decodesTo(motley(13, 5, 2), {1, false, false, false, false, true}));
  EXPECT_TRUE(decodesTo(motley(13, 5, 9), {4, false, false, false, false, true}));
  EXPECT_TRUE(decodesTo(motley(13, 5, 9), {8, false, false, false, false, true}));
  EXPECT_TRUE(decodesTo(motley(13, 5, 60), {24, false, false, false, false, true}));
}

TEST(AnAlphaChannel, IsDropped) {
  EXPECT_TRUE(decodesTo(motley(13, 5, 60), {32, false, false, false, true}));
  // With an alpha mask in the header, and every pixel transparent.
  std::string file = fileOf(motley(4, 2, 8), {32});
  std::string larger = file.substr(0, 14);
  larger += file.substr(14, 40);
  for (const std::uint32_t mask : {0xFF0000U, 0xFF00U, 0xFFU, 0xFF000000U}) {
    for (int i = 0; i < 4; ++i) larger += static_cast<char>(mask >> (8 * i) & 255);
  }
  larger += file.substr(54);
  for (std::size_t i = 70 + 3; i < larger.size(); i += 4) larger[i] = '\0';
  poke(larger, 14, 56);
  poke(larger, 30, 3);
  poke(larger, 10, 70);
  const auto picture = decode(larger);
  ASSERT_TRUE(picture);
  EXPECT_TRUE(samePicture(picture.value(), motley(4, 2, 8)));
}

TEST(BlackAndWhiteOfSixteenBits, AreExactlyBlackAndWhite) {
  Bitmap picture = plainBitmap(8, 2, 0);
  constexpr std::array<Colour, 8> kFull = {kBlack, kWhite, kRed, kLime, kBlue, kYellow, kFuchsia, 16776960};
  std::copy(kFull.begin(), kFull.end(), picture.pixels.begin());
  EXPECT_TRUE(decodesTo(picture, {16}));
  EXPECT_TRUE(decodesTo(picture, {16, true}));
  EXPECT_TRUE(decodesTo(picture, {16, false, false, false, true}));
}

TEST(APictureLargerThanTheCanvas, IsCutAtTheTopLeft) {
  const Bitmap large = motley(1203, 1100, 60);
  const auto picture = decode(fileOf(large, {8}));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.value().cutFrom, (Size{1203, 1100}));
  ASSERT_EQ(picture.value().width, 1000);
  ASSERT_EQ(picture.value().height, 1000);
  for (const int at : {0, 1, 998, 999}) {
    EXPECT_EQ(picture.value().at(at, 0), large.at(at, 0));
    EXPECT_EQ(picture.value().at(at, 999), large.at(at, 999));
  }
}

TEST(APictureOfFortyMillionPixels, IsDecodedAndCut) {
  std::string file = fileOf(motley(8, 1, 2), {1});
  poke(file, 18, 8000);
  poke(file, 22, 5000);
  file.resize(62 + 1000 * 5000);
  const auto picture = decode(file);
  ASSERT_TRUE(picture) << picture.fault().words;
  EXPECT_EQ(picture.value().width, 1000);
}

TEST(WhatIsNoWholeBitmap, IsRefused) {
  EXPECT_EQ(decode("no bitmap").fault().kind, Fault::Kind::anotherFormat);
  EXPECT_EQ(decode("").fault().kind, Fault::Kind::malformed);
  const std::string whole = fileOf(motley(13, 5, 60), {});
  EXPECT_EQ(decode(whole.substr(0, whole.size() - 1)).fault().kind, Fault::Kind::malformed);
}

TEST(AMissingFileAndAFolder, AreNotFound) {
  const TempFolder temp;
  EXPECT_EQ(readBitmapFile(temp.path() / "none.bmp").fault().kind, Fault::Kind::notFound);
  EXPECT_EQ(readBitmapFile(temp.path()).fault().kind, Fault::Kind::notFound);
}

TEST(AWrittenPicture, IsA24BitFileThatComesBackPixelForPixel) {
  const TempFolder temp;
  const Bitmap picture = motley(31, 17, 200);
  ASSERT_TRUE(writeBitmapFile(picture, temp.path() / "out.bmp"));
  const std::string bytes = temp.get("out.bmp");
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  EXPECT_EQ(bytes[28], 24);
  EXPECT_EQ(bytes[30], 0) << "plain";
  EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "out.bmp").value(), picture));
}

/// Which file a name stands for: a new one has a new number.
ino_t fileNumber(const std::filesystem::path& path) {
  struct stat about {};
  EXPECT_EQ(::stat(path.c_str(), &about), 0);
  return about.st_ino;
}

TEST(APictureWrittenOverAnother, IsANewFile) {
  const TempFolder temp;
  const auto path = temp.path() / "out.bmp";
  ASSERT_TRUE(writeBitmapFile(motley(31, 17, 200), path));
  std::filesystem::create_hard_link(path, temp.path() / "held");  // its number is not given away meanwhile
  const ino_t first = fileNumber(path);
  ASSERT_TRUE(writeBitmapFile(motley(31, 17, 200), path));
  EXPECT_NE(fileNumber(path), first);
}

TEST(APictureWrittenOverAnother, LeavesTheFileAloneThatHasAnotherNameToo) {
  const TempFolder temp;
  const Bitmap mine = motley(31, 17, 200);
  ASSERT_TRUE(writeBitmapFile(mine, temp.path() / "mine.bmp"));
  std::filesystem::create_hard_link(temp.path() / "mine.bmp", temp.path() / "linked.bmp");
  ASSERT_TRUE(writeBitmapFile(motley(31, 17, 5), temp.path() / "linked.bmp"));
  EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "linked.bmp").value(), motley(31, 17, 5)));
  EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "mine.bmp").value(), mine));
}

TEST(APicture, IsWrittenToNothingButAPlainFile) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    const TempFolder temp;
    const TempFolder elsewhere;
    const Bitmap mine = motley(31, 17, 200);
    ASSERT_TRUE(writeBitmapFile(mine, elsewhere.path() / "mine.bmp"));
    put(kind, temp.path() / "out.bmp", elsewhere.path() / "mine.bmp");
    for (const Overwrite how : {Overwrite::atOnce, Overwrite::unhurried}) {
      const auto written = writeBitmapFile(motley(31, 17, 5), temp.path() / "out.bmp", how);
      ASSERT_FALSE(written);
      EXPECT_EQ(written.fault().kind, Fault::Kind::notPlain);
    }
    EXPECT_TRUE(samePicture(readBitmapFile(elsewhere.path() / "mine.bmp").value(), mine));
    EXPECT_TRUE(isNoPlainFile(temp.path() / "out.bmp"));
  }
}

TEST(ADocument, ReplacesNothingButAPlainFile) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    const TempFolder temp;
    const TempFolder elsewhere;
    elsewhere.put("mine", "precious");
    put(kind, temp.path() / "out.pdf", elsewhere.path() / "mine");
    PdfDocument document(temp.path() / "out.pdf");
    EXPECT_FALSE(document.addPage(motley(2, 2, 2)));
    EXPECT_FALSE(document.finish());
    EXPECT_TRUE(isNoPlainFile(temp.path() / "out.pdf"));
    EXPECT_EQ(elsewhere.get("mine"), "precious");
    EXPECT_FALSE(std::filesystem::exists(temp.path() / "out.pdf.building"));
  }
}

TEST(ADocument, WhoseNameIsTakenByALinkWhileItGrowsReplacesNothing) {
  const TempFolder temp;
  temp.put("mine", "precious");
  PdfDocument document(temp.path() / "out.pdf");
  ASSERT_TRUE(document.addPage(motley(2, 2, 2)));
  put(NoPlainFile::link, temp.path() / "out.pdf", temp.path() / "mine");
  EXPECT_FALSE(document.finish());
  EXPECT_EQ(temp.get("out.pdf"), "precious");
}

TEST(ANameOfAnyBytes, LeadsPicturesAndDocumentsToTheFileThatTextsGoTo) {
  const TempFolder temp;
  const std::filesystem::path folder = temp.path() / "caf\xE9";  // as old systems wrote it: no UTF-8
  std::filesystem::create_directory(folder);
  WorkFolder texts(folder);
  ASSERT_TRUE(texts.writeText("d\xFC.pt", "1"));
  ASSERT_TRUE(writeBitmapFile(motley(3, 2, 2), folder / "d\xFC.bmp"));
  EXPECT_TRUE(samePicture(readBitmapFile(folder / "d\xFC.bmp").value(), motley(3, 2, 2)));
  PdfDocument document(folder / "d\xFC.pdf");
  ASSERT_TRUE(document.addPage(motley(3, 2, 2)));
  ASSERT_TRUE(document.finish());
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    ++files;
    EXPECT_EQ(entry.path().filename().string().substr(0, 2), "d\xFC");
  }
  EXPECT_EQ(files, 3);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(temp.path()), {}), 1) << "one folder, not two";
}

TEST(AFileThatCannotBeWritten, IsAFault) {
  const TempFolder temp;
  EXPECT_EQ(writeBitmapFile(motley(2, 2, 2), temp.path() / "none" / "out.bmp").fault().kind,
            Fault::Kind::notWritable);
  PdfDocument document(temp.path() / "none" / "out.pdf");
  EXPECT_FALSE(document.addPage(motley(2, 2, 2)));
  EXPECT_FALSE(document.finish());
}

TEST(ADocument, ThatCannotTakeItsNameLeavesNothingBehind) {
  const TempFolder temp;
  PdfDocument document(temp.path() / "out.pdf");
  EXPECT_TRUE(document.addPage(motley(2, 2, 2)));
  document.setPlace(temp.path() / "none" / "out.pdf");
  EXPECT_FALSE(document.finish());
  EXPECT_TRUE(std::filesystem::is_empty(temp.path()));
}

TEST(ADocument, LeavesNothingBehindUnlessItIsFinished) {
  const TempFolder temp;
  {
    PdfDocument document(temp.path() / "out.pdf");
    ASSERT_TRUE(document.addPage(plainBitmap(8, 6, kNavy)));
  }
  EXPECT_TRUE(std::filesystem::is_empty(temp.path()));
}

TEST(ADocument, HasAPageForEachPictureEachTurnedToItsShape) {
  const TempFolder temp;
  PdfDocument document(temp.path() / "out.pdf");
  ASSERT_TRUE(document.addPage(plainBitmap(80, 60, kNavy)));
  ASSERT_TRUE(document.addPage(plainBitmap(60, 80, kNavy)));
  ASSERT_TRUE(document.finish());
  const std::string bytes = temp.get("out.pdf");
  EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
  std::size_t pages = 0;
  for (std::size_t at = bytes.find("/Type /Page\n"); at != std::string::npos;
       at = bytes.find("/Type /Page\n", at + 1)) {
    ++pages;
  }
  EXPECT_EQ(pages, 2U);
  EXPECT_EQ(bytes.find("DCTDecode"), std::string::npos) << "no pixel is smoothed away by a lossy coding";
}

}  // namespace
}  // namespace gridwright::test
