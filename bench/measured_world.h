// A program with a wholly free drawing on its Canvas, on any desktop or on one that does nothing.
#pragma once

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "colours/colour_repairs.h"
#include "maze/makemaze.h"
#include "state/grid.h"
#include "state/program.h"

namespace gridwright::bench {

/// Events never come; the loops run as fast as they can. Pictures are kept in memory.
class StillDesktop : public Platform {
 public:
  void doEvents(Program& program, Pace /*pace*/) override {
    ++pumps;
    if (program.state.phase == until) throw ProgramEnd{};
  }
  std::int64_t quietPumps(const Program& program) override {
    return program.state.phase == until ? 0 : 1'000'000;
  }
  void passOver(std::int64_t count) override { pumps += count; }
  Size clientSize() override { return {1000, 1000}; }
  std::filesystem::path contentFolder() override { return {}; }
  WindowPlace normalPlace() override { return {}; }
  void setNormalPlace(const WindowPlace& /*place*/) override {}
  WindowState windowState() override { return WindowState::normal; }
  void setWindowState(WindowState /*state*/) override {}
  Size maximise() override { return clientSize(); }
  void raise() override {}
  void messageBox(std::string_view /*text*/) override {}
  // No picture comes from elsewhere.
  void workBeside(Program& program, Work work) override { work()(program); }
  Outcome<Picture> readPicture(const std::filesystem::path& file, Size /*fit*/) override {
    return Fault{Fault::Kind::notFound, file.string()};
  }
  PictureWork& pictureWork() override { std::abort(); }
  InkWork& inkWork() override { std::abort(); }
  Outcome<Done> savePng(const BitmapView&, const FilePlace&) override { return Done{}; }
  bool openElsewhere(const std::filesystem::path&) override { return false; }
  std::optional<std::filesystem::path> choosePicture() override { return std::nullopt; }
  Outcome<Pasted> pasted() override { return Fault{Fault::Kind::notFound, "there is no picture to paste"}; }
  Outcome<Bitmap> loadBitmap(const FilePlace& place) override {
    const auto found = pictures.find(place.filename());
    if (found == pictures.end()) return Fault{Fault::Kind::notFound, place.path().string()};
    return found->second;
  }
  Outcome<FileMark> saveBitmap(const BitmapView& picture, const FilePlace& place,
                               Overwrite /*how*/) override {
    pictures[place.filename()] = picture.copied();
    return FileMark{};
  }
  Outcome<Done> printForm(const BitmapView& /*picture*/, const PageLook& /*look*/) override { return Done{}; }
  Outcome<PagesWent> printAlone(const BitmapView& /*picture*/, const PageLook& /*look*/) override {
    return PagesWent{};
  }
  Outcome<PagesWent> endOfPages() override { return PagesWent{}; }
  std::uint32_t clockSeed() override { return 1; }

  Phase until = Phase::title;
  std::int64_t pumps = 0;
  std::map<std::string, Bitmap> pictures;
};

struct MeasuredProgram {
  MeasuredProgram(Platform& desktop, int width, int height, int wall) : program(desktop, "/no/such/folder") {
    ProgramState& s = program.state;
    program.canvas.resize({width, height});
    program.canvas.fill(0, 0, width - 1, height - 1, kPalette[1]);
    program.canvas.fill(0, 0, width - 1, wall - 1, kPalette[9]);
    program.canvas.fill(0, 0, wall - 1, height - 1, kPalette[9]);
    defaultColours(program);
    program.colours.setExtraBackgroundByRule();
    s.wallWidth = s.wallHeight = wall;
    pitchFromKind(s);
    measureGrid(program);
    drawing = program.canvas.image();
    program.pictures.save("drawing1b.bmp", drawing);
    s.start = s.walker.walkStart = {wall + 1, wall + 1, 2 * wall - 2, 2 * wall - 2};
    const int right = s.gridRight + 1;
    const int bottom = s.gridBottom + 1;
    s.finish = {right, bottom, right + wall - 3, bottom + wall - 3};
    s.mazeColor = s.keptMazeColor = kPalette[15];
    s.creationMode = CreationMode::computer;
    program.steps.resetAll();
    toTheBeginning();
  }

  /// Another kind in the same drawing, with ends on its grid.
  void becomes(MazeKind kind, bool longPipes) {
    ProgramState& s = program.state;
    s.mazeKind = kind;
    program.menus.setChecked(Item::pthin, longPipes);
    pitchFromKind(s);
    measureGrid(program);
    const int right = s.gridRight + 1;
    const int bottom = s.gridBottom + 1;
    s.finish = {right, bottom, right + s.wallWidth - 3, bottom + s.wallHeight - 3};
    toTheBeginning();
  }

  void toTheBeginning() {
    ProgramState& s = program.state;
    s.phase = Phase::making;
    s.cur = s.prev = s.start;
    s.mazeMadeOnce = true;
    program.canvas.setAutoRedraw(true);
    program.canvas.paintPicture(drawing);
  }

  /// Makes a maze from the beginning. \returns the seconds that the walker took.
  double secondsToMake(std::uint32_t seed) {
    toTheBeginning();
    program.random.seed(seed);
    const auto begin = std::chrono::steady_clock::now();
    makemaze(program);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  }

  /// Carved cells, and joins between them to the right and down.
  [[nodiscard]] std::pair<int, int> cellsAndJoins() const {
    const ProgramState& s = program.state;
    const Pixels pixels = program.pixels();
    int cells = 0;
    int joins = 0;
    for (int y = s.wallHeight + 1; y <= s.gridBottom + 1; y += s.stepY) {
      for (int x = s.wallWidth + 1; x <= s.gridRight + 1; x += s.stepX) {
        cells += pixels.maze(x, y);
        joins += pixels.maze(x + s.wallWidth - 2, y) + pixels.maze(x, y + s.wallHeight - 2);
      }
    }
    return {cells, joins};
  }

  Program program;
  Bitmap drawing;
};

struct WithStillDesktop {
  StillDesktop desktop;
};

struct MeasuredWorld : WithStillDesktop, MeasuredProgram {
  MeasuredWorld(int width, int height, int wall) : MeasuredProgram(desktop, width, height, wall) {}
};

}  // namespace gridwright::bench
