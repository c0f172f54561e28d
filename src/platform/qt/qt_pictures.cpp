// What the window does with pictures from elsewhere, by the dialog or the clipboard, and with the workshop
// that they come to.
#include <QClipboard>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <QStandardPaths>
#include <utility>

#include "platform/pictures/read_picture.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/swatch_button.h"
#include "session/input.h"
#include "state/grid.h"

namespace gridwright {

namespace {

constexpr auto kFilter =
    "Pictures and drawings (*.png *.jpg *.jpeg *.gif *.svg *.webp *.tif *.tiff *.bmp *.maze);;All files (*)";
std::vector<SwatchButton*> swatchesOn(const QWidget& window) {
  std::vector<SwatchButton*> swatches;
  for (auto* button : window.findChildren<QAbstractButton*>()) {
    if (auto* swatch = dynamic_cast<SwatchButton*>(button)) swatches.push_back(swatch);
  }
  return swatches;
}

constexpr auto kNothingToPaste = "there is no picture to paste";

}  // namespace

void QtDesktop::listenToArrivals() {
  window_.onDrop = [this](const std::vector<std::filesystem::path>& files) {
    if (files.empty()) return inputs_.byPerson(input::nothingBrought);
    if (bookPage_->isVisible()) return bookPage_->add(files);
    bring(files);
  };
}

void QtDesktop::bring(std::vector<std::filesystem::path> files) {
  inputs_.byPerson([files = std::move(files)](Program& program) { input::filesBrought(program, files); });
}

void QtDesktop::mirrorWorkshop(Program& program) {
  if (!workshop_->isBehind(program)) return;
  workshop_->mirror(program);
  controls_.setHolder(workshop_, workshop_->first());
  if (workshop_->isHidden() != program.workshop.open) return;
  workshop_->setGeometry(window_.view().rect());
  workshop_->setVisible(program.workshop.open);
  workshop_->raise();
  controls_.keepFocus(program.controls);
}

void QtDesktop::mirrorKeys(const Program& program) {
  if (keysShown_ == program.keys.revision) return;
  keysShown_ = program.keys.revision;
  keysPage_->setGeometry(window_.view().rect());
  keysPage_->show(program.keys);
  window_.view().cover(program.keys.shown);
}

void QtDesktop::mirrorRegions(const Program& program) {
  if (regionsShown_ == program.regions.revision) return;
  regionsShown_ = program.regions.revision;
  window_.view().layOver(program.regions.colours, qString(program.regions.line));
}

namespace {

/// A square that shows in its colour. While a maze grows the ends are not laid yet, and a search takes the
/// finish off.
std::optional<QRect> endSeen(const Program& program, const Square& square, Colour colour) {
  if (!isPlaced(square) || program.canvas.shownPoint(square.left, square.top) != colour) return std::nullopt;
  return QRect(QPoint(square.left, square.top), QPoint(square.right, square.bottom));
}

}  // namespace

void QtDesktop::mirrorMarks(const Program& program) {
  const ProgramState& s = program.state;
  EndMarks marks;
  if (program.markColours && s.phase >= Phase::placing) {
    marks = {endSeen(program, s.start, s.startColor), endSeen(program, s.finish, s.finishColor)};
  }
  window_.view().markEnds(marks);
  if (lettersShown_ == program.markColours) return;
  lettersShown_ = program.markColours;
  for (SwatchButton* swatch : swatchesOn(window_)) swatch->setMarked(lettersShown_);
}

// The thread wakes up the loop, which looks for the outcome when Qt has come back.
void QtDesktop::workBeside(Program& /*program*/, Work work) {
  if (!beside_) {
    beside_ =
        std::make_unique<WorkThread>([] { QCoreApplication::postEvent(qApp, new QEvent(QEvent::User)); });
  }
  beside_->ask(std::move(work));
}

/// \returns whether an outcome reached the program.
bool QtDesktop::finishWork(Program& program) {
  const auto outcome = beside_ ? beside_->takeOutcome() : std::nullopt;
  if (outcome) (*outcome)(program);
  return outcome.has_value();
}

Outcome<Picture> QtDesktop::readPicture(const std::filesystem::path& file, Size fit) {
  return gridwright::readPicture(file, fit);
}

std::optional<std::filesystem::path> QtDesktop::choosePicture() {
  QFileDialog dialog(&window_, "Open picture",
                     QStandardPaths::writableLocation(QStandardPaths::PicturesLocation), kFilter);
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (run(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return std::filesystem::path(QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString());
}

Outcome<Pasted> QtDesktop::pasted() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data == nullptr) return Fault{Fault::Kind::notFound, kNothingToPaste};
  const auto files = localFiles(*data);
  if (!files.empty()) return Pasted{files.front(), {}};
  if (!data->hasImage()) return Fault{Fault::Kind::notFound, kNothingToPaste};
  return Pasted{
      {}, [image = data->imageData().value<QImage>()](Size) { return pictureOf(image, "what was copied"); }};
}

}  // namespace gridwright
