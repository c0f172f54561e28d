// What the window does with pages: the panel of their setup, the preview, and the dialogs of Qt behind both.
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QVBoxLayout>

#include "platform/qt/qt_desktop.h"
#include "platform/shared/page_paint.h"
#include "platform/shared/page_sheets.h"
#include "session/input.h"

namespace gridwright {

void QtDesktop::listenToPages() {
  auto* column = new QVBoxLayout(pageFrame_);
  column->addWidget(pageSetup_);
  controls_.setHolder(pageFrame_, pageSetup_->first());
  pageSetup_->onAccept = [this](const PageSetup& setup) {
    inputs_.byPerson([setup](Program& program) { input::pageSetupEntered(program, setup); });
  };
  pageSetup_->onCancel = [this] { inputs_.byPerson(input::pageSetupEscaped); };
  // From inside the pump: a dialog has a loop of its own.
  pageSetup_->onMore = [this] {
    inputs_.byPerson([this](Program& program) {
      if (program.pages.open) askForPaper();
    });
  };
  QObject::connect(&window_.runCancel(), &QPushButton::clicked, &window_, [this] {
    inputs_.byPerson([](Program& program) { input::menuClick(program, Item::stopallprintings); });
  });
}

void QtDesktop::mirrorPages(const Program& program) {
  window_.runCancel().mirror(program.state.print, program.statusLineOff);
  if (pagesShown_ == program.pages.revision) return;
  pagesShown_ = program.pages.revision;
  pageSetup_->mirror(program.pages);
  if (program.pages.open) placeInMiddle(*pageFrame_);
  pageFrame_->setVisible(program.pages.open);
  pageFrame_->raise();
  controls_.keepFocus(program.controls);
}

/// In the middle of the Canvas, as large as it needs to be.
void QtDesktop::placeInMiddle(PanelFrame& frame) {
  const QRect view = window_.view().rect();
  QRect place({}, frame.sizeHint().boundedTo(view.size()));
  place.moveCenter(view.center());
  frame.setGeometry(place);
}

/// Qt's own page setup changes what the panel shows, and nothing is in force before that is accepted.
void QtDesktop::askForPaper() {
  const PageSetup setup = pageSetup_->setup();
  const auto printer = printing_.printerFor({0, 0, nullptr, 0}, setup);
  const QPageLayout before = printer->pageLayout();
  QPageSetupDialog dialog(printer.get(), &window_);
  if (run(dialog) != QDialog::Accepted) return;
  pageSetup_->show(withChanges(setup, before, printer->pageLayout()));
}

void QtDesktop::previewPage(const BitmapView& picture, const PageLook& look) {
  if (!attended_) return;
  if (program_ != nullptr) bringInLine(*program_);
  const auto printer = printing_.printerFor(picture, look.setup);
  QPrintPreviewDialog dialog(printer.get(), &window_);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* onto) {
    QPainter painter(onto);
    const PictureInk ink =
        onto->outputFormat() == QPrinter::PdfFormat ? PictureInk::rectangles : PictureInk::pixels;
    paintSheets(painter, picture, look, ink, [onto] { return onto->newPage(); });
  });
  run(dialog);
}

UsualPaper QtDesktop::usualPaper() { return printing_.usualPaper(); }

}  // namespace gridwright
