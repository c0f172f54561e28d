// What programs take of time and memory.
#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

namespace gridwright::bench {

inline double millisecondsSince(std::chrono::steady_clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// The processor's time alone: what other programs take meanwhile does not count.
inline double millisecondsIn(const rusage& used) {
  const auto milliseconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}

/// The processor's time of this process so far.
inline double millisecondsSoFar() {
  rusage used{};
  ::getrusage(RUSAGE_SELF, &used);
  return millisecondsIn(used);
}

/// By the clock and by the processor.
struct Spent {
  double milliseconds = 0, processor = 0, megabytes = 0;
  bool succeeded = false;
};

/// Runs a program to its end. \returns what the whole process took.
inline Spent spentBy(const std::string& program, std::vector<std::string> words) {
  words.insert(words.begin(), program);
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    ::execv(program.c_str(), arguments.data());
    ::_exit(127);
  }
  int status = 0;
  rusage used{};
  const bool ended = ::wait4(child, &status, 0, &used) == child && WIFEXITED(status);
  return {millisecondsSince(begin), millisecondsIn(used), static_cast<double>(used.ru_maxrss) / 1024,
          ended && WEXITSTATUS(status) == 0};
}

}  // namespace gridwright::bench
