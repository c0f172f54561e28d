#include "history/picture_memory.h"

#include <algorithm>
#include <cstring>

namespace gridwright {

std::size_t bytesOf(const Patches& patches) {
  std::size_t bytes = patches.capacity() * sizeof(KeptPatch);
  for (const KeptPatch& patch : patches) bytes += patch.before.capacity() + patch.after.capacity();
  return bytes;
}

void PictureMemory::follow(Canvas& canvas) {
  canvas.takeKept();
  const Colour* plane = canvas.keptRow(0);
  plane_.assign(plane, plane + static_cast<std::ptrdiff_t>(Canvas::kSide) * Canvas::kSide);
}

Patches PictureMemory::take(Canvas& canvas) {
  Patches patches;
  const Canvas::KeptBoxes kept = canvas.takeKept();
  for (std::size_t i = 0; i < kept.count; ++i) takeBox(canvas, kept.boxes[i], patches);
  return patches;
}

Patches PictureMemory::takeAll(Canvas& canvas) {
  canvas.takeKept();
  Patches patches;
  takeBox(canvas, {0, 0, Canvas::kSide, Canvas::kSide}, patches);
  return patches;
}

/// \returns the smallest box within that holds all pixels that are others now.
Canvas::Dirty PictureMemory::changedIn(const Canvas& canvas, const Canvas::Dirty& box) const {
  Canvas::Dirty changed{box.right, box.bottom, box.left, box.top};
  const auto bytes = static_cast<std::size_t>(box.right - box.left) * sizeof(Colour);
  for (int y = box.top; y < box.bottom; ++y) {
    const Colour* was = row(y);
    const Colour* is = canvas.keptRow(y);
    if (std::memcmp(was + box.left, is + box.left, bytes) == 0) continue;
    const auto differs = [&](int x) {
      return marks_ == Marks::count ? was[x] != is[x] : Canvas::colourOf(was[x]) != Canvas::colourOf(is[x]);
    };
    int first = box.left;
    while (first < box.right && !differs(first)) ++first;
    if (first == box.right) continue;
    int last = box.right - 1;
    while (!differs(last)) --last;
    changed.left = std::min(changed.left, first);
    changed.right = std::max(changed.right, last + 1);
    changed.top = std::min(changed.top, y);
    changed.bottom = y + 1;
  }
  return changed;
}

void PictureMemory::takeBox(const Canvas& canvas, const Canvas::Dirty& box, Patches& patches) {
  const Canvas::Dirty changed = changedIn(canvas, box);
  if (changed.empty()) return;
  const auto run = static_cast<std::size_t>(changed.right - changed.left);
  RunWriter before, after;
  for (int y = changed.top; y < changed.bottom; ++y) {
    Colour* was = row(y) + changed.left;
    const Colour* is = canvas.keptRow(y) + changed.left;
    before.add(was, run);
    after.add(is, run);
    std::copy_n(is, run, was);
  }
  patches.push_back({changed, before.take(), after.take()});
}

void PictureMemory::putBefore(Canvas& canvas, const Patches& patches) {
  std::for_each(patches.rbegin(), patches.rend(),
                [&](const KeptPatch& patch) { put(canvas, patch.box, patch.before); });
  takeOver(canvas);
}

void PictureMemory::putAfter(Canvas& canvas, const Patches& patches) {
  for (const KeptPatch& patch : patches) put(canvas, patch.box, patch.after);
  takeOver(canvas);
}

/// Remembers what stands where strokes went since the last look.
void PictureMemory::takeOver(Canvas& canvas) {
  const Canvas::KeptBoxes kept = canvas.takeKept();
  for (std::size_t i = 0; i < kept.count; ++i) {
    const Canvas::Dirty& box = kept.boxes[i];
    for (int y = box.top; y < box.bottom; ++y)
      std::copy_n(canvas.keptRow(y) + box.left, box.right - box.left, row(y) + box.left);
  }
}

void PictureMemory::put(Canvas& canvas, const Canvas::Dirty& box, const Runs& runs) {
  canvas.putBack(box, unpacked(runs).data());
}

}  // namespace gridwright
