// The panel that makes a book. It shows the wish that it opens with, and reports what a person wants; whether
// it can be made, others decide.
#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>
#include <vector>

#include "state/book_panel.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;

namespace gridwright {

class BookStrip;

class BookPage : public QWidget {
 public:
  explicit BookPage(QWidget* parent);

  std::function<void(const BookWish&)> onAccept;
  std::function<void()> onCancel;
  std::function<void(const BookWish&)> onCopy;  ///< The command line is wanted elsewhere.
  std::function<void()> onAddPictures, onChooseNames;

  /// Shows the wish of the panel and what is against it, if the panel has changed since; and the pages made
  /// last.
  void mirror(const BookPanel& panel);

  /// What it shows now.
  [[nodiscard]] BookWish wish() const;

  /// Pictures and drawings come to the list; a text is the list of names.
  void add(const std::vector<std::filesystem::path>& files);
  void setNames(const std::filesystem::path& file);

  /// What has the keyboard when the panel opens.
  [[nodiscard]] QWidget* first() const;

 private:
  QWidget* buildForm();
  QWidget* buildPictures();
  QWidget* buildNames();
  QWidget* buildNumber();
  QWidget* buildLine();
  QWidget* buildButtons();
  QLineEdit* box(const char* name, const char* placeholder);
  QComboBox* choices(const char* name, const char* placeholder, const QStringList& words);
  void listenToChanges();
  void orderTabs();
  void removePictures();
  void show(const BookWish& wish);
  void showLine();

  // As they stand, since in this order Tab goes through them.
  QListWidget* pictures_;
  QCheckBox *drawing_, *sheet_;
  QLineEdit *names_, *number_;
  QComboBox *share_, *kinds_;
  QLineEdit* walls_;
  QComboBox *patterns_, *paper_, *perPage_, *answers_, *answersPerPage_;
  QLineEdit *title_, *caption_, *seed_, *file_, *line_;
  QLabel* why_;
  BookStrip* strip_;
  BookFiles files_;
  std::filesystem::path folder_;
  std::uint64_t shown_ = 0;
};

}  // namespace gridwright
