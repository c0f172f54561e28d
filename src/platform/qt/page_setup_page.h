// The panel that says how pages look. It shows what is in force as it opens, and reports all of it when a
// person accepts; it decides nothing.
#pragma once

#include <QWidget>
#include <functional>

#include "state/page_setup.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QSpinBox;

namespace gridwright {

class PageSetupPage : public QWidget {
 public:
  explicit PageSetupPage(QWidget* parent);

  std::function<void(const PageSetup&)> onAccept;
  std::function<void()> onCancel;
  std::function<void()> onMore;  ///< Qt's own dialog for paper and margins is wanted.

  /// Shows the setup in force, if the panel has opened since.
  void mirror(const PagePanel& panel);

  /// What it shows now.
  [[nodiscard]] PageSetup setup() const;
  /// Shows another one, such as the desktop's dialog has brought.
  void show(const PageSetup& setup);

  /// What has the keyboard when the panel opens.
  [[nodiscard]] QWidget* first() const;

 private:
  QWidget* buildTiles();
  QWidget* buildButtons();
  void showPapers(const PageSetup& setup);
  void showMargins(const PageSetup& setup);

  QLineEdit* title_;
  QCheckBox *nameLine_, *endWords_;
  QComboBox *paper_, *orientation_;
  QSpinBox *margin_, *columns_, *rows_;
  UsualPaper usual_;
  std::optional<Margins> unequal_;  // margins that the one number cannot say
  std::uint64_t shown_ = 0;
};

}  // namespace gridwright
