// Qt paints letters and stamps as planes of bits.
#pragma once

#include <filesystem>
#include <memory>

#include "pictures/ink_work.h"

namespace gridwright {

/// Needs a QGuiApplication when a letter, a font's name or a stamp is asked for; one thread at a time.
/// Outlines are filled without smoothing and without hints, so that the same font gives the same bits
/// everywhere.
class QtInk : public InkWork {
 public:
  /// \param stamps the folder in which the outlines of the stamps lie.
  explicit QtInk(std::filesystem::path stamps);
  ~QtInk() override;
  QtInk(const QtInk&) = delete;
  QtInk& operator=(const QtInk&) = delete;

  LineInk line(const std::string& line, const LetterFont& font) override;
  std::vector<std::string> fontNames() override;
  BitPlane stamp(const std::string& name, int height) override;

 private:
  struct Shaped;
  const Shaped& shaped(const std::string& line, const LetterFont& font);

  std::filesystem::path stamps_;
  std::unique_ptr<Shaped> last_;  ///< What was asked for last: the same line is wanted in many heights.
};

}  // namespace gridwright
