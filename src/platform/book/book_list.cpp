#include "platform/book/book_list.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/book/book_words.h"
#include "platform/book/page_plan.h"

namespace gridwright::book {

namespace {

const QString kFormat = QStringLiteral("gridwright-book");
constexpr int kMost = std::numeric_limits<int>::max();

QString text(std::string_view words) {
  return QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
}
std::string plain(const QString& words) { return words.toStdString(); }

template <class Value, class Word>
QJsonArray arrayOf(const std::vector<Value>& values, Word word) {
  QJsonArray array;
  for (const auto& value : values) array.append(word(value));
  return array;
}

template <class Value>
QString word(const Value& value) {
  return text(wordOf(value));
}

double points(int thousandths) { return thousandths / 1000.0; }

QJsonObject wishedOf(const WishedSettings& wished) {
  QJsonObject object;
  const auto put = [&](const char* name, const QJsonArray& array) {
    if (!array.isEmpty()) object[QLatin1String(name)] = array;
  };
  const auto number = [](int value) { return QJsonValue(value); };
  put("kind", arrayOf(wished.kinds, [](MazeKind kind) { return QJsonValue(word(kind)); }));
  put("wall", arrayOf(wished.walls, number));
  put("difficulty", arrayOf(wished.difficulties, number));
  put("paths", arrayOf(wished.largePaths, [](bool large) { return QJsonValue(text(pathsWord(large))); }));
  put("underpasses", arrayOf(wished.shortUnderpasses,
                             [](bool isShort) { return QJsonValue(text(underpassesWord(isShort))); }));
  put("patterns", arrayOf(wished.patterns, [](const PatternWish& wish) { return QJsonValue(word(wish)); }));
  put("ends", arrayOf(wished.ends, [](Ends ends) { return QJsonValue(word(ends)); }));
  put("maze-colours",
      arrayOf(wished.mazeColours, [](const ColourPair& pair) { return QJsonValue(word(pair)); }));
  return object;
}

QJsonObject optionsOf(const BookPlan& plan) {
  QJsonObject object = wishedOf(plan.wished);
  object["pictures"] = arrayOf(plan.pictures, [](const std::string& name) { return QJsonValue(text(name)); });
  if (!plan.words.empty()) object["words"] = text(plan.words);
  if (plan.mazesAPicture) object["n"] = *plan.mazesAPicture;
  if (plan.total) object["total"] = *plan.total;
  object["seed"] = static_cast<qint64>(plan.seed);
  object["paper"] = text(plan.paper.name);
  object["landscape"] = plan.landscape;
  object["margin"] = points(plan.margin);
  object["gutter"] = points(plan.gutter);
  object["per-page"] = word(plan.perPage);
  object["answers"] = word(plan.answers);
  object["answers-per-page"] = word(plan.answersPerPage);
  object["title"] = text(plan.title);
  object["caption"] = text(plan.caption);
  object["page-numbers"] = plan.pageNumbers;
  object["name-line"] = plan.nameLine;
  object["sort"] = plan.sortByDifficulty ? QStringLiteral("difficulty") : QString();
  object["format"] = word(plan.format);
  return object;
}

QJsonObject settingsOf(const MazeSettings& settings) {
  return {{"kind", word(settings.kind)},
          {"wall", settings.wall},
          {"difficulty", settings.difficulty},
          {"paths", text(pathsWord(settings.largePaths))},
          {"underpasses", text(underpassesWord(settings.shortUnderpasses))},
          {"patterns", text(settings.patterns)},
          {"ends", word(settings.ends)},
          {"ownEnds", settings.ownEnds}};
}

QJsonObject mazeOf(const MazeRecord& maze) {
  QJsonObject object{{"number", maze.number},
                     {"picture", text(maze.picture)},
                     {"seed", static_cast<qint64>(maze.seed)},
                     {"settings", settingsOf(maze.settings)},
                     {"width", maze.width},
                     {"height", maze.height},
                     {"cells", maze.cells},
                     {"way", maze.wayLength},
                     {"deadEnds", maze.deadEnds},
                     {"junctions", maze.junctions},
                     {"underpasses", maze.underpasses},
                     {"difficulty", maze.difficulty},
                     {"page", maze.page},
                     {"answerPage", maze.answerPage}};
  if (maze.notVector) object["notVector"] = text(*maze.notVector);
  return object;
}

/// Takes values out of objects; one that is missing, of another type or out of range makes all of it bad.
class Reader {
 public:
  explicit Reader(QJsonObject object, bool& good) : object_(std::move(object)), good_(good) {}

  [[nodiscard]] bool has(const char* name) const { return object_.contains(QLatin1String(name)); }
  [[nodiscard]] QJsonValue value(const char* name) const { return object_.value(QLatin1String(name)); }
  [[nodiscard]] Reader in(const char* name) const { return Reader(checked(value(name)).toObject(), good_); }

  void number(const char* name, int& place, int least = 0, int most = kMost) const {
    hold(numberOf(value(name), least, most), place);
  }
  void number(const char* name, std::optional<int>& place, int least, int most) const {
    if (!has(name)) return;
    place = numberOf(value(name), least, most);
    if (!place) fail();
  }
  void seed(std::uint32_t& place) const {
    const double given = value("seed").toDouble(-1);
    if (given < 0 || given > std::numeric_limits<std::uint32_t>::max() || given != std::floor(given))
      return fail();
    place = static_cast<std::uint32_t>(given);
  }
  void real(const char* name, double& place) const {
    if (!value(name).isDouble()) return fail();
    place = value(name).toDouble();
  }
  /// A length that is told in points.
  void length(const char* name, int& place) const {
    double length = -1;
    real(name, length);
    if (length < 0 || length > 10000) return fail();
    place = static_cast<int>(std::lround(length * 1000));
  }
  void flag(const char* name, bool& place) const {
    if (!value(name).isBool()) return fail();
    place = value(name).toBool();
  }
  void words(const char* name, std::string& place) const {
    if (!value(name).isString()) return fail();
    place = plain(value(name).toString());
  }
  template <class Value, class Read>
  void word(const char* name, Value& place, Read read) const {
    std::string said;
    words(name, said);
    hold(read(said), place);
  }
  /// A list, read value by value; one that is not there is empty.
  template <class Value, class Read>
  void list(const char* name, std::vector<Value>& place, Read read) const {
    if (has(name) && !value(name).isArray()) return fail();
    const QJsonArray entries = value(name).toArray();
    for (const auto& entry : entries) {
      const std::optional<Value> read_ = read(entry);
      if (!read_) return fail();
      place.push_back(*read_);
    }
  }
  /// The same of words.
  template <class Value, class Read>
  void wordList(const char* name, std::vector<Value>& place, Read read) const {
    list(name, place, [&](const QJsonValue& entry) { return read(plain(entry.toString())); });
  }

  static std::optional<int> numberOf(const QJsonValue& value, int least, int most) {
    const double given = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(given >= least && given <= most) || given != std::floor(given)) return std::nullopt;
    return static_cast<int>(given);
  }

  void fail() const { good_ = false; }
  [[nodiscard]] bool& good() const { return good_; }

 private:
  [[nodiscard]] QJsonValue checked(const QJsonValue& value) const {
    if (!value.isObject()) fail();
    return value;
  }
  template <class Found, class Value>
  void hold(const Found& found, Value& place) const {
    if (!found) return fail();
    place = *found;
  }

  QJsonObject object_;
  bool& good_;
};

std::optional<std::string> anyWords(const std::string& words) { return words; }

void readWished(const Reader& from, WishedSettings& wished) {
  const auto within = [](int least, int most) {
    return [=](const QJsonValue& value) { return Reader::numberOf(value, least, most); };
  };
  from.wordList("kind", wished.kinds, kindOf);
  from.list("wall", wished.walls, within(5, 50));
  from.list("difficulty", wished.difficulties, within(1, 6));
  from.wordList("paths", wished.largePaths, pathsOf);
  from.wordList("underpasses", wished.shortUnderpasses, underpassesOf);
  from.wordList("patterns", wished.patterns, patternsOf);
  from.wordList("ends", wished.ends, endsOf);
  from.wordList("maze-colours", wished.mazeColours, colourPairOf);
}

/// No command line could ask for the rest: each value is one of its option, but they do not go together, or
/// there is no page that they leave.
bool canBeAsked(const BookPlan& plan) {
  const bool namesAll = std::none_of(plan.pictures.begin(), plan.pictures.end(),
                                     [](const std::string& name) { return name.empty(); });
  return namesAll && isCaption(plan.caption) && !(plan.mazesAPicture && plan.total) && !whyNoPages(plan);
}

void readOptions(const Reader& from, BookPlan& plan) {
  readWished(from, plan.wished);
  from.wordList("pictures", plan.pictures, anyWords);
  if (from.has("words")) from.words("words", plan.words);
  from.number("n", plan.mazesAPicture, 1, kMostMazes);
  from.number("total", plan.total, 1, kMostMazes);
  from.seed(plan.seed);
  from.word("paper", plan.paper, paperOf);
  from.flag("landscape", plan.landscape);
  from.length("margin", plan.margin);
  from.length("gutter", plan.gutter);
  from.word("per-page", plan.perPage, tilesOf);
  from.word("answers", plan.answers, answersOf);
  from.word("answers-per-page", plan.answersPerPage, tilesOf);
  from.words("title", plan.title);
  from.words("caption", plan.caption);
  from.flag("page-numbers", plan.pageNumbers);
  from.flag("name-line", plan.nameLine);
  from.word("format", plan.format, formatOf);
  std::string sort;
  from.words("sort", sort);
  plan.sortByDifficulty = sort == "difficulty";
  if (!sort.empty() && !plan.sortByDifficulty) from.fail();
  if (!canBeAsked(plan)) from.fail();
}

MazeSettings readSettings(const Reader& from) {
  MazeSettings settings;
  from.word("kind", settings.kind, kindOf);
  from.number("wall", settings.wall, 5, 50);
  from.number("difficulty", settings.difficulty, 1, 6);
  from.word("paths", settings.largePaths, pathsOf);
  from.word("underpasses", settings.shortUnderpasses, underpassesOf);
  from.words("patterns", settings.patterns);
  from.word("ends", settings.ends, endsOf);
  from.flag("ownEnds", settings.ownEnds);
  return settings;
}

MazeRecord readMaze(const Reader& from) {
  MazeRecord maze;
  from.number("number", maze.number, 1);
  from.words("picture", maze.picture);
  from.seed(maze.seed);
  maze.settings = readSettings(from.in("settings"));
  from.number("width", maze.width, 50, 1000);
  from.number("height", maze.height, 50, 1000);
  from.number("cells", maze.cells);
  from.number("way", maze.wayLength);
  from.number("deadEnds", maze.deadEnds);
  from.number("junctions", maze.junctions);
  from.number("underpasses", maze.underpasses);
  from.real("difficulty", maze.difficulty);
  from.number("page", maze.page);
  from.number("answerPage", maze.answerPage);
  if (from.has("notVector")) {
    maze.notVector.emplace();
    from.words("notVector", *maze.notVector);
  }
  return maze;
}

BookList readAll(const Reader& from) {
  BookList list;
  readOptions(from.in("options"), list.plan);
  if (from.has("part"))
    from.word("part", list.part, [](const std::string& said) { return std::optional(partOf(said)); });
  if (from.has("part") && !list.part) from.fail();
  from.list("files", list.sums, [&](const QJsonValue& entry) {
    PictureSum sum;
    const Reader file(entry.toObject(), from.good());
    file.words("name", sum.name);
    file.words("sha256", sum.sha256);
    return std::optional(sum);
  });
  from.number("mazesAsked", list.mazesAsked, 1);
  from.list("mazes", list.mazes, [&](const QJsonValue& entry) {
    return std::optional(readMaze(Reader(entry.toObject(), from.good())));
  });
  from.list("notMade", list.notMade,
            [](const QJsonValue& entry) { return Reader::numberOf(entry, 1, kMost); });
  return list;
}

Fault fault(std::string words) { return {Fault::Kind::malformed, std::move(words)}; }

}  // namespace

std::optional<std::string> whyNoList(const BookPlan& plan) {
  std::vector<std::string> said = plan.pictures;
  said.insert(said.end(), {plan.words, plan.title, plan.caption});
  for (const PatternWish& wish : plan.wished.patterns) said.push_back(wish.name);
  for (const std::string& words : said) {
    if (plain(text(words)) != words)
      return words + ": it is not UTF-8, so no list and no part can say what the book is made of";
  }
  return std::nullopt;
}

std::string formatList(const BookList& list) {
  QJsonObject object{
      {"format", kFormat},
      {"version", QStringLiteral(GRIDWRIGHT_VERSION)},
      {"options", optionsOf(list.plan)},
      {"files",
       arrayOf(list.sums,
               [](const PictureSum& sum) {
                 return QJsonValue(QJsonObject{{"name", text(sum.name)}, {"sha256", text(sum.sha256)}});
               })},
      {"mazesAsked", list.mazesAsked},
      {"mazes", arrayOf(list.mazes, [](const MazeRecord& maze) { return QJsonValue(mazeOf(maze)); })},
      {"notMade", arrayOf(list.notMade, [](int number) { return QJsonValue(number); })}};
  if (list.part) object["part"] = text(wordOf(*list.part));
  return QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
}

Outcome<BookList> parseList(std::string_view bytes) {
  QJsonParseError error{};
  const QJsonDocument document =
      QJsonDocument::fromJson(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())), &error);
  if (error.error != QJsonParseError::NoError || !document.isObject() ||
      document.object().value("format").toString() != kFormat)
    return fault("it is no list of a book, or not all of one");
  const std::string version = plain(document.object().value("version").toString());
  if (version != GRIDWRIGHT_VERSION)
    return fault("it comes from version " + (version.empty() ? "unknown" : version) +
                 ", which may make other mazes than this one, " GRIDWRIGHT_VERSION);
  bool good = true;
  BookList list = readAll(Reader(document.object(), good));
  if (!good) return fault("it is a list of a book, but not as one is written");
  return list;
}

}  // namespace gridwright::book
