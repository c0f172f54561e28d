#include "platform/book/page_plan.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "platform/book/book_words.h"

namespace gridwright::book {

namespace {

constexpr double kThousandths = 1000;
constexpr double kGap = 6 * kPointsAMillimetre;            // between tiles
constexpr double kMostGap = 0.1;                           // of a tile
constexpr double kCaptionRow = 7 * kPointsAMillimetre;     // below a maze
constexpr double kMostCaption = 0.15;                      // of a tile's height
constexpr double kSmallestTile = 15 * kPointsAMillimetre;  // each way

double points(int thousandths) { return thousandths / kThousandths; }

Size paperOf(const BookPlan& plan) {
  const Paper& paper = plan.paper;
  if (!plan.landscape) return {paper.width, paper.height};
  return {std::max(paper.width, paper.height), std::min(paper.width, paper.height)};
}

/// What of a page the margins leave. A right-hand page is bound on its left.
Box areaOf(const BookPlan& plan, int number) {
  const Size paper = paperOf(plan);
  const bool isRight = number % 2 == 1;
  const double margin = points(plan.margin);
  return {margin + (isRight ? points(plan.gutter) : 0), margin,
          points(paper.width - 2 * plan.margin - plan.gutter), points(paper.height - 2 * plan.margin)};
}

/// Takes a row off an area's top.
Box takeTop(Box& area, double height) {
  const Box row{area.x, area.y, area.width, height};
  area.y += height;
  area.height -= height;
  return row;
}

/// An empty page with its words, and what they leave of it for mazes.
std::pair<PlannedPage, Box> blankPage(const BookPlan& plan, int number, bool isAnswers) {
  PlannedPage page{number, isAnswers, {}, {}, {}, {}};
  Box area = areaOf(plan, number);
  if (plan.nameLine && !isAnswers) page.nameLine = takeTop(area, kNameRow);
  if (!plan.title.empty()) page.title = takeTop(area, kTitleRow);
  if (plan.pageNumbers) {
    area.height -= kNumberRow;
    page.pageNumber = Box{area.x, area.y + area.height, area.width, kNumberRow};
  }
  return {std::move(page), area};
}

/// The width or height of each of so many tiles, and of the gaps between them.
struct Pitch {
  double tile, gap;
};
Pitch pitchOf(double length, int tiles) {
  const double gap = std::min(kGap, length / tiles * kMostGap);
  return {(length - gap * (tiles - 1)) / tiles, gap};
}

/// The place of a maze and its caption in the middle of its tile.
PlacedMaze placed(const BookPlan& plan, const MazeRecord& record, std::size_t maze, const Box& tile) {
  const double caption = plan.caption.empty() ? 0 : std::min(kCaptionRow, tile.height * kMostCaption);
  const double scale = std::min(tile.width / record.width, (tile.height - caption) / record.height);
  const double width = record.width * scale;
  const double height = record.height * scale;
  PlacedMaze result;
  result.maze = maze;
  result.place = {tile.x + (tile.width - width) / 2, tile.y + (tile.height - caption - height) / 2, width,
                  height};
  if (caption > 0) result.caption = Box{tile.x, result.place.y + height, tile.width, caption};
  return result;
}

/// Lays out some mazes, or their answers, on pages that follow those of a document.
class Filling {
 public:
  Filling(const BookPlan& plan, std::vector<MazeRecord>& mazes) : plan_(plan), mazes_(mazes) {}

  void add(PlannedDocument& document, std::size_t begin, std::size_t end, bool isAnswers) const {
    const Tiles tiles = isAnswers ? plan_.answersPerPage : plan_.perPage;
    const auto aPage = static_cast<std::size_t>(tiles.count());
    for (; begin < end; begin += aPage) {
      const int number = static_cast<int>(document.pages.size()) + 1;
      auto [page, area] = blankPage(plan_, number, isAnswers);
      const Pitch across = pitchOf(area.width, tiles.columns);
      const Pitch down = pitchOf(area.height, tiles.rows);
      for (std::size_t i = begin; i < std::min(begin + aPage, end); ++i) {
        const auto place = static_cast<int>(i - begin);
        const int column = place % tiles.columns;
        const int row = place / tiles.columns;
        const Box tile{area.x + column * (across.tile + across.gap), area.y + row * (down.tile + down.gap),
                       across.tile, down.tile};
        page.mazes.push_back(placed(plan_, mazes_[i], i, tile));
        (isAnswers ? mazes_[i].answerPage : mazes_[i].page) = number;
      }
      document.pages.push_back(std::move(page));
    }
  }

 private:
  const BookPlan& plan_;
  std::vector<MazeRecord>& mazes_;
};

}  // namespace

std::optional<std::string> whyNoPages(const BookPlan& plan) {
  for (const bool isAnswers : {false, true}) {
    if (isAnswers && plan.answers == Answers::none) continue;
    const Box area = blankPage(plan, 1, isAnswers).second;
    const Tiles tiles = isAnswers ? plan.answersPerPage : plan.perPage;
    const double across = pitchOf(std::max(0.0, area.width), tiles.columns).tile;
    const double down = pitchOf(std::max(0.0, area.height), tiles.rows).tile;
    if (across >= kSmallestTile && down >= kSmallestTile) continue;
    return std::string("paper, margins and words leave no 15 mm each way for ") +
           (isAnswers ? "an answer" : "a maze");
  }
  return std::nullopt;
}

Size pictureArea(const BookPlan& plan) {
  const Box area = areaOf(plan, 1);
  const auto tenths = [](double points) { return static_cast<int>(points / kPointsAMillimetre * 10); };
  return {tenths(area.width), tenths(area.height)};
}

void putInOrder(std::vector<MazeRecord>& mazes, const BookPlan& plan) {
  const auto key = [&](const MazeRecord& maze) {
    return std::make_tuple(plan.sortByDifficulty ? maze.difficulty : 0, maze.number);
  };
  std::sort(mazes.begin(), mazes.end(),
            [&](const MazeRecord& a, const MazeRecord& b) { return key(a) < key(b); });
}

PlannedBook planPages(const BookPlan& plan, std::vector<MazeRecord>& mazes) {
  const Size paper = paperOf(plan);
  const PlannedDocument blank{points(paper.width), points(paper.height), {}};
  PlannedBook planned{blank, {}};
  if (plan.answers == Answers::file) planned.answers = blank;
  for (MazeRecord& maze : mazes) maze.page = maze.answerPage = 0;
  const Filling filling(plan, mazes);
  const bool isAfter = plan.answers == Answers::after;
  const std::size_t step = isAfter ? static_cast<std::size_t>(plan.perPage.count()) : mazes.size();
  for (std::size_t begin = 0; begin < mazes.size(); begin += step) {
    const std::size_t end = std::min(begin + step, mazes.size());
    filling.add(planned.book, begin, end, false);
    if (plan.answers != Answers::none)
      filling.add(planned.answers ? *planned.answers : planned.book, begin, end, true);
  }
  return planned;
}

void numberPartPages(const BookPlan& plan, std::vector<MazeRecord>& mazes) {
  int page = 0;
  for (MazeRecord& maze : mazes) maze.page = ++page;
  for (MazeRecord& maze : mazes) maze.answerPage = plan.answers == Answers::none ? 0 : ++page;
}

std::string captionOf(const std::string& format, const MazeRecord& maze) {
  // One look at each brace, so that the name of a picture may hold braces of its own.
  const std::array<std::pair<std::string_view, std::string>, 5> words = {
      {{"{n}", std::to_string(maze.number)},
       {"{picture}", maze.picture},
       {"{seed}", std::to_string(maze.seed)},
       {"{cells}", std::to_string(maze.cells)},
       {"{difficulty}", pointNumber(maze.difficulty, 1)}}};
  std::string text;
  for (std::size_t at = 0; at < format.size();) {
    const auto word = std::find_if(words.begin(), words.end(), [&](const auto& known) {
      return std::string_view(format).substr(at).starts_with(known.first);
    });
    if (word == words.end()) {
      text += format[at++];
    } else {
      text += word->second;
      at += word->first.size();
    }
  }
  return text;
}

}  // namespace gridwright::book
