#include "platform/book/book_pictures.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/book/page_plan.h"
#include "platform/book/pictures_on_their_way.h"
#include "platform/shared/png_writer.h"
#include "printing/svg.h"
#include "printing/taken_picture.h"

namespace gridwright::book {

namespace {

constexpr std::string_view kBegin = "maze-", kAnswer = "-answer";

std::string nameOf(int number, bool isAnswer, const std::string& ending) {
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), "%04d", number);
  return std::string(kBegin) + digits.data() + (isAnswer ? std::string(kAnswer) : "") + ending;
}

/// The number of the maze whose picture bears this name; nothing for any other name.
std::optional<int> numberIn(const std::string& name, const std::string& ending) {
  if (!name.starts_with(kBegin)) return std::nullopt;
  int number = 0;
  std::from_chars(name.data() + kBegin.size(), name.data() + name.size(), number);
  if (name != nameOf(number, false, ending) && name != nameOf(number, true, ending)) return std::nullopt;
  return number;
}

std::string titleOf(const MazeRecord& record, bool isAnswer) {
  return (isAnswer ? "answer " : "maze ") + std::to_string(record.number) + ": " + record.picture +
         ", seed " + std::to_string(record.seed);
}

std::string svgOf(const MazeRecord& record, const Bitmap& picture, bool isAnswer) {
  const auto layers = layersOf(picture, std::numeric_limits<std::size_t>::max());
  return gridwright::svgOf(*layers, {picture.width, picture.height}, titleOf(record, isAnswer));
}

}  // namespace

std::vector<PictureFolder> pictureFoldersOf(const BookRun& run) {
  std::vector<PictureFolder> folders;
  if (!run.svgFolder.empty()) folders.push_back({run.svgFolder, ".svg"});
  if (!run.pngFolder.empty()) folders.push_back({run.pngFolder, ".png"});
  return folders;
}

/// A folder of the run, and the one in which its pictures grow.
class BookPictures::Folder : public PicturesOnTheirWay {
 public:
  explicit Folder(const PictureFolder& wanted) : PicturesOnTheirWay(wanted.path), ending(wanted.ending) {}
  const std::string ending;
};

BookPictures::BookPictures(BookPlan plan, const BookRun& run) : plan_(std::move(plan)), run_(run) {
  for (const PictureFolder& wanted : pictureFoldersOf(run))
    folders_.push_back(std::make_unique<Folder>(wanted));
}
BookPictures::~BookPictures() = default;

Outcome<Done> BookPictures::begin(int asked) {
  const Part part = run_.part.value_or(Part{});
  for (const auto& folder : folders_) {
    const auto isOurs = [&](const std::string& name) {
      const std::optional<int> number = numberIn(name, folder->ending);
      return number && *number >= 1 && *number <= asked && (*number - 1) % part.of == part.number - 1;
    };
    const auto begun = folder->begin(run_.mayReplace, isOurs);
    if (!begun) return begun.fault();
  }
  return Done{};
}

Outcome<Done> BookPictures::take(const MadeMaze& made) const {
  const Size size{made.maze.width, made.maze.height};
  for (const auto& folder : folders_) {
    for (const bool isAnswer : {false, true}) {
      if (isAnswer && plan_.answers == Answers::none) continue;
      const Bitmap& picture = isAnswer ? made.answer : made.maze;
      const std::string name = nameOf(made.record.number, isAnswer, folder->ending);
      const auto put = [&](const auto& write) { return folder->put(name, write); };
      const auto kept =
          folder->ending == ".svg"
              ? put([&](const TakeBytes& take) { return take(svgOf(made.record, picture, isAnswer)); })
              : put([&](const TakeBytes& take) {
                  return writePng(picture, scaleWithin(size, pictureArea(plan_), run_.pngDpi), run_.pngDpi,
                                  take);
                });
      if (!kept) return kept.fault();
    }
  }
  return Done{};
}

Outcome<Done> BookPictures::takeNames() {
  for (const auto& folder : folders_) {
    const auto taken = folder->takeNames(run_.mayReplace);
    if (taken) continue;
    giveBack();
    return taken.fault();
  }
  return Done{};
}

void BookPictures::giveBack() {
  for (const auto& folder : folders_) folder->giveBack();
}

}  // namespace gridwright::book
