// The panel that makes a book of mazes, and the book that is made beside the program.
//
// "Make" writes the drawing, and the sheet of the workshop, where they are wanted as pictures, to free names
// of the working folder, and hands the words of a command line to the desktop, which does what
// gridwright-book does with them. What was written for a book goes again where the book is not made.
#pragma once

#include <string>

#include "state/program.h"

namespace gridwright {

/// "Make a book…": the panel opens with what was wanted last, a new seed and a free name, and holds the
/// program.
void makebook(Program& program);

/// The panel shows this wish. Nothing while it is closed.
void fillBook(Program& program, const BookWish& wish);

/// "Make": the book is begun and the panel closes; or the panel stays, says in one line why not, and nothing
/// has changed. Nothing while it is closed.
void acceptBook(Program& program, const BookWish& wish);

/// The panel closes; a book that is being made goes on.
void leaveBook(Program& program);

/// The command line that makes the same book, to be copied: the files that it names are written first, and
/// stay. \returns an empty one where they could not be, as the panel says then, or while it is closed.
std::string takeBookLine(Program& program, const BookWish& wish);

/// What the desktop has to tell of the book that is being made.
void bookNews(Program& program, BookNews news);

/// The book that is being made ends without a file, soon.
void cancelBook(Program& program);

/// The pages made so far are shown, or no more.
void showBookPages(Program& program, bool shown);

/// The program ends: so does the book that is being made, at once, and leaves no file.
void giveUpBook(Program& program);

}  // namespace gridwright
