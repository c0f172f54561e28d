#include "session/heard.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "maze/carve_ways.h"
#include "solve/play.h"
#include "state/grid.h"
#include "state/key_codes.h"

namespace gridwright {

namespace {

constexpr std::array kWayNames = {"left", "right", "up", "down"};

/// Joins what there is to tell.
class Words {
 public:
  void add(const std::string& words) {
    if (!words.empty()) all_ += (all_.empty() ? "" : "; ") + words;
  }
  std::string take() { return std::move(all_); }

 private:
  std::string all_;
};

/// The title bar names the program in front of each caption, and brackets the rest.
std::string bareCaption(std::string_view caption) {
  constexpr std::string_view kBefore = "Gridwright-(";
  if (!caption.starts_with(kBefore) || !caption.ends_with(')')) return std::string(caption);
  caption.remove_prefix(kBefore.size());
  caption.remove_suffix(1);
  return std::string(caption);
}

std::string listed(const std::vector<std::string>& names) {
  std::string words;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) words += i + 1 == names.size() ? " and " : ", ";
    words += names[i];
  }
  return words;
}

std::string oneOf(const Ways& ways, Way which) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < ways.size(); ++i) {
    if (ways.at(i) == which) names.emplace_back(kWayNames.at(i));
  }
  return listed(names);
}

struct PanelOfSwatches {
  ControlId label, firstSwatch;
};
/// The uppermost first: one may lie over the other.
constexpr std::array kPanels = {PanelOfSwatches{ControlId::Label7, ControlId::Check35},
                                PanelOfSwatches{ControlId::Label6, ControlId::Check17},
                                PanelOfSwatches{ControlId::Label5, ControlId::Check1}};
constexpr std::array kTitleButtons = {ControlId::Command2, ControlId::Command3, ControlId::Command7};

HeardChoice choiceOf(const Program& program, ControlId swatch, std::size_t colour) {
  const Control& control = program.controls[swatch];
  if (!control.visible || !control.enabled) return {};
  return {kPaletteNames.at(colour), control.text, control.value != 0};
}

HeardPanel panelOf(const Program& program) {
  HeardPanel panel;
  for (const PanelOfSwatches& p : kPanels) {
    if (!program.controls[p.label].visible) continue;
    panel.prompt = program.controls[p.label].text;
    if (panel.prompt.ends_with(':')) panel.prompt.pop_back();
    for (std::size_t i = 0; i < kPalette.size(); ++i) {
      const auto swatch = static_cast<ControlId>(static_cast<std::size_t>(p.firstSwatch) + i);
      panel.choices.push_back(choiceOf(program, swatch, i));
    }
    return panel;
  }
  return panel;
}

HeardPanel titleOf(const Program& program) {
  HeardPanel panel;
  for (const ControlId button : kTitleButtons) {
    if (program.controls[button].visible) panel.choices.push_back({program.controls[button].text, {}, false});
  }
  panel.prompt = panel.choices.empty() ? "slides; Space shows the next, Escape goes back to the title"
                                       : "title; Tab leads through its buttons";
  return panel;
}

std::string overCanvas(const Program& program) {
  if (program.regions.shown) return program.regions.line;
  if (!program.keys.shown) return {};
  Words all;
  all.add(program.keys.title);
  for (const KeysSheet::Row& row : program.keys.rows) {
    std::string caps;
    for (const std::string& cap : row.caps) caps += cap + " ";
    all.add(caps + row.words);
  }
  all.add("any key goes back");
  return all.take();
}

bool isOwnHands(Status::Tells tells) {
  return tells == Status::Tells::walker || tells == Status::Tells::player;
}

std::string sizeWords(const Cells& cells) {
  if (cells.columns == 1 && cells.rows == 1) return "1 cell";
  return std::to_string(cells.columns) + " x " + std::to_string(cells.rows) + " cells";
}

std::string brushWords(const Status& was, const Status& is, bool all) {
  Words words;
  if (all || was.colour != is.colour) words.add(colourWords(is.colour.value_or(0)));
  const bool sized = was.square.columns != is.square.columns || was.square.rows != is.square.rows;
  const bool moved = was.square.column != is.square.column || was.square.row != is.square.row;
  if (all || sized) words.add(sizeWords(is.square));
  if (all || sized || moved) words.add(rowWords(is.square));
  if (all || was.drawingOff != is.drawingOff) words.add(is.drawingOff ? "drawing off" : "drawing on");
  return words.take();
}

std::string endsWords(const Status& was, const Status& is, bool all) {
  Words words;
  const bool startMoved = all || was.square != is.square;
  if (startMoved && is.square.columns > 0) words.add("start at " + rowWords(is.square));
  if ((all || was.finish != is.finish) && is.finish.columns > 0)
    words.add("finish at " + rowWords(is.finish));
  return words.take();
}

std::string wayWords(const Status& is) {
  return "the way has " + std::to_string(is.wayLength) + (is.wayLength == 1 ? " cell" : " cells");
}

std::string stepsWords(const Status& is) {
  return std::to_string(is.steps) + (is.steps == 1 ? " step" : " steps");
}

/// Where a person who carves or plays has got to; at the beginning also who does it, and whereto.
std::string stepWords(const Heard& now, bool all) {
  Words words;
  const bool plays = now.status.tells == Status::Tells::player;
  if (all && !plays) words.add("you carve");
  words.add(rowWords(now.status.square));
  words.add(waysWords(now.ways.value_or(Ways{})));
  if (all && plays && now.finish) words.add("finish at " + rowWords(*now.finish));
  return words.take();
}

/// What is in hand, all of it or what has changed.
std::string handWords(const Heard& before, const Heard& now, bool all) {
  const Status& was = before.status;
  const Status& is = now.status;
  switch (is.tells) {
    case Status::Tells::brush:
      return brushWords(was, is, all);
    case Status::Tells::walker:
    case Status::Tells::player:
      return all || was.square != is.square || before.ways != now.ways ? stepWords(now, all) : "";
    case Status::Tells::step:
      return all || was.square != is.square ? rowWords(is.square) : "";
    case Status::Tells::ends:
      return endsWords(was, is, all);
    case Status::Tells::way:
      return all ? wayWords(is) : "";
    case Status::Tells::played:
      return all ? stepsWords(is) : "";
    case Status::Tells::computerCarves:
      return all ? "the computer carves" : "";
    case Status::Tells::computerDraws:
    case Status::Tells::computerSolves:
    case Status::Tells::nothing:
      break;
  }
  return {};
}

std::string wallWords(const Status& is) {
  return is.wallSize == 0 ? "" : "walls " + std::to_string(is.wallSize);
}

std::string runWords(const RunStatus& run) {
  if (run.total == 0) return {};
  return std::to_string(run.done) + " of " + std::to_string(run.total) + " mazes done";
}

/// A key of a person who carves or plays that led nowhere.
std::string bumpWords(const Heard& before, const Heard& now) {
  const bool same = before.status.tells == now.status.tells && before.status.square == now.status.square;
  if (now.arrows == before.arrows || !same || !now.ways || now.arrow < step::left) return {};
  return std::string("bump ") + kWayNames.at(static_cast<std::size_t>(now.arrow) - 1) + "; " +
         waysWords(*now.ways);
}

/// Of a panel that opens the choices by what stands on them, and the one that is ticked where one alone is.
std::string openingWords(const HeardPanel& panel) {
  Words words;
  words.add(panel.prompt);
  std::vector<std::string> captions;
  for (const HeardChoice& choice : panel.choices) {
    if (!choice.name.empty() && std::find(captions.begin(), captions.end(), choice.caption) == captions.end())
      captions.push_back(choice.caption);
  }
  for (const std::string& caption : captions) {
    std::vector<std::string> names;
    for (const HeardChoice& choice : panel.choices) {
      if (!choice.name.empty() && choice.caption == caption) names.push_back(choice.name);
    }
    if (!caption.empty()) names = {caption + ": " + listed(names)};
    for (const std::string& name : names) words.add(name);
  }
  const auto isTicked = [](const HeardChoice& choice) { return choice.ticked; };
  const auto ticked = std::find_if(panel.choices.begin(), panel.choices.end(), isTicked);
  if (std::count_if(panel.choices.begin(), panel.choices.end(), isTicked) == 1)
    words.add(ticked->name + " is ticked");
  return words.take();
}

/// A choice that looks different now.
std::string choiceWords(const HeardChoice& was, const HeardChoice& is) {
  std::string words = is.name;
  if (!is.caption.empty()) words += ", " + is.caption;
  if (was.ticked != is.ticked && was.caption == is.caption) words += is.ticked ? ", ticked" : ", not ticked";
  return words;
}

std::string panelWords(const HeardPanel& before, const HeardPanel& now) {
  if (before.prompt != now.prompt) return openingWords(now);
  Words words;
  for (std::size_t i = 0; i < now.choices.size() && i < before.choices.size(); ++i) {
    if (now.choices[i] != before.choices[i]) words.add(choiceWords(before.choices[i], now.choices[i]));
  }
  return words.take();
}

std::string phaseWords(const Heard& before, const Heard& now) {
  Words words;
  const bool captionNew = before.caption != now.caption;
  const bool phaseNew = before.status.tells != now.status.tells || before.status.phase != now.status.phase;
  if (captionNew) words.add(now.caption);
  if (captionNew || phaseNew || before.status.run != now.status.run) words.add(runWords(now.status.run));
  const bool panelClosed = !before.atTitle && !before.panel.prompt.empty();
  const bool all = captionNew || phaseNew || panelClosed;
  if (!captionNew && !phaseNew && before.status.wallSize != now.status.wallSize)
    words.add(wallWords(now.status));
  const std::string bump = all ? "" : bumpWords(before, now);
  words.add(bump.empty() ? handWords(before, now, all) : bump);
  return words.take();
}

/// Whether something has the keyboard that a screen reader reads by itself.
bool readsItself(const Program& program) {
  return program.controls.focus() || program.workshop.open || program.pages.open || program.exporting.open;
}

}  // namespace

std::string rowWords(const Cells& cells) {
  return "row " + std::to_string(cells.row) + ", column " + std::to_string(cells.column);
}

std::string waysWords(const Ways& ways) {
  Words words;
  const std::string open = oneOf(ways, Way::open), tunnels = oneOf(ways, Way::tunnel);
  if (!open.empty()) words.add("open " + open);
  if (!tunnels.empty()) words.add("tunnel " + tunnels);
  const std::string all = words.take();
  return all.empty() ? "closed all round" : all;
}

Heard heardOf(const Program& program) {
  Heard heard;
  heard.atTitle = program.state.phase == Phase::title || program.state.phase == Phase::quitToTitle;
  heard.caption = bareCaption(program.controls.caption());
  heard.status = statusOf(program.state);
  if (heard.status.tells == Status::Tells::walker) heard.ways = waysToCarve(program);
  if (heard.status.tells == Status::Tells::player) {
    heard.ways = waysInPlay(program);
    if (isPlaced(program.state.finish)) heard.finish = cellsOf(program.state, program.state.finish);
  }
  heard.panel = heard.atTitle ? titleOf(program) : panelOf(program);
  heard.over = overCanvas(program);
  heard.notice = program.notices.revision();
  heard.noticeWords = program.notices.words();
  heard.asked = program.hearing.asked;
  heard.arrows = program.hearing.arrows;
  heard.arrow = program.hearing.arrow;
  return heard;
}

std::string surroundingsWords(const Heard& now) {
  Words words;
  words.add(now.caption);
  words.add(runWords(now.status.run));
  words.add(wallWords(now.status));
  words.add(handWords({}, now, true));
  return words.take();
}

std::string heardWords(const Heard& before, const Heard& now) {
  Words words;
  if (before.asked != now.asked) {
    words.add(surroundingsWords(now));
  } else if (now.panel.prompt.empty()) {
    words.add(phaseWords(before, now));
  } else {
    if (now.atTitle && before.caption != now.caption) words.add(now.caption);
    words.add(panelWords(before.panel, now.panel));
  }
  if (before.over != now.over) words.add(now.over);
  if (before.notice != now.notice) words.add(now.noticeWords);
  return words.take();
}

std::string Listener::listen(const Program& program) {
  if (readsItself(program)) return {};
  Heard now = heardOf(program);
  if (now.atTitle) now.notice = heard_.notice;  // it waits until there is room for it
  std::string words = heardWords(heard_, now);
  // What stands under a panel is told when that has gone.
  if (!now.atTitle && !now.panel.prompt.empty()) {
    now.caption = heard_.caption;
    now.status = heard_.status;
    now.ways = heard_.ways;
  }
  heard_ = std::move(now);
  return words;
}

void surroundings(Program& program) { ++program.hearing.asked; }

void noteArrow(Program& program, int code) {
  const int arrow = stepOfArrow(code);
  if (arrow == step::none || !isOwnHands(statusOf(program.state).tells)) return;
  program.hearing.arrow = arrow;
  ++program.hearing.arrows;
}

}  // namespace gridwright
