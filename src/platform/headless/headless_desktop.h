// The twin without a screen: the same program, driven by a script.
//
// Each input has a pump of its own; what the script asks or shows is looked at in the pump after, when
// the program has taken the input. Pumps that take no command are no pumps to the script.
#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_place.h"
#include "platform/headless/script.h"
#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/qt_ink.h"
#include "platform/shared/image_files.h"
#include "session/heard.h"
#include "state/field_names.h"
#include "state/key_codes.h"
#include "state/platform.h"

namespace gridwright {

/// The script stopped before its end: 1 for an expectation that failed, 2 for an input that a person
/// could not give.
struct ScriptStop {
  int status;
  std::string message;  ///< Begins with `SCRIPT:LINE: `.
};

struct HeadlessOptions {
  Size size{800, 600};
  std::optional<std::filesystem::path> pagesFolder;  ///< Each page as page-0001.bmp and so on.
  std::filesystem::path contentFolder;               ///< Pictures that came with the program.
  std::optional<std::filesystem::path> pdfFile;      ///< All pages in one document.
  std::function<void()> beforePictures = [] {};      ///< What reading a picture takes, for its fonts.
};

/// One line on pages that could not be saved, for standard error.
std::string wordsOnLostPages(const std::filesystem::path& path);

class HeadlessDesktop : public Platform {
 public:
  /// \param scriptName what messages call the script.
  HeadlessDesktop(std::string scriptName, std::string_view source, HeadlessOptions options);

  void doEvents(Program& program, Pace pace) override;
  std::int64_t quietPumps(const Program& program) override;
  void passOver(std::int64_t pumps) override;
  Size clientSize() override { return options_.size; }
  std::filesystem::path contentFolder() override { return options_.contentFolder; }
  WindowPlace normalPlace() override { return {0, 0, options_.size.width, options_.size.height}; }
  void setNormalPlace(const WindowPlace&) override {}
  WindowState windowState() override { return windowState_; }
  void setWindowState(WindowState state) override { windowState_ = state; }
  Size maximise() override;
  void raise() override {}
  void messageBox(std::string_view text) override { lastMessage_ = text; }
  void told(std::string_view text) override { lastMessage_ = text; }
  void workBeside(Program& program, Work work) override { work()(program); }
  Outcome<Picture> readPicture(const std::filesystem::path& file, Size fit) override;
  PictureWork& pictureWork() override { return pictureWork_; }
  InkWork& inkWork() override;
  Outcome<Done> savePng(const BitmapView& picture, const FilePlace& place) override {
    return writePngFile(picture, place);
  }
  /// The script's `copyfile` does what another program would.
  bool openElsewhere(const std::filesystem::path&) override { return true; }
  /// Nobody is there to choose.
  std::optional<std::filesystem::path> choosePicture() override { return std::nullopt; }
  Outcome<Pasted> pasted() override;
  Outcome<Bitmap> loadBitmap(const FilePlace& place) override;
  Outcome<FileMark> saveBitmap(const BitmapView& picture, const FilePlace& place, Overwrite how) override;
  Outcome<Done> printForm(const BitmapView& picture, const PageLook& look) override;
  Outcome<PagesWent> printAlone(const BitmapView& picture, const PageLook& look) override;
  Outcome<PagesWent> endOfPages() override { return PagesWent{}; }
  Outcome<Done> writePicture(const PictureFile& wanted, const FilePlace& place) override;
  bool copyPicture(const BitmapView& picture, const std::string& svg) override;
  std::uint32_t clockSeed() override { return seed_; }
  Outcome<Done> makeBook(Program& program, const BookOrder& order) override;

  /// Writes the collected pages, if a document was asked for.
  Outcome<Done> writeDocument();

 protected:
  /// The line that comes next; null ends the program. Asked for when the program has taken the input before,
  /// so that somebody who makes up lines as the program goes on sees what came of the last.
  virtual const ScriptLine* nextLine(Program& program);
  /// A line was refused, and nothing came of it. \returns whether the run goes on with the next.
  virtual bool goesOnAfter(const ScriptStop& /*refusal*/) { return false; }

 private:
  enum class Turn { again, givePump };  // whether the script goes on within this pump
  struct Verb;

  Turn runLine(Program& program, const ScriptLine& line);
  Turn lineTaken(Program& program);
  Turn waits(Program& program, Pace pace);

  Turn click(Program& program, const ScriptLine& line);
  Turn rightclick(Program& program, const ScriptLine& line);
  Turn menu(Program& program, const ScriptLine& line);
  Turn pressKey(Program& program);
  Turn key(Program& program, const ScriptLine& line);
  Turn type(Program& program, const ScriptLine& line);
  Turn enter(Program& program, const ScriptLine& line);
  Turn escape(Program& program, const ScriptLine& line);
  Turn pick(Program& program, const ScriptLine& line);
  Turn mouse(Program& program, const ScriptLine& line);
  Turn tick(Program& program, const ScriptLine& line);
  Turn resize(Program& program, const ScriptLine& line);
  Turn minimize(Program& program, const ScriptLine& line);
  Turn restore(Program& program, const ScriptLine& line);
  Turn seed(Program& program, const ScriptLine& line);
  Turn pumps(Program& program, const ScriptLine& line);
  Turn settle(Program& program, const ScriptLine& line);
  Turn until(Program& program, const ScriptLine& line);
  Turn expect(Program& program, const ScriptLine& line);
  Turn show(Program& program, const ScriptLine& line);
  Turn snapshot(Program& program, const ScriptLine& line);
  Turn image(Program& program, const ScriptLine& line);
  Turn close(Program& program, const ScriptLine& line);
  Turn open(Program& program, const ScriptLine& line);
  Turn paste(Program& program, const ScriptLine& line);
  Turn prepare(Program& program, const ScriptLine& line);
  Turn accept(Program& program, const ScriptLine& line);
  Turn asitis(Program& program, const ScriptLine& line);
  Turn cancel(Program& program, const ScriptLine& line);
  Turn pagesetup(Program& program, const ScriptLine& line);
  Turn exportPicture(Program& program, const ScriptLine& line);
  Turn book(Program& program, const ScriptLine& line);
  Turn newsheet(Program& program, const ScriptLine& line);
  Turn tool(Program& program, const ScriptLine& line);
  Turn press(Program& program, const ScriptLine& line);
  Turn drag(Program& program, const ScriptLine& line);
  Turn release(Program& program, const ScriptLine& line);
  Turn words(Program& program, const ScriptLine& line);
  Turn stamp(Program& program, const ScriptLine& line);
  Turn place(Program& program, const ScriptLine& line);
  Turn undo(Program& program, const ScriptLine& line);
  Turn redo(Program& program, const ScriptLine& line);
  Turn sheet(Program& program, const ScriptLine& line);
  Turn editelsewhere(Program& program, const ScriptLine& line);
  Turn copyfile(Program& program, const ScriptLine& line);
  Turn removefile(Program& program, const ScriptLine& line);
  Turn startat(Program& program, const ScriptLine& line);

  void expectPixel(const Program& program);
  void expectMenu(const Program& program);
  void expectControl(const Program& program);
  void expectText(Program& program);
  void expectCopied() const;

  // Refuse an input (2) or fail an expectation (1) at the present line.
  [[noreturn]] void refuse(const std::string& reason) const;
  [[noreturn]] void fail(const std::string& reason) const;
  void compare(const std::string& what, std::string_view is, std::string_view wanted) const;
  [[nodiscard]] const std::string& word(std::size_t i) const;
  [[nodiscard]] std::int64_t number(std::size_t i) const;
  [[nodiscard]] const std::string& text() const;
  [[nodiscard]] ControlId liveControl(const Program& program, ControlKind kind) const;
  [[nodiscard]] std::filesystem::path pathWord(const Program& program) const;
  Turn menuEntry(Program& program, Item item);
  void holdPictureOpen(const Program& program) const;
  void holdWorkshopOpen(const Program& program) const;
  void holdUnderstood(const std::string& word) const;
  Turn atPlace(Program& program, void (*act)(Sheet&, Corner));
  void savePicture(const Program& program, const BitmapView& picture);
  void openPagesFolder();
  void keepPage(const BitmapView& picture, const PageLook& look);

  std::string scriptName_;
  std::vector<ScriptLine> lines_;
  std::size_t next_ = 0;
  const ScriptLine* line_ = nullptr;  // the one in hand
  HeadlessOptions options_;
  WindowState windowState_ = WindowState::normal;
  std::string lastMessage_;
  Listener ears_;
  std::filesystem::path clipboard_;  // the picture that the script pasted last
  Size copied_;                      // of the picture that the program copied last; 0 by 0 for none
  LeptonicaWork pictureWork_;
  QtInk ink_;
  std::uint32_t seed_ = 0;

  std::int64_t keysLeft_ = 0;  // of `key CODE COUNT`
  int keyCode_ = 0;
  KeyGo keyGo_ = KeyGo::fresh;  // the passes of one line are one key held
  std::int64_t pumpsLeft_ = 0;  // of `pumps` or of `until`
  bool settling_ = false;
  std::int64_t settlePumps_ = 0;  // that are left of `settle`
  const FieldName* awaited_ = nullptr;
  std::int64_t awaitedValue_ = 0;

  std::optional<HeldFolder> pagesFolder_;  // held from the first page on
  std::unique_ptr<PdfDocument> document_;
  std::int64_t pages_ = 0;
};

}  // namespace gridwright
