// The words of a book's pages as a document of their own, in which each font stands once.
#pragma once

#include <string>
#include <vector>

#include "platform/book/book_document.h"
#include "platform/book/page_plan.h"

namespace gridwright::book {

/// A document with a page for each of the planned ones, and on it title, captions, page number and the line
/// for a name. It knows nothing of the mazes yet. Qt sets it, so that text of any language is text; that
/// needs an application object, for its fonts. Its pages are whole points high: measured from their lower
/// edge everything stands where it is planned.
/// \param isStopped asked before each page; once it is true, that page and those behind it are left out.
std::string wordPagesOf(const PlannedDocument& document, const BookPlan& plan,
                        const std::vector<MazeRecord>& mazes, const IsStopped& isStopped = {});

}  // namespace gridwright::book
