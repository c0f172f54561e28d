// Pages by way of Qt, for both tenants: their paper, the picture on it, and what stands beside that.
#pragma once

#include "canvas/bitmap_view.h"
#include "state/page_setup.h"

class QPageLayout;
class QPagedPaintDevice;
class QPageSize;
class QPainter;

namespace gridwright {

/// The paper as Qt knows it, and the other way round.
QPageSize qtPaper(const PaperSize& size);
PaperSize paperOf(const QPageSize& size);
Margins marginsOf(const QPageLayout& layout);

/// A setup with what a dialog has changed of a page's layout, and no more: the rest is as usual still.
PageSetup withChanges(PageSetup setup, const QPageLayout& before, const QPageLayout& after);

/// Lays the device's page as a person has set it; to be called before its page begins. What is not set is as
/// in `usual`, and the page turned to the picture's shape. Of each side no margin takes more than a quarter.
void layPage(QPagedPaintDevice& device, const QPageLayout& usual, const BitmapView& picture,
             const PageSetup& setup);

/// How a picture is put on a page.
enum class PictureInk {
  pixels,      ///< As they stand, without loss: for printers, which draw them fastest.
  rectangles,  ///< Of one colour each, where `mostPatches` of its cells are enough; else the same as pixels.
};

/// Paints the picture fitted to the printable area, aspect kept, pixel for pixel sharp; with a head above it
/// where there is a title or a line for a name, and words beside its ends, where the fewest lines are under
/// them. Words need an application object, for its fonts.
void paintPage(QPainter& painter, const BitmapView& picture, const PageLook& look = {},
               PictureInk ink = PictureInk::pixels);

}  // namespace gridwright
