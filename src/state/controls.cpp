#include "state/controls.h"

#include <algorithm>

namespace gridwright {

std::optional<ControlId> controlNamed(std::string_view name) {
  const auto row = std::find_if(kControlRows.begin(), kControlRows.end(),
                                [&](const ControlRow& candidate) { return candidate.name == name; });
  if (row == kControlRows.end()) return std::nullopt;
  return controlAt(static_cast<std::size_t>(row - kControlRows.begin()));
}

ControlModel::ControlModel() {
  for (std::size_t i = 0; i < kControlCount; ++i) controls_[i].text = kControlRows[i].caption;
  controls_[index(ControlId::Timer1)].enabled = false;
  controls_[index(ControlId::Timer1)].interval = 5000;
  controls_[index(ControlId::Timer2)].enabled = true;
  controls_[index(ControlId::Timer2)].interval = 10000;
}

void ControlModel::setText(ControlId id, std::string_view text) {
  if (controls_[index(id)].text == text) return;
  controls_[index(id)].text = text;
  ++revision_;
}

void ControlModel::setEntries(ControlId id, const std::vector<std::string>& entries) {
  set(controls_[index(id)].entries, entries);
  setSelected(id, -1);
}

void ControlModel::runTimer(ControlId id, bool on) {
  controls_[index(id)].enabled = on;
  ++timerStarts_[index(id)];
  ++revision_;
}

void ControlModel::setFocus(std::optional<ControlId> id) {
  focus_ = id;
  ++revision_;
}

void ControlModel::setCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  ++revision_;
}

}  // namespace gridwright
