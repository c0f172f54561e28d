#include "platform/shared/end_signals.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>

#include "platform/shared/image_files.h"
#include "support/pictures.h"
#include "support/pipe.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGHUP, SIGINT};

/// Whoever runs the tests may have it ignored.
void answerAll() {
  for (const int signal : kSignals) std::signal(signal, SIG_DFL);
}

bool canBeRead(int descriptor) {
  pollfd asked{descriptor, POLLIN, 0};
  return ::poll(&asked, 1, 0) == 1;
}

TEST(ASignalThatEnds, IsNotedAndWakesWhoeverWaits) {
  answerAll();
  for (const int signal : kSignals) {
    const EndSignals asked;
    EXPECT_EQ(endSignal(), 0);
    EXPECT_FALSE(canBeRead(asked.wakeUp()));
    ASSERT_EQ(std::raise(signal), 0);
    EXPECT_EQ(endSignal(), signal);
    EXPECT_TRUE(canBeRead(asked.wakeUp()));
  }
}

TEST(ASignalThatIsIgnored, StaysIgnored) {
  for (const int signal : kSignals) {
    std::signal(signal, SIG_IGN);
    {
      const EndSignals asked;
      ASSERT_EQ(std::raise(signal), 0);
      EXPECT_EQ(endSignal(), 0);
    }
    EXPECT_EQ(std::signal(signal, SIG_DFL), SIG_IGN);
  }
}

TEST(ASecondSignal, EndsWhateverTheFirstCouldNot) {
  for (const int signal : kSignals) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      answerAll();
      const EndSignals asked;
      std::raise(signal);
      if (endSignal() == signal) std::raise(signal);
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << signal;
    EXPECT_EQ(WTERMSIG(status), signal);
  }
}

TEST(TheTwin, KeepsThePictureWhenASignalEndsItAndSaysWhich) {
  for (const int signal : kSignals) {
    const TempFolder temp;
    const Bitmap room = drawing({".........", ".........", ".........", "........."});
    ASSERT_TRUE(writeBitmapFile(room, temp.path() / "room.bmp"));
    temp.put("endless.txt",
             "click Command2\nmenu importdrawing\ntype Text8 \"room\"\nenter Text8\nshow phase\n"
             "pumps 1000000000000\n");
    Pipe said;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      answerAll();
      ::dup2(said.ends[1], STDOUT_FILENO);
      const std::string script = (temp.path() / "endless.txt").string();
      ::execl(GRIDWRIGHT_HEADLESS, GRIDWRIGHT_HEADLESS, "--size", "100x50", "--work", temp.path().c_str(),
              script.c_str(), nullptr);
      ::_exit(127);
    }
    EXPECT_EQ(said.readLine(), "phase 0");
    ::kill(child, signal);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status)) << signal;
    EXPECT_EQ(WEXITSTATUS(status), 128 + signal);
    const auto kept = readBitmapFile(temp.path() / "last-drawing.bmp");
    ASSERT_TRUE(kept) << signal;
    EXPECT_TRUE(samePicture(kept.value(), room));
  }
}

}  // namespace
}  // namespace gridwright::test
