#include "files/work_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "files/plain_file.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

// By number: what the system takes for a letter's other case is a matter of the language it speaks.
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool endsWith(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && equalButForCase(name.substr(name.size() - ending.size()), ending);
}

}  // namespace

bool equalButForCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

std::string inLowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), lower);
  return text;
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
  if (fs::exists(fs::symlink_status(exact, failed))) return exact;
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
  return readPlainFile(resolve(name));
}

Outcome<Done> WorkFolder::writeText(std::string_view name, std::string_view text) {
  return writePlainFile(resolve(name), text);
}

Outcome<Done> WorkFolder::replaceText(std::string_view name, std::string_view text) {
  const auto replaced = replacePlainFile(resolve(name), text);
  if (!replaced) return replaced.fault();
  return Done{};
}

bool WorkFolder::takesFiles() const {
  std::string trial = (folder_ / ".gridwright-XXXXXX").string();
  const OpenFile file(::mkostemp(trial.data(), O_CLOEXEC));
  if (!file) return false;
  const bool written = ::write(file.descriptor(), "?", 1) == 1;  // a full disk still gives names away
  ::unlink(trial.c_str());
  return written;
}

void WorkFolder::removeLeftOvers() const {
  constexpr std::array<std::string_view, 4> kEndings = {".bmp", ".maze", "pat", ".pdf"};
  for (const std::string& name : list(".building")) {
    const std::string target = targetOfBuilding(name);
    const bool own = std::any_of(kEndings.begin(), kEndings.end(),
                                 [&](std::string_view ending) { return endsWith(target, ending); });
    if (own) removeLeftOver(folder_ / name);
  }
}

bool WorkFolder::tellIfNoPlainFile(const Fault& fault) {
  if (fault.kind != Fault::Kind::notPlain) return false;
  const std::string name = fs::path(fault.words).filename().string();
  if (!told_.insert(name).second) return false;
  tell("Error: " + name + " is not a plain file; nothing is written to it.");
  return true;
}

void WorkFolder::tell(std::string words) {
  untold_.push_back(std::move(words));
  tellThrough(tell_);
}

void WorkFolder::tellThrough(std::function<void(std::string_view)> tell) {
  tell_ = std::move(tell);
  if (!tell_) return;
  for (const std::string& words : std::exchange(untold_, {})) tell_(words);
}

std::vector<std::string> WorkFolder::list(std::string_view ending) const {
  std::vector<std::string> names;
  std::error_code failed;
  for (fs::directory_iterator entry(folder_, failed), end; !failed && entry != end; entry.increment(failed)) {
    std::string name = entry->path().filename().string();
    std::error_code unreadable;
    if (endsWith(name, ending) && entry->is_regular_file(unreadable)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return lower(x) < lower(y); });
  });
  return names;
}

}  // namespace gridwright
