// Files of every format that people bring, and of none: read whole, or refused with a line.
#include "platform/pictures/read_picture.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QImage>
#include <chrono>

#include "canvas/bitmap_encode.h"
#include "pictures/brought.h"
#include "platform/pictures/reduced_image.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

bool isNear(Colour one, Colour other, int by = 24) {
  for (unsigned shift = 0; shift < 24; shift += 8) {
    if (std::abs((one >> shift & 0xFF) - (other >> shift & 0xFF)) > by) return false;
  }
  return true;
}

std::string faultOf(const std::filesystem::path& path) {
  const auto picture = readPicture(path, {400, 300});
  return picture ? "" : picture.fault().words;
}

std::string faultOfBytes(std::string_view bytes) {
  const auto picture = readPictureBytes(bytes, {400, 300}, "it");
  return picture ? "" : picture.fault().words;
}

std::string encoded(const QImage& image, const char* format) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  EXPECT_TRUE(image.save(&buffer, format));
  return bytes.toStdString();
}

/// The sum that guards each part of a PNG.
std::uint32_t sumOf(std::string_view part) {
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const char c : part) {
    sum ^= static_cast<std::uint8_t>(c);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320U : 0U);
  }
  return ~sum;
}

TEST(EveryPictureThatWasBrought, IsRead) {
  const auto names = allBrought();
  ASSERT_GE(names.size(), 20U);
  for (const std::string& name : names) {
    const Picture picture = readBrought(name);
    EXPECT_GE(picture.whole.colours.width, 60) << name;
    EXPECT_EQ(picture.whole.colours.pixels.size(),
              static_cast<std::size_t>(picture.whole.colours.width * picture.whole.colours.height))
        << name;
  }
}

TEST(APngOfHardColours, IsReadToThePixel) {
  const Picture picture = readBrought("tiny.png");
  EXPECT_EQ(picture.own, (Size{64, 64}));
  EXPECT_EQ(picture.whole.colours.at(0, 0), 0xFFFFFF);
  EXPECT_EQ(picture.whole.colours.at(20, 4), 0x0028D8);
  EXPECT_TRUE(picture.isWholeAsItIs());
  EXPECT_TRUE(picture.whole.clear.empty());
}

TEST(AJpeg, IsTurnedByItsExifInEachOfItsEightWays) {
  for (int way = 1; way <= 8; ++way) {
    const Picture picture = readBrought("turned_" + std::to_string(way) + ".jpg");
    const Bitmap& colours = picture.whole.colours;
    ASSERT_EQ(picture.own, (Size{360, 480})) << way;
    EXPECT_TRUE(isNear(colours.at(100, 390), 0x1E1EC8)) << way;
    EXPECT_TRUE(isNear(colours.at(270, 100), 0x1E1EC8)) << way;
    EXPECT_TRUE(isNear(colours.at(200, 260), 0xC83C1E)) << way;
    EXPECT_TRUE(isNear(colours.at(300, 400), 0xFFFFFF)) << way;
  }
}

TEST(ALargeJpegThatIsTurned, IsTurnedInBothOfItsSizes) {
  QImage image(1600, 1200, QImage::Format_RGB32);
  image.fill(Qt::white);
  for (int y = 0; y < 600; ++y) {
    for (int x = 0; x < 1600; ++x) image.setPixel(x, y, qRgb(200, 0, 0));
  }
  std::string bytes = encoded(image, "JPG");
  const std::string exif(
      "\xFF\xE1\x00\x22"
      "Exif\0\0MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0",
      36);
  bytes.insert(2, exif);
  const auto picture = readPictureBytes(bytes, {1000, 1000}, "it");
  ASSERT_TRUE(picture) << picture.fault().words;
  EXPECT_EQ(picture.value().own, (Size{1200, 1600}));
  EXPECT_EQ(picture.value().whole.size(), (Size{750, 1000}));
  EXPECT_FALSE(picture.value().isWholeAsItIs());
  const Layer middle = picture.value().asItIs();  // read now, from the bytes of before
  EXPECT_EQ(middle.size(), (Size{1000, 1000}));
  for (const Layer* layer : {&picture.value().whole, &middle}) {
    const Bitmap& colours = layer->colours;
    EXPECT_TRUE(isNear(colours.at(20, 20), 0xFFFFFF)) << "what was on top is on the right";
    EXPECT_TRUE(isNear(colours.at(colours.width - 20, 20), 0x0000C8));
    EXPECT_TRUE(isNear(colours.at(colours.width - 20, colours.height - 20), 0x0000C8));
  }
}

TEST(TransparentParts, AreTold) {
  for (const char* name : {"cut_out.png", "cut_out.webp"}) {
    const Picture picture = readBrought(name);
    ASSERT_EQ(picture.whole.clear.size(), 400U * 300U) << name;
    const auto clearAt = [&](int x, int y) {
      return picture.whole.isClear(std::size_t{400} * static_cast<std::size_t>(y) +
                                   static_cast<std::size_t>(x));
    };
    EXPECT_TRUE(clearAt(5, 5)) << name;
    EXPECT_TRUE(clearAt(310, 140)) << name << ": the hole";
    EXPECT_FALSE(clearAt(60, 150)) << name;
  }
}

TEST(SixteenBitsAChannel, AreReadAsEight) {
  const Bitmap colours = readBrought("deep.png").whole.colours;
  EXPECT_TRUE(isNear(colours.at(160, 120), 0x2F3FCB, 2));
  EXPECT_EQ(colours.at(2, 2), 0xFFFFFF);
}

TEST(AJpegOfFourInks, HasTheColoursOfItsPrint) {
  const Bitmap inks = readBrought("four_inks.jpg").whole.colours;
  const Bitmap light = readBrought("clip_art.png").whole.colours;
  for (const auto& [x, y] :
       {std::pair{160, 150}, std::pair{330, 150}, std::pair{300, 340}, std::pair{10, 10}}) {
    EXPECT_TRUE(isNear(inks.at(x, y), light.at(x, y))) << x << ", " << y;
  }
}

TEST(AnInterlacedPng, IsReadAsThePlainOne) {
  const Bitmap colours = readBrought("interlaced.png").whole.colours;
  EXPECT_EQ(colours.width, 300);
  EXPECT_TRUE(isNear(colours.at(80, 75), 0x3228DC));
  EXPECT_TRUE(isNear(colours.at(150, 170), 0x3CC8FA));
}

TEST(AGifThatMoves, GivesItsFirstPicture) {
  const Bitmap colours = readBrought("moving.gif").whole.colours;
  EXPECT_TRUE(isNear(colours.at(60, 100), 0xB45A14));
  EXPECT_EQ(colours.at(220, 100), 0xFFFFFF);
}

TEST(AGifThatNeverEnds, GivesItsFirstPicture) {
  std::string bytes = bytesOf(brought("moving.gif"));
  const std::string frames = bytes.substr(bytes.find("\x21\xF9"), bytes.size() - bytes.find("\x21\xF9") - 1);
  bytes.pop_back();
  for (int again = 0; again < 2000; ++again) bytes += frames;
  const auto picture = readPictureBytes(bytes, {400, 300}, "it");
  ASSERT_TRUE(picture) << picture.fault().words;
  EXPECT_TRUE(isNear(picture.value().whole.colours.at(60, 100), 0xB45A14));
}

TEST(AnSvg, IsRenderedAsLargeAsFits) {
  const auto picture = readPicture(brought("drawing.svg"), {800, 300});
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.value().whole.size(), (Size{400, 300}));
  EXPECT_EQ(picture.value().own, (Size{200, 150}));
  EXPECT_EQ(picture.value().asItIs().size(), (Size{200, 150}));
  EXPECT_TRUE(isNear(picture.value().whole.colours.at(140, 140), 0xC06030));
  EXPECT_TRUE(isNear(picture.value().whole.colours.at(70, 255), 0x2878C8)) << "the picture within";
  EXPECT_TRUE(picture.value().whole.isClear(0));
}

TEST(AnSvgLargerThanACanvas, HasItsMiddleInItsOwnSize) {
  const auto picture = readPictureBytes(
      "<svg xmlns='http://www.w3.org/2000/svg' width='2400' height='800'>"
      "<rect x='1100' y='300' width='200' height='100' fill='#0000ff'/></svg>",
      {400, 300}, "it");
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.value().whole.size(), (Size{400, 133}));
  ASSERT_EQ(picture.value().asItIs().size(), (Size{1000, 800}));
  EXPECT_FALSE(picture.value().isWholeAsItIs());
  const Layer middle = picture.value().asItIs();
  EXPECT_EQ(middle.colours.at(400, 300), 0xFF0000);
  EXPECT_EQ(middle.colours.at(599, 399), 0xFF0000);
  for (const auto& [x, y] : {std::pair{399, 300}, {400, 299}, {600, 399}, {599, 400}}) {
    EXPECT_TRUE(middle.isClear(static_cast<std::size_t>(y) * 1000 + static_cast<std::size_t>(x)));
  }
}

TEST(ABitmapOfPaletteColours, KeepsThemExactly) {
  const Bitmap picture = drawing({".,ok", "#=ry"});
  const auto read = readPictureBytes(encodeBitmapFile(picture), {400, 300}, "it");
  ASSERT_TRUE(read);
  EXPECT_TRUE(samePicture(read.value().whole.colours, picture));
}

TEST(APictureLargerThanACanvas, IsKeptSmallAndItsMiddleAsItIs) {
  QImage image(3000, 1500, QImage::Format_RGB32);
  image.fill(qRgb(10, 200, 30));
  image.setPixel(1500, 750, qRgb(255, 0, 0));
  const auto picture = pictureOf(image, "it");
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.value().own, (Size{3000, 1500}));
  EXPECT_EQ(picture.value().whole.size(), (Size{1000, 500}));
  EXPECT_EQ(picture.value().middle.size(), (Size{1000, 1000}));
  EXPECT_EQ(picture.value().middle.colours.at(500, 500), 0x0000FF);
  EXPECT_EQ(picture.value().whole.colours.at(3, 3), 0x1EC80A);
  EXPECT_FALSE(picture.value().isWholeAsItIs());
}

TEST(AReducedPicture, IsMadeOfMeansOfAllItsPixels) {
  QImage image(4000, 4000, QImage::Format_RGB32);
  for (int y = 0; y < 4000; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < 4000; ++x) row[x] = (x + y) % 2 == 0 ? qRgb(0, 0, 0) : qRgb(200, 200, 200);
  }
  const Layer layer = reducedLayerOf(image);
  ASSERT_EQ(layer.size(), (Size{1000, 1000}));
  for (const Colour colour : layer.colours.pixels) ASSERT_TRUE(isNear(colour, 0x646464, 1));
}

TEST(APictureOfOneRow, IsReducedToo) {
  QImage image(20000, 1, QImage::Format_RGB32);
  image.fill(qRgb(1, 2, 3));
  EXPECT_EQ(reducedLayerOf(image).size(), (Size{1000, 1}));
  EXPECT_EQ(reducedLayerOf(image.transformed(QTransform().rotate(90))).size(), (Size{1, 1000}));
}

TEST(AFileThatIsCutOff, IsRefusedInEveryFormat) {
  for (const std::string& name : allBrought()) {
    const std::string bytes = bytesOf(brought(name));
    if (name == "moving.gif") continue;  // its first picture is whole long before its end
    for (const int eighths : {1, 3, 5, 7}) {
      EXPECT_NE(faultOfBytes(
                    std::string_view(bytes).substr(0, bytes.size() * static_cast<std::size_t>(eighths) / 8)),
                "")
          << name << ", " << eighths << " eighths";
    }
  }
}

TEST(AGifThatIsCutOffInItsFirstPicture, IsRefused) {
  const std::string bytes = bytesOf(brought("moving.gif"));
  const auto begin = bytes.find("\x21\xF9");
  const auto end = bytes.find("\x21\xF9", begin + 2);
  ASSERT_NE(end, std::string::npos);
  EXPECT_EQ(faultOfBytes(bytes.substr(0, end)), "");
  for (const auto length : {begin, begin + (end - begin) / 2, end - 100}) {
    EXPECT_EQ(faultOfBytes(bytes.substr(0, length)), "it is cut off or broken") << length;
  }
}

TEST(APngThatLiesAboutItsSize, IsRefused) {
  const auto sized = [](std::string bytes, const std::string& size) {
    bytes.replace(16, 8, size);
    const std::uint32_t sum = sumOf(std::string_view(bytes).substr(12, 17));
    for (unsigned i = 0; i < 4; ++i) bytes[29 + i] = static_cast<char>(sum >> (24 - 8 * i));
    return bytes;
  };
  const std::string bytes = bytesOf(brought("tiny.png"));
  EXPECT_EQ(faultOfBytes(sized(bytes, bytes.substr(16, 8))), "") << "the sum is that of the file";
  EXPECT_EQ(faultOfBytes(sized(bytes, std::string("\0\0\x70\0\0\0\x70\0", 8))),
            "it has more than 32 million pixels");
  EXPECT_EQ(faultOfBytes(sized(bytes, std::string("\0\0\x01\0\0\0\x01\0", 8))), "it is cut off or broken");
}

TEST(AJpegThatLiesAboutItsSize, IsRefused) {
  std::string bytes = bytesOf(brought("turned_1.jpg"));
  const auto frame = bytes.find("\xFF\xC0");
  ASSERT_NE(frame, std::string::npos);
  bytes.replace(frame + 5, 4, "\xFF\xFE\xFF\xFE");
  EXPECT_EQ(faultOfBytes(bytes), "it has more than 32 million pixels");
}

TEST(ABitmapThatLiesAboutItsSize, IsRefused) {
  std::string bytes = encodeBitmapFile(plainBitmap(20, 20, kNavy));
  bytes.replace(18, 4, std::string("\0\x10\0\0", 4));
  EXPECT_EQ(faultOfBytes(bytes), "it is cut off or broken");
}

TEST(WhatIsNoPicture, IsSaidToBeNone) {
  for (const std::string& bytes :
       {std::string(), std::string("hello"), std::string(5000, '\0'), std::string("<html></html>")}) {
    EXPECT_EQ(faultOfBytes(bytes), "it is no picture of a kind that is read") << bytes.substr(0, 20);
  }
}

TEST(APictureOfAPhoneThatIsNotRead, IsCalledByItsFormat) {
  using namespace std::string_literals;
  for (const char* brand : {"heic", "mif1", "heix"}) {
    EXPECT_EQ(faultOfBytes("\0\0\0\x18"s + "ftyp" + brand + "\0\0\0\0mif1heic"s),
              "it is HEIC, which is not read");
  }
  EXPECT_EQ(faultOfBytes("\0\0\0\x18"s + "ftypmp42\0\0\0\0mp42isom"s),
            "it is no picture of a kind that is read");
}

TEST(WhatIsNoPlainFile, IsRefusedAndNeverWaitedFor) {
  const TempFolder temp;
  const auto pipe = temp.path() / "pipe.png";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(faultOf(pipe), "pipe.png is no file");
  EXPECT_EQ(faultOf(temp.path()), temp.path().filename().string() + " is no file");
  EXPECT_EQ(faultOf("/dev/zero"), "zero is no file");
  EXPECT_EQ(faultOf("/dev/null"), "null is no file");
  EXPECT_EQ(faultOf(temp.path() / "gone.png"), "gone.png can't be opened");
  std::filesystem::create_symlink(temp.path() / "gone.png", temp.path() / "link.png");
  EXPECT_EQ(faultOf(temp.path() / "link.png"), "link.png can't be opened");
}

TEST(APictureUnderAnotherEnding, IsToldByItsContent) {
  const TempFolder temp;
  std::filesystem::copy_file(brought("clip_art.png"), temp.path() / "cat.jpg");
  EXPECT_EQ(faultOf(temp.path() / "cat.jpg"), "");
}

TEST(ALargePicture, TakesLittleMoreMemoryThanItself) {
  QImage image(5600, 5600, QImage::Format_RGB32);
  image.fill(qRgb(40, 90, 200));
  struct rusage before {
  }, after{};
  ::getrusage(RUSAGE_SELF, &before);
  const Layer layer = reducedLayerOf(image);
  ::getrusage(RUSAGE_SELF, &after);
  EXPECT_EQ(layer.size(), (Size{1000, 1000}));
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 64 << 10) << "kilobytes";
}

}  // namespace
}  // namespace gridwright::test
