// Bytes with forbidden pages on both sides: who reads one byte before or behind them ends the program.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace gridwright::test {

class GuardedBytes {
 public:
  /// \param most bytes that will ever be put there.
  explicit GuardedBytes(std::size_t most) : page_(static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))) {
    room_ = (most + page_ - 1) / page_ * page_;
    void* all = ::mmap(nullptr, room_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (all == MAP_FAILED) throw std::runtime_error("no memory to guard");
    all_ = static_cast<char*>(all);
    if (::mprotect(all_ + page_, room_, PROT_READ | PROT_WRITE) != 0)
      throw std::runtime_error("no memory to write to");
  }
  ~GuardedBytes() { ::munmap(all_, room_ + 2 * page_); }
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  /// A copy right before the page behind; it stands until the next one.
  std::string_view atTheEnd(std::string_view bytes) { return at(room_ - bytes.size(), bytes); }
  /// A copy right behind the page before.
  std::string_view atTheBegin(std::string_view bytes) { return at(0, bytes); }

 private:
  std::string_view at(std::size_t place, std::string_view bytes) {
    char* out = all_ + page_ + place;
    std::copy(bytes.begin(), bytes.end(), out);
    return {out, bytes.size()};
  }

  std::size_t page_, room_ = 0;
  char* all_ = nullptr;
};

}  // namespace gridwright::test
