// An open file or folder of the system's.
#pragma once

namespace gridwright {

/// An open file or folder, or none; it closes itself.
class OpenFile {
 public:
  OpenFile() = default;
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  OpenFile(OpenFile&& other) noexcept : descriptor_(other.release()) {}
  OpenFile& operator=(OpenFile&& other) noexcept;
  ~OpenFile() { close(); }

  explicit operator bool() const { return descriptor_ >= 0; }
  [[nodiscard]] int descriptor() const { return descriptor_; }
  /// Leaves the closing to the caller.
  int release();
  void close();

 private:
  int descriptor_ = -1;
};

}  // namespace gridwright
