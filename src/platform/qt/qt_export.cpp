// What the window does with the picture that is taken elsewhere: the panel of exports with the desktop's
// dialog for a name, and the clipboard.
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <QVBoxLayout>
#include <memory>

#include "platform/qt/qt_desktop.h"
#include "platform/shared/image_files.h"
#include "platform/shared/picture_files.h"
#include "platform/shared/png_writer.h"
#include "session/input.h"

namespace gridwright {

namespace {

constexpr auto kFilter = "PNG, SVG and PDF (*.png *.svg *.pdf);;All files (*)";
constexpr int kDpiOfCopies = 96;  // of the Canvas itself: its points

}  // namespace

void QtDesktop::listenToExport() {
  auto* column = new QVBoxLayout(exportFrame_);
  column->addWidget(exportPage_);
  controls_.setHolder(exportFrame_, exportPage_->first());
  exportPage_->onAccept = [this](const ExportWish& wish) {
    inputs_.byPerson([wish](Program& program) {
      if (program.exporting.open) input::exportEntered(program, wish);
    });
  };
  exportPage_->onCancel = [this] { inputs_.byPerson(input::exportEscaped); };
  // From inside the pump: a dialog has a loop of its own.
  exportPage_->onChoose = [this] {
    inputs_.byPerson([this](Program& program) {
      if (program.exporting.open) askForExportName(program);
    });
  };
}

void QtDesktop::mirrorExport(const Program& program) {
  if (exportShown_ == program.exporting.revision) return;
  exportShown_ = program.exporting.revision;
  exportPage_->mirror(program.exporting);
  if (program.exporting.open) placeInMiddle(*exportFrame_);
  exportFrame_->setVisible(program.exporting.open);
  exportFrame_->raise();
  controls_.keepFocus(program.controls);
}

void QtDesktop::askForExportName(const Program& program) {
  const auto folder = QFile::decodeName(program.files->path().c_str());
  QFileDialog dialog(&window_, "Export", folder, kFilter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.selectFile(QFile::decodeName(exportPage_->wish().file.c_str()));
  if (run(dialog) == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
    exportPage_->setFile(dialog.selectedFiles().constFirst());
}

Outcome<Done> QtDesktop::writePicture(const PictureFile& wanted, const std::filesystem::path& path) {
  return writePictureFile(wanted, path);
}

bool QtDesktop::copyPicture(const BitmapView& picture, const std::string& svg) {
  auto data = std::make_unique<QMimeData>();
  data->setImageData(imageOf(picture));
  data->setData("image/png", QByteArray::fromStdString(pngOf(picture, 1, kDpiOfCopies)));
  data->setData("image/svg+xml", QByteArray::fromStdString(svg));
  QGuiApplication::clipboard()->setMimeData(data.release());
  return true;
}

}  // namespace gridwright
