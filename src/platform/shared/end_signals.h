// SIGTERM, SIGHUP and SIGINT ask the program to end: it does so as when its window is closed.
//
// A handler may do next to nothing, so it notes the signal and wakes whoever waits; the pump looks at the
// note and throws ProgramEnd.
#pragma once

namespace gridwright {

/// Answers the three signals while it lives, each once: a second one ends the process the system's way, also
/// where it is stuck in a write to a reader who reads no more. One that the process was started to ignore, as
/// nohup has it with SIGHUP and a shell's "&" with SIGINT, stays ignored. A limit on the size of files ends
/// nothing from then on: what goes beyond it is refused, as by a full disk. One at a time.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  /// A descriptor that can be read once a signal has come; -1 where the system had none left.
  [[nodiscard]] int wakeUp() const { return wakeUp_; }

 private:
  int wakeUp_ = -1;
};

/// The last of these signals that has come, 0 for none.
int endSignal();

}  // namespace gridwright
