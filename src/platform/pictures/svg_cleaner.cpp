#include "platform/pictures/svg_cleaner.h"

#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <cstdint>

#include "platform/pictures/svg_weight.h"

namespace gridwright {

namespace {

constexpr std::int64_t kMostNestedPixels = 32'000'000;  // of all pictures within an SVG

/// The part of a name after its prefix.
QString localName(const QString& name) { return name.section(QLatin1Char(':'), -1).toLower(); }

class Cleaner {
 public:
  explicit Cleaner(const QByteArray& text) : reader_(text), writer_(&clean_) {
    reader_.setNamespaceProcessing(false);  // names stay as they are written
  }

  Outcome<QByteArray> run() {
    while (!reader_.atEnd() && !weight_.isTooDeep()) take(reader_.readNext());
    if (reader_.hasError()) return Fault{Fault::Kind::malformed, "is cut off or broken"};
    if (weight_.isTooDeep() || !weight_.isBearable()) {
      return Fault{Fault::Kind::malformed, "holds more than can be drawn"};
    }
    return clean_;
  }

 private:
  void take(QXmlStreamReader::TokenType token) {
    switch (token) {
      case QXmlStreamReader::StartElement:
        writeWords();
        return takeStart();
      case QXmlStreamReader::EndElement:
        writeWords();
        weight_.end();
        return writer_.writeEndElement();
      case QXmlStreamReader::Characters:
        words_ += reader_.text();
        return;
      default:
        return;  // all else is left out
    }
  }

  // All between two tags at once: a reference may lie in pieces, with remarks between them, which are left
  // out.
  void writeWords() {
    if (!words_.isEmpty()) writer_.writeCharacters(withoutReferences(words_));
    words_.clear();
  }

  void takeStart() {
    QString id;
    QString use;
    writer_.writeStartElement(reader_.qualifiedName().toString());
    for (const QXmlStreamAttribute& attribute : reader_.attributes()) {
      const QString name = attribute.qualifiedName().toString();
      const QString local = localName(name);
      const QString value = attribute.value().toString();
      if (local == QLatin1String("base")) continue;
      if (local.endsWith(QLatin1String("href")) || local.endsWith(QLatin1String("src"))) {
        if (!isHarmless(value)) continue;
        if (value.trimmed().startsWith(QLatin1Char('#'))) use = value.trimmed().mid(1);
        writer_.writeAttribute(name, value);
        continue;
      }
      if (local == QLatin1String("id")) id = value;
      writer_.writeAttribute(name, withoutReferences(value));
    }
    weight_.begin(id, use);
  }

  bool isHarmless(const QString& reference) {
    const QString trimmed = reference.trimmed();
    if (trimmed.startsWith(QLatin1Char('#'))) return true;
    return trimmed.startsWith(QLatin1String("data:")) && isPlainPicture(trimmed);
  }

  /// Whether a data: reference holds a picture of pixels, and all of them together are not too many. An SVG
  /// within would be read by Qt as it is, with all that it refers to.
  bool isPlainPicture(const QString& reference) {
    const qsizetype comma = reference.indexOf(QLatin1Char(','));
    if (comma < 0 || !reference.left(comma).endsWith(QLatin1String("base64"))) return false;
    QByteArray bytes = QByteArray::fromBase64(reference.mid(comma + 1).toLatin1());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader picture(&buffer);
    const QByteArray format = picture.format();
    if (format != "png" && format != "jpeg" && format != "gif" && format != "webp" && format != "bmp")
      return false;
    const QSize size = picture.size();
    if (size.isEmpty()) return false;
    nestedPixels_ += std::int64_t{size.width()} * size.height();
    return nestedPixels_ <= kMostNestedPixels;
  }

  /// Words and style sheets alike: where no reference stands they stay as they are.
  static QString withoutReferences(QString text) {
    static const QRegularExpression mayRefer(QStringLiteral("url|@|\\\\"),
                                             QRegularExpression::CaseInsensitiveOption);
    if (!text.contains(mayRefer)) return text;
    static const QRegularExpression import(QStringLiteral("@\\s*import[^;]*;?"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression reference(QStringLiteral("url\\s*\\((?!\\s*[\"']?\\s*#)[^)]*\\)?"),
                                              QRegularExpression::CaseInsensitiveOption);
    text.remove(QLatin1Char('\\'));  // the way to write url( without its letters
    text.replace(import, QStringLiteral(" "));
    return text.replace(reference, QStringLiteral("none"));
  }

  QByteArray clean_;
  QXmlStreamReader reader_;
  QXmlStreamWriter writer_;
  SvgWeight weight_;
  QString words_;  ///< Since the last tag.
  std::int64_t nestedPixels_ = 0;
};

}  // namespace

Outcome<QByteArray> cleanedSvg(const QByteArray& text) { return Cleaner(text).run(); }

}  // namespace gridwright
