// A desktop of plain memory, for tests that want the program and nothing else.
//
// It does what a test has put on its list, one entry a pump, and ends the program when the list is
// done. Everything the program asks of a desktop is recorded.
#pragma once

#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "state/controls.h"
#include "state/menu_tree.h"
#include "state/platform.h"
#include "state/program.h"
#include "support/plain_ink.h"
#include "support/plain_work.h"

namespace gridwright::test {

class BareDesktop : public Platform {
 public:
  using Action = std::function<void(Program&)>;
  using Condition = std::function<bool(const Program&)>;

  explicit BareDesktop(Size client = {800, 600}) : client_(client) {}

  /// Something a person does: takes a pump of its own.
  void act(Action action) { todo_.push_back({{}, std::move(action), true}); }
  /// Something a test looks at, in the pump in which its turn comes; takes none.
  void look(Action action) { todo_.push_back({{}, std::move(action), false}); }
  /// Pumps without input until the condition holds.
  void until(Condition condition) { todo_.push_back({std::move(condition), {}, false}); }
  void untilPhase(Phase phase);
  /// This many pumps without input.
  void pumpsPass(int count);

  void click(ControlId button);
  /// Chooses an item that a person can choose; otherwise the run is `refused`.
  void menu(Item item);
  void enter(ControlId box, const std::string& text);

  void doEvents(Program& program, Pace pace) override;
  std::int64_t quietPumps(const Program& program) override { return quiet ? quiet(program) : 0; }
  void passOver(std::int64_t count) override;
  Size clientSize() override { return client_; }
  std::filesystem::path contentFolder() override { return content; }
  WindowPlace normalPlace() override { return place; }
  void setNormalPlace(const WindowPlace& wanted) override { place = wanted; }
  WindowState windowState() override { return state_; }
  void setWindowState(WindowState state) override { states.push_back(state_ = state); }
  Size maximise() override;
  void raise() override { ++raised; }
  void messageBox(std::string_view text) override { messages.emplace_back(text); }
  void told(std::string_view text) override { lines.emplace_back(text); }
  /// Done at once, or kept in `workUnderWay`.
  void workBeside(Program& program, Work work) override;
  Outcome<Picture> readPicture(const std::filesystem::path& file, Size fit) override;
  PictureWork& pictureWork() override { return work; }
  InkWork& inkWork() override { return ink; }
  Outcome<Done> savePng(const BitmapView& picture, const FilePlace& target) override;
  bool openElsewhere(const std::filesystem::path& file) override {
    openedElsewhere.push_back(file);
    return opensElsewhere;
  }
  std::optional<std::filesystem::path> choosePicture() override { return chosen; }
  Outcome<Pasted> pasted() override { return clipboard; }
  Outcome<Bitmap> loadBitmap(const FilePlace& target) override;
  Outcome<FileMark> saveBitmap(const BitmapView& picture, const FilePlace& target, Overwrite how) override;
  Outcome<Done> printForm(const BitmapView& picture, const PageLook& look) override {
    if (pages.size() == pagesKept) return Fault{Fault::Kind::notWritable, "page"};
    pages.push_back(picture.copied());
    looks.push_back(look);
    return Done{};
  }
  Outcome<PagesWent> printAlone(const BitmapView& picture, const PageLook& look) override {
    pages.push_back(picture.copied());
    looks.push_back(look);
    ++alone;
    return went;
  }
  void previewPage(const BitmapView& picture, const PageLook& /*look*/) override {
    previews.push_back(picture.copied());
  }
  UsualPaper usualPaper() override { return usual; }
  Outcome<Done> writePicture(const PictureFile& wanted, const FilePlace& target) override {
    if (savesFail) return Fault{Fault::Kind::notWritable, target.path().string()};
    pictureFiles.push_back(
        {target.path(), wanted.picture.copied(), wanted.format, wanted.scale, wanted.dpi, wanted.look});
    return Done{};
  }
  bool copyPicture(const BitmapView& picture, const std::string& svg) override {
    if (!hasClipboard) return false;
    copied.push_back({picture.copied(), svg});
    return true;
  }
  Outcome<PagesWent> endOfPages() override {
    ++documents;
    return went;
  }
  std::uint32_t clockSeed() override { return seed; }
  Outcome<Done> makeBook(Program& /*program*/, const BookOrder& order) override {
    if (bookBegins) books.push_back(order);
    return bookBegins;
  }
  void stopBook() override { ++booksStopped; }
  void endBook(Program& /*program*/) override { ++booksEnded; }
  std::string remembered(std::string_view key) override {
    const auto found = memory.find(key);
    return found == memory.end() ? std::string() : found->second;
  }
  void remember(std::string_view key, const std::string& value) override { memory[std::string(key)] = value; }

  /// A picture file of the working folder; null when there is none.
  [[nodiscard]] const Bitmap* file(const std::string& name) const;
  void putFile(const std::string& name, Bitmap picture) { bitmaps[name] = std::move(picture); }
  void setClient(Size client) { client_ = client; }

  std::map<std::string, Bitmap> bitmaps;  ///< By file name, as a folder would hold them.
  std::vector<std::string> saves;         ///< Names in the order of writing.
  std::vector<std::string> messages, lines;
  std::map<std::filesystem::path, Picture> picturesElsewhere;  ///< What can be opened, by its path.
  std::optional<std::filesystem::path> chosen;                 ///< In the dialog.
  Outcome<Pasted> clipboard = Fault{Fault::Kind::notFound, "there is no picture to paste"};
  std::map<std::string, std::string, std::less<>> memory;  ///< Between runs.
  PlainWork work;
  PlainInk ink;
  std::vector<std::filesystem::path> openedElsewhere;
  bool opensElsewhere = true;
  bool worksLater = false;           ///< Work beside the program waits.
  std::optional<Work> workUnderWay;  ///< The newest.
  std::vector<WindowState> states;   ///< As the program set them.
  std::vector<Bitmap> pages, previews;
  std::vector<PageLook> looks;  ///< Of the pages.
  /// What was written for other programs.
  struct Exported {
    std::filesystem::path path;
    Bitmap picture;  ///< Without what is see-through.
    PictureFormat format;
    int scale, dpi;
    PageLook look;
  };
  std::vector<Exported> pictureFiles;
  struct Copied {
    Bitmap picture;
    std::string svg;
  };
  std::vector<Copied> copied;
  bool hasClipboard = true;
  UsualPaper usual;
  std::vector<BookOrder> books;       ///< That were begun; a test tells how they go on.
  Outcome<Done> bookBegins = Done{};  ///< What is said of one.
  int booksStopped = 0, booksEnded = 0;
  int documents = 0, alone = 0, raised = 0, maximised = 0;
  std::uint32_t seed = 1;
  Outcome<PagesWent> went = PagesWent{};                            ///< What is said of pages.
  bool savesFail = false;                                           ///< The disk is full.
  std::size_t pagesKept = std::numeric_limits<std::size_t>::max();  ///< No page after so many is kept.

  /// How many pumps it would not look; without one it sees every pump.
  std::function<std::int64_t(const Program&)> quiet;
  std::function<void(const Program&)> everyPump;       ///< What it looks at in each pump.
  std::function<void(std::int64_t)> everyPassingOver;  ///< And when pumps were left out.

  std::int64_t pumps = 0, limit = 20'000'000;
  std::int64_t passed = 0;  ///< Pumps that were left out, which count as pumps.
  int housekeeping = 0;
  Pace lastPace = Pace::idle;
  std::string trouble;  ///< Why the run ended early; empty when the list was done.

  std::filesystem::path content;  ///< Where pictures that came with the program would lie.
  WindowPlace place{0, 0, 800, 600};

 private:
  struct Todo {
    Condition condition;
    Action action;
    bool takesPump;
  };
  [[noreturn]] void stop(std::string why);

  Size client_;
  WindowState state_ = WindowState::normal;
  int idlePumps_ = 0;
  std::deque<Todo> todo_;
};

}  // namespace gridwright::test
