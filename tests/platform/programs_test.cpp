// Both programs as they are started: in folders that others work in, that are gone, that have names of any
// bytes, and under a language of its own.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "platform/shared/image_files.h"
#include "support/child_program.h"
#include "support/no_plain_files.h"
#include "support/pictures.h"
#include "support/turkish.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

const std::string kBegin = "click Command2\nuntil phase 0\n";
const std::string kImport = "menu importdrawing\ntype Text8 \"room\"\nenter Text8\n";

/// A working folder "Mazes" beside a person's data folder.
struct Desk {
  Desk() {
    fs::create_directory(mazes);
    EXPECT_TRUE(writeBitmapFile(drawing({"......", "......", "......"}), mazes / "room.bmp"));
  }
  [[nodiscard]] Start headless(const std::string& script, std::vector<std::string> words = {}) const {
    temp.put("script.txt", script);
    words.push_back((temp.path() / "script.txt").string());
    return {
        GRIDWRIGHT_HEADLESS, std::move(words), mazes, {{"XDG_DATA_HOME", data.parent_path().string()}}, {}};
  }
  /// The window, on a screen that nobody sees.
  [[nodiscard]] Start window() const {
    return {GRIDWRIGHT_WINDOW,
            {"-platform", "offscreen"},
            mazes,
            {{"XDG_DATA_HOME", data.parent_path().string()}, {"XDG_CONFIG_HOME", config.string()}},
            {}};
  }
  /// The window where there is no screen.
  [[nodiscard]] Start withoutScreen(std::vector<std::string> words) const {
    Start start = window();
    start.words = std::move(words);
    start.variables["DISPLAY"] = start.variables["WAYLAND_DISPLAY"] = "";
    return start;
  }
  TempFolder temp;
  fs::path mazes = temp.path() / "Mazes";
  fs::path data = temp.path() / "home/gridwright";
  fs::path config = temp.path() / "config";
};

/// Ends the folder that a program stands in, before it starts.
Start inAFolderThatIsGone(Start start, const Desk& desk) {
  start.before = [folder = desk.mazes] { fs::remove_all(folder); };
  return start;
}

TEST(ASecondProgram, KeepsOutOfTheFolderThatTheFirstWorksIn) {
  const Desk desk;
  ChildProgram first(desk.window());
  ASSERT_TRUE(first.makes(desk.mazes / "title.bmp"));
  ChildProgram script(desk.headless(kBegin, {"--work", desk.mazes.string()}));
  EXPECT_EQ(script.wait(), 2);
  EXPECT_EQ(script.said(), "another program works in this folder: " + desk.mazes.string() + "\n");
  ChildProgram second(desk.window());
  EXPECT_TRUE(second.makes(desk.temp.path() / "Mazes 2/title.bmp"));
  first.kill();
  ChildProgram again(desk.headless(kBegin));
  EXPECT_EQ(again.wait(), 0) << "a killed program leaves no lock: " << again.said();
}

TEST(TheWindowsCommandLine, IsAnsweredWithoutAScreen) {
  const Desk desk;
  const std::string more = "; gridwright --help says more\n";
  for (const char* word : {"--help", "-h", "--version"}) {
    ChildProgram window(desk.withoutScreen({word}));
    EXPECT_EQ(window.wait(), 0) << word << window.said();
  }
  const std::vector<std::pair<std::vector<std::string>, std::string>> wrong = {
      {{"a.png", "b.png"}, "one picture or drawing can be opened, not more" + more},
      {{"--helpp"}, "there is no option --helpp" + more},
      {{"-platform"}, "-platform wants a word after it" + more},
      {{"--work"}, "--work wants a word after it" + more},
      {{""}, "an empty word names no file" + more},
      {{"--work", "/no/such/folder"}, "no such folder: /no/such/folder\n"}};
  for (const auto& [words, complaint] : wrong) {
    ChildProgram window(desk.withoutScreen(words));
    EXPECT_EQ(window.wait(), 2);
    EXPECT_EQ(window.said(), "gridwright: " + complaint);
  }
}

TEST(AWindowWithoutAScreen, SaysSoAndLeavesNoCore) {
  const Desk desk;
  ChildProgram window(desk.withoutScreen({"room.bmp"}));
  EXPECT_EQ(window.wait(), 1);
  EXPECT_TRUE(
      window.said().ends_with("there is no screen to open a window on; gridwright-headless needs none\n"))
      << window.said();
}

TEST(TheWindow, WorksInTheFolderItIsToldToAndTakesQtsOptionsAndNamesOfAnyKind) {
  const Desk desk;
  const fs::path other = desk.temp.path() / "Other";
  fs::create_directory(other);
  fs::rename(desk.mazes / "room.bmp", desk.mazes / "-room.bmp");
  Start start = desk.window();
  start.words = {"--platform",   "offscreen", "--style=fusion", "-reverse", "--work",
                 other.string(), "--",        "-room.bmp"};
  ChildProgram window(start);
  EXPECT_TRUE(window.makes(other / "title.bmp")) << window.said();
  // A picture that could be read is remembered.
  const fs::path memory = desk.config / "gridwright/gridwright.conf";
  const auto remembers = [&] {
    std::ifstream in(memory);
    const std::string words((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return words.find("recent1=" + (desk.mazes / "-room.bmp").string()) != std::string::npos;
  };
  for (int look = 0; look < 1000 && !remembers(); ++look)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_TRUE(remembers());
}

TEST(AScript, ThatIsRunInAFolderThatIsGoneSaysSo) {
  const Desk desk;
  ChildProgram script(inAFolderThatIsGone(desk.headless(kBegin), desk));
  EXPECT_EQ(script.wait(), 2);
  EXPECT_EQ(script.said(), "the present folder is gone\n");
}

TEST(AScript, ThatIsRunInAFolderThatIsGoneMayNameAnother) {
  const Desk desk;
  const TempFolder other;
  ChildProgram script(inAFolderThatIsGone(desk.headless(kBegin, {"--work", other.path().string()}), desk));
  EXPECT_EQ(script.wait(), 0) << script.said();
}

TEST(AWindow, ThatIsOpenedInAFolderThatIsGoneWorksInTheDataFolder) {
  const Desk desk;
  ChildProgram window(inAFolderThatIsGone(desk.window(), desk));
  EXPECT_TRUE(window.makes(desk.data / "title.bmp")) << window.said();
}

TEST(AScriptInAFolderThatTakesNoFiles, KeepsTheDrawingInTheDataFolder) {
  const Desk desk;
  const std::string told =
      "Error: this folder cannot be written; nothing is saved in it, and the drawing is kept in " +
      desk.data.string() + " instead.";
  // Not even root may make a file there.
  ChildProgram script(desk.headless(kBegin + "expect message \"" + told + "\"\nkey 190\nkey 76 3\n",
                                    {"--work", "/proc/self"}));
  EXPECT_EQ(script.wait(), 0) << script.said();
  EXPECT_TRUE(readBitmapFile(desk.data / "last-drawing.bmp"));
}

TEST(AScriptAmongPipes, WaitsForNoReaderAndNoWriter) {
  const Desk desk;
  for (const char* name : {"left.pt", "up.pt.building", "drawing1.bmp", "drawing1.bmp.building", "title.bmp"})
    put(NoPlainFile::pipe, desk.mazes / name, {});
  put(NoPlainFile::pipe, desk.mazes / "pipe.bmp", {});
  ChildProgram script(
      desk.headless(kBegin + kImport +
                    "menu cgenerate\nmenu newmaze\nuntil phase 2\n"
                    "expect message \"Error: drawing1.bmp is not a plain file; nothing is written to "
                    "it.\"\nmenu backtodrawing\nuntil phase 0\n"
                    "menu importdrawing\ntype Text8 \"pipe\"\nenter Text8\n"
                    "expect message \"Error: can't find bitmap.\"\n"));
  EXPECT_EQ(script.wait(), 0) << script.said();
}

TEST(APictureOfAScript, IsWrittenToNoLink) {
  for (const char* verb : {"snapshot", "image"}) {
    const Desk desk;
    desk.temp.put("mine", "precious");
    put(NoPlainFile::link, desk.mazes / "maze.bmp", desk.temp.path() / "mine");
    ChildProgram script(desk.headless(kBegin + verb + " maze.bmp\n"));
    EXPECT_EQ(script.wait(), 2);
    EXPECT_NE(script.said().find("cannot be written: maze.bmp"), std::string::npos) << script.said();
    EXPECT_EQ(desk.temp.get("mine"), "precious");
  }
}

TEST(PagesOfAScript, AreWrittenToNothingButPlainFiles) {
  const Desk desk;
  const TempFolder pages;
  desk.temp.put("mine", "precious");
  put(NoPlainFile::link, pages.path() / "page-0001.bmp", desk.temp.path() / "mine");
  put(NoPlainFile::link, pages.path() / "book.pdf", desk.temp.path() / "mine");
  const std::string print = kBegin + kImport + "menu printfff\n";
  ChildProgram bitmaps(desk.headless(print, {"--pages", pages.path().string()}));
  EXPECT_EQ(bitmaps.wait(), 2);
  put(NoPlainFile::device, pages.path() / "full", {});
  for (const char* name : {"book.pdf", "full"}) {
    const std::string document = (pages.path() / name).string();
    ChildProgram book(desk.headless(print, {"--pdf", document}));
    EXPECT_EQ(book.wait(), 2);
    EXPECT_NE(book.said().find("cannot be written: " + document), std::string::npos) << book.said();
    EXPECT_TRUE(isNoPlainFile(document));
  }
  EXPECT_EQ(desk.temp.get("mine"), "precious");
}

TEST(AFolderWhoseNameIsNoUtf8, IsOneFolderForTextsPicturesAndPages) {
  const Desk desk;
  const fs::path folder = desk.temp.path() / "caf\xE9";
  fs::create_directory(folder);
  fs::rename(desk.mazes / "room.bmp", folder / "r\xFC.bmp");
  ChildProgram script(
      desk.headless(kBegin + "menu importdrawing\npick File5 \"r\xFC.bmp\"\nenter Text8\nexpect "
                             "mazeMadeOnce 1\nmenu printfff\nmenu sdrawing\ntype text1 \"\xE4\"\nenter "
                             "text1\nexpect message \"\"\n",
                    {"--work", folder.string(), "--pdf", (folder / "\xF6.pdf").string()}));
  EXPECT_EQ(script.wait(), 0) << script.said();
  for (const char* name : {"Left.pt", "title.bmp", "\xE4.maze", "\xE4.bmp", "\xF6.pdf", "last-drawing.bmp"})
    EXPECT_TRUE(fs::exists(folder / name)) << name;
  EXPECT_EQ(std::distance(fs::directory_iterator(desk.temp.path()), {}), 3) << "no other folder was made";
}

TEST(AScriptUnderTurkish, FindsWhatItFindsEverywhere) {
  const TurkishFolder turkish;
  const Desk desk;
  fs::rename(desk.mazes / "room.bmp", desk.mazes / "SIDI.BMP");
  desk.temp.put("Mazes/RIGHT.PT", "");
  // With a document the program has Qt set its language.
  Start start = desk.headless(
      kBegin + "menu importdrawing\ntype Text8 \"sidi\"\nenter Text8\nexpect mazeMadeOnce 1\nmenu printfff\n",
      {"--pdf", (desk.mazes / "book.pdf").string()});
  start.variables["LOCPATH"] = turkish.path();
  start.variables["LC_ALL"] = "tr_TR.UTF-8";
  ChildProgram script(start);
  EXPECT_EQ(script.wait(), 0) << script.said();
  EXPECT_TRUE(fs::exists(desk.mazes / "book.pdf"));
  EXPECT_FALSE(fs::exists(desk.mazes / "Right.pt")) << "RIGHT.PT is that file";
  EXPECT_EQ(desk.temp.get("Mazes/RIGHT.PT").substr(0, 2), "2,");
}

}  // namespace
}  // namespace gridwright::test
