// What a script may expect of the program.
#include <filesystem>
#include <system_error>

#include "menus/growth.h"
#include "platform/headless/headless_desktop.h"
#include "session/workshop.h"
#include "state/program.h"

namespace gridwright {

HeadlessDesktop::Turn HeadlessDesktop::expect(Program& program, const ScriptLine& line) {
  const std::string& what = word(1);
  if (what == "caption") {
    compare("the caption", program.controls.caption(), text());
  } else if (what == "menu") {
    expectMenu(program);
  } else if (what == "control") {
    expectControl(program);
  } else if (what == "text") {
    expectText(program);
  } else if (what == "message") {
    compare("the last message", lastMessage_, text());
  } else if (what == "notice") {
    compare("the last notice", program.notices.words(), text());
  } else if (what == "status") {
    compare("the status", statusWords(statusOf(program.state, {growthOfMaze(program), {}})), text());
  } else if (what == "heard") {
    compare("what is heard", ears_.listen(program), text());
  } else if (what == "pixel") {
    expectPixel(program);
  } else if (what == "copied") {
    expectCopied();
  } else if (what == "pages") {
    if (pages_ != number(2)) fail("it is " + std::to_string(pages_));
  } else if (what == "file") {
    std::error_code failed;
    if (!std::filesystem::exists(program.files->resolve(line.hasText ? line.text : word(2)), failed)) {
      fail("it is not there");
    }
  } else if (const FieldName* field = fieldNamed(what)) {
    if (field->read(program) != number(2)) fail("it is " + std::to_string(field->read(program)));
  } else {
    refuse("no such field: " + what);
  }
  return Turn::again;
}

void HeadlessDesktop::expectPixel(const Program& program) {
  const Colour colour = program.canvas.shownPoint(static_cast<int>(number(2)), static_cast<int>(number(3)));
  if (colour != number(4)) fail("it is " + std::to_string(colour));
}

void HeadlessDesktop::expectCopied() const {
  const auto size = sizeWord(word(2));
  if (!size) refuse(size.fault().words);
  const auto [width, height] = size.value();
  if (copied_ != Size{width, height})
    fail("it is " + std::to_string(copied_.width) + "x" + std::to_string(copied_.height));
}

void HeadlessDesktop::expectMenu(const Program& program) {
  const auto item = itemNamed(word(2));
  if (!item) refuse("no such menu item: " + word(2));
  const MenuModel& menus = program.menus;
  const std::string& state = word(3);
  const bool holds = state == "enabled"     ? menus.enabled(*item)
                     : state == "disabled"  ? !menus.enabled(*item)
                     : state == "visible"   ? menus.visible(*item)
                     : state == "hidden"    ? !menus.visible(*item)
                     : state == "checked"   ? menus.checked(*item)
                     : state == "unchecked" ? !menus.checked(*item)
                                            : (refuse("no such state: " + state), false);
  if (!holds) fail("it is not");
}

void HeadlessDesktop::expectControl(const Program& program) {
  const auto id = controlNamed(word(2));
  if (!id) refuse("no such control: " + word(2));
  const Control& control = program.controls[*id];
  const std::string& state = word(3);
  const bool holds = state == "enabled"     ? control.enabled
                     : state == "disabled"  ? !control.enabled
                     : state == "visible"   ? control.visible
                     : state == "hidden"    ? !control.visible
                     : state == "checked"   ? control.value == 1
                     : state == "unchecked" ? control.value == 0
                                            : (refuse("no such state: " + state), false);
  if (!holds) fail("it is not");
}

void HeadlessDesktop::expectText(Program& program) {
  if (word(2) == "prepareline") {
    compare("the line", program.prepare.line, text());
  } else if (word(2) == "sheetline") {
    countSheet(program);
    compare("the line", program.workshop.line, text());
  } else if (word(2) == "sheetnote") {
    compare("the note", sheetNote(program), text());
  } else if (const auto item = itemNamed(word(2))) {
    compare("the caption", program.menus.caption(*item), text());
  } else if (const auto id = controlNamed(word(2))) {
    compare("the text", program.controls[*id].text, text());
  } else {
    refuse("no such item or control: " + word(2));
  }
}

}  // namespace gridwright
