// The one door to the operating system. Behind it stand two tenants: the window that people use, and
// a headless twin that runs the same program from a script. Neither is asked for the truth: menus and
// controls are models that a tenant mirrors inside `doEvents`.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "canvas/bitmap_view.h"
#include "canvas/geometry.h"
#include "canvas/outcome.h"
#include "files/bitmap_files.h"
#include "pictures/ink_work.h"
#include "pictures/picture.h"
#include "pictures/picture_work.h"
#include "state/book_panel.h"
#include "state/export_panel.h"
#include "state/modes.h"
#include "state/page_setup.h"

namespace gridwright {

struct Program;

/// A window's place on the desktop, in pixels.
struct WindowPlace {
  int left = 0, top = 0, width = 0, height = 0;
};

/// Where pages went, to be told to a person.
struct PagesWent {
  std::string where;           ///< Such as "to gridwright-0001.pdf, in /home/me"; may be empty.
  std::filesystem::path file;  ///< What a click on the notice opens; empty for none.
};

/// Reads a picture; one that can be drawn at any size as large as fits into a size. It may take a while, and
/// it is called beside the program: it must know nothing of that.
using PictureReader = std::function<Outcome<Picture>(Size fit)>;

/// What was copied to be pasted: a file, or a picture without one.
struct Pasted {
  std::filesystem::path file;  ///< Empty for none.
  PictureReader read;
};

/// What is to be done in the program with the outcome of work beside it, and that work.
using Finish = std::function<void(Program&)>;
using Work = std::function<Finish()>;

/// What the running loop has in mind when it lets events run.
enum class Pace {
  working,       ///< There is more to do by itself: handle what is pending and come back.
  idle,          ///< Only an event can change anything: the pump may wait for one.
  housekeeping,  ///< Repaints, timers and resizes alone; keys and commands wait for the next pump.
};

/// What a person is told of pages that neither paper nor disk takes.
inline constexpr std::string_view kPagesLost = "Error: the pages could not be saved.";

/// Thrown by the pump when the window is closed: the program ends from wherever it stands, and the
/// destructors on the way leave every file whole.
struct ProgramEnd {};

class Platform : public BitmapFiles {
 public:
  /// Delivers pending events through session/input.h and shows what changed. With `Pace::working` it
  /// returns at once when nothing is pending.
  /// \throws ProgramEnd when the window was closed.
  virtual void doEvents(Program& program, Pace pace) = 0;

  /// For how many pumps from now on the desktop is sure to deliver nothing and to look at nothing but
  /// what `isSteady` (state/field_names.h). A loop that only wanders about may leave out as many, so that
  /// a desktop nobody watches does not hold it up. A desktop that counts its pumps says 0.
  virtual std::int64_t quietPumps(const Program& /*program*/) { return 0; }
  /// So many pumps of those were left out.
  virtual void passOver(std::int64_t /*pumps*/) {}

  /// Client area in pixels of the Canvas, before the Canvas's own limits.
  virtual Size clientSize() = 0;

  virtual WindowState windowState() = 0;

  /// The folder of the pictures that came with the program: title and slides.
  virtual std::filesystem::path contentFolder() = 0;

  /// Where the window lies when it is neither minimised nor maximised, and where it will go back to;
  /// a place that lies on no screen is ignored.
  virtual WindowPlace normalPlace() = 0;
  virtual void setNormalPlace(const WindowPlace& place) = 0;

  /// Minimises the window or gives it back its size; the program does it to work unseen.
  virtual void setWindowState(WindowState state) = 0;

  /// Maximises and lets the new size arrive (at most 200 ms), without delivering any input.
  /// \returns the client size from then on.
  virtual Size maximise() = 0;

  /// The window covers the whole screen, or has the place again that it had before; while it does, it counts
  /// as maximised. Nothing on a desktop without a window.
  virtual void switchWholeScreen() {}

  /// Brings the window to the front, wholly repainted.
  virtual void raise() = 0;

  /// Tells a person one line; returns when it was read.
  virtual void messageBox(std::string_view text) = 0;

  /// A line was told that stands for a message: why something that came was not taken, or how big a maze
  /// will be. A person has it before the eyes already; a script reads it as the last message.
  virtual void told(std::string_view /*text*/) {}

  /// Does `work` beside the program, where a desktop has a person who must not wait, and hands its outcome
  /// to the program at the beginning of a pump that takes commands. Only the newest work counts: the
  /// outcome of what was asked for before is dropped. The work must not touch the program.
  virtual void workBeside(Program& program, Work work) = 0;

  /// Reads a picture file of any format that is known here, and nothing but a plain file.
  /// \returns a Fault with one line for a person. May be called beside the program.
  virtual Outcome<Picture> readPicture(const std::filesystem::path& file, Size fit) = 0;

  /// What pictures are worked on with; from any thread.
  virtual PictureWork& pictureWork() = 0;

  /// What letters and stamps are had from; in the program's own thread.
  virtual InkWork& inkWork() = 0;

  /// Writes a PNG whose pixels are just these, over what is there, by way of a file beside it.
  virtual Outcome<Done> savePng(const BitmapView& picture, const std::filesystem::path& path) = 0;

  /// Opens a file with the program that this desktop has for its kind. \returns whether there is one.
  virtual bool openElsewhere(const std::filesystem::path& file) = 0;

  /// Asks a person for a picture or a drawing.
  /// \returns nothing when there was no choice.
  virtual std::optional<std::filesystem::path> choosePicture() = 0;

  /// What could be pasted. \returns a Fault with one line for a person when that is no picture.
  virtual Outcome<Pasted> pasted() = 0;

  /// One page: the picture fitted to the paper, pixel for pixel sharp, and what `look` adds to it.
  /// \returns a Fault when it cannot be kept: the pages since the last end are lost then, as the end tells.
  virtual Outcome<Done> printForm(const BitmapView& picture, const PageLook& look) = 0;

  /// One page that is a document of its own, also while a run's pages are not complete.
  /// \returns where it went; a Fault when it could not be kept, which the tenant has told: `kPagesLost`.
  virtual Outcome<PagesWent> printAlone(const BitmapView& picture, const PageLook& look) = 0;

  /// Shows a person what that page would be; returns when it was looked at. Nothing where nobody looks.
  virtual void previewPage(const BitmapView& /*picture*/, const PageLook& /*look*/) {}

  /// What pages are printed on where nobody has set anything.
  virtual UsualPaper usualPaper() { return {}; }

  /// Writes a picture as a PNG, or as a PDF of one page on which it is as large as the printable area takes,
  /// by way of a file beside it; nothing is written to what is no plain file.
  /// \returns a Fault when a byte of it was refused: what was there stays as it was.
  virtual Outcome<Done> writePicture(const PictureFile& wanted, const std::filesystem::path& path) {
    static_cast<void>(wanted);
    return Fault{Fault::Kind::notWritable, path.string()};
  }

  /// The picture, none of it see-through, and the same as an SVG can be pasted into other programs from now
  /// on. \returns whether this desktop has a place for that.
  virtual bool copyPicture(const BitmapView& /*picture*/, const std::string& /*svg*/) { return false; }

  /// The pages since the last call are one document, complete now.
  /// \returns as `printAlone` does; nowhere when there was no page. After a Fault the document's name bears
  /// what it bore before.
  virtual Outcome<PagesWent> endOfPages() = 0;

  /// Begins to make a book by a command line of gridwright-book, beside the program where a desktop has a
  /// person who must not wait. What becomes of it is told by `bookNews` (session/book_panel.h), the end
  /// always. \returns a Fault with one line, and nothing has begun: words that are wrong, a file that cannot
  /// be there, a book that is being made already.
  virtual Outcome<Done> makeBook(Program& /*program*/, const BookOrder& /*order*/) {
    return Fault{Fault::Kind::notWritable, "no books are made here"};
  }
  /// The book that is being made ends soon and leaves no file, unless it is there already.
  virtual void stopBook() {}
  /// The same at once; its end is told before this returns.
  virtual void endBook(Program& /*program*/) {}

  /// What is remembered between runs under a key of small letters and digits; empty for nothing, as always on
  /// a desktop that remembers nothing.
  virtual std::string remembered(std::string_view /*key*/) { return {}; }
  /// Remembers it for the next run, as far as it can; an empty value is forgotten.
  virtual void remember(std::string_view /*key*/, const std::string& /*value*/) {}

  /// A number from the clock, to seed Rnd with.
  virtual std::uint32_t clockSeed() = 0;
};

}  // namespace gridwright
