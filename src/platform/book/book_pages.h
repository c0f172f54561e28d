// From made mazes to the files of a book.
//
//   BookPages pages(plan, run);
//   pages.take(made);                // by any thread, whenever a maze is made
//   pages.finish(list, run, stop);   // once, when all are
#pragma once

#include "canvas/outcome.h"
#include "platform/book/bare_store.h"
#include "platform/book/book_document.h"
#include "platform/book/book_record.h"
#include "platform/book/new_files.h"

namespace gridwright::book {

class BookPictures;
class PartDocument;

class BookPages {
 public:
  /// Bare pages wait in a file without a name in the folder of the run's book. The folders of all its files
  /// are held from now on.
  /// \param pictures take each maze too, and their names with the files of the book; null for none.
  BookPages(BookPlan plan, const BookRun& run, BookPictures* pictures = nullptr);

  /// Turns a maze into its bare page and keeps that. Threads may do so at once, and do the work beside each
  /// other. \returns a Fault where the disk takes no more.
  Outcome<Done> take(const MadeMaze& made);
  /// The same for all mazes of a part.
  Outcome<Done> take(const PartDocument& part);

  /// Puts the list's mazes into the order of the book, sets the pages of each and why it is pixels, and
  /// writes the run's files: the book, or the part if `list.part` is one, the answers, the list. All or none
  /// of them is there afterwards. Needs an application object, for fonts.
  Outcome<Done> finish(BookList& list, const BookRun& run, const IsStopped& isStopped) const;

 private:
  const BookPlan plan_;
  const HeldFiles places_;
  BareStore store_;
  BookPictures* pictures_;
};

/// Lays out the book of all parts that `run.join` names.
/// \returns its list, or a Fault that names the part that does not fit; nothing is written then.
Outcome<BookList> joinBook(const BookRun& run, const IsStopped& isStopped);

}  // namespace gridwright::book
