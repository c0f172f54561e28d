// What a book says of itself: its title, how many mazes it has, and the options that made it.
#pragma once

#include <cstddef>

#include "platform/book/book_document.h"
#include "platform/book/book_record.h"

namespace gridwright::book {

/// \param mazes how many the document has. The identity is left to the caller.
DocumentWords documentWordsOf(const BookPlan& plan, std::size_t mazes);

}  // namespace gridwright::book
