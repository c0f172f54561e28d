#include "session/book_panel.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "drawings/drawing_files.h"
#include "files/plain_file.h"
#include "menus/panels.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kRecord = ".maze", kBitmap = ".bmp", kDocument = ".pdf";

bool isFree(const WorkFolder& folder, const std::string& name) { return !isThere(folder.resolve(name)); }

/// NAME-N with the lowest N for which no file with any of the endings is there.
std::string freeName(const WorkFolder& folder, const std::string& name,
                     std::initializer_list<std::string_view> endings) {
  for (int n = 1;; ++n) {
    std::string base = name + "-" + std::to_string(n);
    if (std::all_of(endings.begin(), endings.end(),
                    [&](std::string_view ending) { return isFree(folder, base + std::string(ending)); }))
      return base;
  }
}

fs::path wholeFolder(const WorkFolder& folder) {
  std::error_code failed;
  fs::path present = folder.presentPath();
  const fs::path whole = fs::absolute(present, failed);
  return failed ? present : whole;
}

void nameFiles(Program& program) {
  BookPanel& panel = program.book;
  const std::string book = freeName(*program.files, "book", {kDocument, kRecord, kBitmap});
  panel.files = {book + std::string(kRecord),
                 freeName(*program.files, "sheet", {kBitmap}) + std::string(kBitmap)};
  panel.drawingIsSaved = panel.sheetIsSaved = false;
  panel.folder = wholeFolder(*program.files);
}

void openPanelOf(Program& program) {
  program.book.open = true;
  ++program.book.revision;
  holdWindowOverScreen(program);
}

void closePanelOf(Program& program) {
  program.book.open = false;
  program.book.line.clear();
  ++program.book.revision;
  releaseWindow(program);
}

void removeAll(std::vector<SavedForBook>& files) {
  for (const SavedForBook& file : files)
    if (markOf(file.place) == file.mark) removeFile(file.place);
  files.clear();
}

/// What of the book's own pictures is on the disk; all of it goes again where one cannot be written.
Outcome<std::vector<SavedForBook>> savePictures(Program& program, const BookWish& wish) {
  const BookPanel& panel = program.book;
  std::vector<SavedForBook> saved;
  const auto note = [&](const FilePlace& place) { saved.push_back({place, markOf(place)}); };
  const auto fail = [&](const std::string& name) {
    removeAll(saved);
    return Fault{Fault::Kind::notWritable, name + " can't be written; no book is made"};
  };
  if (wish.drawing && !panel.drawingIsSaved) {
    const std::string base = fs::path(panel.files.drawing).stem().string();
    if (!saveDrawing(program, base)) return fail(panel.files.drawing);
    for (const std::string_view ending : {kRecord, kBitmap})
      note(program.files->at(base + std::string(ending)));
  }
  if (wish.sheet && program.workshop.sheet && !panel.sheetIsSaved) {
    const FilePlace file = program.files->at(panel.files.sheet);
    if (!program.platform.saveBitmap(program.workshop.sheet->picture(), file, Overwrite::atOnce))
      return fail(panel.files.sheet);
    note(file);
  }
  return saved;
}

/// A name that viewers take for a document, in whatever case.
bool isDocument(const std::string& name) {
  std::string ending = fs::path(name).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return ending == kDocument;
}

/// What no command line would say, or would say by options that the panel does not have; empty for nothing.
std::string whyNot(const Program& program, const BookWish& wish) {
  const BookPanel& panel = program.book;
  if (panel.making.underWay) return "a book is being made; this one can be made after it";
  if (!wish.drawing && !wish.sheet && wish.pictures.empty() && wish.names.empty())
    return "a book needs a picture or a list of names";
  if (wish.sheet && !program.workshop.sheet) return "there is no sheet yet; the workshop has it";
  if (wish.seed.empty()) return "a seed is 0 to 4294967295";
  if (wish.file.empty()) return "the book has no name yet";
  if (!isDocument(wish.file)) return "a book's name ends in .pdf, not so " + wish.file;
  for (const std::string& name : {wish.file, wish.answers}) {
    std::error_code failed;
    if (isDocument(name) && fs::exists(fs::symlink_status(panel.folder / name, failed)))
      return name + " is there already; another name keeps it";
  }
  return {};
}

void refuse(Program& program, std::string words) {
  program.platform.told(words);
  program.book.line = std::move(words);
  ++program.book.revision;
}

std::string mazesWords(std::size_t mazes) {
  return std::to_string(mazes) + (mazes == 1 ? " maze" : " mazes");
}

/// Saved under a new name where another program has taken the old one meanwhile.
void nameFilesAnew(Program& program) {
  const BookPanel& panel = program.book;
  if (panel.drawingIsSaved || panel.sheetIsSaved) return;
  const std::string base = fs::path(panel.files.drawing).stem().string();
  if (!isFree(*program.files, base + std::string(kRecord)) ||
      !isFree(*program.files, base + std::string(kBitmap)) || !isFree(*program.files, panel.files.sheet))
    nameFiles(program);
}

Outcome<Done> beginBook(Program& program, const BookWish& wish) {
  if (std::string why = whyNot(program, wish); !why.empty())
    return Fault{Fault::Kind::malformed, std::move(why)};
  nameFilesAnew(program);
  auto saved = savePictures(program, wish);
  if (!saved) return saved.fault();
  BookPanel& panel = program.book;
  panel.folder = wholeFolder(*program.files);  // it may bear another name by now
  BookMaking& making = panel.making;
  BookMaking anew;
  anew.pagesShown = making.pagesShown;
  anew.revision = making.revision + 1;
  making = std::move(anew);
  making.underWay = true;
  making.file = panel.folder / wish.file;
  making.saved = std::move(saved.value());
  auto begun = program.platform.makeBook(program, {bookWords(wish, panel.files), panel.folder});
  if (begun) return Done{};
  removeAll(making.saved);
  making.underWay = false;
  return begun.fault();
}

/// One line on how a book ended.
std::string wordsOn(const BookEnd& end, const fs::path& file) {
  if (end.stopped) return "the book is cancelled; nothing is left of it";
  const std::vector<std::string>& why = end.complaints;
  if (end.mazes == 0) {
    std::string words = "no book is made: " + (why.empty() ? "nothing could be written" : why.back());
    return why.size() > 1 ? words + "; " + why.front() : words;
  }
  const std::string made = file.filename().string() + " is made, with " + mazesWords(end.mazes);
  return why.empty() ? made : made + "; " + why.front();
}

}  // namespace

void makebook(Program& program) {
  BookPanel& panel = program.book;
  nameFiles(program);
  panel.hasSheet = program.workshop.sheet != nullptr;
  panel.wish.sheet = panel.wish.sheet && panel.hasSheet;
  panel.wish.seed = std::to_string(program.platform.clockSeed());
  panel.wish.file = fs::path(panel.files.drawing).stem().string() + std::string(kDocument);
  panel.line.clear();
  openPanelOf(program);
}

void fillBook(Program& program, const BookWish& wish) {
  BookPanel& panel = program.book;
  if (!panel.open) return;
  panel.wish = wish;
  panel.line.clear();
  ++panel.revision;
}

void acceptBook(Program& program, const BookWish& wish) {
  BookPanel& panel = program.book;
  if (!panel.open) return;
  panel.wish = wish;
  closePanelOf(program);  // a drawing is saved as it is without a panel
  const auto begun = beginBook(program, wish);
  if (begun) return;
  openPanelOf(program);
  refuse(program, begun.fault().words);
}

void leaveBook(Program& program) {
  if (program.book.open) closePanelOf(program);
}

std::string takeBookLine(Program& program, const BookWish& wish) {
  BookPanel& panel = program.book;
  if (!panel.open) return {};
  panel.wish = wish;
  closePanelOf(program);
  nameFilesAnew(program);
  const auto saved = savePictures(program, wish);
  openPanelOf(program);
  if (!saved) {
    refuse(program, saved.fault().words);
    return {};
  }
  panel.drawingIsSaved = panel.drawingIsSaved || wish.drawing;
  panel.sheetIsSaved = panel.sheetIsSaved || (wish.sheet && panel.hasSheet);
  return bookLine(wish, panel.files, panel.folder);
}

void bookNews(Program& program, BookNews news) {
  BookMaking& making = program.book.making;
  if (!making.underWay) return;
  making.done = news.done;
  making.all = news.all;
  for (SmallPage& page : news.pages) making.pages.push_back(std::move(page));
  while (making.pages.size() > kMostSmallPages) making.pages.pop_front();
  ++making.revision;
  if (!news.end) return;
  making.underWay = making.stopping = false;
  const bool isMade = news.end->mazes > 0;
  std::string words = wordsOn(*news.end, making.file);
  if (!isMade) {
    removeAll(making.saved);
    program.platform.told(words);
  }
  making.saved.clear();
  program.notices.tell(std::move(words), isMade ? making.file : fs::path());
}

void cancelBook(Program& program) {
  BookMaking& making = program.book.making;
  if (!making.underWay) return;
  making.stopping = true;
  ++making.revision;
  program.platform.stopBook();
}

void showBookPages(Program& program, bool shown) {
  program.book.making.pagesShown = shown;
  ++program.book.making.revision;
}

void giveUpBook(Program& program) {
  if (!program.book.making.underWay) return;
  program.platform.endBook(program);
}

}  // namespace gridwright
