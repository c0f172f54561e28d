// The tenant without a person and without files: one maze of a book is made behind it.
//
// It has a list of what is to be done, each entry in a pump of its own as a line of a script has, so that
// what comes of it is what a script of the twin makes. Working folder and pictures lie in memory: the desktop
// takes no bitmap, so the pictures in progress stay where the program keeps those that a full disk refused.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/qt_ink.h"
#include "state/menu_tree.h"
#include "state/platform.h"
#include "state/program.h"

namespace gridwright::book {

/// Thrown out of a pump: the maze cannot be made, and why, in words for a person.
struct NotMade {
  std::string why;
};

/// Thrown out of a pump: somebody wants the whole book to end.
struct Stopped {};

/// Thrown out of a pump: everything on the list is done.
struct ListDone {};

/// One program's desktop, in one thread. `stop` is looked at in every pump.
class BookDesktop : public Platform {
 public:
  using Act = std::function<void(Program&)>;
  using Reached = std::function<bool(const Program&)>;

  /// \param picture what `picture.bmp` holds; it must stay.
  BookDesktop(Size client, std::uint32_t seed, const Bitmap& picture, const std::atomic<bool>& stop)
      : client_(client), seed_(seed), picture_(picture), stop_(stop) {}

  /// What a person does: it has a pump of its own.
  void act(Act act) { list_.push_back({std::move(act), {}, true}); }
  /// What is looked at in the pump in which its turn comes; it takes none, and may put more on the list.
  void look(Act act) { list_.push_back({std::move(act), {}, false}); }
  /// Pumps pass until it is so. \throws NotMade when nothing more happens or patience ends.
  void until(Reached reached) { list_.push_back({{}, std::move(reached), false}); }
  /// Pumps pass until only an event could change anything.
  void settle();

  void click(ControlId button);
  /// \throws NotMade, in its turn, where a person could not choose it.
  void menu(Item item);
  /// Opens a text panel, types into its box and presses Enter.
  void answer(Item item, ControlId box, const std::string& text);

  void doEvents(Program& program, Pace pace) override;
  std::int64_t quietPumps(const Program& program) override;
  void passOver(std::int64_t pumps) override { patience_ -= pumps; }
  Size clientSize() override { return client_; }
  WindowState windowState() override { return WindowState::normal; }
  std::filesystem::path contentFolder() override;
  WindowPlace normalPlace() override { return {0, 0, client_.width, client_.height}; }
  void setNormalPlace(const WindowPlace&) override {}
  void setWindowState(WindowState) override {}
  Size maximise() override { return client_; }
  void raise() override {}
  void messageBox(std::string_view text) override { throw NotMade{std::string(text)}; }
  void workBeside(Program& program, Work work) override { work()(program); }
  Outcome<Picture> readPicture(const std::filesystem::path& file, Size fit) override;
  PictureWork& pictureWork() override { return pictureWork_; }
  InkWork& inkWork() override { return ink_; }
  Outcome<Done> savePng(const BitmapView& picture, const FilePlace& place) override;
  bool openElsewhere(const std::filesystem::path&) override { return false; }
  std::optional<std::filesystem::path> choosePicture() override { return std::nullopt; }
  Outcome<Pasted> pasted() override { return Fault{Fault::Kind::notFound, "there is no picture to paste"}; }
  Outcome<Bitmap> loadBitmap(const FilePlace& place) override;
  Outcome<FileMark> saveBitmap(const BitmapView& picture, const FilePlace& place, Overwrite how) override;
  Outcome<Done> printForm(const BitmapView&, const PageLook&) override { return Done{}; }
  Outcome<PagesWent> printAlone(const BitmapView&, const PageLook&) override { return PagesWent{}; }
  Outcome<PagesWent> endOfPages() override { return PagesWent{}; }
  std::uint32_t clockSeed() override { return seed_; }

 private:
  struct Entry {
    Act act;
    Reached reached;
    bool takesPump;
  };
  bool waits(Program& program, Pace pace);

  static constexpr std::int64_t kPatience = 50'000'000;  // pumps, as the twin has it
  Size client_;
  std::uint32_t seed_;
  const Bitmap& picture_;
  const std::atomic<bool>& stop_;
  std::deque<Entry> list_;
  Reached awaited_;
  bool settling_ = false;
  std::int64_t patience_ = 0;
  LeptonicaWork pictureWork_;
  QtInk ink_{{}};
};

}  // namespace gridwright::book
