#include "files/work_folder.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <system_error>

namespace gridwright {

namespace fs = std::filesystem;

namespace {

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

}  // namespace

bool equalButForCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

bool staysInFolder(std::string_view name) {
  return !name.empty() && name.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

std::string baseName(std::string_view typed) {
  typed.remove_prefix(std::min(typed.find_first_not_of(' '), typed.size()));
  return std::string(typed.substr(0, typed.find('.')));
}

fs::path WorkFolder::resolve(std::string_view name) const {
  fs::path exact = folder_ / fs::path(name);
  std::error_code failed;
  if (fs::exists(exact, failed)) return exact;
  fs::path found;
  int matches = 0;
  for (fs::directory_iterator entry(folder_, failed), end; !failed && entry != end; entry.increment(failed)) {
    if (!equalButForCase(entry->path().filename().string(), name)) continue;
    found = entry->path();
    ++matches;
  }
  return matches == 1 ? found : exact;
}

Outcome<std::string> WorkFolder::readText(std::string_view name) const {
  const fs::path path = resolve(name);
  std::error_code failed;
  if (!fs::is_regular_file(path, failed)) return Fault{Fault::Kind::notFound, path.string()};
  std::ifstream in(path, std::ios::binary);
  if (!in) return Fault{Fault::Kind::notReadable, path.string()};
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) return Fault{Fault::Kind::notReadable, path.string()};
  return text;
}

Outcome<Done> WorkFolder::writeText(std::string_view name, std::string_view text) {
  const fs::path path = resolve(name);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) return Fault{Fault::Kind::notWritable, path.string()};
  return Done{};
}

Outcome<Done> WorkFolder::replaceText(std::string_view name, std::string_view text) {
  const fs::path target = resolve(name);
  const std::string building = target.filename().string() + ".building";
  auto written = writeText(building, text);
  std::error_code failed;
  if (written) {
    fs::rename(folder_ / building, target, failed);
    if (!failed) return Done{};
    written = Fault{Fault::Kind::notWritable, target.string()};
  }
  fs::remove(folder_ / building, failed);
  return written;
}

std::vector<std::string> WorkFolder::list(std::string_view ending) const {
  std::vector<std::string> names;
  std::error_code failed;
  for (fs::directory_iterator entry(folder_, failed), end; !failed && entry != end; entry.increment(failed)) {
    std::string name = entry->path().filename().string();
    std::error_code unreadable;
    if (name.size() < ending.size() || !entry->is_regular_file(unreadable)) continue;
    const std::string_view tail = std::string_view(name).substr(name.size() - ending.size());
    if (equalButForCase(tail, ending)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return lower(x) < lower(y); });
  });
  return names;
}

}  // namespace gridwright
