#include "person/sitting.h"

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <memory>
#include <system_error>
#include <utility>

#include "person/habits.h"
#include "person/kit.h"
#include "person/watch.h"
#include "platform/headless/headless_desktop.h"
#include "platform/pictures/offscreen.h"
#include "platform/shared/image_files.h"
#include "session/main_loop.h"

namespace gridwright::person {

namespace fs = std::filesystem;

namespace {

/// Something does not hold; it ends the program from where it stands.
struct Found {
  std::string words;
};

/// Letters and pictures want an application, one for as long as the process lives: taken down after `main`,
/// it would look for what has gone by then.
void beginPictures() {
  static const QGuiApplication* const application = applicationWithoutScreen("gridwright-person").release();
  static_cast<void>(application);
}

class PersonsDesktop : public HeadlessDesktop {
 public:
  PersonsDesktop(const Ground& ground, const Deeds& deeds, Story& story)
      : HeadlessDesktop("session", "", optionsFor(ground)), ground_(ground), deeds_(deeds), story_(story) {}

  void messageBox(std::string_view text) override {
    watch_.refused(text);
    HeadlessDesktop::messageBox(text);
  }

  [[nodiscard]] bool isOver() const { return isOver_; }

 protected:
  const ScriptLine* nextLine(Program& program) override {
    if (isAtWork_) lookAt(program);
    while (const auto line = deeds_(program)) {
      auto lines = readScript(*line);
      if (lines.empty()) continue;  // a remark
      line_ = std::move(lines.front());
      ground_.note(*line);
      story_.lines.push_back(*line);
      watch_.before(program, *line);
      isAtWork_ = true;
      return &line_;
    }
    isOver_ = true;
    return nullptr;
  }

  bool goesOnAfter(const ScriptStop&) override {
    ground_.noteRefused();
    story_.lines.pop_back();
    isAtWork_ = false;
    return true;
  }

 private:
  static HeadlessOptions optionsFor(const Ground& ground) {
    HeadlessOptions options;
    options.size = ground.size;
    options.contentFolder = ground.folder / "content";
    options.beforePictures = beginPictures;
    return options;
  }

  void lookAt(const Program& program) {
    if (std::string words = watch_.after(program); !words.empty()) throw Found{std::move(words)};
  }

  const Ground& ground_;
  const Deeds& deeds_;
  Story& story_;
  Watch watch_;
  ScriptLine line_;
  bool isAtWork_ = false;  // a line was taken, and has not been looked at yet
  bool isOver_ = false;
};

/// One start of the program, until it is closed. \returns whether there is more to do.
bool runOnce(const Ground& ground, const Deeds& deeds, Story& story) {
  PersonsDesktop desktop(ground, deeds, story);
  const auto program = std::make_unique<Program>(desktop, ground.folder / "work");
  program->dataFolder = ground.folder / "data";
  try {
    runProgram(*program);
  } catch (const ProgramEnd&) {
  } catch (const ScriptStop& stop) {
    story.fault = "a wait that never ends: " + stop.message;
  } catch (const Found& found) {
    story.fault = found.words;
  }
  return story.fault.empty() && !desktop.isOver();
}

/// What a session must not leave behind: files that were not whole, and files beside its folder.
std::string leftBehind(const fs::path& folder) {
  constexpr auto kOurs =
      std::to_array<std::string_view>({"content", "data", "kit", "lines", "verdict", "work"});
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (std::find(kOurs.begin(), kOurs.end(), name) == kOurs.end())
      return "a file beside the working folder: " + name;
  }
  for (const auto& entry : fs::directory_iterator(folder / "work")) {
    if (entry.path().extension() == ".copying") return "a file that is not whole: " + entry.path().string();
  }
  return {};
}

}  // namespace

Deeds madeUp(Choices& choices, std::function<bool()> isOver) {
  return [&choices, isOver = std::move(isOver), begun = false](const Program& program) mutable {
    if (isOver()) return std::optional<std::string>();
    if (std::exchange(begun, true)) return std::optional(nextDeed(program, choices));
    return std::optional("seed " + choices.numberBetween(0, 9999));
  };
}

Deeds asWritten(std::vector<std::string> lines) {
  return [lines = std::move(lines), next = std::size_t{0}](const Program&) mutable {
    return next == lines.size() ? std::nullopt : std::optional(lines[next++]);
  };
}

Story sit(const Ground& ground, const Deeds& deeds) {
  Story story;
  while (runOnce(ground, deeds, story)) continue;
  if (story.fault.empty()) story.fault = leftBehind(ground.folder);
  return story;
}

void prepareGround(const fs::path& folder) {
  for (const char* name : {"content", "data", "kit", "work"}) fs::create_directories(folder / name);
  makeKit(folder / "kit");
  writeBitmapFile(plainBitmap(60, 50, kPalette[1]), folder / "content" / "title.bmp");
}

void layOutAnew(const fs::path& folder) {
  for (const char* name : {"data", "work"}) {
    fs::remove_all(folder / name);
    fs::create_directory(folder / name);
  }
  layOut(folder / "kit", folder / "work");
}

}  // namespace gridwright::person
