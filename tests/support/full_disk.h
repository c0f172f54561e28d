// A disk that fills up in the middle of a file: while one lives, no file grows beyond so many bytes. What
// reads and writes within that length goes on as ever.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace gridwright::test {

class FullDisk {
 public:
  explicit FullDisk(rlim_t bytesLeft) : passOver_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytesLeft, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, passOver_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*passOver_)(int);
};

}  // namespace gridwright::test
