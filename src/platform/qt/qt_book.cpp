// What the window does with books: the panel, and the book that is made beside the program.
#include <QClipboard>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "platform/book/book_maker.h"
#include "platform/qt/qt_desktop.h"
#include "session/book_panel.h"
#include "session/input.h"

namespace gridwright {

namespace {

constexpr auto kPictures =
    "Pictures and drawings (*.png *.jpg *.jpeg *.gif *.svg *.webp *.tif *.tiff *.bmp *.maze);;All files (*)";
constexpr auto kTexts = "Texts (*.txt);;All files (*)";

}  // namespace

void QtDesktop::listenToBook() {
  auto* column = new QVBoxLayout(bookFrame_);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(bookPage_);
  controls_.setHolder(bookFrame_, bookPage_->first());
  BookBar& bar = window_.bookBar();
  controls_.addGuest(&bar.pages());
  controls_.addGuest(&bar.cancel());
  bookPage_->onAccept = [this](const BookWish& wish) {
    inputs_.byPerson([wish](Program& program) { input::bookAccepted(program, wish); });
  };
  bookPage_->onCancel = [this] { inputs_.byPerson(input::bookEscaped); };
  bookPage_->onCopy = [this](const BookWish& wish) {
    inputs_.byPerson([wish](Program& program) {
      const std::string line = takeBookLine(program, wish);
      if (line.empty()) return;
      QGuiApplication::clipboard()->setText(QFile::decodeName(line.c_str()));
      program.notices.tell("the command line is copied");
    });
  };
  // From inside the pump: a dialog has a loop of its own.
  bookPage_->onAddPictures = [this] {
    inputs_.byPerson([this](Program& program) {
      if (program.book.open) bookPage_->add(askForFiles("Pictures of the book", kPictures, true));
    });
  };
  bookPage_->onChooseNames = [this] {
    inputs_.byPerson([this](Program& program) {
      if (!program.book.open) return;
      const auto chosen = askForFiles("Names of the book", kTexts, false);
      if (!chosen.empty()) bookPage_->setNames(chosen.front());
    });
  };
  bar.onCancel = [this] { inputs_.byPerson(input::bookCancelled); };
  bar.onPages = [this](bool shown) {
    inputs_.byPerson([shown](Program& program) { input::bookPagesAsked(program, shown); });
  };
}

std::vector<std::filesystem::path> QtDesktop::askForFiles(const char* title, const char* kinds, bool many) {
  QFileDialog dialog(&window_, title, QStandardPaths::writableLocation(QStandardPaths::PicturesLocation),
                     kinds);
  dialog.setFileMode(many ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
  std::vector<std::filesystem::path> files;
  if (run(dialog) != QDialog::Accepted) return files;
  for (const QString& file : dialog.selectedFiles())
    files.emplace_back(QFile::encodeName(file).toStdString());
  return files;
}

bool QtDesktop::isBehindBook(const Program& program) const {
  return program.book.revision != bookShown_ || program.book.making.revision != makingShown_ ||
         (books_ && books_->hasNews());
}

void QtDesktop::mirrorBook(const Program& program) {
  const BookPanel& panel = program.book;
  window_.bookBar().mirror(panel.making, program.statusLineOff);
  if (!isBehindBook(program)) return;
  makingShown_ = panel.making.revision;
  bookPage_->mirror(panel);
  bookStrip_->mirror(panel.making, panel.making.underWay && panel.making.pagesShown);
  placeBook();
  if (bookShown_ == panel.revision) return;
  bookShown_ = panel.revision;
  bookFrame_->setVisible(panel.open);
  bookFrame_->raise();
  controls_.keepFocus(program.controls);
}

/// The panel in the middle of the Canvas, as large as it needs to be; the pages at its lower edge.
void QtDesktop::placeBook() {
  const QRect view = window_.view().rect();
  QRect place({}, bookFrame_->sizeHint().boundedTo(view.size()));
  place.moveCenter(view.center());
  bookFrame_->setGeometry(place);
  QRect pages(view);
  pages.setTop(view.bottom() + 1 - bookStrip_->sizeHint().height());
  bookStrip_->setGeometry(pages);
}

// The threads wake up the loop, which looks for the news when Qt has come back.
Outcome<Done> QtDesktop::makeBook(Program& /*program*/, const BookOrder& order) {
  if (!books_) {
    books_ = std::make_unique<book::BookMaker>(
        [] { QCoreApplication::postEvent(qApp, new QEvent(QEvent::User)); });
  }
  return books_->begin(order);
}

void QtDesktop::stopBook() {
  if (books_) books_->stop();
}

void QtDesktop::endBook(Program& program) {
  if (!books_) return;
  books_->stop();
  books_->wait();
  hearOfBook(program);
}

void QtDesktop::hearOfBook(Program& program) {
  if (books_ && books_->hasNews()) bookNews(program, books_->takeNews());
}

}  // namespace gridwright
