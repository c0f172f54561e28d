// The panel of exports, and what is copied.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QThread>
#include <QTimer>

#include "qt_session.h"
#include "session/input.h"

namespace gridwright {
namespace {

struct Panel : Session {
  explicit Panel(Phase phase = Phase::drawing) {
    program.menus.setVisible(Item::filet, true);
    program.state.phase = phase;
    open();
  }
  void open() {
    program.state.keyBusy = false;
    input::menuClick(program, Item::exportmaze);
    pump(Pace::housekeeping);
  }
  template <class T>
  T* part(const char* name) {
    return desktop.exportPage().findChild<T*>(name);
  }
  void accept() {
    QTest::keyClick(part<QLineEdit>("file"), Qt::Key_Return);
    pump(Pace::idle);
    pump(Pace::housekeeping);
  }
  [[nodiscard]] QString file(const char* name) const { return folder.filePath(name); }
};

TEST(TheExportPanel, IsShownWithTheKeyboardInTheNameAndGoesWithItsModel) {
  Panel panel;
  EXPECT_TRUE(panel.desktop.exportPage().isVisible());
  EXPECT_EQ(panel.desktop.window().focusWidget(), panel.part<QLineEdit>("file"));
  EXPECT_EQ(panel.part<QLineEdit>("file")->text(), "maze-1.png");
  EXPECT_EQ(panel.part<QSpinBox>("dpi")->value(), 300);
  QTest::keyClick(panel.part<QLineEdit>("file"), Qt::Key_Escape);
  panel.pump(Pace::idle);
  panel.pump(Pace::housekeeping);
  EXPECT_FALSE(panel.program.exporting.open);
  EXPECT_FALSE(panel.desktop.exportPage().isVisible());
  EXPECT_EQ(panel.desktop.window().focusWidget(), &panel.desktop.window().view());
}

TEST(TheExportPanel, WritesWhatAPersonSets) {
  Panel panel;
  panel.part<QLineEdit>("file")->setText("my cat.png");
  panel.part<QSpinBox>("dpi")->setValue(144);
  panel.part<QCheckBox>("clear")->click();
  panel.accept();
  EXPECT_FALSE(panel.program.exporting.open);
  const QImage image(panel.file("my cat.png"));
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.dotsPerMeterX(), 5669);
  EXPECT_TRUE(image.hasAlphaChannel());
  panel.open();
  EXPECT_EQ(panel.part<QLineEdit>("file")->text(), "my cat-2.png");
  EXPECT_EQ(panel.part<QSpinBox>("dpi")->value(), 144);
  EXPECT_TRUE(panel.part<QCheckBox>("clear")->isChecked());
}

TEST(TheExportPanel, ShowsWhyNothingCouldBeWrittenAndStays) {
  Panel panel;
  panel.part<QLineEdit>("file")->setText("cat.gif");
  panel.accept();
  EXPECT_TRUE(panel.program.exporting.open);
  EXPECT_TRUE(panel.part<QLabel>("line")->isVisible());
  EXPECT_EQ(panel.part<QLabel>("line")->text(),
            "Nothing is exported: a name ends in .png, .svg or .pdf, not so cat.gif");
  EXPECT_EQ(panel.part<QLineEdit>("file")->text(), "cat.gif") << "what was typed stays";
  panel.part<QLineEdit>("file")->setText("cat.pdf");
  panel.part<QPushButton>("export")->click();
  panel.pump(Pace::idle);
  EXPECT_FALSE(panel.program.exporting.open);
  EXPECT_TRUE(QFile::exists(panel.file("cat.pdf")));
  panel.open();
  EXPECT_FALSE(panel.part<QLabel>("line")->isVisible()) << "another one begins";
}

TEST(TheExportPanel, OffersOnlyAnswersThatThereAre) {
  const auto entries = [](Phase phase) {
    Panel panel(phase);
    QStringList words;
    auto* answer = panel.part<QComboBox>("answer");
    for (int i = 0; i < answer->count(); ++i) words << answer->itemText(i);
    EXPECT_EQ(answer->isEnabled(), words.size() > 1);
    return words;
  };
  EXPECT_EQ(entries(Phase::drawing), QStringList({"as it stands"}));
  EXPECT_EQ(entries(Phase::placing), QStringList({"as it stands"}));
  EXPECT_EQ(entries(Phase::solving), QStringList({"as it stands", "without it"}));
  EXPECT_EQ(entries(Phase::solved), QStringList({"as it stands", "without it", "with it"}));
}

TEST(TheExportPanel, TakesTheNameOfTheDesktopsDialog) {
  Panel panel;
  bool was = false;
  QTimer often;
  QObject::connect(&often, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || was) return;
    was = true;
    dialog->selectFile(panel.file("elsewhere.svg"));
    QMetaObject::invokeMethod(dialog, "accept");
  });
  often.start(5);
  panel.part<QPushButton>("choose")->click();
  for (int i = 0; i < 200 && !was; ++i) {
    QThread::msleep(2);
    panel.pump(Pace::working);
  }
  EXPECT_TRUE(was);
  EXPECT_EQ(panel.part<QLineEdit>("file")->text(), panel.file("elsewhere.svg"));
  EXPECT_TRUE(panel.program.exporting.open);
}

TEST(TheExportPanel, FitsTheSmallestWindow) {
  Panel panel;
  panel.desktop.window().resize(640, 480);
  panel.pump(Pace::working);
  const QWidget* frame = panel.desktop.exportPage().parentWidget();
  EXPECT_TRUE(panel.desktop.window().view().rect().contains(frame->geometry()));
  EXPECT_GE(frame->width(), frame->minimumSizeHint().width());
  EXPECT_GE(frame->height(), frame->minimumSizeHint().height());
}

TEST(Copy, IsHeardByItsKeysAndCanBePastedAsPixelsAndAsAnSvg) {
  Session session;
  session.program.menus.setVisible(Item::filet, true);
  QTest::keyClick(&session.desktop.window().view(), Qt::Key_C, Qt::ControlModifier);
  session.pump(Pace::idle);
  EXPECT_EQ(session.program.notices.words(), "The picture is copied");
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  ASSERT_NE(data, nullptr);
  const QImage image = QImage::fromData(data->data("image/png"), "PNG");
  const auto shown = session.program.canvas.shownView();
  ASSERT_EQ(image.size(), QSize(shown.width, shown.height));
  EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32), imageOf(shown));
  EXPECT_TRUE(data->hasImage());
  EXPECT_TRUE(data->data("image/svg+xml").contains("<svg"));
}

TEST(TheKeysOfCopy, StayThoseOfATextBoxThatHasTheKeyboard) {
  Panel panel;
  auto* file = panel.part<QLineEdit>("file");
  file->selectAll();
  QTest::keyClick(file, Qt::Key_C, Qt::ControlModifier);
  panel.pump(Pace::working);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "maze-1.png");
  EXPECT_TRUE(panel.program.exporting.open);
}

}  // namespace
}  // namespace gridwright
