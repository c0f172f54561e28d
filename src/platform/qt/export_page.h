// The panel that takes the picture elsewhere. It shows what was wished last as it opens, and reports all of
// it when a person accepts; it decides nothing.
#pragma once

#include <QWidget>
#include <functional>

#include "state/export_panel.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace gridwright {

class ExportPage : public QWidget {
 public:
  explicit ExportPage(QWidget* parent);

  std::function<void(const ExportWish&)> onAccept;
  std::function<void()> onCancel;
  std::function<void()> onChoose;  ///< The desktop's own dialog for a name is wanted.

  /// Shows what was wished last, if the panel has opened since, and the line.
  void mirror(const ExportPanel& panel);

  /// What it shows now.
  [[nodiscard]] ExportWish wish() const;
  /// Shows another name, such as the desktop's dialog has brought.
  void setFile(const QString& name);

  /// What has the keyboard when the panel opens.
  [[nodiscard]] QWidget* first() const;

 private:
  QWidget* buildName();
  QWidget* buildButtons();
  void offerAnswers(const ExportPanel& panel);

  QLineEdit* file_;
  QSpinBox* dpi_;
  QComboBox* answer_;
  QCheckBox* clear_;
  QLabel* line_;
  bool wasOpen_ = false;
  std::uint64_t shown_ = 0;
};

}  // namespace gridwright
