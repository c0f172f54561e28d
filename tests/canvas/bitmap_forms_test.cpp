// Every form of bitmap that the format knows, cut off and lied about in every way. The bytes lie between
// forbidden pages, and what is allocated is counted.
#include "support/bitmap_forms.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <random>

#include "canvas/bitmap_check.h"
#include "canvas/bitmap_decode.h"
#include "canvas/canvas.h"
#include "platform/shared/image_files.h"
#include "support/guarded_bytes.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace {

std::size_t held = 0, mostHeld = 0;  // bytes

}  // namespace

void* operator new(std::size_t size) {
  void* memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  held += ::malloc_usable_size(memory);
  mostHeld = std::max(mostHeld, held);
  return memory;
}
void operator delete(void* memory) noexcept {
  if (memory != nullptr) held -= ::malloc_usable_size(memory);
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

constexpr int kSide = Canvas::kSide;
constexpr std::size_t kBesidesPixels = 16U << 20;
constexpr std::size_t kMostBytes = 1U << 16;  // of the files here

/// How many bytes more than before were held at once since it was made.
class Count {
 public:
  Count() { mostHeld = held; }
  [[nodiscard]] std::size_t bytes() const { return mostHeld - before_; }

 private:
  std::size_t before_ = held;
};

/// The outcome by way of bytes that lie before and behind a forbidden page, which is the same of course.
Outcome<Bitmap> guardedDecode(GuardedBytes& guarded, std::string_view bytes) {
  const Count count;
  const auto first = decodeBitmapFile(guarded.atTheBegin(bytes), kSide);
  auto second = decodeBitmapFile(guarded.atTheEnd(bytes), kSide);
  EXPECT_EQ(static_cast<bool>(first), static_cast<bool>(second));
  const std::size_t pixels = second ? 2 * sizeof(Colour) * second.value().pixels.size() : 0;
  EXPECT_LE(count.bytes(), pixels + kBesidesPixels);
  return second;
}

bool isRefused(const Outcome<Bitmap>& outcome) {
  return !outcome && outcome.fault().kind == Fault::Kind::malformed && !outcome.fault().words.empty();
}

TEST(AWholeBitmapOfAnyForm, IsReadToThePixel) {
  GuardedBytes guarded(kMostBytes);
  const std::vector<FormedBitmap> files = everyWholeBitmap();
  EXPECT_GT(files.size(), 3000U);
  for (const FormedBitmap& file : files) {
    const auto picture = guardedDecode(guarded, file.bytes);
    ASSERT_TRUE(picture) << file.name << ": " << picture.fault().words;
    ASSERT_TRUE(samePicture(picture.value(), file.picture)) << file.name;
  }
}

TEST(ABitmapOfAnyFormCutOffAnywhere, IsRefused) {
  GuardedBytes guarded(kMostBytes);
  for (const FormedBitmap& file : oneOfEachForm()) {
    // Of a coded picture the marks at its end may be missing, and the padding of its last row: all pixels are
    // there by then.
    const std::size_t behind = file.form.padded ? 18 : file.form.runs ? 4 : 0;
    for (std::size_t length = 0; length < file.bytes.size() - behind; ++length) {
      const auto cut = guardedDecode(guarded, std::string_view(file.bytes).substr(0, length));
      ASSERT_TRUE(isRefused(cut)) << file.name << " cut at " << length << " of " << file.bytes.size();
    }
  }
}

TEST(ABitmapOfAnyFormThatLies, IsRefused) {
  GuardedBytes guarded(kMostBytes);
  int lies = 0;
  for (const FormedBitmap& file : oneOfEachForm()) {
    for (const LyingBitmap& lie : liesAbout(file)) {
      ASSERT_TRUE(isRefused(guardedDecode(guarded, lie.bytes))) << lie.what;
      ++lies;
    }
  }
  EXPECT_GT(lies, 10'000);
}

TEST(ALieAboutWhatNoReaderNeeds, DoesNoHarm) {
  GuardedBytes guarded(kMostBytes);
  for (const FormedBitmap& file : oneOfEachForm()) {
    for (const LyingBitmap& lie : harmlessLiesAbout(file)) {
      const auto picture = guardedDecode(guarded, lie.bytes);
      ASSERT_TRUE(picture) << lie.what << ": " << picture.fault().words;
      ASSERT_TRUE(samePicture(picture.value(), file.picture)) << lie.what;
    }
  }
}

TEST(AHeaderOfNumbersByChance, IsRefusedOrGivesThePictureItTells) {
  GuardedBytes guarded(kMostBytes);
  std::mt19937 generator(7);
  const auto random = [&generator] { return static_cast<std::uint32_t>(generator()); };
  const std::vector<FormedBitmap> files = oneOfEachForm();
  for (int turn = 0; turn < 20'000; ++turn) {
    const FormedBitmap& file = files[random() % files.size()];
    std::string bytes = file.bytes;
    for (std::uint32_t changes = 1 + random() % 3; changes > 0; --changes) {
      const std::size_t at = 2 + random() % (std::min<std::size_t>(bytes.size(), 160) - 6);
      poke(bytes, at, random() >> random() % 32, 1 + static_cast<int>(random() % 4));
    }
    const auto told = checkBitmapFile(bytes);
    const auto picture = guardedDecode(guarded, bytes);
    ASSERT_EQ(static_cast<bool>(told), static_cast<bool>(picture)) << turn;
    if (!picture) continue;
    EXPECT_EQ(picture.value().width, std::min(told.value().width, kSide)) << turn;
    EXPECT_EQ(picture.value().height, std::min(told.value().height, kSide)) << turn;
  }
}

/// A file of so many bytes that takes no room on the disk behind what is put there.
void putLong(const fs::path& path, const std::string& bytes, std::uintmax_t length) {
  std::ofstream(path, std::ios::binary) << bytes;
  fs::resize_file(path, length);
}

/// What reading that file holds at once.
std::size_t heldForReading(const fs::path& path, bool isWhole) {
  const Count count;
  EXPECT_EQ(static_cast<bool>(readBitmapFile(path)), isWhole);
  return count.bytes();
}

TEST(AFileOfHalfAGigabyteThatLies, IsRefusedForItsHeadAlone) {
  const TempFolder temp;
  const fs::path path = temp.path() / "long.bmp";
  for (const FormedBitmap& file : oneOfEachForm()) {
    if (file.form.fromTop || file.form.endless || file.form.padded) continue;
    std::string bytes = file.bytes;
    poke(bytes, 14, 39);
    putLong(path, bytes, 500U << 20);
    EXPECT_LE(heldForReading(path, false), kBesidesPixels) << file.name;
  }
}

TEST(WhatLiesBehindThePictureInAFile, TakesNoMemory) {
  const TempFolder temp;
  const fs::path path = temp.path() / "long.bmp";
  for (const FormedBitmap& file : oneOfEachForm()) {
    if (file.form.fromTop || file.form.endless || file.form.padded) continue;
    putLong(path, file.bytes, 500U << 20);
    EXPECT_LE(heldForReading(path, true), kBesidesPixels) << file.name;
    EXPECT_TRUE(samePicture(readBitmapFile(path).value(), file.picture)) << file.name;
  }
}

TEST(RunsWithoutEnd, AreReadNoFurtherThanAnyPictureNeeds) {
  const TempFolder temp;
  const fs::path path = temp.path() / "long.bmp";
  BitmapFile form{8};
  form.runs = true;
  std::string bytes = fileOf(motley(13, 5, 11), form);
  bytes.resize(14 + 40 + 4 * 11);
  for (int jump = 0; jump < 5'000'000; ++jump) bytes.append("\0\2\0\0", 4);  // each to where it stands
  bytes.append("\0\1", 2);
  putLong(path, bytes, bytes.size());
  EXPECT_LE(heldForReading(path, false), kBesidesPixels);
  EXPECT_FALSE(checkBitmapFile(bytes)) << "from memory as from the disk";
}

TEST(ALargePicture, TakesItsPixelsAndLittleMore) {
  const TempFolder temp;
  const fs::path path = temp.path() / "large.bmp";
  for (const int bits : {1, 4, 8, 16, 24, 32}) {
    std::string head = fileOf(motley(8, 1, 2), {bits});
    poke(head, 18, 4000);
    poke(head, 22, 3000);
    const auto row = (std::uintmax_t{4000} * static_cast<unsigned>(bits) + 31) / 32 * 4;
    putLong(path, head, 200 + row * 3000);
    EXPECT_LE(heldForReading(path, true), std::size_t{4000} * 3000 * sizeof(Colour) + kBesidesPixels) << bits;
  }
}

}  // namespace
}  // namespace gridwright::test
