// What a person did and what timers did, on the way from Qt's event handlers to the program.
//
// Handlers only note it down; the pump hands it over when Qt has come back. So the program never runs
// inside an event handler: it may end itself by an exception, show a message or wait for the window to
// be maximised, and no event loop is ever nested in another.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "state/program.h"

namespace gridwright {

class InputQueue {
 public:
  using Report = std::function<void(Program&)>;

  void byPerson(Report report) { waiting_.push_back({true, std::move(report)}); }
  void byTimer(Report report) { waiting_.push_back({false, std::move(report)}); }

  [[nodiscard]] bool empty() const { return waiting_.empty(); }

  /// Hands over what waits, in order; without `persons` only what timers did, and the rest goes on
  /// waiting. \returns whether anything was handed over.
  bool deliver(Program& program, bool persons) {
    std::vector<Entry> taken;
    taken.swap(waiting_);
    bool any = false;
    std::vector<Entry> held;
    for (Entry& entry : taken) {
      if (entry.person && !persons) {
        held.push_back(std::move(entry));
        continue;
      }
      any = true;
      entry.report(program);
    }
    waiting_.insert(waiting_.begin(), std::make_move_iterator(held.begin()),
                    std::make_move_iterator(held.end()));
    return any;
  }

 private:
  struct Entry {
    bool person;
    Report report;
  };
  std::vector<Entry> waiting_;
};

}  // namespace gridwright
