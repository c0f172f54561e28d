#include "session/slideshow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "session/input.h"
#include "session/title.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr int kSlides = 13;

std::string slideName(int slide) {
  return slide <= 11 ? "example" + std::to_string(slide) + ".bmp"
                     : "credit" + std::to_string(slide - 11) + ".bmp";
}
Bitmap slide(int number) { return plainBitmap(800, 600, 1000 + number); }

/// The title on a desktop that has all slides but these.
struct Show : World {
  explicit Show(std::vector<int> missing = {}) {
    for (int n = 1; n <= kSlides; ++n) {
      if (std::find(missing.begin(), missing.end(), n) == missing.end())
        desktop.putFile(slideName(n), slide(n));
    }
    desktop.untilPhase(Phase::title);
  }
  void tick(ControlId timer) {
    desktop.act([timer](Program& p) { input::timerTick(p, timer); });
  }
  void mouse(int button) {
    desktop.act([button](Program& p) { input::mouseDown(p, button); });
  }
  void key(int code) {
    desktop.act([code](Program& p) { input::keyDown(p, code); });
  }
  void expectSlide(int number) {
    desktop.look([number](Program& p) {
      EXPECT_EQ(p.state.session.slideIndex, number);
      EXPECT_TRUE(samePicture(p.canvas.image(), slide(number)));
      EXPECT_FALSE(p.controls[ControlId::Command2].visible || p.controls[ControlId::Command3].visible ||
                   p.controls[ControlId::Command7].visible);
      EXPECT_TRUE(p.controls[ControlId::Timer1].enabled);
      EXPECT_FALSE(p.controls[ControlId::Timer2].enabled);
    });
  }
  void expectTitle(bool buttons = true) {
    desktop.look([buttons](Program& p) {
      EXPECT_TRUE(samePicture(p.canvas.image(), p.pictures.load("title.bmp").copied()));
      for (const ControlId id : {ControlId::Command2, ControlId::Command3, ControlId::Command7})
        EXPECT_EQ(p.controls[id].visible, buttons);
      EXPECT_FALSE(p.controls[ControlId::Timer1].enabled);
      EXPECT_TRUE(p.controls[ControlId::Timer2].enabled);
    });
  }
};

TEST(TheTitle, WaitsTenSecondsWithItsButtonsShown) {
  Show w;
  w.expectTitle();
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.controls[ControlId::Timer1].interval, 5000);
    EXPECT_EQ(p.controls[ControlId::Timer2].interval, 10000);
    EXPECT_EQ(p.controls[ControlId::Command2].text, "Click to Begin");
    EXPECT_EQ(p.controls[ControlId::Command3].text, "Click to see examples and credits");
    EXPECT_EQ(p.controls[ControlId::Command7].text, "Click to Quit Program");
    for (const ControlId id : {ControlId::Command4, ControlId::Command5, ControlId::Command6})
      EXPECT_FALSE(p.controls[id].visible);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheShow, GoesThroughAllSlidesTickByTickAndBackToTheTitle) {
  Show w;
  w.tick(ControlId::Timer2);
  for (int n = 1; n <= kSlides; ++n) {
    w.expectSlide(n);
    w.tick(ControlId::Timer1);
  }
  w.expectTitle();
  w.tick(ControlId::Timer2);
  w.expectSlide(1);
  EXPECT_EQ(w.run(), "");
}

TEST(TheShow, BeginsAtOnceByItsButton) {
  Show w;
  w.desktop.click(ControlId::Command3);
  w.expectSlide(1);
  EXPECT_EQ(w.run(), "");
}

TEST(ATimerThatIsOff, DoesNothing) {
  Show w;
  w.tick(ControlId::Timer1);
  w.expectTitle();
  w.desktop.click(ControlId::Command3);
  w.tick(ControlId::Timer1);
  w.tick(ControlId::Timer2);
  w.expectSlide(2);
  EXPECT_EQ(w.run(), "");
}

TEST(TheLeftButton, BringsTheTitleBackFromTheShowAndDoesNothingElsewhere) {
  Show w;
  w.mouse(1);
  w.expectTitle();
  w.desktop.click(ControlId::Command3);
  w.tick(ControlId::Timer1);
  w.mouse(1);
  w.expectTitle();
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(2);
  Bitmap drawn;
  w.desktop.look([&](Program& p) { drawn = p.canvas.image(); });
  w.mouse(1);
  w.mouse(2);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(samePicture(p.canvas.image(), drawn));
    EXPECT_FALSE(p.controls[ControlId::Timer1].enabled || p.controls[ControlId::Timer2].enabled);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheRightButton, AdvancesAtOnceAndStartsTheWaitOver) {
  Show w;
  w.mouse(2);
  w.expectTitle();
  w.desktop.click(ControlId::Command3);
  std::uint64_t starts = 0;
  w.desktop.look([&](Program& p) { starts = p.controls.timerStarts(ControlId::Timer1); });
  w.mouse(2);
  w.expectSlide(2);
  w.desktop.look([&](Program& p) { EXPECT_GT(p.controls.timerStarts(ControlId::Timer1), starts); });
  for (int n = 3; n <= kSlides; ++n) {
    w.mouse(2);
    w.expectSlide(n);
  }
  w.mouse(2);
  w.expectTitle();
  EXPECT_EQ(w.run(), "");
}

TEST(Escape, BringsTheTitleBackFromTheShow) {
  Show w;
  w.key(key::escape);
  w.expectTitle();
  w.desktop.click(ControlId::Command3);
  w.tick(ControlId::Timer1);
  w.expectSlide(2);
  w.key(key::escape);
  w.expectTitle();
  EXPECT_EQ(w.run(), "");
}

TEST(Space, AdvancesAtOnceAndStartsTheWaitOver) {
  Show w;
  w.key(key::space);
  w.expectTitle();
  w.desktop.click(ControlId::Command3);
  std::uint64_t starts = 0;
  w.desktop.look([&](Program& p) { starts = p.controls.timerStarts(ControlId::Timer1); });
  w.key(key::space);
  w.expectSlide(2);
  w.desktop.look([&](Program& p) { EXPECT_GT(p.controls.timerStarts(ControlId::Timer1), starts); });
  for (int n = 3; n <= kSlides + 1; ++n) w.key(key::space);
  w.expectTitle();
  EXPECT_EQ(w.run(), "");
}

TEST(NoOtherKey, DoesAnythingAtTheTitleOrInTheShow) {
  Show w;
  const auto pressAll = [&] {
    for (int code = 0; code < 256; ++code) {
      if (code != key::escape && code != key::space) w.key(code);
    }
  };
  pressAll();
  w.expectTitle();
  w.desktop.click(ControlId::Command3);
  pressAll();
  w.expectSlide(1);
  EXPECT_EQ(w.run(), "");
}

TEST(EscapeAndSpace, DoNothingOnceDrawingHasBegun) {
  Show w;
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(2);
  Bitmap drawn;
  w.desktop.look([&](Program& p) { drawn = p.canvas.shownImage(); });
  w.key(key::escape);
  w.key(key::space);
  w.desktop.pumpsPass(1);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::drawing);
    EXPECT_TRUE(samePicture(p.canvas.shownImage(), drawn));
    EXPECT_FALSE(p.controls[ControlId::Timer1].enabled || p.controls[ControlId::Timer2].enabled);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(OtherButtons, DoNothing) {
  Show w;
  w.desktop.click(ControlId::Command3);
  for (const int button : {0, 3, 4, 5}) w.mouse(button);
  w.expectSlide(1);
  EXPECT_EQ(w.run(), "");
}

TEST(AMissingSlide, IsPassedOverAtTheSameTick) {
  Show w({3, 12});
  w.desktop.click(ControlId::Command3);
  w.tick(ControlId::Timer1);
  w.expectSlide(2);
  w.tick(ControlId::Timer1);
  w.expectSlide(4);
  for (int n = 5; n <= 11; ++n) w.mouse(2);
  w.expectSlide(11);
  w.mouse(2);
  w.expectSlide(13);
  EXPECT_EQ(w.run(), "");
  EXPECT_TRUE(w.desktop.messages.empty());
}

TEST(WithoutAnySlide, TheTitleStaysWithoutButtonsUntilTheLeftButtonIsPressed) {
  std::vector<int> all(kSlides);
  for (int n = 1; n <= kSlides; ++n) all[static_cast<std::size_t>(n - 1)] = n;
  Show w(all);
  w.desktop.click(ControlId::Command3);
  for (int i = 0; i < 3; ++i) w.tick(ControlId::Timer1);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.session.slideIndex, 1) << "an interval of 0 never fires";
    EXPECT_EQ(p.controls[ControlId::Timer1].interval, 0);
    EXPECT_FALSE(p.controls[ControlId::Command2].visible);
    EXPECT_TRUE(samePicture(p.canvas.image(), p.pictures.load("title.bmp").copied()));
  });
  w.mouse(1);
  w.expectTitle();
  EXPECT_EQ(w.run(), "");
}

TEST(AStoppedShow, GoesOnByTheRightButton) {
  Show w({1});
  w.desktop.click(ControlId::Command3);
  w.tick(ControlId::Timer1);
  w.mouse(2);
  w.expectSlide(2);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.controls[ControlId::Timer1].interval, 5000); });
  w.tick(ControlId::Timer1);
  w.expectSlide(3);
  EXPECT_EQ(w.run(), "");
}

TEST(ASlideMissingInTheWorkingFolder, IsTheOneBesideTheProgram) {
  TempFolder work, content;
  class TwoFolders : public BareDesktop {
   public:
    Outcome<Bitmap> loadBitmap(const FilePlace& target) override {
      const auto found = pictures.find(target.path().string());
      if (found == pictures.end()) return Fault{Fault::Kind::notFound, target.path().string()};
      return found->second;
    }
    std::map<std::string, Bitmap> pictures;
  } desktop;
  desktop.content = content.path();
  desktop.pictures[(content.path() / "example1.bmp").string()] = slide(1);
  desktop.pictures[(content.path() / "example2.bmp").string()] = slide(7);
  desktop.pictures[(work.path() / "example2.bmp").string()] = slide(2);
  Program p(desktop, work.path());
  p.canvas.resize({800, 600});
  command3(p);
  EXPECT_TRUE(samePicture(p.canvas.image(), slide(1)));
  slideMouse(p, 2);
  EXPECT_TRUE(samePicture(p.canvas.image(), slide(2))) << "the working folder comes first";
}

TEST(ClickToBegin, LeavesTheTitleWithBothTimersOff) {
  Show w;
  w.desktop.click(ControlId::Command2);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::drawing);
    EXPECT_EQ(p.state.editedPattern, 0);
    EXPECT_EQ(p.state.session.bookMode, 0);
    EXPECT_FALSE(p.state.panelOpen);
    for (const ControlId id : {ControlId::Command2, ControlId::Command3, ControlId::Command7})
      EXPECT_FALSE(p.controls[id].visible);
    EXPECT_FALSE(p.controls[ControlId::Timer1].enabled || p.controls[ControlId::Timer2].enabled);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(ClickToQuit, EndsTheProgram) {
  Show w;
  bool after = false;
  w.desktop.click(ControlId::Command7);
  w.desktop.look([&](Program&) { after = true; });
  EXPECT_EQ(w.run(), "");
  EXPECT_FALSE(after);
}

TEST(TheTitle, ComesBackWithTheShowReadyAfterAQuit) {
  Show w;
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(2);
  w.desktop.menu(Item::quit2);
  w.desktop.untilPhase(Phase::title);
  w.expectTitle();
  EXPECT_EQ(w.run(), "");
}

struct Book {
  void (*press)(Program&);
  MazeKind kind;
  int difficulty;
};
TEST(TheHiddenBookButtons, PrepareTheirBooks) {
  for (const Book& book : {Book{command4, MazeKind::regular, 4}, Book{command5, MazeKind::regular, 7},
                           Book{command6, MazeKind::pipe, 7}}) {
    World w;
    book.press(w.program);
    EXPECT_EQ(w.canvas.backColor(), 8421504);
    EXPECT_EQ(w.state.wallWidth, 30);
    EXPECT_EQ(w.state.wallHeight, 30);
    EXPECT_EQ(w.state.print.printTotal, 30);
    EXPECT_EQ(w.state.print.printedCount, 0);
    EXPECT_EQ(w.state.print.printMode, PrintMode::withAnswers);
    EXPECT_EQ(w.state.pathSize, 2);
    EXPECT_TRUE(w.state.autoMinimize);
    EXPECT_EQ(w.state.session.autoMinimizeStyle, 2);
    EXPECT_TRUE(w.program.menus.checked(Item::aon));
    EXPECT_EQ(w.state.mazeKind, book.kind);
    EXPECT_EQ(w.state.difficultyLevel, book.difficulty);
    EXPECT_EQ(w.state.session.bookMode, 0);
    EXPECT_EQ(w.state.phase, Phase::drawing);
  }
}

TEST(AHiddenBookButton, CannotBePressed) {
  Show w;
  for (const ControlId id : {ControlId::Command4, ControlId::Command5, ControlId::Command6})
    w.desktop.click(id);
  w.expectTitle();
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.print.printTotal, 0); });
  EXPECT_EQ(w.run(), "");
}

}  // namespace
}  // namespace gridwright::test
