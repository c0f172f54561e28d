#include "platform/qt/menu_mirror.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "platform/qt/key_tips.h"
#include "session/input.h"

namespace gridwright {

namespace {

struct Mnemonic {
  Item title;
  char letter;
};
constexpr std::array kMnemonics = {Mnemonic{Item::filet, 'F'},        Mnemonic{Item::drawingt, 'O'},
                                   Mnemonic{Item::printoptions, 'P'}, Mnemonic{Item::maze, 'M'},
                                   Mnemonic{Item::mazemodes, 'S'},    Mnemonic{Item::patterns, 't'},
                                   Mnemonic{Item::help, 'I'}};

struct Keys {
  Item item;
  const char* words;
};
constexpr std::array kKeys = {Keys{Item::openpicture, "Ctrl+O"}, Keys{Item::pastepicture, "Ctrl+V"},
                              Keys{Item::workshop, "Ctrl+D"}, Keys{Item::undo, "Ctrl+Z"},
                              Keys{Item::redo, "Ctrl+Shift+Z"}};

/// Items that can bear a tick. They keep its place free, so that a menu does not shift when one moves.
constexpr auto kMarkable = std::to_array<Item>({
    Item::whiteground,
    Item::createreg,
    Item::create3d,
    Item::create3dpipe,
    Item::drawingon,
    Item::drawingoff,
    Item::turnsoff,
    Item::horizontal,
    Item::vertical,
    Item::way4,
    Item::ugenerate,
    Item::cgenerate,
    Item::playmodeoff,
    Item::easymode,
    Item::hardmode,
    Item::leavetrail,
    Item::userplace,
    Item::largestsolution,
    Item::includeunderpasses,
    Item::mostunderpasses,
    Item::pnormal,
    Item::plarge,
    Item::mode1,
    Item::mode2,
    Item::mode3,
    Item::mode4,
    Item::mode5,
    Item::mode6,
    Item::pthick,
    Item::pthin,
    Item::aon,
    Item::aoff,
    Item::dontusepattern,
    Item::usepattern,
    Item::crnd1,
    Item::maxrnd,
    Item::usernd,
    Item::gofinish,
    Item::stopfinish,
});

bool isMarkable(Item item) { return std::find(kMarkable.begin(), kMarkable.end(), item) != kMarkable.end(); }

}  // namespace

QString menuText(Item item, std::string_view caption) {
  QString text = QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
  const auto* mnemonic = std::find_if(kMnemonics.begin(), kMnemonics.end(),
                                      [&](const Mnemonic& candidate) { return candidate.title == item; });
  const qsizetype place = mnemonic == kMnemonics.end() ? -1 : text.indexOf(QLatin1Char(mnemonic->letter));
  const qsizetype ampersands = place < 0 ? 0 : text.left(place).count('&');
  text.replace("&", "&&");
  if (place >= 0) text.insert(place + ampersands, '&');
  const auto* keys =
      std::find_if(kKeys.begin(), kKeys.end(), [&](const Keys& candidate) { return candidate.item == item; });
  if (keys != kKeys.end()) text += QString("\t") + keys->words;
  return text;
}

MenuMirror::MenuMirror(QMenuBar& bar, InputQueue& inputs) : inputs_(inputs) {
  std::array<QMenu*, kItemCount> menus{};
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    const Item parent = rowOf(item).parent;
    QMenu* above = parent == Item::bar ? nullptr : menus[static_cast<std::size_t>(parent)];
    const QString text = menuText(item, rowOf(item).caption);
    if (hasChildren(item) || hasEntries(item)) {
      menus[row] = above == nullptr ? bar.addMenu(text) : above->addMenu(text);
      menus[row]->setToolTipsVisible(true);
      actions_[row] = menus[row]->menuAction();
    } else {
      actions_[row] = above == nullptr ? bar.addAction(text) : above->addAction(text);
      QObject::connect(actions_[row], &QAction::triggered, &bar, [this, item] { chosen(item); });
    }
    const auto name = rowOf(item).name;
    actions_[row]->setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    actions_[row]->setCheckable(isMarkable(item));
  }
  QObject::connect(menus[static_cast<std::size_t>(Item::filet)], &QMenu::aboutToShow, &bar,
                   [this] { inputs_.byPerson(input::menuLookedAt); });
  auto* tips = new KeyTips(&bar);
  for (QMenu* menu : menus) {
    if (menu != nullptr) tips->watch(*menu);
  }
}

void MenuMirror::chosen(Item item) {
  const auto row = static_cast<std::size_t>(item);
  actions_[row]->setChecked(marked_[row]);
  inputs_.byPerson([item](Program& program) { input::menuClick(program, item); });
}

void MenuMirror::listEntries(Item item, const std::vector<std::string>& entries) {
  const auto row = static_cast<std::size_t>(item);
  QMenu* menu = actions_[row]->menu();
  if (entries_[row] == entries && !menu->isEmpty()) return;
  entries_[row] = entries;
  menu->clear();
  int place = 0;
  for (const std::string& words : entries) {
    QAction* action = menu->addAction(QString::fromStdString(words).replace("&", "&&"));
    QObject::connect(action, &QAction::triggered, menu, [this, item, entry = place++] {
      inputs_.byPerson([item, entry](Program& program) { input::menuEntryClick(program, item, entry); });
    });
  }
  if (entries.empty()) menu->addAction("nothing yet")->setEnabled(false);
}

void MenuMirror::mirror(const MenuModel& model) {
  if (shown_ == model.revision()) return;
  shown_ = model.revision();
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    QAction& action = *actions_[row];
    const QString text = menuText(item, model.caption(item));
    if (action.text() != text) action.setText(text);
    const QString tip = QString::fromStdString(model.tip(item));
    if (action.statusTip() != tip) {
      action.setStatusTip(tip);
      action.setToolTip(tip.isEmpty() ? text : tip);
    }
    marked_[row] = model.checked(item);
    if (marked_[row]) action.setCheckable(true);
    action.setChecked(marked_[row]);
    action.setEnabled(model.enabled(item));
    action.setVisible(model.visible(item));
    if (hasEntries(item)) listEntries(item, model.entries(item));
  }
}

}  // namespace gridwright
