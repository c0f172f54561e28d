// The frame round a picture that was placed on the sheet: what of it lies under the pointer, and what a drag
// makes of it.
#pragma once

#include <QPoint>
#include <QRect>
#include <array>
#include <optional>

namespace gridwright {

/// Boxes are in pixels of the sheet, and never empty.
class PlacedFrame {
 public:
  enum class Part { inside, topLeft, topRight, bottomLeft, bottomRight };
  static constexpr std::array kCorners = {Part::topLeft, Part::topRight, Part::bottomLeft, Part::bottomRight};

  explicit PlacedFrame(const QRect& box) : box_(box) {}

  [[nodiscard]] const QRect& box() const { return box_; }
  [[nodiscard]] QPoint corner(Part part) const;

  /// \param near how far a corner reaches, in pixels of the sheet. \returns nothing outside.
  [[nodiscard]] std::optional<Part> partAt(QPoint at, int near) const;

  /// The box after its part was dragged by so much. A corner keeps the sides in their proportion, unless
  /// they are free; the corner across stays where it is.
  [[nodiscard]] QRect dragged(Part part, QPoint by, bool isFree) const;

  /// The box larger or smaller by a twentieth, at least by a pixel, about its middle.
  [[nodiscard]] QRect scaled(bool larger) const;

 private:
  QRect box_;
};

}  // namespace gridwright
