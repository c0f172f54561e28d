#include "platform/book/new_files.h"

#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "platform/shared/growing_file.h"

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

Fault notWritable(const fs::path& path, const char* why) {
  return {Fault::Kind::notWritable, path.string() + " " + why};
}

constexpr const char* kIsThere = "is there already; --force writes over it";
constexpr const char* kDiskIsFull = "can't be written; nothing has changed";

/// Two names can lead to one file. A name without a folder stays without one, unless the whole way is asked
/// for.
fs::path placeOf(const fs::path& path) {
  std::error_code failed;
  const fs::path place = fs::weakly_canonical(fs::absolute(path, failed), failed);
  return failed ? path.lexically_normal() : place;
}

}  // namespace

std::vector<fs::path> filesOf(const BookRun& run) {
  std::vector<fs::path> files{run.output};
  if (!run.answersFile.empty() && !run.part) files.push_back(run.answersFile);
  if (!run.list.empty()) files.push_back(run.list);
  return files;
}

std::optional<std::string> whyOneFile(const BookRun& run) {
  std::vector<fs::path> places;
  for (const fs::path& path : filesOf(run)) {
    const fs::path place = placeOf(path);
    if (std::find(places.begin(), places.end(), place) != places.end())
      return path.string() + " is named for two files; each has a name of its own";
    places.push_back(place);
  }
  return std::nullopt;
}

Outcome<Done> mayWrite(const BookRun& run) {
  for (const fs::path& path : filesOf(run)) {
    std::error_code failed;
    const bool isThere = fs::exists(fs::symlink_status(path, failed));
    if (isThere && isNoPlainFile(path)) return notWritable(path, "is no plain file");
    if (isThere && !run.mayReplace) return notWritable(path, kIsThere);
    const fs::path folder = path.parent_path().empty() ? fs::path(".") : path.parent_path();
    if (!fs::is_directory(folder, failed)) return notWritable(path, "can't be written: no such folder");
    if (::access(folder.c_str(), W_OK | X_OK) != 0)
      return notWritable(path, "can't be written: its folder takes no files");
  }
  return Done{};
}

HeldFiles holdFiles(const BookRun& run) {
  HeldFiles places;
  for (const fs::path& path : filesOf(run)) places.emplace(path, FilePlace(path).held());
  return places;
}

NewFiles::NewFiles(const HeldFiles& places, bool mayReplace) : places_(places), mayReplace_(mayReplace) {}
NewFiles::~NewFiles() = default;

Outcome<QIODevice*> NewFiles::begin(const fs::path& target) {
  const FilePlace& place = places_.at(target);
  auto file = std::make_unique<GrowingFile>(place);
  if (!file->isOpen()) return notWritable(target, "can't be written");
  begun_.push_back({target, place, std::move(file)});
  return begun_.back().file.get();
}

Outcome<Done> NewFiles::takeNames() {
  for (const Begun& begun : begun_)
    if (!begun.file->isOnDisk()) return notWritable(begun.name, kDiskIsFull);
  for (const Begun& begun : begun_)
    if (!mayReplace_ && isThere(begun.target)) return notWritable(begun.name, kIsThere);
  const Taking how = mayReplace_ ? Taking::replaces : Taking::onlyFree;
  for (const Begun& begun : begun_)
    if (!begun.file->takeName(begun.target, how)) return notWritable(begun.name, "can't be written");
  return Done{};
}

}  // namespace gridwright::book
