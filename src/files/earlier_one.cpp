#include "files/earlier_one.h"

#include <unistd.h>

#include "files/plain_file.h"

namespace gridwright {

namespace {

bool haveEqualBytes(const FilePlace& a, const FilePlace& b) {
  const auto first = readPlainFile(a);
  const auto second = readPlainFile(b);
  return first && second && first.value() == second.value();
}

/// The same bytes under another name: where the disk gives a file one name only.
bool copyFile(const FilePlace& from, const FilePlace& to) {
  const auto bytes = readPlainFile(from);
  return bytes && replacePlainFile(to, bytes.value());
}

}  // namespace

FilePlace earlierName(const FilePlace& target) { return target.with("~"); }

FilePlace heldName(const FilePlace& target) { return buildingName(earlierName(target)); }

bool holdEarlier(const FilePlace& target) {
  const FilePlace held = heldName(target);
  if (isThere(held) && !removeFile(held)) return false;  // of a save that was cut off
  if (!isThere(target)) return true;
  if (isNoPlainFile(earlierName(target))) return false;
  return ::linkat(target.folder(), target.name(), held.folder(), held.name(), 0) == 0 ||
         copyFile(target, held);
}

bool isHeld(const FilePlace& target) { return isThere(heldName(target)); }

void keepEarlier(const FilePlace& target) { renameFile(heldName(target), earlierName(target)); }

void dropEarlier(const FilePlace& target) { removeFile(heldName(target)); }

bool putEarlierBack(const FilePlace& target) {
  return isHeld(target) ? renameFile(heldName(target), target) : removeFile(target);
}

void recoverEarlier(const FilePlace& target) {
  // Equal bytes: held by a copy, where the disk gives a file one name only.
  if (isSameFile(target, heldName(target)) || haveEqualBytes(target, heldName(target))) {
    dropEarlier(target);
  } else {
    keepEarlier(target);
  }
}

}  // namespace gridwright
