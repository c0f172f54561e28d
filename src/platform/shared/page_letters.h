// Letters on pages, and what is measured on paper.
#pragma once

#include <QFont>
#include <QString>

class QPaintDevice;
class QPainter;
class QRectF;

namespace gridwright {

/// Turns millimetres on paper into units of a device.
class Ruler {
 public:
  /// \param enlarged how many times everything is as large as it says.
  explicit Ruler(const QPaintDevice& device, double enlarged = 1);
  [[nodiscard]] double operator()(double millimetres) const { return millimetres * perMillimetre_; }

 private:
  double perMillimetre_;
};

/// Text of so many pixels in the application's own fonts.
QFont letters(double height, bool bold = false);

/// A word in black that has white round it, as wide as `rim`, since it may stand over lines.
void paintWord(QPainter& painter, const QRectF& place, const QString& word, const QFont& font, double rim);

}  // namespace gridwright
