// The document of a book: its bare pages placed on the pages of words.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "canvas/outcome.h"
#include "platform/book/bare_store.h"
#include "platform/book/page_plan.h"

class QIODevice;

namespace gridwright::book {

/// Asked before each page and each drawing of a document; once it is true, nothing more is written, and that
/// is a Fault.
using IsStopped = std::function<bool()>;

/// What a document says of itself; none of it comes from a clock.
struct DocumentWords {
  std::string title, subject, keywords;
  std::string creator;   ///< The program, with its version.
  std::string identity;  ///< Any bytes; documents of equal ones count as versions of one.
};

/// Writes the document to a device that is open. The same parameters give the same bytes; the date is that of
/// SOURCE_DATE_EPOCH, or none.
/// \param words what `wordPagesOf` makes of the same pages.
/// \returns a Fault where the device takes no more or the store does not give back what it was given.
Outcome<Done> writeBook(const PlannedDocument& document, const std::vector<MazeRecord>& mazes,
                        const std::string& words, const DocumentWords& about, const BareStore& store,
                        QIODevice& device, const IsStopped& isStopped);

/// Under which name a part has its list attached, and in which of its pages' entries the sum of the drawing
/// lies that the page is there for.
inline constexpr const char* kListName = "list.json";
inline constexpr const char* kSumKey = "/GridwrightSum";

/// Writes a part: a page for each maze, as large as its Canvas, then one for each answer, and the list
/// attached. Without any maze it is a blank page.
Outcome<Done> writePart(const std::vector<MazeRecord>& mazes, const std::string& list,
                        const DocumentWords& about, const BareStore& store, QIODevice& device,
                        const IsStopped& isStopped);

}  // namespace gridwright::book
