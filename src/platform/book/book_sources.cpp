#include "platform/book/book_sources.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <functional>
#include <new>
#include <optional>
#include <string_view>
#include <thread>

#include "canvas/bitmap_decode.h"
#include "canvas/canvas.h"
#include "drawings/drawing_record.h"
#include "files/plain_file.h"
#include "files/work_folder.h"
#include "patterns/pattern_sets.h"
#include "platform/book/worker_threads.h"
#include "platform/pictures/made_ready.h"
#include "platform/pictures/offscreen.h"
#include "platform/pictures/read_picture.h"

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t kMostBytes = 512U << 20;  // of a picture's file

Fault fault(const fs::path& path, const std::string& why) {
  return {Fault::Kind::malformed, path.string() + ": " + why};
}

std::string sumOf(const std::string& bytes) {
  const QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  return QCryptographicHash::hash(view, QCryptographicHash::Sha256).toHex().toStdString();
}

/// The lines of a text that are not blank, without the blanks around them.
std::vector<std::string> namesIn(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF", kBlanks = " \t\r";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<std::string> names;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const auto first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) continue;
    names.emplace_back(line.substr(first, line.find_last_not_of(kBlanks) - first + 1));
  }
  return names;
}

/// A file that cannot be taken, in one line.
struct Refused {
  Fault fault;
};

/// One picture with all that is told of it.
struct ReadPicture {
  SourcePicture picture;
  std::vector<PictureSum> sums;
  std::vector<std::string> warnings;
};

/// The bytes of a file, whose sum is kept under a name. \throws Refused
std::string bytesOf(const std::string& name, const fs::path& path, std::vector<PictureSum>& sums) {
  auto bytes = readPlainFile(path, kMostBytes);
  if (!bytes) {
    const Fault::Kind kind = bytes.fault().kind;
    throw Refused{fault(path, kind == Fault::Kind::notFound    ? "there is no such file"
                              : kind == Fault::Kind::malformed ? "it is too large"
                                                               : "it cannot be read")};
  }
  sums.push_back({name, sumOf(bytes.value())});
  return std::move(bytes.value());
}

/// A picture's file, as a bitmap that makes a maze.
class PictureFile {
 public:
  /// \param name as it is told and listed; a name without a whole path lies in the folder.
  PictureFile(const std::string& name, const fs::path& folder, const ReadyGround& ground,
              const std::vector<ColourPair>& mazeColours)
      : name_(name), path_(folder / name), ground_(ground), mazeColours_(mazeColours) {}

  /// \throws Refused
  ReadPicture read() {
    read_.picture.name = path_.stem().string();
    const std::string bytes = bytesOf(name_, path_, read_.sums);
    if (equalButForCase(path_.extension().string(), ".maze")) {
      takeDrawing(bytes);
    } else if (bytes.starts_with("BM")) {
      takeBitmap(bytes);
    } else {
      makeReady(bytes);
    }
    return std::move(read_);
  }

 private:
  void takeDrawing(const std::string& text) {
    const auto drawing = parseDrawing(text);
    if (!drawing) throw Refused{fault(path_, "it is no Gridwright drawing")};
    const fs::path folder = path_.parent_path().empty() ? fs::path(".") : path_.parent_path();
    const fs::path beside = WorkFolder(folder).resolve(path_.stem().string() + ".bmp");
    const std::string bytes = bytesOf(fs::path(name_).replace_extension(".bmp").string(), beside, read_.sums);
    const auto bitmap = decodeBitmapFile(bytes, Canvas::kSide);
    if (!bitmap) throw Refused{fault(beside, "it cannot be read, so that " + name_ + " has no picture")};
    read_.picture.drawing = text;
    read_.picture.kind = static_cast<MazeKind>(drawing.value().values[record::mazeKind]);
    read_.picture.picture = PackedPicture(bitmap.value());
  }

  void takeBitmap(const std::string& bytes) {
    const auto bitmap = decodeBitmapFile(bytes, Canvas::kSide);
    if (!bitmap) throw Refused{fault(path_, "it cannot be read: " + bitmap.fault().words)};
    read_.picture.picture = PackedPicture(bitmap.value());
    if (hasGroundOfCorridors(bitmap.value()))
      read_.warnings.push_back(name_ +
                               ": its ground has the colour of corridors; gridwright-prepare makes it ready");
  }

  void makeReady(const std::string& bytes) {
    const auto read = readPictureBytes(bytes, {kLongestSide, kLongestSide}, path_.filename().string());
    if (!read) throw Refused{{Fault::Kind::malformed, read.fault().words}};
    read_.picture.picture = PackedPicture(pictureMadeReady(read.value(), {}, ground_).picture);
  }

  /// All corridors are white but those that an option recolours.
  [[nodiscard]] bool hasGroundOfCorridors(const Bitmap& bitmap) const {
    if (bitmap.width < 2 || bitmap.height < 2) return false;
    const Colour ground = bitmap.at(1, 1);
    return ground == kPalette[15] ||
           std::any_of(mazeColours_.begin(), mazeColours_.end(), [&](const ColourPair& pair) {
             return kPalette.at(static_cast<std::size_t>(pair.corridor)) == ground;
           });
  }

  const std::string& name_;
  const fs::path path_;
  const ReadyGround& ground_;
  const std::vector<ColourPair>& mazeColours_;
  ReadPicture read_;
};

/// \throws Refused without words when somebody wants it to end.
void holdGoing(const IsStopped& isStopped) {
  if (isStopped()) throw Refused{{Fault::Kind::notReadable, {}}};
}

/// Words as a bitmap that makes a maze, or why they make none.
SourcePicture painted(const std::string& name, const ReadyGround& ground) {
  SourcePicture picture;
  picture.name = name;
  WordSettings words;
  words.text = name;
  words.height.reset();
  const auto ready = wordsMadeReady(words, ground);
  if (ready) {
    picture.picture = PackedPicture(ready.value().picture);
  } else {
    picture.whyNot = ready.fault().words;
  }
  return picture;
}

/// For each picture the largest wall of its mazes, and pipes if some are of pipes, whose cells lie widest.
std::vector<ReadyGround> groundsOf(const BookPlan& plan, std::size_t pictures) {
  std::vector<ReadyGround> grounds(pictures);
  std::vector<int> walls(pictures);
  const int asked = mazesAsked(plan, pictures);
  for (int i = 0; i < asked; ++i) {
    const std::size_t picture = pictureOf(plan, pictures, i);
    const MazeWish wish = wishOf(plan.wished, i);
    walls[picture] = std::max(walls[picture], wish.wall.value_or(grounds[picture].wallSize));
    if (wish.kind == MazeKind::pipe) grounds[picture].kind = MazeKind::pipe;
  }
  for (std::size_t i = 0; i < pictures; ++i) {
    if (walls[i] > 0) grounds[i].wallSize = walls[i];
  }
  return grounds;
}

/// Reads the pictures' files, as many at once as there are jobs.
/// \throws Refused for the first of them that cannot be taken.
std::vector<ReadPicture> readPictureFiles(const BookPlan& plan, const std::vector<ReadyGround>& grounds,
                                          const BookRun& run, const IsStopped& isStopped) {
  const NobodyHears quiet;
  std::vector<ReadPicture> read(plan.pictures.size());
  std::vector<std::optional<Fault>> faults(plan.pictures.size());
  std::atomic<std::size_t> next = 0;
  const std::function<void()> work = [&] {
    for (std::size_t i = next++; i < read.size() && !isStopped(); i = next++) {
      try {
        read[i] = PictureFile(plan.pictures[i], run.folder, grounds[i], plan.wished.mazeColours).read();
      } catch (Refused& refused) {
        faults[i] = std::move(refused.fault);
      } catch (const std::bad_alloc&) {
        faults[i] = Fault{Fault::Kind::notReadable, kNoMemory};
      }
    }
  };
  const auto useful = std::clamp(read.size(), std::size_t{1}, static_cast<std::size_t>(run.jobs));
  std::vector<std::jthread> threads = beginThreads(useful - 1, work);
  work();
  threads.clear();  // they are joined
  holdGoing(isStopped);
  for (auto& wrong : faults) {
    if (wrong) throw Refused{std::move(*wrong)};
  }
  return read;
}

}  // namespace

/// \throws Refused
void BookSources::readAll(const BookPlan& plan, const BookRun& run, const IsStopped& isStopped) {
  std::vector<PictureSum> sumOfNames;
  std::vector<std::string> names;
  if (!plan.words.empty()) {
    names = namesIn(bytesOf(plan.words, run.folder / plan.words, sumOfNames));
    if (names.empty()) throw Refused{fault(run.folder / plan.words, "there is no name in it")};
  }
  const std::size_t pictures = plan.pictures.size() + names.size();
  if (auto why = whyTooMany(plan, pictures)) throw Refused{{Fault::Kind::malformed, *std::move(why)}};
  const std::vector<ReadyGround> grounds = groundsOf(plan, pictures);
  for (ReadPicture& read : readPictureFiles(plan, grounds, run, isStopped)) {
    pictures_.push_back(std::move(read.picture));
    sums_.insert(sums_.end(), read.sums.begin(), read.sums.end());
    warnings_.insert(warnings_.end(), read.warnings.begin(), read.warnings.end());
  }
  sums_.insert(sums_.end(), sumOfNames.begin(), sumOfNames.end());
  for (const std::string& name : names) {
    holdGoing(isStopped);
    pictures_.push_back(painted(name, grounds[pictures_.size()]));
  }
  for (std::size_t i = 0; i < pictures_.size(); ++i) starts_.push_back(std::make_unique<RegionStarts>());
  readSets(plan, run.folder);
}

/// Each set of patterns in the files of all kinds that mazes with it have. \throws Refused
void BookSources::readSets(const BookPlan& plan, const fs::path& folder) {
  const int asked = mazesAsked(plan, count());
  for (int i = 0; i < asked; ++i) {
    const MazeWish wish = wishOf(plan.wished, i);
    if (!wish.patterns || wish.patterns->kind != PatternWish::Kind::set) continue;
    const SetName set{wish.patterns->name, kindOf(wish, pictures_[pictureOf(plan, count(), i)])};
    if (sets_.count(set) != 0) continue;
    std::string base = set.first;
    for (const MazeKind kind : {MazeKind::regular, MazeKind::threeD, MazeKind::pipe}) {
      if (base.ends_with(setEnding(kind))) base.resize(base.size() - setEnding(kind).size());
    }
    const std::string file = base + std::string(setEnding(set.second));
    std::string text = bytesOf(file, folder / file, sums_);
    if (!parseSet(text)) throw Refused{fault(folder / file, "it is no set of patterns")};
    sets_[set] = std::move(text);
  }
}

Outcome<BookSources> BookSources::read(const BookPlan& plan, const BookRun& run, const IsStopped& isStopped) {
  BookSources sources;
  try {
    sources.readAll(plan, run, isStopped);
  } catch (Refused& refused) {
    return std::move(refused.fault);
  }
  return sources;
}

MazeOrder BookSources::orderOf(const BookPlan& plan, int index) const {
  const SourcePicture& picture = pictures_[pictureOf(plan, count(), index)];
  MazeOrder order{
      index + 1, plan.seed + static_cast<std::uint32_t>(index), wishOf(plan.wished, index), picture, {}};
  if (order.wish.patterns && order.wish.patterns->kind == PatternWish::Kind::set)
    order.patternSet = sets_.at({order.wish.patterns->name, kindOf(order.wish, picture)});
  return order;
}

RegionStarts& BookSources::startsOf(const BookPlan& plan, int index) const {
  return *starts_[pictureOf(plan, count(), index)];
}

}  // namespace gridwright::book
