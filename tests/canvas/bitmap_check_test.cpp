#include "canvas/bitmap_check.h"

#include <gtest/gtest.h>

#include <array>

#include "support/bitmap_files.h"

namespace gridwright::test {
namespace {

std::vector<BitmapFile> allForms() {
  std::vector<BitmapFile> forms;
  for (const int bits : {1, 4, 8, 16, 24, 32}) {
    forms.push_back({bits});
    forms.push_back({bits, true});
    if (bits <= 8 || bits == 24) forms.push_back({bits, false, true});
    if (bits <= 8 || bits == 24) forms.push_back({bits, false, false, false, false, true});
  }
  forms.push_back({8, false, false, true});
  forms.push_back({4, false, false, true});
  forms.push_back({16, false, false, false, true});
  forms.push_back({32, true, false, false, true});
  return forms;
}

std::string nameOf(const BitmapFile& f) {
  return std::to_string(f.bits) + " bits" + (f.fromTop ? ", from the top" : "") +
         (f.os2 ? ", short header" : "") + (f.os2Cut ? ", cut header" : "") + (f.runs ? ", coded" : "") +
         (f.masks ? ", masks" : "");
}

Bitmap pictureFor(const BitmapFile& form) {
  return motley(13, 5, form.bits == 1 ? 2 : form.bits == 4 ? 7 : 11);
}

TEST(AWholeFile, IsAcceptedAtEveryDepthInEitherRowOrder) {
  for (const BitmapFile& form : allForms()) {
    const auto size = checkBitmapFile(fileOf(pictureFor(form), form));
    ASSERT_TRUE(size) << nameOf(form);
    EXPECT_EQ(size.value(), (Size{13, 5})) << nameOf(form);
  }
}

TEST(AFileCutOffAnywhere, IsRefused) {
  for (const BitmapFile& form : allForms()) {
    const std::string whole = fileOf(pictureFor(form), form);
    // Of a coded picture the end marks may be missing, since all pixels are there by then.
    const std::size_t marks = form.runs ? 4 : 0;
    for (std::size_t length = 0; length < whole.size() - marks; ++length) {
      const auto size = checkBitmapFile(std::string_view(whole).substr(0, length));
      ASSERT_FALSE(size) << nameOf(form) << " cut at " << length << " of " << whole.size();
      EXPECT_EQ(size.fault().kind, Fault::Kind::malformed);
    }
  }
}

TEST(BytesBehindThePicture, DoNoHarm) {
  EXPECT_TRUE(checkBitmapFile(fileOf(motley(3, 3, 4), {}) + "and more"));
}

struct Lie {
  const char* what;
  std::size_t at;
  std::uint32_t value;
  int bytes;
};

TEST(AHeaderThatLies, IsRefused) {
  constexpr auto kLies = std::to_array<Lie>({
      {"another magic", 0, 0x4D43, 2},
      {"the pixels begin inside the header", 10, 20, 4},
      {"the pixels begin behind the end", 10, 0x7FFFFFFF, 4},
      {"an unknown header size", 14, 39, 4},
      {"a header of 15 bytes", 14, 15, 4},
      {"a header of 17 bytes", 14, 17, 4},
      {"a huge header size", 14, 0xFFFFFFFF, 4},
      {"no width", 18, 0, 4},
      {"a negative width", 18, 0xFFFFFFF3, 4},
      {"a width that the file has no pixels for", 18, 1300, 4},
      {"no height", 22, 0, 4},
      {"the least height", 22, 0x80000000, 4},
      {"a height that the file has no pixels for", 22, 500, 4},
      {"no depth", 28, 0, 2},
      {"three bits", 28, 3, 2},
      {"64 bits", 28, 64, 2},
      {"run-length coding at 24 bits", 30, 1, 4},
      {"an embedded other format", 30, 4, 4},
      {"masks at 24 bits", 30, 3, 4},
  });
  for (const Lie& lie : kLies) {
    std::string file = fileOf(motley(13, 5, 11), {});
    ASSERT_TRUE(checkBitmapFile(file));
    poke(file, lie.at, lie.value, lie.bytes);
    EXPECT_FALSE(checkBitmapFile(file)) << lie.what;
  }
}

TEST(APaletteLargerThanItsDepth, IsRefused) {
  std::string file = fileOf(motley(13, 5, 7), {4});
  poke(file, 46, 17);
  EXPECT_FALSE(checkBitmapFile(file));
  poke(file, 46, 0xFFFFFFFF);
  EXPECT_FALSE(checkBitmapFile(file));
}

TEST(MasksInAHeaderThatHasNoRoomForThem, AreRefused) {
  std::string file = fileOf(plainBitmap(1, 1, 255), {16, false, false, false, true});
  poke(file, 14, 44);
  poke(file, 10, 58);
  file.resize(62);
  EXPECT_FALSE(checkBitmapFile(file));
}

TEST(AFileOfAnotherFormat, IsToldFromABrokenBitmap) {
  EXPECT_EQ(checkBitmapFile("\x89PNG\r\n").fault().kind, Fault::Kind::anotherFormat);
  EXPECT_EQ(checkBitmapFile("BM, and a text").fault().kind, Fault::Kind::malformed);
}

TEST(AFileOfWordsOrNothing, IsRefused) {
  EXPECT_FALSE(checkBitmapFile(""));
  EXPECT_FALSE(checkBitmapFile("BM"));
  EXPECT_FALSE(
      checkBitmapFile("This is a text, and a long one, longer than any bitmap header would have to be."));
}

TEST(APictureOfMoreThanAHundredMillionPixels, IsRefusedAndOneOfAsManyIsNot) {
  // One bit a pixel keeps the file small enough to be whole.
  std::string file = fileOf(motley(8, 1, 2), {1});
  poke(file, 18, 10'000);
  poke(file, 22, 10'000);
  file.resize(62 + 1252 * 10'000);
  EXPECT_TRUE(checkBitmapFile(file));
  poke(file, 22, 10'001);
  file.resize(62 + 1252 * 10'001);
  EXPECT_FALSE(checkBitmapFile(file));
}

TEST(AVeryWidePicture, IsAcceptedSinceItWillBeCut) {
  std::string file = fileOf(motley(8, 1, 2), {1});
  poke(file, 18, 200'000);
  file.resize(62 + 25'000);
  EXPECT_TRUE(checkBitmapFile(file));
}

TEST(ACodedPicture, IsRefusedWhereItsRunsLeaveThePicture) {
  std::string file = fileOf(plainBitmap(10, 2, 255), {8, false, false, true});
  const std::size_t firstRun = file.size() - 4 - 4 - 2;
  ASSERT_EQ(file[firstRun], 10);
  file[firstRun] = 13;
  EXPECT_FALSE(checkBitmapFile(file));
}

TEST(ACodedPicture, MayFillARowUpToFourBytesAndNotFurther) {
  struct Row {
    int bits, width, padded;
  };
  for (const Row& row :
       {Row{8, 10, 12}, Row{8, 12, 12}, Row{8, 13, 16}, Row{4, 10, 16}, Row{4, 16, 16}, Row{4, 17, 24}}) {
    const std::string whole = fileOf(plainBitmap(row.width, 2, 255), {row.bits, false, false, true});
    const std::size_t lower = whole.size() - 4 - 4 - 2;
    for (const std::size_t run : {lower, lower + 4}) {
      ASSERT_EQ(whole[run], row.width);
      std::string file = whole;
      for (int length = row.width; length <= row.padded; ++length) {
        file[run] = static_cast<char>(length);
        EXPECT_TRUE(checkBitmapFile(file)) << row.bits << " bits, " << length << " of " << row.width;
      }
      file[run] = static_cast<char>(row.padded + 1);
      EXPECT_FALSE(checkBitmapFile(file)) << row.bits << " bits, width " << row.width;
    }
  }
}

TEST(ACodedPicture, MaySkipPixelsByTheCodeItself) {
  std::string file = fileOf(plainBitmap(10, 2, 255), {8, false, false, true});
  file.resize(file.size() - 10);
  file += std::string("\0\2\3\1\2\0\0\1", 8);  // a jump, two pixels, the end
  EXPECT_TRUE(checkBitmapFile(file));
}

TEST(ACodedPictureFromTheTop, IsRefusedSinceTheFormatKnowsNone) {
  std::string file = fileOf(plainBitmap(10, 2, 255), {8, false, false, true});
  poke(file, 22, static_cast<std::uint32_t>(-2));
  EXPECT_FALSE(checkBitmapFile(file));
}

}  // namespace
}  // namespace gridwright::test
