#include "session/arrivals.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include "drawings/drawing_files.h"
#include "drawings/import_drawing.h"
#include "history/history.h"
#include "menus/panels.h"
#include "patterns/pattern_sets.h"
#include "pictures/on_paper.h"
#include "pictures/ready.h"
#include "session/maze_commands.h"
#include "session/prepare_panel.h"
#include "session/title.h"
#include "state/grid.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 9> kExamples = {"balloon", "butterfly", "cat",    "name", "octopus",
                                                       "panes",   "snail",     "window", "words"};

void refuse(Program& program, std::string words) {
  program.platform.told(words);
  program.notices.tell(std::move(words));
}

/// Why nothing can be taken now; empty when it can.
std::string_view whyNotNow(const Program& program) {
  const ProgramState& s = program.state;
  if (const std::string_view why = whyHeld(program); !why.empty() && !program.workshop.open) return why;
  if (s.print.printTotal != 0) return "Not now: mazes are being printed";
  return "";
}

/// \returns whether something can be taken now; else a line has told why not.
bool isWelcome(Program& program) {
  const std::string_view why = whyNotNow(program);
  if (!why.empty()) refuse(program, std::string(why));
  return why.empty();
}

void remember(Program& program, const fs::path& file) {
  auto& recent = program.recent;
  std::erase(recent, file);
  recent.insert(recent.begin(), file);
  if (recent.size() > kMostRecent) recent.resize(kMostRecent);
  listArrivals(program);
}

/// At the title a drawing begins first.
void beginAndTake(Program& program, std::function<void(Program&)> take) {
  if (program.state.phase != Phase::title) return takeInDrawing(program, std::move(take));
  command2(program);
  program.whenDrawing = std::move(take);
}

struct Arrival {
  PictureReader read;
  fs::path file;           ///< Remembered when it could be read; empty for nothing.
  bool isExample = false;  ///< Taken as it is.
};

/// In the drawing phase, over a maze that stands still, or onto the workshop's sheet.
void showPicture(Program& program, const std::shared_ptr<const Picture>& picture, bool isExample) {
  const bool isTaken = isReady(*picture, program.colours) || (isExample && picture->isWholeAsItIs());
  if (isTaken && !program.workshop.open) {
    takeInDrawing(program, [picture](Program& p) { takePicture(p, onPaper(picture->asItIs())); });
  } else {
    openPreparePanel(program, picture);
  }
}

void pictureRead(Program& program, Outcome<Picture> picture, const Arrival& arrival) {
  if (!isWelcome(program)) return;
  program.state.keyBusy = true;
  if (!picture) return refuse(program, picture.fault().words);
  if (!arrival.file.empty()) remember(program, arrival.file);
  const auto shared = std::make_shared<const Picture>(std::move(picture.value()));
  if (program.state.phase != Phase::title) return showPicture(program, shared, arrival.isExample);
  beginAndTake(program,
               [shared, example = arrival.isExample](Program& p) { showPicture(p, shared, example); });
}

/// What has no size of its own is drawn as large as it can be needed: the panel maximises the window.
Size sizeToReadFor(Program& program) {
  const bool isLargest = program.platform.windowState() == WindowState::maximised;
  return isLargest ? canvasFor(program.platform.clientSize()) : Size{Canvas::kSide, Canvas::kSide};
}

void readBeside(Program& program, Arrival arrival) {
  const Size fit = sizeToReadFor(program);
  program.platform.workBeside(program, [arrival = std::move(arrival), fit]() -> Finish {
    auto picture = std::make_shared<Outcome<Picture>>(arrival.read(fit));
    return [picture, arrival](Program& p) { pictureRead(p, std::move(*picture), arrival); };
  });
}

void fileBeside(Program& program, const fs::path& file, bool isExample) {
  Arrival arrival;
  arrival.read = [&door = program.platform, file](Size fit) { return door.readPicture(file, fit); };
  if (!isExample) arrival.file = file;
  arrival.isExample = isExample;
  readBeside(program, std::move(arrival));
}

void drawingArrived(Program& program, const fs::path& file) {
  if (program.workshop.open) return refuse(program, "Not now: a panel is open");
  auto drawing = readDrawing(program, file);
  if (!drawing) return refuse(program, drawing.fault().words);
  remember(program, file);
  const std::string words = file.stem().string() + " is loaded from " + file.parent_path().string() +
                            "; what you save goes to " + program.files->path().string();
  beginAndTake(program, [drawing = std::move(drawing.value()), words](Program& p) {
    noteLoad(p);
    takeDrawing(p, drawing);
    p.notices.tell(words);
  });
}

void fileArrived(Program& program, const fs::path& file) {
  if (equalButForCase(file.extension().string(), ".maze")) return drawingArrived(program, file);
  fileBeside(program, file, false);
}

/// The one that came with the program; where there is none, the working folder's, where it was laid out.
fs::path examplePicture(const Program& program, std::string_view name) {
  const std::string file = std::string(name) + ".bmp";
  const fs::path content = program.platform.contentFolder();
  std::error_code failed;
  if (!content.empty() && fs::exists(content / "examples" / file, failed)) return content / "examples" / file;
  return program.files->resolve(file);
}

/// The pattern sets among the examples: those that loading patterns would list, where it could be chosen.
std::vector<std::string> patternSets(const Program& program) {
  const Phase phase = program.state.phase;
  if (phase != Phase::drawing && phase != Phase::making) return {};
  return program.files->list(setEnding(program.state.mazeKind));
}

}  // namespace

void takeInDrawing(Program& program, std::function<void(Program&)> take) {
  if (program.state.phase == Phase::drawing) {
    beginStep(program);
    return take(program);
  }
  backtodrawing(program);
  program.whenDrawing = std::move(take);
}

bool takeWhatWaited(Program& program) {
  if (!program.whenDrawing) return false;
  const auto take = std::exchange(program.whenDrawing, nullptr);
  beginStep(program);
  take(program);
  return true;
}

void openpicture(Program& program) {
  if (const auto file = program.platform.choosePicture()) fileArrived(program, *file);
}

void filesArrived(Program& program, const std::vector<fs::path>& files) {
  if (files.empty() || program.state.keyBusy || !isWelcome(program)) return;
  program.state.keyBusy = true;
  if (files.size() > 1) {
    program.notices.tell("only the first of these " + std::to_string(files.size()) +
                         " files is taken: " + files.front().filename().string());
  }
  fileArrived(program, files.front());
}

void nothingArrived(Program& program) {
  if (program.state.keyBusy || !isWelcome(program)) return;
  refuse(program, "only a file of this computer can be dropped here");
}

void pastepicture(Program& program) {
  auto pasted = program.platform.pasted();
  if (!pasted) return refuse(program, pasted.fault().words);
  if (!pasted.value().file.empty()) return fileArrived(program, pasted.value().file);
  readBeside(program, {std::move(pasted.value().read), {}});
}

void pasteArrived(Program& program) {
  if (program.state.keyBusy || !isWelcome(program)) return;
  program.state.keyBusy = true;
  pastepicture(program);
}

void openRecent(Program& program, int entry) {
  const fs::path file = program.recent.at(static_cast<std::size_t>(entry));
  fileArrived(program, file);
}

void openExample(Program& program, int entry) {
  const std::string name = program.menus.entries(Item::openexample).at(static_cast<std::size_t>(entry));
  if (std::find(kExamples.begin(), kExamples.end(), name) == kExamples.end()) {
    loadSet(program, baseName(name));
  } else {
    fileBeside(program, examplePicture(program, name), true);
  }
}

void listArrivals(Program& program) {
  std::vector<std::string> names;
  for (const fs::path& file : program.recent)
    names.push_back(file.filename().string() + ", in " + file.parent_path().string());
  program.menus.setEntries(Item::openrecent, std::move(names));
  std::vector<std::string> examples(kExamples.begin(), kExamples.end());
  for (const std::string& set : patternSets(program)) examples.push_back(set);
  program.menus.setEntries(Item::openexample, std::move(examples));
}

}  // namespace gridwright
