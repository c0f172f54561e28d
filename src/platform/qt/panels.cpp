#include "platform/qt/panels.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/qt/swatch_button.h"
#include "platform/qt/swatch_frame.h"

namespace gridwright {

namespace {

constexpr int kTextPanelWidth = 440;
constexpr int kListHeight = 200;
constexpr int kSwatchColumns = 8;

QWidget*& widgetOf(ControlWidgets& widgets, ControlId id) { return widgets[static_cast<std::size_t>(id)]; }

/// The word of a button's caption whose first letter opens it.
struct Mnemonic {
  ControlId button;
  const char* word;
};
constexpr std::array kMnemonics = {
    Mnemonic{ControlId::Command1, "Done"}, Mnemonic{ControlId::Command2, "Begin"},
    Mnemonic{ControlId::Command3, "examples"}, Mnemonic{ControlId::Command7, "Quit"}};

/// The model ticks it, not the click.
class ObedientCheckBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void nextCheckState() override {}
};

template <class T>
T* named(T* widget, ControlId id, ControlWidgets& widgets) {
  widget->setObjectName(qString(rowOf(id).name));
  widget->hide();
  widgetOf(widgets, id) = widget;
  return widget;
}

QLabel* prompt(ControlId id, PanelFrame* frame, ControlWidgets& widgets) {
  auto* label = named(new QLabel(qString(rowOf(id).caption), frame), id, widgets);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QWidget* sixteenSwatches(const SwatchPanel& panel, SwatchFrame* frame, ControlWidgets& widgets) {
  auto* plate = new QWidget(frame);
  auto* grid = new QGridLayout(plate);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(SwatchFrame::kBetweenStops);
  for (int i = 0; i < 16; ++i) {
    const auto id = static_cast<ControlId>(static_cast<int>(panel.firstSwatch) + i);
    auto* swatch = named(new SwatchButton(i, plate), id, widgets);
    frame->addStop(swatch);
    grid->addWidget(swatch, i / kSwatchColumns, i % kSwatchColumns);
  }
  return plate;
}

}  // namespace

QString qString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString buttonText(ControlId id, std::string_view caption) {
  QString text = qString(caption).replace("&", "&&");
  const auto* row = std::find_if(kMnemonics.begin(), kMnemonics.end(),
                                 [&](const Mnemonic& candidate) { return candidate.button == id; });
  if (row == kMnemonics.end()) return text;
  const qsizetype place = text.indexOf(row->word);
  return place < 0 ? text : text.insert(place, '&');
}

void onEnter(QWidget& page, std::function<void()> accept) {
  const auto enter = [&page, accept = std::move(accept)] {
    auto* button = dynamic_cast<QPushButton*>(page.window()->focusWidget());
    button == nullptr ? accept() : button->click();
  };
  for (const auto code : {Qt::Key_Return, Qt::Key_Enter})
    QObject::connect(new QShortcut(code, &page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
                     &QShortcut::activated, &page, enter);
}

void onEscape(QWidget& page, std::function<void()> cancel) {
  QObject::connect(new QShortcut(Qt::Key_Escape, &page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
                   &QShortcut::activated, &page, std::move(cancel));
}

PanelFrame::PanelFrame(QWidget* parent) : QFrame(parent) {
  setFrameStyle(QFrame::Panel | QFrame::Raised);
  setLineWidth(2);
  setAutoFillBackground(true);
  setAttribute(Qt::WA_NoMousePropagation);
  hide();
}

EntryBox::EntryBox(QWidget* parent) : QLineEdit(parent) {
  setPlaceholderText("Enter accepts, Escape cancels");
  setAccessibleDescription(placeholderText());
}

namespace {

/// The keys that box and list share. \returns whether this is one of them.
template <class Entry>
bool sharedKey(Entry& entry, QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (entry.onEnter) entry.onEnter();
      break;
    case Qt::Key_Escape:
      if (entry.onEscape) entry.onEscape();
      break;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (entry.onStep) entry.onStep(event.key() == Qt::Key_Up ? -1 : 1);
      break;
    default:
      return false;
  }
  event.accept();
  return true;
}

}  // namespace

void EntryBox::keyPressEvent(QKeyEvent* event) {
  if (!sharedKey(*this, *event)) QLineEdit::keyPressEvent(event);
}

bool EntryBox::focusNextPrevChild(bool /*next*/) {
  if (onTab) onTab();
  return static_cast<bool>(onTab);
}

EntryList::EntryList(QWidget* parent) : QListWidget(parent) { setFocusPolicy(Qt::TabFocus); }

void EntryList::keyPressEvent(QKeyEvent* event) { sharedKey(*this, *event); }

bool EntryList::focusNextPrevChild(bool /*next*/) {
  if (onTab) onTab();
  return static_cast<bool>(onTab);
}

PanelFrame* buildTextPanel(const TextPanel& panel, QWidget* parent, ControlWidgets& widgets) {
  auto* frame = new PanelFrame(parent);
  frame->setFixedWidth(kTextPanelWidth);
  auto* column = new QVBoxLayout(frame);
  auto* label = prompt(panel.label, frame, widgets);
  auto* box = named(new EntryBox(frame), panel.box, widgets);
  box->setAccessibleName(label->text());
  label->setBuddy(box);
  column->addWidget(label);
  column->addWidget(box);
  if (!panel.list) return frame;
  auto* list = named(new EntryList(frame), *panel.list, widgets);
  list->setAccessibleName(label->text());
  list->setFixedHeight(kListHeight);
  column->addWidget(list);
  return frame;
}

SwatchFrame* buildSwatchPanel(const SwatchPanel& panel, QWidget* parent, ControlWidgets& widgets) {
  auto* frame = new SwatchFrame(parent);
  auto* column = new QVBoxLayout(frame);
  column->addWidget(prompt(panel.label, frame, widgets));
  column->addWidget(sixteenSwatches(panel, frame, widgets));
  if (!panel.classifies) return frame;
  auto* row = new QHBoxLayout;
  auto* choices = new QVBoxLayout;
  choices->setSpacing(SwatchFrame::kBetweenStops);
  for (const ControlId id : {ControlId::Check33, ControlId::Check34}) {
    auto* choice = named(new ObedientCheckBox(qString(rowOf(id).caption), frame), id, widgets);
    frame->addStop(choice);
    choices->addWidget(choice, 0, Qt::AlignLeft);  // no wider than it looks: arrows go by where things lie
  }
  row->addLayout(choices, 1);
  auto* done = named(new QPushButton(frame), ControlId::Command1, widgets);
  frame->addStop(done);
  row->addWidget(done);
  column->addLayout(row);
  return frame;
}

}  // namespace gridwright
