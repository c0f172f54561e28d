#include "platform/book/pdf_tools.h"

#include <QByteArrayView>
#include <QCryptographicHash>
#include <array>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/book/book_words.h"
#include "platform/book/qpdf_headers.h"

namespace gridwright::book {

namespace {

/// Nothing is taken for written that was not.
class IntoDevice : public Pipeline {
 public:
  explicit IntoDevice(QIODevice& device) : Pipeline("book", nullptr), device_(device) {}
  void write(const unsigned char* bytes, std::size_t count) override {
    const auto wanted = static_cast<qint64>(count);
    if (device_.write(reinterpret_cast<const char*>(bytes), wanted) != wanted)
      throw std::runtime_error("the disk takes no more");
  }
  void finish() override {}

 private:
  QIODevice& device_;
};

/// The moment that SOURCE_DATE_EPOCH names, as documents say it; nothing where it is not set or no number.
std::optional<std::string> dateOfSource() {
  const char* words = std::getenv("SOURCE_DATE_EPOCH");
  if (words == nullptr || *words == '\0') return std::nullopt;
  char* end = nullptr;
  const long long seconds = std::strtoll(words, &end, 10);
  const auto moment = static_cast<std::time_t>(seconds);
  std::tm parts{};
  if (*end != '\0' || seconds < 0 || ::gmtime_r(&moment, &parts) == nullptr) return std::nullopt;
  std::array<char, 64> text{};
  const std::size_t count = std::strftime(text.data(), text.size(), "D:%Y%m%d%H%M%SZ", &parts);
  return std::string(text.data(), count);
}

}  // namespace

class PlacedStreams::Bytes : public QPDFObjectHandle::StreamDataProvider {
 public:
  Bytes(const BareStore& store, IsStopped isStopped) : store_(store), isStopped_(std::move(isStopped)) {}

  void belong(const QPDFObjectHandle& stream, const StoredDrawing& drawing) {
    drawings_.emplace(stream.getObjectID(), &drawing);
  }
  void provideStreamData(const QPDFObjGen& object, Pipeline* pipeline) override {
    if (isStopped_ && isStopped_()) throw std::runtime_error("stopped");
    const auto bytes = store_.bytesOf(*drawings_.at(object.getObj()));
    if (!bytes) throw std::runtime_error("the disk does not give back what was written");
    pipeline->write(reinterpret_cast<const unsigned char*>(bytes->data()), bytes->size());
    pipeline->finish();
  }

 private:
  const BareStore& store_;
  IsStopped isStopped_;
  std::unordered_map<int, const StoredDrawing*> drawings_;
};

PlacedStreams::PlacedStreams(QPDF& pdf, const BareStore& store, const IsStopped& isStopped)
    : pdf_(pdf), bytes_(std::make_shared<Bytes>(store, isStopped)) {}

QPDFObjectHandle PlacedStreams::of(const StoredDrawing& drawing) {
  const auto known = made_.find(&drawing);
  if (known != made_.end()) return known->second;
  QPDFObjectHandle stream = QPDFObjectHandle::newStream(&pdf_);
  QPDFObjectHandle dictionary = QPDFObjectHandle::parse(drawing.dictionary);
  stream.replaceDict(dictionary);
  stream.replaceStreamData(bytes_, dictionary.getKey("/Filter"), QPDFObjectHandle::newNull());
  bytes_->belong(stream, drawing);
  made_.emplace(&drawing, stream);
  return stream;
}

std::string pdfNumber(double number) {
  std::string text = pointNumber(number, 4);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string drawingOperators(const DrawnAt& drawn, double x, double y, double width, double height) {
  const double across = drawn.drawing.isImage ? width : width / drawn.canvas.width;
  const double down = drawn.drawing.isImage ? height : height / drawn.canvas.height;
  return "q " + pdfNumber(across) + " 0 0 " + pdfNumber(down) + " " + pdfNumber(x) + " " + pdfNumber(y) +
         " cm " + drawn.name + " Do Q\n";
}

std::string sumOf(QPDFObjectHandle dictionary, const std::string& bytes) {
  QPDFObjectHandle known = dictionary.shallowCopy();
  known.removeKey("/Length");
  const std::string text = known.unparse();
  QCryptographicHash sum(QCryptographicHash::Sha1);
  for (const std::string& part : {text, bytes})
    sum.addData(QByteArrayView(part.data(), static_cast<qsizetype>(part.size())));
  return sum.result().toHex().toStdString();
}

void setWords(QPDF& pdf, const DocumentWords& about) {
  QPDFObjectHandle info = QPDFObjectHandle::newDictionary();
  const auto say = [&](const std::string& key, const std::string& words) {
    if (!words.empty()) info.replaceKey(key, QPDFObjectHandle::newUnicodeString(words));
  };
  say("/Title", about.title);
  say("/Subject", about.subject);
  say("/Keywords", about.keywords);
  say("/Creator", about.creator);
  if (const auto date = dateOfSource()) {
    for (const char* key : {"/CreationDate", "/ModDate"})
      info.replaceKey(key, QPDFObjectHandle::newString(*date));
  }
  pdf.getTrailer().replaceKey("/Info", pdf.makeIndirectObject(info));
  const QPDFObjectHandle identity = QPDFObjectHandle::newString(about.identity);
  pdf.getTrailer().replaceKey("/ID", QPDFObjectHandle::newArray({identity, identity}));
}

void writeDocument(QPDF& pdf, QIODevice& device) {
  IntoDevice pipeline(device);
  QPDFWriter writer(pdf);
  writer.setOutputPipeline(&pipeline);
  writer.setDeterministicID(true);
  writer.setObjectStreamMode(qpdf_o_generate);
  writer.setCompressStreams(true);
  writer.setDecodeLevel(qpdf_dl_none);  // what is packed stays as it is
  writer.write();
}

Outcome<Done> withoutThrowing(const std::function<void()>& work) {
  try {
    work();
    return Done{};
  } catch (const std::exception& failed) {
    return Fault{Fault::Kind::notWritable, failed.what()};
  }
}

}  // namespace gridwright::book
