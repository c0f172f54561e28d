#include "pictures/prepare.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "canvas/free_cell.h"
#include "canvas/size_words.h"
#include "pictures/areas.h"
#include "pictures/fit.h"
#include "pictures/harden.h"
#include "pictures/pairing.h"
#include "pictures/paper.h"
#include "pictures/pixel_walk.h"
#include "pictures/placing.h"
#include "pictures/ready.h"

namespace gridwright {

namespace {

constexpr Colour kOutline = kPalette[8];  // grey: of the colours that start as borders the least loud

/// The side of the largest speck, in pixels, from the coarsest detail on.
constexpr std::array<int, kFinest> kSpecks = {20, 11, 4, 3, 2};

/// The side of the median: what is narrower than half of it is a line, and a line grows with its picture.
int medianFor(double enlarged) {
  constexpr int kPlain = 5, kLargest = 11;
  return std::min(kLargest, kPlain + 2 * static_cast<int>(std::ceil(std::max(0.0, enlarged - 1) * 1.5)));
}

PrepareSettings held(PrepareSettings settings) {
  settings.colours = std::clamp(settings.colours, kFewestColours, kMostColours);
  settings.detail = std::clamp(settings.detail, kCoarsest, kFinest);
  return settings;
}

/// The labels of segments that have pixels, the largest area first, and how large they are.
struct Found {
  std::vector<std::uint8_t> labels;
  std::vector<std::int64_t> areas;
};

Found foundIn(const Areas& areas) {
  std::array<std::int64_t, 256> counts{};
  for (const std::uint8_t label : areas.labels) ++counts.at(label);
  Found found;
  for (std::size_t label = 0; label < areas.colours.size(); ++label) {
    if (counts.at(label) > 0) found.labels.push_back(static_cast<std::uint8_t>(label));
  }
  std::stable_sort(found.labels.begin(), found.labels.end(),
                   [&](std::uint8_t one, std::uint8_t other) { return counts.at(one) > counts.at(other); });
  for (const std::uint8_t label : found.labels) found.areas.push_back(counts.at(label));
  return found;
}

/// Those of the sixteen that a maze fills, or that it does not, but white and what it is carved in; without
/// the outlines' own where it is taken. Where there are none, those of the start.
std::vector<Colour> choicesFor(bool grows, Colour outline, const ColourSets& present) {
  std::vector<Colour> choices;
  for (const ColourSets& sets : {present, startingSets()}) {
    for (std::size_t slot = 0; slot < kPalette.size() - 1; ++slot) {
      const Colour colour = kPalette.at(slot);
      if (colour != outline && !sets.isMaze(colour) && sets.isFree(colour) == grows)
        choices.push_back(colour);
    }
    if (!choices.empty()) break;
  }
  return choices;
}

/// Of what outlines are drawn in: grey, where that is a border; else the first colour that is one.
Colour outlineIn(const ColourSets& sets) {
  if (sets.isBorder(kOutline) && !sets.isMaze(kOutline)) return kOutline;
  return choicesFor(false, kOutside, sets).front();
}

void pairColours(std::vector<FoundColour>& found, Colour outline, const ColourSets& sets) {
  for (const bool grows : {true, false}) {
    std::vector<Colour> colours;
    for (const FoundColour& one : found) {
      if (one.grows == grows) colours.push_back(one.colour);
    }
    const std::vector<Colour> pairs = paired(colours, choicesFor(grows, outline, sets));
    std::size_t next = 0;
    for (FoundColour& one : found) {
      if (one.grows == grows) one.becomes = pairs[next++];
    }
  }
}

}  // namespace

/// What was made for the last settings, step by step, each with what it was made for.
struct Preparation::Steps {
  Steps(const Picture& from, PictureWork& by) : picture(from), work(by) {}

  const Picture& picture;
  PictureWork& work;

  struct Sorted {
    Areas areas;
    std::vector<Colour> colours;
  };

  std::optional<std::pair<PrepareSettings, PrepareGround>> last;
  Placed onCanvas;  ///< Without noise and soft edges, its paper clear.
  bool noisy = false;
  Colour paper = qb::white;
  Sorted sorted;
  std::optional<Mask> faintLines;  ///< Lines that show only among the most colours; empty where none do.

  void place(const PrepareSettings& settings, const PrepareGround& ground) {
    constexpr int kSpeck = 4;    // pixels that are no subject
    constexpr int kSoftest = 6;  // pixels on either side of an edge
    constexpr int kDust = 2;     // pixels: what is smaller is no piece of a line
    constexpr int kGrain = 6;    // the same where there is grain
    onCanvas = placed(picture, settings.asItsSize, ground.canvas, ground.wallSize, kSpeck, work);
    Bitmap& colours = onCanvas.layer.colours;
    const int softness = std::clamp(1 + static_cast<int>(std::lround(onCanvas.enlarged)), 2, kSoftest);
    noisy = isNoisy(colours, onCanvas.layer.clear);
    if (!noisy) hardenEdges(colours, softness);
    colours =
        withoutNoise(colours, onCanvas.part, medianFor(onCanvas.enlarged), noisy ? kGrain : kDust, work);
    if (noisy) hardenEdges(colours, softness);
    clearPaper();
    faintLines.reset();
  }

  /// What grain leaves is larger than what a pen does.
  [[nodiscard]] int speckOf(const PrepareSettings& settings) const {
    constexpr int kTimes = 3;
    return kSpecks.at(static_cast<std::size_t>(settings.detail - kCoarsest)) * (noisy ? kTimes : 1);
  }

  /// The edge at which paper begins is the picture's own, not the Canvas's.
  void clearPaper() {
    const Square& part = onCanvas.part;
    if (part.right < part.left || part.bottom < part.top) return;
    const Paper found = findPaper(cutOut(onCanvas.layer, part));
    paper = found.colour;
    const std::uint8_t* mask = found.mask.data();
    for (int y = part.top; y <= part.bottom; ++y) {
      for (int x = part.left; x <= part.right; ++x)
        onCanvas.layer.clear[placeOf(onCanvas.layer.size(), x, y)] = *mask++;
    }
    for (std::size_t at = 0; at < onCanvas.layer.clear.size(); ++at) {
      if (onCanvas.layer.clear[at] != 0) onCanvas.layer.colours.pixels[at] = paper;
    }
  }

  /// By label, the mean of the colours that it stands for.
  [[nodiscard]] std::vector<Colour> meansOf(const Areas& areas) const {
    std::vector<std::array<std::int64_t, 4>> sums(areas.colours.size());
    // By runs of one label: sums that are written and read again at each pixel take several times as long.
    for (std::size_t at = 0; at < areas.labels.size();) {
      const std::uint8_t label = areas.labels[at];
      std::array<std::int64_t, 4> run{};
      for (; at < areas.labels.size() && areas.labels[at] == label; ++at) {
        const Colour colour = onCanvas.layer.colours.pixels[at];
        run[0] += 1;
        run[1] += colour & 0xFF;
        run[2] += colour >> 8 & 0xFF;
        run[3] += colour >> 16 & 0xFF;
      }
      if (label == kPaperLabel) continue;
      for (std::size_t i = 0; i < run.size(); ++i) sums[label].at(i) += run.at(i);
    }
    std::vector<Colour> means;
    for (const auto& [count, red, green, blue] : sums) {
      const auto mean = [all = std::max<std::int64_t>(count, 1)](std::int64_t sum) {
        return static_cast<Colour>(sum / all);
      };
      means.push_back(mean(red) | mean(green) << 8 | mean(blue) << 16);
    }
    return means;
  }

  void joinByMeans(Areas& areas) {
    sorted.colours = meansOf(areas);
    for (std::size_t i = 0; i < sorted.colours.size(); ++i) areas.colours[i] = labOf(sorted.colours[i]);
    joinAlike(areas);
  }

  [[nodiscard]] Areas areasOf(const Bitmap& colours, int most) const {
    Segments segments = work.segmented(colours, most);
    Areas areas{onCanvas.layer.size(), std::move(segments.labels), {}, labOf(paper)};
    for (const Colour colour : segments.colours) areas.colours.push_back(labOf(colour));
    for (std::size_t at = 0; at < areas.labels.size(); ++at) {
      if (onCanvas.layer.clear[at] != 0) areas.labels[at] = kPaperLabel;
    }
    return areas;
  }

  /// Whether pixels that could be lines count among areas of a brighter colour. A photograph, whose first
  /// preparation is the longest wait, has hardly any.
  [[nodiscard]] bool hidesDarkPixels(const Areas& areas) const {
    constexpr int kDarker = 32;   // of 255
    constexpr int kOneOf = 1000;  // pixels
    std::size_t dark = 0;
    for (std::size_t at = 0; at < areas.labels.size(); ++at) {
      if (areas.labels[at] == kPaperLabel) continue;
      const int brightness = brightnessOf(onCanvas.layer.colours.pixels[at]);
      if (brightness + kDarker < brightnessOf(sorted.colours[areas.labels[at]])) ++dark;
    }
    return dark * kOneOf > areas.labels.size();
  }

  [[nodiscard]] const Mask& linesAmongMostColours(int cell) {
    if (!faintLines) {
      Areas areas = areasOf(onCanvas.layer.colours, kMostColours);
      removeRims(areas);
      joinByMeans(areas);
      const std::uint8_t label = linesOf(areas, cell, work);
      faintLines = label == kPaperLabel ? Mask{} : maskOf(areas, label);
    }
    return *faintLines;
  }

  /// The lines are one of the colours, and the others are found without them.
  [[nodiscard]] Areas areasBeside(const Mask& lines, int most) const {
    Bitmap others = onCanvas.layer.colours;
    for (std::size_t at = 0; at < lines.size(); ++at) {
      if (lines[at] != 0) others.pixels[at] = paper;
    }
    Areas areas = areasOf(others, most - 1);
    const auto label = static_cast<std::uint8_t>(areas.colours.size());
    for (std::size_t at = 0; at < lines.size(); ++at) {
      if (lines[at] != 0) areas.labels[at] = label;
    }
    areas.colours.push_back({});
    areas.colours[label] = labOf(meansOf(areas)[label]);
    return areas;
  }

  void sort(const PrepareSettings& settings, int cell) {
    Areas areas = areasOf(onCanvas.layer.colours, settings.colours);
    removeRims(areas);
    joinByMeans(areas);
    // Where there are few colours a dark fill takes in the lines between the fills, and what they kept apart
    // would run together.
    const bool mayHideLines = settings.colours > kFewestColours && hidesDarkPixels(areas) &&
                              linesOf(areas, cell, work) == kPaperLabel;
    if (mayHideLines && !linesAmongMostColours(cell).empty()) {
      areas = areasBeside(*faintLines, settings.colours);
      removeRims(areas);
      joinByMeans(areas);
    }
    removeSpecks(areas, speckOf(settings), work);
    joinByMeans(areas);
    sorted.areas = std::move(areas);
  }
};

namespace {

std::vector<FoundColour> foundColours(const Found& found, const std::vector<Colour>& colours,
                                      const PrepareSettings& settings, std::uint8_t lines) {
  std::vector<FoundColour> list;
  for (std::size_t i = 0; i < found.labels.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    const bool isLines = found.labels[i] == lines;
    const bool grows = settings.grow ? std::find(settings.grow->begin(), settings.grow->end(), number) !=
                                           settings.grow->end()
                                     : !isLines;
    list.push_back({colours[found.labels[i]], 0, found.areas[i], grows, isLines});
  }
  return list;
}

/// The areas in their colours, with outlines over them.
Bitmap painted(Areas areas, const Found& found, const std::vector<FoundColour>& colours, Outlines outlines,
               Colour outline) {
  std::array<Colour, 256> paints{};
  paints.at(kPaperLabel) = kPaper;
  std::vector<bool> isBorder(areas.colours.size(), false);
  for (std::size_t i = 0; i < found.labels.size(); ++i) {
    paints.at(found.labels[i]) = colours[i].becomes;
    isBorder[found.labels[i]] = !colours[i].grows;
  }
  widenThinPlaces(areas, isBorder);
  Bitmap picture = plainBitmap(areas.size.width, areas.size.height, kPaper);
  std::transform(areas.labels.begin(), areas.labels.end(), picture.pixels.begin(),
                 [&](std::uint8_t label) { return paints.at(label); });
  if (outlines == Outlines::none) return picture;
  const Mask mask = outlinesOf(areas, outlines == Outlines::thick);
  for (std::size_t at = 0; at < mask.size(); ++at) {
    if (mask[at] != 0) picture.pixels[at] = outline;
  }
  return picture;
}

/// What the widening of lines has laid onto the frame goes: it is paper all round.
void keepFrameOfPaper(Bitmap& picture, int frame) {
  for (int y = 0; y < picture.height; ++y) {
    const bool isInside = y >= frame && y < picture.height - frame;
    const int side = isInside ? std::min(frame, picture.width) : picture.width;
    Colour* row = picture.pixels.data() + placeOf({picture.width, picture.height}, 0, y);
    std::fill_n(row, side, kPaper);
    std::fill_n(row + picture.width - side, side, kPaper);
  }
}

}  // namespace

Preparation::Preparation(const Picture& picture, PictureWork& work)
    : steps_(std::make_unique<Steps>(picture, work)) {}

Preparation::~Preparation() = default;

Prepared Preparation::make(const PrepareSettings& given, const PrepareGround& ground) {
  const PrepareSettings settings = held(given);
  Steps& steps = *steps_;
  const bool isAnew = !steps.last || steps.last->second.canvas != ground.canvas ||
                      steps.last->second.wallSize != ground.wallSize ||
                      steps.last->first.asItsSize != settings.asItsSize;
  if (isAnew) steps.place(settings, ground);
  const bool isSortedAnew =
      isAnew || steps.last->first.colours != settings.colours || steps.last->first.detail != settings.detail;
  if (isSortedAnew) steps.sort(settings, ground.wallSize);
  steps.last = {settings, ground};

  const Areas& areas = steps.sorted.areas;
  const Found found = foundIn(areas);
  const std::uint8_t lines = linesOf(areas, ground.wallSize, steps.work);
  Prepared prepared;
  prepared.outlines = settings.outlines != Outlines::automatic ? settings.outlines
                      : lines != kPaperLabel                   ? Outlines::none
                                                               : Outlines::thin;
  prepared.found = foundColours(found, steps.sorted.colours, settings, lines);
  const Colour outline = outlineIn(ground.sets);
  pairColours(prepared.found, prepared.outlines != Outlines::none ? outline : kOutside, ground.sets);
  prepared.picture = painted(areas, found, prepared.found, prepared.outlines, outline);
  keepFrameOfPaper(prepared.picture, ground.wallSize);
  prepared.count =
      countRegions(prepared.picture, ground.sets, gridOn(ground.canvas, ground.wallSize, ground.kind));
  if (steps.onCanvas.taken != steps.picture.own) {
    prepared.cutFrom = steps.picture.own;
    prepared.taken = steps.onCanvas.taken;
  }
  return prepared;
}

Prepared prepare(const Picture& picture, const PrepareSettings& settings, const PrepareGround& ground,
                 PictureWork& work) {
  return Preparation(picture, work).make(settings, ground);
}

std::string prepareLine(const Prepared& prepared) {
  std::string line = regionLine(prepared.count);
  if (prepared.cutFrom == Size{}) return line;
  return line + "; the picture is " + sizeWords(prepared.cutFrom) + ", the Canvas takes " +
         sizeWords(prepared.taken) + " of it";
}

}  // namespace gridwright
