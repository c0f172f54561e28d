// What a screen reader is given to speak.
//
// Readers of our time drop what a description, a name or an alert of something that has the keyboard already
// would tell them; what they do speak is something else that gets it. So two labels take turns: each bears
// new words when its turn comes, and says that it has the keyboard now. The widget that really has it keeps
// it.
#pragma once

#include <QLabel>
#include <QString>
#include <array>
#include <cstddef>

#include "session/heard.h"

namespace gridwright {

class Ears {
 public:
  /// Puts both labels into the window, where nobody sees them.
  explicit Ears(QWidget* window);

  /// While the program works: tells a caption or a notice that is new. Costs one look at a flag where nobody
  /// listens, and at two numbers where somebody does.
  void whileWorking(const Program& program);

  /// While the program waits for a person: tells all that is new.
  void whileWaiting(const Program& program);

 private:
  void say(const std::string& words);
  [[nodiscard]] bool canSpeak() const;

  std::array<QLabel*, 2> labels_{};
  std::size_t turn_ = 0;
  Listener listener_;
  std::uint64_t controlsSeen_ = 0, noticesSeen_ = 0;
};

}  // namespace gridwright
