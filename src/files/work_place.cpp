#include "files/work_place.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>
#include <system_error>
#include <utility>

#include "files/work_folder.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr int kMostNeighbours = 99;

fs::path folderFrom(const char* variable, std::string_view below) {
  const char* value = std::getenv(variable);
  // A folder that is no whole path would lie somewhere else with every start.
  if (value == nullptr || *value != '/') return {};
  return fs::path(value) / below;
}

/// A folder of this name for this program alone, made where nothing bears the name.
std::optional<WorkPlace> placeIn(const fs::path& folder) {
  ::mkdir(folder.c_str(), 0777);
  auto lock = lockFolder(folder);
  if (!lock || !WorkFolder(HeldFolder(*lock, folder)).takesFiles()) return {};
  return WorkPlace{folder, std::move(*lock), {}};
}

WorkPlace temporaryPlace() {
  std::error_code failed;
  std::string name = (fs::temp_directory_path(failed) / "gridwright-XXXXXX").string();
  if (failed || ::mkdtemp(name.data()) == nullptr) return {};
  return {name, lockFolder(name).value_or(OpenFile()), {}};
}

/// The first folder beside this one, by number, that is free; a temporary one where none can be had.
WorkPlace placeBeside(const fs::path& folder) {
  for (int number = 2; number <= kMostNeighbours; ++number) {
    fs::path neighbour = folder;
    neighbour += ' ';
    neighbour += std::to_string(number);
    std::error_code failed;
    if (fs::is_symlink(neighbour, failed)) continue;
    if (auto place = placeIn(neighbour)) return std::move(*place);
  }
  return temporaryPlace();
}

WorkPlace placeWithoutFolder(const fs::path& data) {
  WorkPlace place;
  if (!data.empty() && makePersonalFolder(data)) {
    auto own = placeIn(data);
    place = own ? std::move(*own) : placeBeside(data);
  } else {
    place = temporaryPlace();
  }
  place.words = wordsOnUnwritableFolder(place.folder);
  place.saysUnwritable = place.folder.empty();
  return place;
}

}  // namespace

std::optional<OpenFile> lockFolder(const fs::path& folder) {
  OpenFile open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (open && !hold(open)) return {};
  return open;
}

HeldFolder WorkPlace::held() const { return lock ? HeldFolder(lock, folder) : HeldFolder(folder); }

WorkPlace placeForWindow(const fs::path& startedIn, const fs::path& data) {
  if (startedIn.empty()) return placeWithoutFolder(data);
  if (auto lock = lockFolder(startedIn)) return {startedIn, std::move(*lock), {}};
  WorkPlace place = placeBeside(startedIn);
  place.words = "Error: another Gridwright works in " + startedIn.string() +
                (place.folder.empty() ? ", and no other folder can be had."
                                      : "; this one works in " + place.folder.string() + ".");
  return place;
}

fs::path personalDataFolder() {
  const fs::path data = folderFrom("XDG_DATA_HOME", "gridwright");
  return data.empty() ? folderFrom("HOME", ".local/share/gridwright") : data;
}

bool makePersonalFolder(const fs::path& folder) {
  fs::path above;
  for (const fs::path& part : folder) {
    above /= part;
    ::mkdir(above.c_str(), 0700);  // most are there already
  }
  std::error_code failed;
  return fs::is_directory(folder, failed);
}

std::string wordsOnUnwritableFolder(const fs::path& data) {
  const std::string begin = "Error: this folder cannot be written; nothing is saved in it, and the drawing ";
  if (data.empty()) return begin + "is lost when the program ends.";
  return begin + "is kept in " + data.string() + " instead.";
}

}  // namespace gridwright
