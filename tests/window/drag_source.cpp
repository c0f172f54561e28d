// A small window from which a file is dragged, as a file manager does: drag_source ADDRESS...
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class DragSource : public QWidget {
 public:
  explicit DragSource(QList<QUrl> addresses)
      : QWidget(nullptr, Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint),
        addresses_(std::move(addresses)) {
    setGeometry(0, 0, 30, 16);  // over the caption's left end, out of everybody's way
  }

 protected:
  void mouseMoveEvent(QMouseEvent* event) override {
    if (event->buttons() == Qt::NoButton) return;
    auto* data = new QMimeData;
    data->setUrls(addresses_);
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction);
  }

 private:
  QList<QUrl> addresses_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QList<QUrl> addresses;
  for (const QString& word : QApplication::arguments().mid(1))
    addresses.append(QUrl::fromUserInput(word, "/"));
  DragSource source(addresses);
  source.show();
  return QApplication::exec();
}
