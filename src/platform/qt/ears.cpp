#include "platform/qt/ears.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

#include "platform/qt/panels.h"

namespace gridwright {

namespace {

/// Of a label in a status bar a reader speaks the words alone, and not that it is a label.
class HeardBar : public QWidget {
 public:
  explicit HeardBar(QWidget* parent) : QWidget(parent) {}
};

QAccessibleInterface* accessibleBar(const QString& /*kind*/, QObject* object) {
  auto* bar = dynamic_cast<HeardBar*>(object);
  return bar == nullptr ? nullptr : new QAccessibleWidget(bar, QAccessible::StatusBar);
}

}  // namespace

// A reader takes two things of one name, role and place for the same: so each has a place of its own.
Ears::Ears(QWidget* window) {
  QAccessible::installFactory(accessibleBar);
  auto* bar = new HeardBar(window);
  bar->setAttribute(Qt::WA_TransparentForMouseEvents);
  bar->setGeometry(0, 0, static_cast<int>(labels_.size()), 1);
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    labels_.at(i) = new QLabel(bar);
    labels_.at(i)->setObjectName(QString("Heard%1").arg(i + 1));
    labels_.at(i)->setGeometry(static_cast<int>(i), 0, 1, 1);
  }
}

/// Not over a menu or a message, which a reader is reading just now, and never from behind another program's
/// window: what is new then is told when they are gone.
bool Ears::canSpeak() const {
  return QAccessible::isActive() && QApplication::activePopupWidget() == nullptr &&
         QApplication::activeModalWidget() == nullptr && labels_.front()->window()->isActiveWindow();
}

void Ears::whileWorking(const Program& program) {
  if (!QAccessible::isActive()) return;
  if (controlsSeen_ == program.controls.revision() && noticesSeen_ == program.notices.revision()) return;
  whileWaiting(program);
}

void Ears::whileWaiting(const Program& program) {
  if (!canSpeak()) return;
  controlsSeen_ = program.controls.revision();
  noticesSeen_ = program.notices.revision();
  const std::string words = listener_.listen(program);
  if (!words.empty()) say(words);
}

void Ears::say(const std::string& words) {
  QLabel* label = labels_.at(turn_);
  turn_ = 1 - turn_;
  label->setAccessibleName(qString(words));
  QAccessibleEvent turn(label, QAccessible::Focus);
  QAccessible::updateAccessibility(&turn);
}

}  // namespace gridwright
