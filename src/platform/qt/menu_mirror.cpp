#include "platform/qt/menu_mirror.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "platform/qt/key_tips.h"
#include "platform/qt/menu_accessible.h"
#include "platform/qt/panels.h"
#include "session/input.h"
#include "state/shortcuts.h"

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

/// Items that can bear a tick. They keep its place free, so that a menu does not shift when one moves.
constexpr auto kMarkable = std::to_array<Item>({
    Item::whiteground,
    Item::markcolours,
    Item::statusline,
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

/// The titles have their letters from of old; they stand for good.
std::size_t placeInTitle(Item title, const std::string& caption) {
  const auto* mnemonic = std::find_if(kMnemonics.begin(), kMnemonics.end(),
                                      [&](const Mnemonic& candidate) { return candidate.title == title; });
  return mnemonic == kMnemonics.end() ? kNoMnemonic : caption.find(mnemonic->letter);
}

void markMenu(Item parent, const MenuModel& model, MnemonicPlaces& places) {
  std::vector<Item> items;
  std::vector<std::string> captions;
  for (std::size_t row = 0; row < kItemCount; ++row) {
    if (rowOf(itemAt(row)).parent != parent) continue;
    items.push_back(itemAt(row));
    captions.push_back(model.caption(itemAt(row)));
  }
  const std::vector<std::size_t> found = mnemonicPlaces(captions);
  for (std::size_t i = 0; i < items.size(); ++i) places[static_cast<std::size_t>(items[i])] = found[i];
}

QString plain(std::string_view words) { return qString(words).replace("&", "&&"); }

}  // namespace

QString menuText(std::string_view caption, std::size_t mnemonic, std::string_view keys) {
  QString text = plain(caption);
  if (mnemonic != kNoMnemonic)
    text = plain(caption.substr(0, mnemonic)) + "&" + plain(caption.substr(mnemonic));
  if (!keys.empty()) text += "\t" + qString(keys);
  return text;
}

MnemonicPlaces mnemonicsOf(const MenuModel& model) {
  MnemonicPlaces places;
  places.fill(kNoMnemonic);
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    if (rowOf(item).parent == Item::bar) places[row] = placeInTitle(item, model.caption(item));
    if (hasChildren(item)) markMenu(item, model, places);
  }
  return places;
}

MenuMirror::MenuMirror(QMenuBar& bar, InputQueue& inputs) : inputs_(inputs) {
  describeMenuItems();
  std::array<QMenu*, kItemCount> menus{};
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    const Item parent = rowOf(item).parent;
    QMenu* above = parent == Item::bar ? nullptr : menus[static_cast<std::size_t>(parent)];
    const QString text = plain(rowOf(item).caption);
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
  const std::vector<std::size_t> mnemonics = mnemonicPlaces(entries);
  for (std::size_t place = 0; place < entries.size(); ++place) {
    QAction* action = menu->addAction(menuText(entries[place], mnemonics[place], {}));
    QObject::connect(action, &QAction::triggered, menu, [this, item, entry = static_cast<int>(place)] {
      inputs_.byPerson([item, entry](Program& program) { input::menuEntryClick(program, item, entry); });
    });
  }
  if (entries.empty()) menu->addAction("nothing yet")->setEnabled(false);
}

/// Marks depend on captions alone, and those seldom change.
void MenuMirror::markAnew(const MenuModel& model) {
  bool same = true;
  for (std::size_t row = 0; row < kItemCount; ++row) {
    if (captions_[row] == model.caption(itemAt(row))) continue;
    captions_[row] = model.caption(itemAt(row));
    same = false;
  }
  if (!same) mnemonics_ = mnemonicsOf(model);
}

void MenuMirror::mirror(const MenuModel& model) {
  if (shown_ == model.revision()) return;
  shown_ = model.revision();
  markAnew(model);
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    QAction& action = *actions_[row];
    const QString text = menuText(model.caption(item), mnemonics_[row], keysOfItem(model, item));
    if (action.text() != text) action.setText(text);
    const QString tip = QString::fromStdString(model.tip(item));
    if (action.statusTip() != tip) {
      action.setStatusTip(tip);
      action.setToolTip(tip.isEmpty() ? qString(model.caption(item)) : tip);
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
