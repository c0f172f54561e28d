#include "session/slideshow.h"

#include <string>

#include "session/title.h"
#include "state/key_codes.h"

namespace gridwright {

namespace {

constexpr int kExamples = 11;
constexpr int kSlides = 13;
constexpr int kSlideTime = 5000;  // milliseconds
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;

std::string slideName(int slide) {
  return slide <= kExamples ? "example" + std::to_string(slide) + ".bmp"
                            : "credit" + std::to_string(slide - kExamples) + ".bmp";
}

/// A slide of the working folder, else the one beside the installed program.
bool showSlide(Program& program) {
  const std::string name = slideName(program.state.session.slideIndex);
  auto picture = program.platform.loadBitmap(program.files->resolve(name));
  if (!picture) picture = loadContent(program, name);
  if (picture) program.canvas.setPicture(picture.value());
  return static_cast<bool>(picture);
}

void backToTitle(Program& program, bool withButtons) {
  program.controls.runTimer(ControlId::Timer1, false);
  program.controls.runTimer(ControlId::Timer2, true);
  program.canvas.setPicture(program.pictures.load("title.bmp"));
  if (withButtons) showTitleButtons(program);
}

void advance(Program& program, bool byMouse) {
  ProgramState& s = program.state;
  program.controls.setInterval(ControlId::Timer1, kSlideTime);
  if (byMouse) program.controls.runTimer(ControlId::Timer1, true);  // the wait starts over
  do {
    if (++s.session.slideIndex > kSlides) return backToTitle(program, !byMouse || !s.paused);
  } while (!showSlide(program));  // a missing slide is passed over
}

void beginShow(Program& program) {
  program.state.session.slideIndex = 1;
  program.controls.runTimer(ControlId::Timer1, true);
  program.controls.runTimer(ControlId::Timer2, false);
  if (!showSlide(program)) program.controls.setInterval(ControlId::Timer1, 0);  // the show stands
  hideTitleButtons(program);
}

bool runs(const Program& program, ControlId timer) {
  return program.controls[timer].enabled && program.controls[timer].interval > 0;
}

}  // namespace

void command3(Program& program) { beginShow(program); }

void slideTimer(Program& program, ControlId timer) {
  if (!runs(program, timer)) return;
  if (timer == ControlId::Timer2) beginShow(program);
  if (timer == ControlId::Timer1) advance(program, false);
}

void slideMouse(Program& program, int button) {
  const ProgramState& s = program.state;
  const bool showRuns = s.phase == Phase::title && !program.controls[ControlId::Timer2].enabled;
  if (button == kLeftButton && showRuns) backToTitle(program, !s.paused);
  if (button == kRightButton && program.controls[ControlId::Timer1].enabled) advance(program, true);
}

void slideKey(Program& program, int code) {
  if (code == key::escape) slideMouse(program, kLeftButton);
  if (code == key::space) slideMouse(program, kRightButton);
}

}  // namespace gridwright
