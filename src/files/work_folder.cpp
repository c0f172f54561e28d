#include "files/work_folder.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

#include "files/plain_file.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

// By number: what the system takes for a letter's other case is a matter of the language it speaks.
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr std::string_view kBuilding = ".building";
constexpr std::uintmax_t kMostText = 1 << 26;       // bytes; no drawing, set or step file comes near it
constexpr std::string_view kTrial = ".gridwright";  // the name towards which a trial grows

bool endsWith(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && equalButForCase(name.substr(name.size() - ending.size()), ending);
}

/// The name that a file will bear in the end, or that another's earlier state bears: what grows towards
/// "cat.maze.building" becomes "cat.maze" one day, as what is held under "cat.maze~.building" was.
std::string wholeName(std::string_view building) {
  std::string name(building);
  for (std::string target = targetOfBuilding(name); !target.empty(); target = targetOfBuilding(name))
    name = std::move(target);
  if (name.ends_with('~')) name.pop_back();
  return name;
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

FilePlace WorkFolder::resolve(std::string_view name) const {
  FilePlace exact = at(name);
  if (isThere(exact)) return exact;
  const std::vector<std::string> names = folder_.names();
  const auto isMeant = [&](const std::string& entry) { return equalButForCase(entry, name); };
  const auto found = std::find_if(names.begin(), names.end(), isMeant);
  if (found == names.end() || std::any_of(found + 1, names.end(), isMeant)) return exact;
  return at(*found);
}

Outcome<std::string> WorkFolder::readText(std::string_view name) const {
  return readPlainFile(resolve(name), kMostText);
}

Outcome<Done> WorkFolder::writeText(std::string_view name, std::string_view text, Overwrite how) {
  const auto replaced = replacePlainFile(resolve(name), text, how);
  if (!replaced) return replaced.fault();
  return Done{};
}

bool WorkFolder::takesFiles() const {
  const BuildingFile trial = makeBuildingFile(at(kTrial));
  if (!trial.file) return false;
  const bool written = ::write(trial.file.descriptor(), "?", 1) == 1;  // a full disk still gives names away
  removeFile(trial.place);
  return written;
}

void WorkFolder::removeLeftOvers() const {
  constexpr std::array<std::string_view, 8> kEndings = {".bmp", ".maze", ".pat", "-pat",
                                                        ".pdf", ".png",  ".pt",  ".svg"};
  for (const std::string& name : list(kBuilding)) {
    const std::string target = wholeName(name);
    const bool own = target == kTrial || std::any_of(kEndings.begin(), kEndings.end(),
                                                     [&](auto ending) { return endsWith(target, ending); });
    if (own) removeLeftOver(at(name));
  }
}

bool WorkFolder::tellIfNoPlainFile(const Fault& fault) {
  if (fault.kind != Fault::Kind::notPlain) return false;
  const std::string name = fs::path(fault.words).filename().string();
  if (!told_.insert(name).second) return false;
  tell("Error: " + name + " is not a plain file; nothing is written to it.");
  return true;
}

void WorkFolder::tellIfMoved() {
  fs::path present = presentPath();
  if (present == knownAs_ || !folder_.isCalled(present)) return;
  knownAs_ = std::move(present);
  tell("The folder that this program works in is " + knownAs_.string() + " now; what is saved goes there.");
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
  std::vector<std::string> names = folder_.names();
  std::erase_if(names,
                [&](const std::string& name) { return !endsWith(name, ending) || !leadsToFile(at(name)); });
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return lower(x) < lower(y); });
  });
  return names;
}

}  // namespace gridwright
