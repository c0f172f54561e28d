// What the documents of books have in common, by way of libqpdf.
#pragma once

#include <QIODevice>
#include <memory>
#include <string>
#include <unordered_map>

#include "platform/book/bare_store.h"
#include "platform/book/book_document.h"
#include "platform/book/qpdf_headers.h"

namespace gridwright::book {

/// The bare drawings of a store as streams of a document. Their bytes are read when the document is written.
class PlacedStreams {
 public:
  PlacedStreams(QPDF& pdf, const BareStore& store, const IsStopped& isStopped);

  /// The stream of a drawing, made at the first call; the store's drawings stay where they are.
  QPDFObjectHandle of(const StoredDrawing& drawing);

 private:
  class Bytes;
  QPDF& pdf_;
  std::shared_ptr<Bytes> bytes_;
  std::unordered_map<const StoredDrawing*, QPDFObjectHandle> made_;
};

/// A number as documents write it, with no more digits than can be seen.
std::string pdfNumber(double number);

/// Which stream a drawing is on a page, and the operators that draw it in `place`, from the page's lower
/// left.
struct DrawnAt {
  std::string name;
  const StoredDrawing& drawing;
  Size canvas;
};
std::string drawingOperators(const DrawnAt& drawn, double x, double y, double width, double height);

/// What tells whether a drawing is still the same, its dictionary too, in whatever way that is written.
std::string sumOf(QPDFObjectHandle dictionary, const std::string& bytes);

/// Sets what the document says of itself, in place of all that it said before.
void setWords(QPDF& pdf, const DocumentWords& about);

/// Writes it all, packed. Throws where the device takes no more.
void writeDocument(QPDF& pdf, QIODevice& device);

/// Does what may throw. \returns its Fault in words of ours.
Outcome<Done> withoutThrowing(const std::function<void()>& work);

}  // namespace gridwright::book
