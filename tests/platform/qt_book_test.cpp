// The panel that makes a book, and what the window shows of one that is being made.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <set>

#include "platform/shared/image_files.h"
#include "qt_session.h"
#include "session/book_panel.h"
#include "session/input.h"

namespace gridwright {
namespace {

namespace fs = std::filesystem;

struct Book : Session {
  Book() {
    program.menus.setVisible(Item::filet, true);
    open();
  }
  void open() {
    program.state.keyBusy = false;
    input::menuClick(program, Item::makebook);
    pump(Pace::housekeeping);
  }
  template <class T>
  T* part(const char* name) {
    return desktop.bookPage().findChild<T*>(name);
  }
  void type(const char* name, const char* text) {
    part<QLineEdit>(name)->clear();
    QTest::keyClicks(part<QLineEdit>(name), text);
  }
  void press(const char* name) {
    part<QPushButton>(name)->click();
    pump(Pace::idle);
    pump(Pace::housekeeping);
  }
  /// A free picture in which mazes can be made.
  void putPicture() const {
    Bitmap picture = plainBitmap(120, 120, kPalette[14]);
    for (int y = 20; y < 100; ++y) {
      for (int x = 20; x < 100; ++x)
        picture.pixels[static_cast<std::size_t>(y) * 120 + static_cast<std::size_t>(x)] = kPalette[1];
    }
    ASSERT_TRUE(writeBitmapFile(picture, fs::path(folder.path().toStdString()) / "free.bmp"));
  }
  [[nodiscard]] bool has(const char* name) const {
    return fs::exists(fs::path(folder.path().toStdString()) / name);
  }
  BookBar& bar() { return desktop.window().bookBar(); }
  template <class Condition>
  bool pumpUntil(Condition holds) {
    for (int i = 0; i < 6000 && !holds(); ++i) {
      pump(Pace::working);
      QTest::qWait(2);
    }
    return holds();
  }
};

TEST(ThePanelOfBooks, IsWalkedThroughByTabFromTopToBottom) {
  Book b;
  std::vector<std::string> walked;
  for (int i = 0; i < 20; ++i) {
    walked.push_back(b.desktop.window().focusWidget()->objectName().toStdString());
    QTest::keyClick(b.desktop.window().focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(walked, (std::vector<std::string>{
                        "number",  "share",          "kinds",  "walls",    "patterns", "paper", "perpage",
                        "answers", "answersperpage", "title",  "caption",  "seed",     "file",  "line",
                        "copy",    "make",           "cancel", "pictures", "add",      "remove"}));
}

TEST(ThePanelOfBooks, IsShownWithTheKeyboardInTheNumberAndGoesWithItsModel) {
  Book b;
  EXPECT_TRUE(b.desktop.bookPage().isVisible());
  EXPECT_EQ(b.desktop.window().focusWidget(), b.part<QLineEdit>("number"));
  EXPECT_EQ(b.part<QLineEdit>("file")->text(), "book-1.pdf");
  EXPECT_FALSE(b.part<QCheckBox>("sheet")->isEnabled()) << "there is none";
  QTest::keyClick(b.part<QLineEdit>("number"), Qt::Key_Escape);
  b.pump(Pace::idle);
  b.pump(Pace::housekeeping);
  EXPECT_FALSE(b.program.book.open);
  EXPECT_FALSE(b.desktop.bookPage().isVisible());
}

TEST(ThePanelOfBooks, GivesBackTheWishThatItShowsAndItsLine) {
  Book b;
  BookWish wish{true,         false,   {"a.png", "/p/b c.svg"},
                "names.txt",  "4",     true,
                "regular,3d", "14,10", "random:8",
                "a5",         "2x2",   "after",
                "1x2",        "Tïtle", "{n}",
                "7",          "b.pdf"};
  input::bookFilled(b.program, wish);
  b.pump(Pace::housekeeping);
  EXPECT_EQ(b.desktop.bookPage().wish(), wish);
  EXPECT_EQ(b.part<QLineEdit>("line")->text().toStdString(),
            bookLine(wish, b.program.book.files, b.program.book.folder));
  b.type("title", "Other");
  wish.title = "Other";
  EXPECT_EQ(b.part<QLineEdit>("line")->text().toStdString(),
            bookLine(wish, b.program.book.files, b.program.book.folder))
      << "with every letter";
}

TEST(ThePanelOfBooks, TakesPicturesAndNamesThatAreDroppedAndTakesThemOffAgain) {
  Book b;
  b.desktop.window().onDrop({"/p/a.png", "/p/names.txt", "/p/b.maze"});
  b.pump(Pace::working);
  EXPECT_EQ(b.desktop.bookPage().wish().pictures, (std::vector<std::string>{"/p/a.png", "/p/b.maze"}));
  EXPECT_EQ(b.desktop.bookPage().wish().names, "/p/names.txt");
  b.part<QListWidget>("pictures")->setCurrentRow(0);
  b.part<QPushButton>("remove")->click();
  EXPECT_EQ(b.desktop.bookPage().wish().pictures, (std::vector<std::string>{"/p/b.maze"}));
}

TEST(ThePanelOfBooks, SaysInOneLineWhatIsWrongAndKeepsWhatWasTyped) {
  Book b;
  b.type("walls", "3");
  QTest::keyClick(b.part<QLineEdit>("walls"), Qt::Key_Return);
  b.pump(Pace::idle);
  b.pump(Pace::housekeeping);
  EXPECT_TRUE(b.desktop.bookPage().isVisible());
  EXPECT_EQ(b.part<QLabel>("why")->text(), "--wall 3: a wall is 5 to 50 pixels");
  EXPECT_TRUE(b.part<QLabel>("why")->isVisible());
  EXPECT_EQ(b.part<QLineEdit>("walls")->text(), "3");
  EXPECT_FALSE(b.has("book-1.maze"));
}

TEST(ThePanelOfBooks, HasNoLetterTwiceAndNoneThatOpensAMenu) {
  Book b;
  std::set<QChar> letters = {'F', 'O', 'P', 'M', 'S', 'T', 'I'};
  const auto add = [&](const QString& text) {
    const auto at = text.indexOf('&');
    if (at < 0) return;
    EXPECT_TRUE(letters.insert(text[at + 1].toUpper()).second) << text.toStdString();
  };
  for (const auto* label : b.desktop.bookPage().findChildren<QLabel*>()) add(label->text());
  for (const auto* button : b.desktop.bookPage().findChildren<QAbstractButton*>()) add(button->text());
  EXPECT_GT(letters.size(), 15U);
}

TEST(ThePanelOfBooks, FitsIntoASmallWindow) {
  Book b;
  b.desktop.window().resize(640, 400);
  b.pump(Pace::housekeeping);
  const QRect view = b.desktop.window().view().rect();
  EXPECT_TRUE(view.contains(b.desktop.bookPage().parentWidget()->geometry()));
  const auto* make = b.part<QPushButton>("make");
  EXPECT_TRUE(view.contains(QRect(make->mapTo(&b.desktop.window().view(), QPoint()), make->size())));
}

TEST(TheLineOfABook, IsCopiedWithWhatItNames) {
  Book b;
  b.press("copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), b.part<QLineEdit>("line")->text());
  EXPECT_TRUE(b.has("book-1.maze") && b.has("book-1.bmp"));
  EXPECT_TRUE(b.program.book.open);
}

TEST(ABookBesideTheWindow, IsMadeWhileItStandsOpenAndItsNoticeOpensIt) {
  Book b;
  b.putPicture();
  b.part<QCheckBox>("drawing")->setChecked(false);
  b.desktop.bookPage().add({fs::path(b.folder.path().toStdString()) / "free.bmp"});
  b.type("number", "3");
  b.press("make");
  EXPECT_FALSE(b.desktop.bookPage().isVisible());
  EXPECT_TRUE(b.program.book.making.underWay);
  EXPECT_TRUE(b.bar().isVisible());
  EXPECT_TRUE(b.pumpUntil([&] { return !b.program.book.making.underWay; }));
  b.pump(Pace::housekeeping);
  EXPECT_FALSE(b.bar().isVisible());
  EXPECT_EQ(b.program.notices.words(), "book-1.pdf is made, with 3 mazes");
  EXPECT_EQ(b.desktop.window().statusLine().notice(), "book-1.pdf is made, with 3 mazes");
  EXPECT_EQ(b.program.notices.opens().filename(), "book-1.pdf");
  EXPECT_TRUE(b.has("book-1.pdf"));
  b.open();
  EXPECT_EQ(static_cast<BookStrip*>(b.part<QWidget>("BookStrip"))->count(), 3U)
      << "in the panel, until the next";
  EXPECT_EQ(b.part<QLineEdit>("file")->text(), "book-2.pdf");
}

TEST(ABookBesideTheWindow, ShowsItsPagesAndIsCancelled) {
  Book b;
  b.putPicture();
  b.part<QCheckBox>("drawing")->setChecked(false);
  b.desktop.bookPage().add({fs::path(b.folder.path().toStdString()) / "free.bmp"});
  b.type("number", "90000");
  b.press("make");
  ASSERT_TRUE(b.pumpUntil([&] { return !b.program.book.making.pages.empty(); }));
  EXPECT_FALSE(b.desktop.bookStrip().isVisible());
  const int height = b.desktop.window().view().height();
  b.bar().pages().click();
  b.pump(Pace::idle);
  b.pump(Pace::housekeeping);
  EXPECT_TRUE(b.desktop.bookStrip().isVisible());
  EXPECT_GT(b.desktop.bookStrip().count(), 0U);
  EXPECT_EQ(b.bar().progress().maximum(), 90000);
  b.bar().cancel().click();
  b.pump(Pace::idle);
  EXPECT_TRUE(b.pumpUntil([&] { return !b.program.book.making.underWay; }));
  b.pump(Pace::housekeeping);
  EXPECT_FALSE(b.desktop.bookStrip().isVisible() || b.bar().isVisible());
  EXPECT_EQ(b.desktop.window().view().height(), height) << "the Canvas keeps its size";
  EXPECT_FALSE(b.has("book-1.maze") || b.has("book-1.pdf"));
}

TEST(ABookBesideTheWindow, EndsWithTheProgram) {
  Book b;
  b.type("number", "90000");
  b.press("make");
  EXPECT_TRUE(b.has("book-1.maze"));
  giveUpBook(b.program);
  EXPECT_FALSE(b.program.book.making.underWay);
  EXPECT_FALSE(b.has("book-1.maze") || b.has("book-1.bmp") || b.has("book-1.pdf"));
}

}  // namespace
}  // namespace gridwright
