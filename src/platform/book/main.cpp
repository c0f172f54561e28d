// gridwright-book: mazes in pictures as a book that a printer takes.
#include <unistd.h>

#include <QGuiApplication>
#include <iostream>
#include <string>
#include <vector>

#include "platform/book/book_options.h"
#include "platform/book/run_book.h"
#include "platform/pictures/offscreen.h"
#include "platform/shared/freed_memory.h"

int main(int argc, char** argv) {
  using namespace gridwright;
  using namespace gridwright::book;
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (const auto said = saidInstead(words)) {
    std::cout << *said << std::endl;
    return std::cout ? kDone : kNotAllDone;
  }
  keepFreedMemory();
  const auto application = applicationWithoutScreen("gridwright-book");
  return runBook(words, {std::cout, std::cerr, ::isatty(STDERR_FILENO) == 1});
}
