// The bytes of a device one after another, from its beginning.
#pragma once

#include <QIODevice>
#include <array>
#include <cstdint>

namespace gridwright {

/// Fetched in blocks.
class ByteReader {
 public:
  explicit ByteReader(QIODevice& device) : device_(device) { device_.seek(0); }

  /// The next byte; -1 at the end.
  int next() {
    if (at_ == count_) {
      count_ = device_.read(block_.data(), static_cast<qint64>(block_.size()));
      at_ = 0;
      if (count_ <= 0) {
        count_ = 0;
        return -1;
      }
    }
    return static_cast<std::uint8_t>(block_[static_cast<std::size_t>(at_++)]);
  }
  /// The next two, the high one first; -1 at the end.
  int nextTwo() {
    const int high = next();
    const int low = next();
    return low < 0 ? -1 : high << 8 | low;
  }
  void skip(int count) {
    for (; count > 0 && next() >= 0; --count) {
    }
  }

 private:
  QIODevice& device_;
  std::array<char, 65536> block_{};
  qint64 at_ = 0, count_ = 0;
};

}  // namespace gridwright
