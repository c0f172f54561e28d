// The sheet of keys as it lies over the Canvas: keys drawn as keys, with what they do.
#pragma once

#include <QFrame>
#include <functional>

#include "state/keys_sheet.h"

class QPainter;

namespace gridwright {

class KeysPage : public QFrame {
 public:
  explicit KeysPage(QWidget* parent);

  std::function<void()> onDismiss;  ///< A mouse button on it.

  void show(const KeysSheet& sheet);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  /// Lays the rows out below one another; draws nothing without a painter. \returns the height they take.
  int layOut(const QFont& face, QPainter* painter) const;
  [[nodiscard]] QFont fittingFont() const;
  int capsWidth(const QFontMetrics& metrics) const;

  KeysSheet sheet_;
};

}  // namespace gridwright
