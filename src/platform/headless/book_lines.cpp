// The line of a script that says what book is wanted; `accept` makes it, before the next line is read.
#include "platform/book/book_maker.h"
#include "platform/headless/headless_desktop.h"
#include "session/book_panel.h"
#include "session/input.h"
#include "state/program.h"

namespace gridwright {

HeadlessDesktop::Turn HeadlessDesktop::book(Program& program, const ScriptLine& line) {
  if (!program.book.open && !program.menus.available(Item::makebook))
    refuse("makebook is disabled or hidden");
  if (line.words.size() != 1) refuse("not understood: " + line.words[1]);
  const auto words = shellWords(text());
  holdUnderstood(words ? std::string() : words.fault().words);
  if (!program.book.open) input::menuClick(program, Item::makebook);
  const auto wish = bookWishOf(words.value(), program.book.wish);
  holdUnderstood(wish ? std::string() : wish.fault().words);
  input::bookFilled(program, wish.value());
  return Turn::givePump;
}

Outcome<Done> HeadlessDesktop::makeBook(Program& program, const BookOrder& order) {
  options_.beforePictures();
  book::BookMaker maker([] {});
  auto begun = maker.begin(order);
  if (!begun) return begun;
  maker.wait();
  bookNews(program, maker.takeNews());
  return Done{};
}

}  // namespace gridwright
