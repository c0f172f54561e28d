#include "platform/shared/pdf_amendment.h"

#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <map>
#include <optional>
#include <string_view>

namespace gridwright {

namespace {

constexpr std::size_t kHead = 8192, kTail = 1024;  // Qt begins with its catalogue and ends with its trailer

/// The whole number behind a word, at its last place.
std::optional<std::int64_t> numberBehind(std::string_view text, std::string_view word) {
  const auto at = text.rfind(word);
  if (at == std::string_view::npos) return std::nullopt;
  text.remove_prefix(at + word.size());
  text.remove_prefix(std::min(text.find_first_not_of(" \n"), text.size()));
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return std::nullopt;
  return number;
}

/// What lies between two words; empty where they don't.
std::string_view between(std::string_view text, std::string_view before, std::string_view behind) {
  const auto begin = text.find(before);
  if (begin == std::string_view::npos) return {};
  text.remove_prefix(begin + before.size());
  const auto end = text.find(behind);
  return end == std::string_view::npos ? std::string_view{} : text.substr(0, end);
}

/// Any words as a document has them.
std::string inHex(const std::string& words) {
  std::string hex = "<FEFF";
  for (const QChar letter : QString::fromStdString(words)) {
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), "%04X", static_cast<unsigned>(letter.unicode()));
    hex += digits.data();
  }
  return hex + ">";
}

std::string informationOf(const PdfAbout& about, std::string_view date) {
  std::string text = "<< /Title " + inHex(about.title) + " /Subject " + inHex(about.subject) + " /Keywords " +
                     inHex(about.keywords) + " /Creator (Gridwright) /Producer (Qt " + qVersion() + ")";
  if (!date.empty()) text.append(" /CreationDate (").append(date).append(")");
  return text + " >>";
}

}  // namespace

void PageLabels::add(const MazeInRun& maze, int sheet) {
  std::string prefix;
  if (maze.number > 0) prefix = maze.isAnswer ? "answer " : "maze ";
  int number = maze.number > 0 ? maze.number : pages_ + 1;
  if (sheet > 0) {
    if (maze.number > 0) prefix += std::to_string(maze.number) + ", ";
    prefix += "sheet ";
    number = sheet;
  }
  sayMore_ = sayMore_ || !prefix.empty();
  if (pages_ == 0 || prefix != prefix_ || number != number_ + 1)
    ranges_ +=
        " " + std::to_string(pages_) + " << /S /D /P (" + prefix + ") /St " + std::to_string(number) + " >>";
  prefix_ = std::move(prefix);
  number_ = number;
  ++pages_;
}

AmendedPdf::AmendedPdf(QIODevice& onto) : onto_(onto) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

qint64 AmendedPdf::writeData(const char* bytes, qint64 count) {
  const std::string_view text(bytes, static_cast<std::size_t>(count));
  head_ += text.substr(0, kHead - head_.size());
  tail_ += text.substr(text.size() - std::min(text.size(), kTail));
  tail_.erase(0, tail_.size() - std::min(tail_.size(), kTail));
  written_ += count;
  return onto_.write(bytes, count);
}

bool AmendedPdf::amend(const PdfAbout& about, const PageLabels& labels) {
  const auto root = numberBehind(tail_, "/Root");
  const auto information = numberBehind(tail_, "/Info");
  const auto size = numberBehind(tail_, "/Size");
  const auto table = numberBehind(tail_, "startxref");
  if (!root || !information || !size || !table) return false;
  const std::string_view catalog = between(head_, "\n" + std::to_string(*root) + " 0 obj\n<<", ">>\nendobj");
  if (catalog.find("/Catalog") == std::string_view::npos) return false;

  std::map<std::int64_t, std::string> objects;
  objects[*information] = informationOf(about, between(head_, "/CreationDate (", ")"));
  if (labels.sayMore())
    objects[*root] = "<<" + std::string(catalog) + "/PageLabels " + labels.tree() + "\n>>";
  std::string text;
  std::string places = "xref\n";
  for (const auto& [number, object] : objects) {
    std::array<char, 40> place{};
    const std::int64_t at = written_ + static_cast<std::int64_t>(text.size());
    std::snprintf(place.data(), place.size(), "%lld 1\n%010lld 00000 n \n", static_cast<long long>(number),
                  static_cast<long long>(at));
    places += place.data();
    text.append(std::to_string(number)).append(" 0 obj\n").append(object).append("\nendobj\n");
  }
  const std::int64_t begin = written_ + static_cast<std::int64_t>(text.size());
  text += places + "trailer\n<< /Size " + std::to_string(*size) + " /Info " + std::to_string(*information) +
          " 0 R /Root " + std::to_string(*root) + " 0 R /Prev " + std::to_string(*table) +
          " >>\nstartxref\n" + std::to_string(begin) + "\n%%EOF\n";
  return write(text.data(), static_cast<qint64>(text.size())) == static_cast<qint64>(text.size());
}

}  // namespace gridwright
