// What a book is made of: the plan that the options say, the record of each maze, and a maze as it is handed
// on to be laid out. Plain values; none of them knows a page's bytes or a running program.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/maze_kind.h"

namespace gridwright::book {

inline constexpr int kMostMazes = 1'000'000;  ///< Of a book.

/// Where the ends of a maze come from.
enum class Ends { set, farthest, farthestUnderpasses, mostUnderpasses };

/// Where the answers of a book stand.
enum class Answers { none, after, end, file };

/// How the maze lies on its page.
enum class MazeFormat { vector, pixels };

/// How many mazes stand side by side and one below the other.
struct Tiles {
  int columns = 1, rows = 1;
  [[nodiscard]] int count() const { return columns * rows; }
  friend bool operator==(const Tiles&, const Tiles&) = default;
};

/// A sheet of paper, upright or as it was asked for by its measures, in thousandths of a point: a list keeps
/// it without loss.
struct Paper {
  std::string name;  ///< As the option says it: `a4`, `180x240mm`.
  int width = 595276, height = 841890;
  friend bool operator==(const Paper&, const Paper&) = default;
};

/// One part of a book that several machines make: every `of`-th maze, from the `number`-th on, counted
/// from 1.
struct Part {
  int number = 1, of = 1;
  friend bool operator==(const Part&, const Part&) = default;
};

/// What patterns steer the walkers of the mazes.
struct PatternWish {
  enum class Kind { none, random, set };
  Kind kind = Kind::none;
  int size = 5;      ///< Of random ones, 2 to 99.
  std::string name;  ///< Of a set: the file, as the option names it.
  friend bool operator==(const PatternWish&, const PatternWish&) = default;
};

/// A pair of `--maze-colours`: corridors of the second colour in ground of the first, by number of the
/// palette.
struct ColourPair {
  int ground = 0, corridor = 0;
  friend bool operator==(const ColourPair&, const ColourPair&) = default;
};

/// The settings that options give; an empty list is an option that was not given. Maze i takes the value at i
/// modulo the length of the list.
struct WishedSettings {
  std::vector<MazeKind> kinds;
  std::vector<int> walls;         ///< 5 to 50 pixels.
  std::vector<int> difficulties;  ///< 1 to 6.
  std::vector<bool> largePaths;
  std::vector<bool> shortUnderpasses;
  std::vector<PatternWish> patterns;
  std::vector<Ends> ends;
  std::vector<ColourPair> mazeColours;  ///< All of them for every maze.
  friend bool operator==(const WishedSettings&, const WishedSettings&) = default;
};

/// Everything that decides how a book looks. Two runs with equal plans make the same bytes, so it holds no
/// name of what is written, no number of threads and nothing of how a run is watched.
struct BookPlan {
  std::vector<std::string> pictures;  ///< Files in the order of the command line.
  std::string words;                  ///< The file of `--words`, a picture of each line; empty for none.
  std::optional<int> mazesAPicture;   ///< `-n`
  std::optional<int> total;           ///< `--total`
  WishedSettings wished;
  std::uint32_t seed = 0;  ///< Maze i has this and i, modulo 2^32.

  Paper paper{"a4"};
  bool landscape = false;
  int margin = 42520, gutter = 0;  ///< In thousandths of a point; the gutter widens the bound side.
  Tiles perPage{1, 1};
  Answers answers = Answers::end;
  Tiles answersPerPage{3, 4};
  std::string title;            ///< At the head of each page; empty for none.
  std::string caption = "{n}";  ///< Under each maze and its answer; empty for none.
  bool pageNumbers = false;
  bool nameLine = false;
  bool sortByDifficulty = false;
  MazeFormat format = MazeFormat::vector;
  friend bool operator==(const BookPlan&, const BookPlan&) = default;
};

/// What is done with the plan in this run: none of it changes a byte of the book.
struct BookRun {
  std::filesystem::path folder;  ///< Where names without a whole path lie; empty for the present one.
  std::filesystem::path output = "book.pdf";
  std::filesystem::path answersFile;  ///< With `Answers::file` alone.
  std::filesystem::path list;         ///< Empty for none.
  std::filesystem::path from;         ///< The list that the plan comes from; empty for none.
  std::vector<std::filesystem::path>
      join;  ///< The parts of a book that is to be laid out; no maze is made then.
  std::filesystem::path svgFolder, pngFolder;  ///< Of pictures of each maze and answer; empty for none.
  int pngDpi = 300;                            ///< 72 to 1200.
  std::optional<Part> part;
  int jobs = 1;
  bool mayReplace = false;  ///< `--force`
  bool strict = false;
  bool quiet = false;
};

/// The settings of one maze as it was made.
struct MazeSettings {
  MazeKind kind = MazeKind::regular;
  int wall = 10;
  int difficulty = 4;
  bool largePaths = false;
  bool shortUnderpasses = true;
  std::string patterns = "own";  ///< As the option says them; `own` where it said nothing.
  Ends ends = Ends::farthest;
  bool ownEnds = false;  ///< The ends that a drawing brought were kept.
  friend bool operator==(const MazeSettings&, const MazeSettings&) = default;
};

/// One maze of the book, as its list tells it.
struct MazeRecord {
  int number = 0;       ///< From 1; numbers of mazes that could not be made are left out.
  std::string picture;  ///< The base name of the picture's file, or the words.
  std::uint32_t seed = 0;
  MazeSettings settings;
  int width = 0, height = 0;  ///< Of the Canvas, in pixels.
  int cells = 0;              ///< Those with a corridor, anywhere in the picture.
  int wayLength = 0;          ///< Cells from the start to the finish, both counted.
  int deadEnds = 0;
  int junctions = 0;  ///< Cells of the way from which something branches.
  int underpasses = 0;
  double difficulty = 0;
  int page = 0,
      answerPage = 0;  ///< From 1, in their document; 0 where there is none. Who lays out sets them.
  std::optional<std::string> notVector;  ///< Why its page is pixels though vectors were asked for.
};

/// A maze as a worker hands it on. Both pictures are of the record's size.
struct MadeMaze {
  MazeRecord record;
  Bitmap maze;    ///< As printed, both ends shown.
  Bitmap answer;  ///< The same with its trail.
};

/// A picture that mazes are made in, and what tells whether it is still the same.
struct PictureSum {
  std::string name;    ///< As in `BookPlan::pictures`, or `words`.
  std::string sha256;  ///< Of the file's bytes, 64 small hexadecimal digits.
  friend bool operator==(const PictureSum&, const PictureSum&) = default;
};

/// What `--list` writes, a part carries with it, and `--from` and `--join` read.
struct BookList {
  BookPlan plan;
  std::optional<Part> part;
  std::vector<PictureSum> sums;   ///< Of all files that were read: pictures, words, pattern sets.
  int mazesAsked = 0;             ///< How many mazes the whole book was to have.
  std::vector<MazeRecord> mazes;  ///< In the order of the book.
  std::vector<int> notMade;       ///< Numbers of this part's mazes that could not be made, rising.
};

}  // namespace gridwright::book
