#include "platform/shared/end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace gridwright {

namespace {

constexpr std::array kSignals = {SIGTERM, SIGHUP, SIGINT};

// A handler is given nothing but its signal's number, and may run in any thread.
std::atomic<int> come = 0;
std::atomic<int> waking = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void note(int signal) {
  const int before = errno;
  come = signal;
  const char byte = 0;
  // A pipe that is full has woken its reader already.
  while (waking >= 0 && ::write(waking, &byte, 1) < 0 && errno == EINTR) {
  }
  errno = before;
}

}  // namespace

EndSignals::EndSignals() {
  come = 0;
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
    wakeUp_ = ends[0];
    waking = ends[1];
  }
  std::signal(SIGXFSZ, SIG_IGN);
  for (const int signal : kSignals) {
    struct sigaction present {};
    if (::sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN) continue;
    struct sigaction wanted {};
    wanted.sa_handler = note;
    // What is being read or written goes on; where that has no end, a second one ends the program at once.
    wanted.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    ::sigaction(signal, &wanted, nullptr);
  }
}

EndSignals::~EndSignals() {
  for (const int signal : kSignals) {
    struct sigaction present {};
    if (::sigaction(signal, nullptr, &present) == 0 && present.sa_handler == note)
      std::signal(signal, SIG_DFL);
  }
  const int writeEnd = waking;
  waking = -1;
  if (writeEnd >= 0) ::close(writeEnd);
  if (wakeUp_ >= 0) ::close(wakeUp_);
  come = 0;
}

int endSignal() { return come; }

}  // namespace gridwright
