// How much there is to draw in an SVG whose parts may be used again and again by other parts.
#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <vector>

namespace gridwright {

/// Ten uses of ten uses, nine times over, are a few lines of text and a thousand million things to draw. The
/// elements are told in the order of the text; the sum is made before anything is drawn.
class SvgWeight {
 public:
  static constexpr std::int64_t kMost = 1'000'000;  ///< Elements to draw.
  static constexpr int kDeepest = 200;              ///< Elements within one another, uses followed.

  /// An element begins; `id` and `use`, the id that it draws once more, may be empty.
  void begin(const QString& id, const QString& use);
  void end();

  [[nodiscard]] bool isTooDeep() const { return static_cast<int>(open_.size()) > kDeepest; }
  /// Whether all can be drawn in a time that a person waits.
  [[nodiscard]] bool isBearable();

 private:
  struct Element {
    QString use;
    std::vector<std::size_t> children;
    std::int64_t weight = -1;  // not known yet
    bool isBeingSummed = false;
  };

  std::int64_t weightOf(std::size_t element, int depth);

  std::vector<Element> elements_;
  std::vector<std::size_t> open_;
  QHash<QString, std::vector<std::size_t>> byId_;
};

}  // namespace gridwright
