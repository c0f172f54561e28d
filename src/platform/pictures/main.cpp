// gridwright-prepare: any picture, or words, made ready for a maze, without a window.
#include <fcntl.h>
#include <unistd.h>

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "canvas/bitmap_encode.h"
#include "canvas/free_cell.h"
#include "files/plain_file.h"
#include "pictures/on_paper.h"
#include "pictures/prepare.h"
#include "pictures/ready.h"
#include "pictures/sheet.h"
#include "pictures/words.h"
#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/prepare_words.h"
#include "platform/pictures/qt_ink.h"
#include "platform/pictures/read_picture.h"

namespace {

using namespace gridwright;

constexpr int kNotDone = 1, kWrongUse = 2;

int complain(const std::string& words, int status) {
  std::cerr << "gridwright-prepare: " << words << '\n';
  return status;
}

int say(std::string_view words) {
  std::cout << words << std::endl;
  return std::cout ? 0 : kNotDone;
}

/// The words in an SVG need fonts, and those an application object; it must not look for a display.
std::unique_ptr<QGuiApplication> applicationWithoutScreen() {
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  static std::array<char, 19> name{"gridwright-prepare"};
  static std::array<char, 10> option{"-platform"};
  static std::array<char, 10> value{"offscreen"};
  static std::array<char*, 4> arguments{name.data(), option.data(), value.data(), nullptr};
  static int count = 3;
  return std::make_unique<QGuiApplication>(count, arguments.data());
}

/// Decoders of pictures have words of their own for standard error; a person gets our line instead.
class NobodyHears {
 public:
  NobodyHears() : kept_(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0)) {
    const OpenFile nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    if (kept_ && nowhere) ::dup2(nowhere.descriptor(), STDERR_FILENO);
  }
  ~NobodyHears() {
    if (kept_) ::dup2(kept_.descriptor(), STDERR_FILENO);
  }
  NobodyHears(const NobodyHears&) = delete;
  NobodyHears& operator=(const NobodyHears&) = delete;

 private:
  OpenFile kept_;
};

Outcome<Picture> readQuietly(const PrepareWords& line) {
  const NobodyHears quiet;
  return readPicture(line.in, line.size.value_or(Size{kLongestSide, kLongestSide}));
}

Fault cannotBeWritten(const std::filesystem::path& path, const char* why) {
  return {Fault::Kind::notWritable, path.string() + " " + why};
}

Outcome<Done> write(const Bitmap& picture, const PrepareWords& line) {
  std::error_code failed;
  const bool isThere = std::filesystem::exists(std::filesystem::symlink_status(line.out, failed));
  if (isThere && !line.mayReplace)
    return cannotBeWritten(line.out, "is there already; --force writes over it");
  const auto written = replacePlainFile(line.out, BitmapFilePieces(picture).pieces());
  if (!written) return cannotBeWritten(line.out, "can't be written");
  return Done{};
}

/// The picture made ready, and the line of what would come of it.
struct Result {
  Bitmap picture;
  std::string line;
};

Result made(const Picture& picture, const PrepareWords& line) {
  if (isReady(picture, startingSets())) {
    const Bitmap asItIs = onPaper(picture.whole);
    const CellGrid grid = gridOn({asItIs.width, asItIs.height}, line.wallSize, line.kind);
    return {asItIs, regionLine(countRegions(asItIs, startingSets(), grid))};
  }
  LeptonicaWork work;
  const PrepareGround ground{line.size.value_or(picture.whole.size()), line.wallSize, line.kind};
  const Prepared prepared = prepare(picture, line.settings, ground, work);
  return {prepared.picture, prepareLine(prepared)};
}

/// The words as large as asked for, two cells of paper all round them, and the line of what would come of
/// them.
Outcome<Result> madeOfWords(const PrepareWords& line) {
  constexpr int kPaperCells = 2, kFills = 8;  // the first eight inks are filled at the start
  const int pitch = pitchOf(line.wallSize, line.kind);
  const int around = kPaperCells * pitch;
  WordGround ground;
  ground.size = {kLongestSide, kLongestSide};
  ground.pitch = {pitch, pitch, line.wallSize};
  for (int ink = 0; ink < kFills; ++ink) ground.turns.push_back(ink);
  ground.margin = kPaperCells;
  ground.place = Corner{around, around};
  QtInk ink({});
  const WordInk words = makeWords(*line.words, ground, ink);
  if (words.picture.pixels.empty()) return Fault{Fault::Kind::malformed, words.note};
  const Size size{std::min(words.at.x + words.picture.width + around, kLongestSide),
                  std::min(words.at.y + words.picture.height + around, kLongestSide)};
  Sheet sheet(size);
  sheet.placeInk(words.picture, words.at);
  const RegionCount count =
      countRegions(sheet.picture(), startingSets(), gridOn(size, line.wallSize, line.kind));
  return Result{sheet.picture(), regionLine(count) + (words.note.empty() ? "" : "; " + words.note)};
}

Outcome<Result> madeOfPicture(const PrepareWords& line) {
  const auto picture = readQuietly(line);
  if (!picture) return picture.fault();
  return made(picture.value(), line);
}

int run(const PrepareWords& line) {
  const auto application = applicationWithoutScreen();
  const auto result = line.words ? madeOfWords(line) : madeOfPicture(line);
  if (!result) return complain(result.fault().words, kNotDone);
  const auto written = write(result.value().picture, line);
  return written ? say(result.value().line) : complain(written.fault().words, kNotDone);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && argv[1] == std::string_view("--help")) return say(kPrepareUsage);
  if (argc == 2 && argv[1] == std::string_view("--version"))
    return say("gridwright-prepare " GRIDWRIGHT_VERSION);
  const auto line = readPrepareWords({argv + 1, argv + argc});
  return line ? run(line.value()) : complain(line.fault().words, kWrongUse);
}
