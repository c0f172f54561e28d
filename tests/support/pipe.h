// What a child process says to the test that started it, line by line.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <utility>

namespace gridwright::test {

/// Made before the fork: the child writes, the test reads.
struct Pipe {
  Pipe() {
    if (::pipe(ends.data()) != 0) std::abort();
  }
  ~Pipe() {
    ::close(ends[0]);
    if (ends[1] >= 0) ::close(ends[1]);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  void writeLine(const std::string& line) const {
    const std::string bytes = line + "\n";
    if (::write(ends[1], bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) std::abort();
  }
  /// All up to a line's end, or what came until the other end was closed.
  [[nodiscard]] std::string readLine() {
    ::close(std::exchange(ends[1], -1));  // only the other process writes, and its end is an end
    std::string line;
    for (char byte = 0; ::read(ends[0], &byte, 1) == 1 && byte != '\n';) line += byte;
    return line;
  }
  std::array<int, 2> ends{};
};

}  // namespace gridwright::test
