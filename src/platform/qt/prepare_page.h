// The page that makes a picture ready for a maze: the picture and what the maze will be made of, beside each
// other, with the settings under them. It shows a model and reports what a person does; it decides nothing,
// and stands in any frame.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "state/prepare_panel.h"

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace gridwright {

/// A picture as large as fits, its sides in their proportion; smaller ones are not enlarged past whole
/// pixels.
class PictureBox : public QWidget {
 public:
  explicit PictureBox(QWidget* parent);
  void show(QImage picture);
  [[nodiscard]] const QImage& picture() const { return picture_; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {160, 120}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage picture_;
};

class PreparePage : public QWidget {
 public:
  explicit PreparePage(QWidget* parent);

  std::function<void(const PrepareSettings&)> onChange;
  std::function<void()> onPlace, onPutAway, onUse, onAsItIs, onCancel;

  /// Brings all in line with the model, if that has changed since.
  void mirror(const PreparePanel& panel);

  /// What has the keyboard when the page opens.
  [[nodiscard]] QWidget* first() const;

 private:
  QWidget* buildSettings();
  QWidget* buildButtons();
  void showSettings(const PreparePanel& panel);
  void showColours(const Prepared& made);
  void changed(const std::function<void(PrepareSettings&)>& change);
  void ticksChanged();

  PictureBox *before_, *after_;
  QComboBox *size_, *outlines_;
  QSpinBox *colours_, *detail_;
  QListWidget* found_;
  QLabel* line_;
  QPushButton *place_, *use_, *asItIs_, *cancel_;
  PrepareSettings settings_;  // as they are shown
  const Picture* shownPicture_ = nullptr;
  const Prepared* shownMade_ = nullptr;
  std::uint64_t shown_ = 0;
  bool mirroring_ = false;  // what changes now, no person has changed
};

}  // namespace gridwright
