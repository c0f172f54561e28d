#include "printing/run_words.h"

#include "menus/menu_rules.h"

namespace gridwright {

namespace {

std::string mazes(int count) { return std::to_string(count) + (count == 1 ? " maze" : " mazes"); }

}  // namespace

void tellRun(Program& program) {
  const ProgramState& s = program.state;
  if (s.print.printMode == PrintMode::none) return;
  if (runWaitsForMaze(s)) {
    const bool answers = s.print.printMode == PrintMode::withAnswers;
    program.notices.tell(mazes(s.print.printTotal) + (answers ? " with" : " without") +
                         " answers will be printed");
  } else {
    program.notices.tell("maze " + std::to_string(s.print.printedCount + 1) + " of " +
                         std::to_string(s.print.printTotal));
  }
}

std::string runEndWords(const ProgramState& state) {
  const std::string total =
      mazes(state.print.printTotal) + (state.print.printTotal == 1 ? " is" : " are") + " printed";
  return state.print.printedCount < state.print.printTotal
             ? std::to_string(state.print.printedCount) + " of " + total
             : total;
}

std::string answersLeftOutWords(const ProgramState& state) {
  const int without = state.print.withoutAnswer;
  if (without == 0) return {};
  return "; " + std::to_string(without) + (without == 1 ? " has" : " have") +
         " no answer, because no way leads from start to finish";
}

void tellPrinted(Program& program, const std::string& what, const Outcome<PagesWent>& went,
                 const std::string& more) {
  if (!went) return;
  const PagesWent& pages = went.value();
  program.notices.tell((pages.where.empty() ? what : what + " " + pages.where) + more, pages.file);
}

}  // namespace gridwright
