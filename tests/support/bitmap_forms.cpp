#include "support/bitmap_forms.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <random>

#include "support/pictures.h"

namespace gridwright::test {

namespace {

constexpr int kCore = 12, kCoreCut = 16, kInfo = 40, kThreeMasks = 52, kFourMasks = 56, kOs2 = 64, kV4 = 108,
              kV5 = 124;

/// Patches and single pixels in so many colours, black and white among them.
Bitmap patchy(int width, int height, int colours) {
  std::mt19937 generator(static_cast<std::uint32_t>(1000 * width + 10 * height + colours));
  const auto random = [&generator] { return static_cast<std::uint32_t>(generator()); };
  std::vector<Colour> inks = {0, 0xFFFFFF};
  while (inks.size() < static_cast<std::size_t>(colours)) {
    const auto ink = static_cast<Colour>(random() & 0xFFFFFF);
    if (std::find(inks.begin(), inks.end(), ink) == inks.end()) inks.push_back(ink);
  }
  Bitmap picture = plainBitmap(width, height, 0);
  std::uint32_t left = 0;
  Colour ink = 0;
  for (Colour& pixel : picture.pixels) {
    if (left == 0) {
      ink = inks[random() % inks.size()];
      left = random() % 3 == 0 ? 1 + random() % 40 : 1 + random() % 3;
    }
    pixel = ink;
    --left;
  }
  picture.pixels.front() = inks[0];
  picture.pixels.back() = inks[1];
  return picture;
}

int coloursFor(int bits) { return bits == 1 ? 2 : bits == 4 ? 16 : 250; }

std::string nameOf(const BitmapFile& f) {
  static constexpr std::array kStyles = {"greedy", "lone", "singles", "pairs", "jumps"};
  std::string name = std::to_string(f.header) + "-" + std::to_string(f.bits);
  if (f.runs) name += std::string("-runs-") + kStyles.at(static_cast<std::size_t>(f.style));
  if (f.padded) name += "-padded";
  if (f.endless) name += "-endless";
  if (f.masks) {
    name += f.alphaCoded ? "-alphamasks" : "-masks";
    for (const std::uint32_t mask : {f.channels.red, f.channels.green, f.channels.blue, f.channels.alpha})
      name += "-" + std::to_string(mask);
  }
  if (f.fromTop) name += "-top";
  if (f.colours != BitmapFile::kNeeded) name += "-colours" + std::to_string(f.colours);
  if (f.gap != 0) name += "-gap" + std::to_string(f.gap);
  return name;
}

FormedBitmap formed(const BitmapFile& form, Size size) {
  const Bitmap picture = patchy(size.width, size.height, coloursFor(form.bits));
  return {nameOf(form) + "-" + std::to_string(size.width) + "x" + std::to_string(size.height), form,
          heldBy(picture, form), fileOf(picture, form)};
}

class Forms {
 public:
  std::vector<BitmapFile> all() {
    for (const int header : {kCore, kCoreCut, kInfo, kThreeMasks, kFourMasks, kOs2, kV4, kV5}) {
      addPlain(header);
      if (header < kInfo) continue;
      addRuns(header);
      if (header != kOs2) addMasks(header);
    }
    return std::move(forms_);
  }

 private:
  /// In both orders of rows, where the header can say so.
  void addBoth(BitmapFile form) {
    forms_.push_back(form);
    if (form.header < kInfo) return;
    form.fromTop = true;
    forms_.push_back(form);
  }

  void addPlain(int header) {
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
      const bool known = header == kCore || header == kCoreCut || header == kOs2 ? bits % 16 != 0 : true;
      if (!known) continue;
      BitmapFile form{bits};
      form.header = header;
      addBoth(form);
      if (bits > 8 || header < kInfo) continue;
      form.colours = BitmapFile::kUnsaid;
      addBoth(form);
    }
  }

  void addRuns(int header) {
    for (const int bits : {4, 8}) {
      for (const RunStyle style :
           {RunStyle::greedy, RunStyle::lone, RunStyle::singles, RunStyle::pairs, RunStyle::jumps}) {
        if (style == RunStyle::pairs && bits == 8) continue;
        BitmapFile form{bits};
        form.header = header;
        form.runs = true;
        form.style = style;
        forms_.push_back(form);
        if (style == RunStyle::jumps) continue;
        form.padded = true;
        forms_.push_back(form);
        form.padded = false;
        form.endless = true;
        forms_.push_back(form);
      }
    }
  }

  void addMasks(int header) {
    static constexpr std::array kOf16 = {Masks{0xF800, 0x7E0, 0x1F, 0}, Masks{0x7C00, 0x3E0, 0x1F, 0x8000},
                                         Masks{0x1F, 0x7E0, 0xF800, 0}, Masks{0xF00, 0xF0, 0xF, 0xF000},
                                         Masks{0xE0, 0x1C, 0x3, 0},     Masks{0x4, 0x2, 0x1, 0x8},
                                         Masks{0xFF00, 0xFF, 0, 0},     Masks{0xF800, 0x7C0, 0x3E, 0x1}};
    static constexpr std::array kOf32 = {Masks{0xFF0000, 0xFF00, 0xFF, 0xFF000000U},
                                         Masks{0xFF000000U, 0xFF0000, 0xFF00, 0xFF},
                                         Masks{0xFF, 0xFF00, 0xFF0000, 0},
                                         Masks{0x3FF00000, 0xFFC00, 0x3FF, 0xC0000000U},
                                         Masks{0xFFC00000U, 0x3FF800, 0x7FF, 0},
                                         Masks{0xFFFF0000U, 0xFF00, 0xFF, 0},
                                         Masks{0xF, 0xF0, 0xF00, 0xF000},
                                         Masks{0x80000000U, 0x8000, 0x1, 0}};
    for (const Masks& masks : kOf16) addMasked(header, 16, masks);
    for (const Masks& masks : kOf32) addMasked(header, 32, masks);
  }

  void addMasked(int header, int bits, const Masks& masks) {
    BitmapFile form{bits};
    form.header = header;
    form.masks = true;
    form.channels = masks;
    addBoth(form);
    if (masks.alpha == 0 || header == kThreeMasks) return;
    form.alphaCoded = true;
    addBoth(form);
  }

  std::vector<BitmapFile> forms_;
};

class Liar {
 public:
  explicit Liar(const FormedBitmap& whole) : whole_(whole) {}

  void say(const std::string& what, std::size_t at, int bytes, std::initializer_list<std::uint32_t> values) {
    for (const std::uint32_t value : values) {
      std::string file = whole_.bytes;
      poke(file, at, value, bytes);
      if (file != whole_.bytes)
        lies_.push_back({whole_.name + ", " + what + " " + std::to_string(value), file});
    }
  }
  std::vector<LyingBitmap> take() { return std::move(lies_); }

 private:
  const FormedBitmap& whole_;
  std::vector<LyingBitmap> lies_;
};

std::uint32_t numberAt(const std::string& file, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(file[at + i]);
  return value;
}

}  // namespace

std::vector<FormedBitmap> oneOfEachForm() {
  std::vector<FormedBitmap> files;
  const std::vector<BitmapFile> forms = Forms().all();
  std::transform(forms.begin(), forms.end(), std::back_inserter(files), [](const BitmapFile& form) {
    return formed(form, {13, 5});
  });
  return files;
}

std::vector<FormedBitmap> everyWholeBitmap() {
  static constexpr std::array<Size, 11> kSizes = {Size{1, 1}, {2, 3},  {3, 2},  {7, 5},  {8, 1},  {9, 4},
                                                  {13, 5},    {31, 2}, {32, 3}, {33, 2}, {700, 3}};
  static constexpr std::array kGaps = {0, 1, 2, 0, 7, 1000};
  std::vector<FormedBitmap> files;
  std::size_t turn = 0;
  for (BitmapFile form : Forms().all()) {
    for (const Size size : kSizes) {
      form.gap = kGaps.at(turn++ % kGaps.size());
      files.push_back(formed(form, size));
    }
  }
  return files;
}

std::vector<LyingBitmap> liesAbout(const FormedBitmap& whole) {
  constexpr std::uint32_t kMost = 0xFFFFFFFFU, kLeast = 0x80000000U, kMostOfInt = 0x7FFFFFFFU;
  const BitmapFile& form = whole.form;
  const auto length = static_cast<std::uint32_t>(whole.bytes.size());
  const std::uint32_t pixelsAt = numberAt(whole.bytes, 10);
  const int extent = form.header == kCore ? 2 : 4;
  const std::size_t heightAt = 18 + static_cast<std::size_t>(extent);
  const std::size_t depthAt = heightAt + static_cast<std::size_t>(extent) + 2;
  Liar liar(whole);
  liar.say("header", 14, 4, {0, 1, 11, 13, 15, 17, 39, 257, 1000, kMostOfInt, kLeast, kMost});
  liar.say("offset", 10, 4, {0, 1, 13, 14, pixelsAt - 1, length, length + 1, kMostOfInt, kLeast, kMost});
  liar.say("depth", depthAt, 2, {0, 2, 3, 5, 6, 7, 9, 15, 17, 31, 33, 48, 64, 128, 0x8000, 0xFFFF});
  liar.say("width", 18, extent, {0});
  liar.say("height", heightAt, extent, {0});
  if (form.header >= kCoreCut) {
    liar.say("width", 18, 4, {kMost, kLeast, kMostOfInt, static_cast<std::uint32_t>(-13)});
    liar.say("height", heightAt, 4, {kLeast, kLeast + 1, kMostOfInt});
  }
  if (form.runs) {
    liar.say("height", heightAt, 4, {static_cast<std::uint32_t>(-5)});
  } else {
    liar.say("offset", 10, 4, {pixelsAt + 1, pixelsAt + 4});
    liar.say("width", 18, extent, {46, 1300, 0xFFFF});
    liar.say("height", heightAt, extent, {6, 500, 0xFFFF});
  }
  if (form.header >= kInfo) {
    liar.say("coding", 30, 4, {4, 5, 7, 10, 11, 12, 13, kMostOfInt, kMost});
    if (form.bits != 8) liar.say("coding", 30, 4, {1});
    if (form.bits != 4) liar.say("coding", 30, 4, {2});
    if (form.bits % 16 != 0) liar.say("coding", 30, 4, {3, 6});
    if (form.bits <= 8) {
      const std::uint32_t all = 1U << form.bits;
      liar.say("colours", 46, 4, {1, all + 1, 1000, kMostOfInt, kLeast, kMost});
    }
  }
  return liar.take();
}

std::vector<LyingBitmap> harmlessLiesAbout(const FormedBitmap& whole) {
  constexpr std::uint32_t kMost = 0xFFFFFFFFU, kMostOfInt = 0x7FFFFFFFU;
  const auto length = static_cast<std::uint32_t>(whole.bytes.size());
  Liar liar(whole);
  liar.say("length", 2, 4, {0, 14, length - 1, length + 1, kMostOfInt, kMost});
  liar.say("reserved", 6, 4, {1, kMost});
  liar.say("planes", whole.form.header == kCore ? 22 : 26, 2, {0, 2, 0xFFFF});
  if (whole.form.header < kInfo) return liar.take();
  liar.say("bytes of the pixels", 34, 4, {0, 1, kMostOfInt, kMost});
  liar.say("pixels a metre", 38, 4, {0, kMost});
  liar.say("important colours", 50, 4, {1, kMost});
  if (whole.form.bits > 8) liar.say("colours", 46, 4, {1, 256, kMost});
  return liar.take();
}

}  // namespace gridwright::test
