#include "platform/book/part_document.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QCryptographicHash>
#include <fstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/book/book_document.h"
#include "platform/book/book_list.h"
#include "platform/book/pdf_tools.h"
#include "platform/book/qpdf_headers.h"

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

Fault noPart(const fs::path& path, const std::string& why) {
  return {Fault::Kind::malformed, path.string() + " " + why};
}

std::string textOf(Buffer& buffer) {
  return {reinterpret_cast<const char*>(buffer.getBuffer()), buffer.getSize()};
}

std::size_t pagesOf(const BookList& list) {
  if (list.mazes.empty()) return 1;  // a blank one
  return list.mazes.size() * (list.plan.answers == Answers::none ? 1 : 2);
}

/// The library makes do without the last words of a document.
bool endsAsWritten(const fs::path& path) {
  constexpr std::string_view kEnd = "%%EOF\n";
  std::ifstream in(path, std::ios::binary);
  std::string end(kEnd.size(), '\0');
  in.seekg(-static_cast<std::streamoff>(kEnd.size()), std::ios::end);
  return in.read(end.data(), static_cast<std::streamsize>(end.size())) && end == kEnd;
}

/// The list that is attached; nothing where there is none.
std::optional<std::string> attachedList(QPDF& pdf) {
  const auto file = QPDFEmbeddedFileDocumentHelper(pdf).getEmbeddedFile(kListName);
  if (!file) return std::nullopt;
  QPDFObjectHandle stream = file->getEmbeddedFileStream();
  if (!stream.isStream()) return std::nullopt;
  std::string text = textOf(*stream.getStreamData());
  const QByteArray sum = QCryptographicHash::hash(
      QByteArrayView(text.data(), static_cast<qsizetype>(text.size())), QCryptographicHash::Md5);
  if (sum.toStdString() != QPDFEFStreamObjectHelper(stream).getChecksum()) return std::nullopt;
  return text;
}

/// A stream as it lies in the file, if it is the one that was written for this page.
BareDrawing drawingOf(QPDFObjectHandle page, QPDFObjectHandle stream) {
  QPDFObjectHandle dictionary = stream.getDict().shallowCopy();
  dictionary.removeKey("/Length");
  BareDrawing drawing{dictionary.unparse(), textOf(*stream.getRawStreamData()),
                      dictionary.getKey("/Subtype").isNameAndEquals("/Image")};
  QPDFObjectHandle sum = page.getKey(kSumKey);
  if (!sum.isString() || sum.getStringValue() != sumOf(dictionary, drawing.bytes))
    throw std::runtime_error("another drawing");
  return drawing;
}

QPDFObjectHandle drawingsOn(QPDFObjectHandle page) { return page.getKey("/Resources").getKey("/XObject"); }

/// The bare page of the maze in this place of the list.
BarePage barePageIn(const std::vector<QPDFObjectHandle>& pages, const BookList& list, std::size_t maze) {
  BarePage bare;
  bare.notVector = list.mazes[maze].notVector;
  bare.maze = drawingOf(pages[maze], drawingsOn(pages[maze]).getKey("/M1"));
  if (list.plan.answers == Answers::none) return bare;
  const QPDFObjectHandle& answer = pages[list.mazes.size() + maze];
  QPDFObjectHandle drawings = drawingsOn(answer);
  bare.isAnswerOverMaze = drawings.hasKey("/M2");
  bare.answer = drawingOf(answer, drawings.getKey(bare.isAnswerOverMaze ? "/M2" : "/M1"));
  return bare;
}

}  // namespace

PartDocument::PartDocument(fs::path path, std::unique_ptr<QPDF> pdf, BookList list)
    : path_(std::move(path)), pdf_(std::move(pdf)), list_(std::move(list)) {}
PartDocument::PartDocument(PartDocument&&) noexcept = default;
PartDocument& PartDocument::operator=(PartDocument&&) noexcept = default;
PartDocument::~PartDocument() = default;

Outcome<PartDocument> PartDocument::open(const fs::path& path) {
  std::error_code failed;
  if (!fs::is_regular_file(path, failed)) return noPart(path, "is not there");
  try {
    auto pdf = std::make_unique<QPDF>();
    pdf->setSuppressWarnings(true);
    pdf->setAttemptRecovery(false);  // a part that is cut is to be made again
    pdf->processFile(path.c_str());
    const auto text = attachedList(*pdf);
    if (!text) return noPart(path, "is no part of a book");
    auto list = parseList(*text);
    if (!list) return noPart(path, "has a list that can't be used: " + list.fault().words);
    if (!list.value().part) return noPart(path, "is no part of a book");
    if (pdf->getAllPages().size() != pagesOf(list.value()) || !endsAsWritten(path))
      return noPart(path, "is cut or damaged");
    return PartDocument(path, std::move(pdf), std::move(list.value()));
  } catch (const std::exception&) {
    return noPart(path, "is no part of a book, or is cut");
  }
}

Outcome<Done> PartDocument::copyInto(BareStore& store) const {
  try {
    const std::vector<QPDFObjectHandle>& pages = pdf_->getAllPages();
    for (std::size_t i = 0; i < list_.mazes.size(); ++i) {
      const auto kept = store.put(list_.mazes[i].number, barePageIn(pages, list_, i));
      if (!kept) return kept.fault();
    }
    return Done{};
  } catch (const std::exception&) {
    return noPart(path_, "is damaged");
  }
}

}  // namespace gridwright::book
