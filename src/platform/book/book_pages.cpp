#include "platform/book/book_pages.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QIODevice>
#include <string>
#include <utility>
#include <vector>

#include "platform/book/book_list.h"
#include "platform/book/book_options.h"
#include "platform/book/book_pictures.h"
#include "platform/book/joined_list.h"
#include "platform/book/new_files.h"
#include "platform/book/page_plan.h"
#include "platform/book/page_words.h"
#include "platform/book/part_document.h"
#include "platform/book/plan_words.h"

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

/// The same for the same list, whatever machine made it, and another for each other one.
std::string identityOf(const std::string& list) {
  const QByteArray text = QByteArray::fromRawData(list.data(), static_cast<qsizetype>(list.size()));
  return QCryptographicHash::hash(text, QCryptographicHash::Md5).toStdString();
}

DocumentWords aboutPart(const BookList& list, const std::string& text) {
  DocumentWords about = documentWordsOf(list.plan, list.mazes.size());
  about.subject = "Part " + std::to_string(list.part->number) + " of " + std::to_string(list.part->of) +
                  ", " + about.subject;
  about.identity = identityOf(text);
  return about;
}

Outcome<Done> writeText(const std::string& text, QIODevice& device) {
  const auto wanted = static_cast<qint64>(text.size());
  if (device.write(text.data(), wanted) != wanted)
    return Fault{Fault::Kind::notWritable, "the disk takes no more"};
  return Done{};
}

Outcome<Done> givenUp() { return Fault{Fault::Kind::notWritable, "stopped"}; }

/// Everything that one run writes, up to where it takes its names.
class Writing {
 public:
  Writing(const BookList& list, const BareStore& store, const BookRun& run, const IsStopped& isStopped)
      : list_(list), text_(formatList(list)), store_(store), run_(run), isStopped_(isStopped) {}

  Outcome<Done> part(NewFiles& files) const {
    return into(files, run_.output, [&](QIODevice& device) {
      return writePart(list_.mazes, text_, aboutPart(list_, text_), store_, device, isStopped_);
    });
  }

  Outcome<Done> book(NewFiles& files, const PlannedBook& planned) const {
    Outcome<Done> done = document(files, run_.output, planned.book, "");
    if (!done || !planned.answers) return done;
    return document(files, run_.answersFile, *planned.answers, "Answers to ");
  }

  Outcome<Done> list(NewFiles& files) const {
    return into(files, run_.list, [&](QIODevice& device) { return writeText(text_, device); });
  }

 private:
  Outcome<Done> document(NewFiles& files, const fs::path& path, const PlannedDocument& planned,
                         const std::string& what) const {
    return into(files, path, [&](QIODevice& device) {
      DocumentWords about = documentWordsOf(list_.plan, list_.mazes.size());
      about.identity = identityOf(text_);
      about.subject = what + about.subject;
      const std::string words = wordPagesOf(planned, list_.plan, list_.mazes, isStopped_);
      if (isStopped_ && isStopped_()) return givenUp();
      return writeBook(planned, list_.mazes, words, about, store_, device, isStopped_);
    });
  }

  template <class Work>
  static Outcome<Done> into(NewFiles& files, const fs::path& path, Work&& work) {
    const auto device = files.begin(path);
    if (!device) return device.fault();
    const auto written = work(*device.value());
    if (!written)
      return Fault{Fault::Kind::notWritable, path.string() + " can't be written: " + written.fault().words};
    return Done{};
  }

  const BookList& list_;
  const std::string text_;
  const BareStore& store_;
  const BookRun& run_;
  const IsStopped& isStopped_;
};

}  // namespace

BookPages::BookPages(BookPlan plan, const BookRun& run, BookPictures* pictures)
    : plan_(std::move(plan)),
      places_(holdFiles(run)),
      store_(run.output.parent_path()),
      pictures_(pictures) {}

Outcome<Done> BookPages::take(const MadeMaze& made) {
  if (pictures_ != nullptr) {
    if (auto taken = pictures_->take(made); !taken) return taken;
  }
  return store_.put(made.record.number, barePageOf(made, plan_.format, plan_.answers != Answers::none));
}

Outcome<Done> BookPages::take(const PartDocument& part) { return part.copyInto(store_); }

Outcome<Done> BookPages::finish(BookList& list, const BookRun& run, const IsStopped& isStopped) const {
  if (list.mazes.empty() && !list.part) return Fault{Fault::Kind::malformed, "no maze could be made"};
  putInOrder(list.mazes, plan_);
  for (MazeRecord& maze : list.mazes) maze.notVector = store_.page(maze.number).notVector;
  PlannedBook planned;
  if (list.part) {
    numberPartPages(plan_, list.mazes);
  } else {
    planned = planPages(plan_, list.mazes);
  }
  const Writing writing(list, store_, run, isStopped);
  NewFiles files(places_, run.mayReplace);
  Outcome<Done> done = list.part ? writing.part(files) : writing.book(files, planned);
  if (done && !run.list.empty()) done = writing.list(files);
  if (!done) return done;
  if (isStopped && isStopped()) return givenUp();
  if (pictures_ != nullptr) done = pictures_->takeNames();
  if (done) {
    done = files.takeNames();
    if (!done && pictures_ != nullptr) pictures_->giveBack();
  }
  return done;
}

Outcome<BookList> joinBook(const BookRun& run, const IsStopped& isStopped) {
  std::vector<PartDocument> parts;
  std::vector<PartList> lists;
  for (const fs::path& path : run.join) {
    auto part = PartDocument::open(path);
    if (!part) return part.fault();
    lists.push_back({path.string(), part.value().list()});
    parts.push_back(std::move(part.value()));
  }
  auto list = joinLists(lists);
  if (!list) return list.fault();
  if (auto why = whyNotAnswersFile(list.value().plan, run))
    return Fault{Fault::Kind::malformed, *std::move(why)};
  BookPages pages(list.value().plan, run);
  for (const PartDocument& part : parts) {
    const auto taken = pages.take(part);
    if (!taken) return taken.fault();
  }
  const auto done = pages.finish(list.value(), run, isStopped);
  if (!done) return done.fault();
  return list;
}

}  // namespace gridwright::book
