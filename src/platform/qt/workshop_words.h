// What is set for words and for stamps, which are put down as wholes.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "pictures/ink_work.h"
#include "pictures/stamps.h"
#include "state/workshop.h"

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QToolButton;

namespace gridwright {

class WordsPage : public QWidget {
 public:
  WordsPage(InkWork& ink, QWidget* parent);

  std::function<void()> onPutDown;

  /// What a person has set. \param ink the colour in hand.
  [[nodiscard]] WordSettings settings(int ink) const;

  /// Where the keyboard is wanted when words are chosen.
  [[nodiscard]] QPlainTextEdit* text() const { return text_; }
  /// Words in one colour need another one than paper.
  void setCanPut(int ink);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void listFonts();

  InkWork& ink_;
  QPlainTextEdit* text_;
  QComboBox* font_;
  QSpinBox* height_;
  QCheckBox *bold_, *fit_, *turn_, *join_, *frame_;
  QPushButton* put_;
};

class StampPage : public QWidget {
 public:
  StampPage(InkWork& ink, QWidget* parent);

  std::function<void()> onPutDown;

  [[nodiscard]] StampSettings settings(int ink) const;
  void setCanPut(int ink);

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void paintIcons();

  InkWork& ink_;
  std::array<QToolButton*, kStamps.size()> stamps_{};
  QSpinBox* height_;
  QPushButton* put_;
};

}  // namespace gridwright
