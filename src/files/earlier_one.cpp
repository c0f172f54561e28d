#include "files/earlier_one.h"

#include <system_error>

#include "files/plain_file.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

bool mayBeReplaced(const fs::path& path) {
  std::error_code failed;
  const fs::file_type type = fs::symlink_status(path, failed).type();
  return type == fs::file_type::not_found || type == fs::file_type::regular;
}

bool haveEqualBytes(const fs::path& a, const fs::path& b) {
  const auto first = readPlainFile(a);
  const auto second = readPlainFile(b);
  return first && second && first.value() == second.value();
}

void removeQuietly(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

}  // namespace

fs::path earlierName(fs::path target) { return target += "~"; }

fs::path heldName(const fs::path& target) { return earlierName(target) += ".building"; }

bool holdEarlier(const fs::path& target) {
  const fs::path held = heldName(target);
  removeQuietly(held);  // of a save that was cut off
  std::error_code failed;
  if (!fs::exists(target, failed)) return true;
  if (!mayBeReplaced(earlierName(target))) return false;
  fs::create_hard_link(target, held, failed);
  if (!failed) return true;
  fs::copy_file(target, held, failed);  // where the disk gives a file one name only
  if (failed) removeQuietly(held);
  return !failed;
}

bool isHeld(const fs::path& target) {
  std::error_code failed;
  return fs::exists(heldName(target), failed);
}

void keepEarlier(const fs::path& target) {
  std::error_code ignored;
  fs::rename(heldName(target), earlierName(target), ignored);
}

void dropEarlier(const fs::path& target) { removeQuietly(heldName(target)); }

bool putEarlierBack(const fs::path& target) {
  std::error_code failed;
  if (isHeld(target)) {
    fs::rename(heldName(target), target, failed);
  } else {
    fs::remove(target, failed);
  }
  return !failed;
}

void recoverEarlier(const fs::path& target) {
  std::error_code failed;
  // Equal bytes: held by a copy, where the disk gives a file one name only.
  if (fs::equivalent(target, heldName(target), failed) || haveEqualBytes(target, heldName(target))) {
    dropEarlier(target);
  } else {
    keepEarlier(target);
  }
}

}  // namespace gridwright
