#include "support/run_writer.h"

#include <algorithm>

namespace gridwright::test {

namespace {

constexpr std::size_t kLongest = 255;  // pixels of a run, or of a jump to one side

class RunWriter {
 public:
  RunWriter(const IndexRows& rows, const RunForm& form) : rows_(rows), form_(form) {}

  std::string write() {
    if (form_.style == RunStyle::jumps) {
      jumpFromPixelToPixel();
    } else {
      for (const auto& row : rows_) {
        writeRow(row);
        mark(0);
      }
    }
    if (!form_.endless) mark(1);
    return std::move(bytes_);
  }

 private:
  using Row = std::vector<std::uint32_t>;

  void put(std::size_t byte) { bytes_ += static_cast<char>(byte); }
  void mark(std::size_t which) {
    put(0);
    put(which);
  }

  /// A run of one index, or of two in turn.
  void run(std::size_t length, std::uint32_t first, std::uint32_t second) {
    put(length);
    put(form_.bits == 8 ? first : first << 4 | second);
  }

  void singles(const Row& row, std::size_t from, std::size_t length) {
    mark(length);
    const std::size_t begin = bytes_.size();
    for (std::size_t i = 0; i < length; i += form_.bits == 8 ? 1 : 2) {
      const std::uint32_t second = i + 1 < length ? row[from + i + 1] : 0;
      put(form_.bits == 8 ? row[from + i] : row[from + i] << 4 | second);
    }
    if ((bytes_.size() - begin) % 2 != 0) put(0);
  }

  /// How many pixels from there on are like the one so many before them; the first ones count as they are.
  static std::size_t alikeFrom(const Row& row, std::size_t from, std::size_t apart) {
    std::size_t length = std::min(apart, row.size() - from);
    while (from + length < row.size() && length < kLongest &&
           row[from + length] == row[from + length - apart])
      ++length;
    return length;
  }

  void writeRow(const Row& row) {
    std::size_t x = 0;
    while (x < row.size()) x += writePart(row, x);
  }

  std::size_t writePart(const Row& row, std::size_t x) {
    const std::size_t left = std::min(row.size() - x, kLongest);
    if (form_.style == RunStyle::pairs) {
      const std::size_t length = alikeFrom(row, x, 2);
      run(length, row[x], length > 1 ? row[x + 1] : 0);
      return length;
    }
    std::size_t same = form_.style == RunStyle::greedy ? alikeFrom(row, x, 1) : 1;
    if (form_.style == RunStyle::lone || same > 1 || left < 3) {
      run(same, row[x], row[x]);
      return same;
    }
    std::size_t length = 3;
    while (length < left && (form_.style == RunStyle::singles || row[x + length] != row[x + length - 1]))
      ++length;
    singles(row, x, length);
    return length;
  }

  /// From each pixel that has not the first colour to the next one; what is behind the last is not written.
  void jumpFromPixelToPixel() {
    std::size_t atX = 0;
    std::size_t atY = 0;
    for (std::size_t y = 0; y < rows_.size(); ++y) {
      for (std::size_t x = 0; x < rows_[y].size(); ++x) {
        if (rows_[y][x] == 0) continue;
        for (; y > atY && x < atX; ++atY, atX = 0) mark(0);
        while (x > atX || y > atY) {
          const std::size_t right = std::min(x - atX, kLongest);
          const std::size_t up = std::min(y - atY, kLongest);
          mark(2);
          put(right);
          put(up);
          atX += right;
          atY += up;
        }
        run(1, rows_[y][x], rows_[y][x]);
        ++atX;
      }
    }
  }

  const IndexRows& rows_;
  const RunForm& form_;
  std::string bytes_;
};

}  // namespace

std::string runsOf(const IndexRows& rows, const RunForm& form) { return RunWriter(rows, form).write(); }

}  // namespace gridwright::test
