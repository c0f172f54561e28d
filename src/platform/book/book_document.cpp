#include "platform/book/book_document.h"

#include <map>
#include <stdexcept>
#include <vector>

#include "platform/book/pdf_tools.h"
#include "platform/book/qpdf_headers.h"

namespace gridwright::book {

namespace {

/// The drawings of one page: their streams by name, and the operators that draw them.
class PageDrawings {
 public:
  explicit PageDrawings(PlacedStreams& streams) : streams_(streams) {}

  /// `place` is measured from the page's top, `top` points up from its lower edge.
  void add(const StoredPage& page, const MazeRecord& record, bool isAnswer, const Box& place, double top) {
    const double y = top - place.y - place.height;
    const auto draw = [&](const StoredDrawing& drawing) {
      const std::string name = std::string("/M").append(std::to_string(++count_));
      forms_.replaceKey(name, streams_.of(drawing));
      operators_ += drawingOperators({name, drawing, {record.width, record.height}}, place.x, y, place.width,
                                     place.height);
    };
    if (!isAnswer || page.isAnswerOverMaze) draw(page.maze);
    if (isAnswer && page.answer) draw(*page.answer);
  }

  [[nodiscard]] QPDFObjectHandle forms() const { return forms_; }
  [[nodiscard]] const std::string& operators() const { return operators_; }

 private:
  PlacedStreams& streams_;
  QPDFObjectHandle forms_ = QPDFObjectHandle::newDictionary();
  std::string operators_;
  int count_ = 0;
};

QPDFObjectHandle sheetOf(double width, double height) {
  return QPDFObjectHandle::parse("[ 0 0 " + pdfNumber(width) + " " + pdfNumber(height) + " ]");
}

/// Qt writes its fonts in the order of a table in memory, another one in each run, and names the glyphs that
/// it takes of each for that. In the order of their pages they get other names, and objects that come in that
/// order too: the writer packs objects by their numbers.
class OrderedFonts {
 public:
  explicit OrderedFonts(QPDF& pdf) : pdf_(pdf) {}

  void order(QPDFObjectHandle resources) {
    QPDFObjectHandle fonts = resources.getKey("/Font");
    if (!fonts.isDictionary()) return;
    for (const std::string& key : fonts.getKeys()) {
      QPDFObjectHandle font = fonts.getKey(key);
      const bool isNew = !copies_.contains(font.getObjGen());
      font = copied(font);
      if (isNew) rename(font);
      fonts.replaceKey(key, font);
    }
  }

 private:
  /// The same with objects of its own; streams are not packed with others and stay.
  QPDFObjectHandle copied(const QPDFObjectHandle& font) {
    QPDFObjectHandle copy = replaced(font);
    while (!waiting_.empty()) {
      QPDFObjectHandle object = waiting_.back();
      waiting_.pop_back();
      if (object.isDictionary()) {
        for (const std::string& key : object.getKeys()) object.replaceKey(key, replaced(object.getKey(key)));
      } else if (object.isArray()) {
        for (int i = 0; i < object.getArrayNItems(); ++i)
          object.setArrayItem(i, replaced(object.getArrayItem(i)));
      }
    }
    return copy;
  }
  /// What takes an object's place; what it holds waits for the same.
  QPDFObjectHandle replaced(QPDFObjectHandle object) {
    if (object.isStream()) return object;
    if (object.isIndirect()) {
      const auto known = copies_.find(object.getObjGen());
      if (known != copies_.end()) return known->second;
      const QPDFObjGen place = object.getObjGen();
      object = pdf_.makeIndirectObject(object.shallowCopy());
      copies_.emplace(place, object);
    }
    waiting_.push_back(object);
    return object;
  }

  void rename(QPDFObjectHandle font) {
    QPDFObjectHandle descendants = font.getKey("/DescendantFonts");
    if (!descendants.isArray() || descendants.getArrayNItems() != 1) return;
    QPDFObjectHandle descendant = descendants.getArrayItem(0);
    QPDFObjectHandle descriptor = descendant.getKey("/FontDescriptor");
    if (!descriptor.isDictionary() || !descriptor.getKey("/FontName").isName()) return;
    const std::string name = descriptor.getKey("/FontName").getName();
    constexpr std::size_t kTag = 6;  // letters behind the stroke, then a plus
    if (name.size() <= kTag + 1 || name[kTag + 1] != '+') return;
    const auto tagged = QPDFObjectHandle::newName(nextTag().append(name, kTag + 1));
    descriptor.replaceKey("/FontName", tagged);
    descendant.replaceKey("/BaseFont", tagged);
    font.replaceKey("/BaseFont", tagged);
  }

  std::string nextTag() {
    std::string tag = "/AAAAAA";
    int rest = count_++;
    for (auto letter = tag.rbegin(); letter + 1 != tag.rend(); ++letter, rest /= 26)
      *letter = static_cast<char>('A' + rest % 26);
    return tag;
  }

  QPDF& pdf_;
  std::map<QPDFObjGen, QPDFObjectHandle> copies_;
  std::vector<QPDFObjectHandle> waiting_;
  int count_ = 0;
};

/// What pages have alike of their words' resources, once for all of them: a book may have ten thousand.
class CommonResources {
 public:
  explicit CommonResources(QPDF& pdf) : pdf_(pdf) {}

  void share(QPDFObjectHandle resources) {
    resources.removeKey("/Pattern");  // no words are filled with one
    for (const char* key : {"/ColorSpace", "/ExtGState", "/Font"}) {
      QPDFObjectHandle own = resources.getKey(key);
      if (!own.isDictionary()) continue;
      const auto [common, isNew] = known_.try_emplace(own.unparse());
      if (isNew) common->second = pdf_.makeIndirectObject(own);
      resources.replaceKey(key, common->second);
    }
  }

 private:
  QPDF& pdf_;
  std::map<std::string, QPDFObjectHandle> known_;  // by what they say
};

/// Draws the mazes of a page below its words.
void placeMazes(QPDF& pdf, QPDFObjectHandle page, const PageDrawings& drawings) {
  QPDFObjectHandle resources = page.getKey("/Resources");
  resources.replaceKey("/XObject", drawings.forms());
  page.removeKey("/Annots");
  page.replaceKey("/Contents",
                  QPDFObjectHandle::newArray(
                      {QPDFObjectHandle::newStream(&pdf, drawings.operators()), page.getKey("/Contents")}));
}

QPDFObjectHandle barePage(QPDF& pdf, const PageDrawings& drawings, const MazeRecord& record) {
  QPDFObjectHandle page = QPDFObjectHandle::newDictionary();
  QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
  resources.replaceKey("/XObject", drawings.forms());
  page.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
  page.replaceKey("/MediaBox", sheetOf(record.width, record.height));
  page.replaceKey("/Resources", resources);
  page.replaceKey("/Contents", QPDFObjectHandle::newStream(&pdf, drawings.operators()));
  return page;
}

/// A document has a page, so a part without any maze has this.
QPDFObjectHandle blankPage() {
  constexpr double kThousandths = 1000;
  const Paper paper;
  QPDFObjectHandle page = QPDFObjectHandle::newDictionary();
  page.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
  page.replaceKey("/MediaBox", sheetOf(paper.width / kThousandths, paper.height / kThousandths));
  page.replaceKey("/Resources", QPDFObjectHandle::newDictionary());
  return page;
}

std::string storedSum(const BareStore& store, const StoredDrawing& drawing) {
  const auto bytes = store.bytesOf(drawing);
  if (!bytes) throw std::runtime_error("the disk does not give back what was written");
  return sumOf(QPDFObjectHandle::parse(drawing.dictionary), *bytes);
}

void attach(QPDF& pdf, const std::string& list) {
  auto file = QPDFEFStreamObjectHelper::createEFStream(pdf, list);
  file.setSubtype("application/json");
  auto named = QPDFFileSpecObjectHelper::createFileSpec(pdf, kListName, file);
  QPDFEmbeddedFileDocumentHelper(pdf).replaceEmbeddedFile(kListName, named);
}

}  // namespace

Outcome<Done> writeBook(const PlannedDocument& document, const std::vector<MazeRecord>& mazes,
                        const std::string& words, const DocumentWords& about, const BareStore& store,
                        QIODevice& device, const IsStopped& isStopped) {
  return withoutThrowing([&] {
    const auto holdGoing = [&] {
      if (isStopped && isStopped()) throw std::runtime_error("stopped");
    };
    QPDF pdf;
    pdf.setSuppressWarnings(true);
    pdf.processMemoryFile("words", words.data(), words.size());
    PlacedStreams streams(pdf, store, isStopped);
    OrderedFonts fonts(pdf);
    CommonResources common(pdf);
    auto planned = document.pages.begin();
    for (QPDFObjectHandle page : pdf.getAllPages()) {
      holdGoing();
      PageDrawings drawings(streams);
      for (const PlacedMaze& placed : planned->mazes) {
        const MazeRecord& record = mazes[placed.maze];
        drawings.add(store.page(record.number), record, planned->isAnswers, placed.place, document.height);
      }
      placeMazes(pdf, page, drawings);
      fonts.order(page.getKey("/Resources"));
      common.share(page.getKey("/Resources"));
      page.replaceKey("/MediaBox", sheetOf(document.width, document.height));
      ++planned;
    }
    setWords(pdf, about);
    writeDocument(pdf, device);
  });
}

Outcome<Done> writePart(const std::vector<MazeRecord>& mazes, const std::string& list,
                        const DocumentWords& about, const BareStore& store, QIODevice& device,
                        const IsStopped& isStopped) {
  return withoutThrowing([&] {
    QPDF pdf;
    pdf.emptyPDF();
    PlacedStreams streams(pdf, store, isStopped);
    for (const bool isAnswer : {false, true}) {
      for (const MazeRecord& record : mazes) {
        const StoredPage& page = store.page(record.number);
        if (isAnswer && !page.answer) continue;
        PageDrawings drawings(streams);
        const double width = record.width;
        const double height = record.height;
        drawings.add(page, record, isAnswer, {0, 0, width, height}, height);
        QPDFObjectHandle bare = barePage(pdf, drawings, record);
        bare.replaceKey(kSumKey,
                        QPDFObjectHandle::newString(storedSum(store, isAnswer ? *page.answer : page.maze)));
        pdf.addPage(pdf.makeIndirectObject(bare), false);
      }
    }
    if (mazes.empty()) pdf.addPage(pdf.makeIndirectObject(blankPage()), false);
    attach(pdf, list);
    setWords(pdf, about);
    writeDocument(pdf, device);
  });
}

}  // namespace gridwright::book
