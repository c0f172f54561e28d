// gridwright-book: mazes in pictures as a book that a printer takes.
#include <unistd.h>

#include <QGuiApplication>
#include <iostream>
#include <string_view>

#include "platform/book/book_options.h"
#include "platform/book/run_book.h"
#include "platform/pictures/offscreen.h"
#include "platform/shared/freed_memory.h"

int main(int argc, char** argv) {
  using namespace gridwright;
  using namespace gridwright::book;
  const auto say = [](std::string_view words) {
    std::cout << words << std::endl;
    return std::cout ? kDone : kNotAllDone;
  };
  if (argc == 2 && argv[1] == std::string_view("--help")) return say(bookUsage());
  if (argc == 2 && argv[1] == std::string_view("--version"))
    return say("gridwright-book " GRIDWRIGHT_VERSION);
  keepFreedMemory();
  const auto application = applicationWithoutScreen("gridwright-book");
  return runBook({argv + 1, argv + argc}, {std::cout, std::cerr, ::isatty(STDERR_FILENO) == 1});
}
