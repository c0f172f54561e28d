#include "platform/qt/window.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>
#include <QVBoxLayout>

namespace gridwright {

Window::Window()
    : inside_(new QWidget(this)), view_(new CanvasView(inside_)), statusLine_(new StatusLine(inside_)) {
  auto* column = new QVBoxLayout(inside_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(view_, 1);
  column->addWidget(statusLine_);
  setCentralWidget(inside_);
  menuBar()->setNativeMenuBar(false);
  menuBar()->setContextMenuPolicy(Qt::PreventContextMenu);
  connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this, [this] { openFirstMenu(); });
  setMinimumSize(640, 480);
}

void Window::open() {
  const QSize client = view_->sizeHint();
  resize(client.width(), client.height() + menuBar()->heightForWidth(client.width()) + statusLine_->height());
  show();
}

// The window stays while the loops unwind: no widget goes away under the feet of the program.
void Window::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (onClose) onClose();
}

void Window::openFirstMenu() {
  for (QAction* title : menuBar()->actions()) {
    if (!title->isVisible() || !title->isEnabled()) continue;
    menuBar()->setActiveAction(title);
    return;
  }
}

}  // namespace gridwright
