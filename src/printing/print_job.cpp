#include "printing/print_job.h"

#include <algorithm>
#include <string>

#include "menus/menu_rules.h"
#include "menus/panels.h"
#include "printing/page.h"
#include "printing/run_words.h"
#include "solve/finish_search.h"
#include "solve/firstnoxy.h"
#include "solve/play.h"

namespace gridwright {

namespace {

constexpr int kMostMazes = 9999;

void ask(Program& program, PrintMode kind) {
  ProgramState& s = program.state;
  const bool solving = s.phase == Phase::solving;
  s.print.trailOffAtPrint = solving && s.trailOff;
  s.print.playModeAtPrint = solving ? s.playMode : PlayMode::off;
  s.print.printKindSaved = s.print.printKindPending;
  s.print.printKindPending = kind;
  openPanelOverScreen(program, kPrintPanel, "");
}

void countMaze(ProgramState& s) {
  if (s.print.printedCount < s.print.printTotal) ++s.print.printedCount;
}

void goOnToNextMaze(ProgramState& s) {
  s.phase = Phase::making;
  countMaze(s);
}

/// A page that cannot be kept ends the job, which tells it. \returns whether it was kept.
bool printPage(Program& program, bool isAnswer) {
  const Page page = pageOf(program, {program.state.print.printedCount + 1, isAnswer});
  if (program.platform.printForm(page.view(), page.look())) return true;
  endJob(program);
  return false;
}

}  // namespace

void printwithsolutions(Program& program) { ask(program, PrintMode::withAnswers); }
void printnosolutions(Program& program) { ask(program, PrintMode::withoutAnswers); }

void printPanelKey(Program& program) {
  const ProgramState& s = program.state;
  const bool playWasStopped = s.phase == Phase::solving && s.print.trailOffAtPrint &&
                              s.print.playModeAtPrint != PlayMode::off && s.playMode == PlayMode::off;
  if (!playWasStopped || isSearching(s)) return;
  restartWalk(program);
  keepWalkFromStart(program);
  program.canvas.setAutoRedraw(false);  // until the panel goes, which then gives back
  program.state.panels.panelKeptRedraw = true;
}

void printEntered(Program& program) {
  ProgramState& s = program.state;
  const int mazes = std::clamp(numberTyped(program.controls[ControlId::Text3].text), 0, kMostMazes);
  closePanel(program, kPrintPanel);
  s.print.printedCount = 0;
  s.print.printTotal = mazes;
  if (mazes != 0) {
    s.print.printMode = s.print.printKindPending;
    program.menus.setVisible(Item::printing, true);
    program.menus.setEnabled(Item::printing, true);
    const bool answers = s.print.printMode == PrintMode::withAnswers;
    markOne(program.menus, {Item::printwithsolutions, Item::printnosolutions},
            answers ? Item::printwithsolutions : Item::printnosolutions);
    printStatus(program);
    tellRun(program);
  } else {
    program.notices.tell("Nothing to print: no number above 0 was typed");
  }
  s.print.printKindPending = s.print.printKindSaved;
}

void printEscaped(Program& program) {
  closePanel(program, kPrintPanel);
  program.state.print.printKindPending = program.state.print.printKindSaved;
}

void endJob(Program& program) {
  ProgramState& s = program.state;
  const bool active = s.print.printMode != PrintMode::none;
  const std::string ended = runEndWords(s);
  const std::string leftOut = answersLeftOutWords(s);
  s.print.printMode = PrintMode::none;
  s.print.printTotal = s.print.printedCount = s.print.withoutAnswer = 0;
  s.print.printedNow = false;
  printmenus(program);
  if (active) tellPrinted(program, ended, program.platform.endOfPages(), leftOut);
}

void stopallprintings(Program& program) { endJob(program); }

void endJobWhenDone(Program& program) {
  const ProgramState& s = program.state;
  if (s.print.printMode != PrintMode::none && s.print.printedCount >= s.print.printTotal) endJob(program);
}

bool printPlacedMaze(Program& program) {
  ProgramState& s = program.state;
  if (s.print.printMode == PrintMode::none || !printPage(program, false)) return false;
  s.print.printedNow = true;
  s.ends.savedFinish = s.finish;
  if (s.print.printMode == PrintMode::withAnswers) {
    s.phase = Phase::solving;
  } else {
    goOnToNextMaze(s);
  }
  return true;
}

bool printSolvedMaze(Program& program) {
  ProgramState& s = program.state;
  if (!answerIsDue(s) || !printPage(program, true)) return false;
  goOnToNextMaze(s);
  return true;
}

bool leaveAnswerOut(Program& program) {
  ProgramState& s = program.state;
  if (!answerIsDue(s)) return false;
  ++s.print.withoutAnswer;
  goOnToNextMaze(s);
  return true;
}

}  // namespace gridwright
